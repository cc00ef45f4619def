// Charts of the kinds that the chart language has beyond those of one table's lines, bars and areas, from plain values.

// Declares the columns (texts as categories) and labels title and axes.
function chartItem(title, [x, y], columns, ...statements) {
  const declare = ([name, cells]) =>
    `DATA: ${name} = col(source(s), name("${name}")${typeof cells[0] === 'string' ? ', unit.category()' : ''})`;
  const guides = [`text.title(label("${title}"))`, `axis(dim(1),label("${x}"))`, `axis(dim(2),label("${y}"))`];
  const frame = ['SCALE: cat(dim(1), sort.data())', ...Object.entries(columns).map(declare)];
  return { type: 'chart', name: title, columns, vizl: [...frame, ...guides.map((text) => `GUIDE: ${text}`), ...statements] };
}

// Observed values, and forecasts that rise by one a step inside bands level * step / 10 to either side.
export function fan(labels, observed, ahead, levels = [50, 95, 80]) {
  const future = ahead.map((_, i) => observed.at(-1) + i + 1);
  const edge = (width) => [...labels.map(() => null), ...future.map((y, i) => y + (width * (i + 1)) / 10)];
  const columns = {
    x: [...labels, ...ahead],
    y: [...observed, ...future],
    name: [...labels.map(() => 'Observed'), ...ahead.map(() => 'Forecast')],
  };
  for (const level of levels) Object.assign(columns, { [`low${level}`]: edge(-level), [`high${level}`]: edge(level) });
  const band = (level) => `band(position(x*low${level}*high${level}), color.interior(color.blue), label("${level}%"))`;
  const colors = 'SCALE: cat(aesthetic(aesthetic.color), map(("Forecast", color.blue), ("Observed", color.black)))';
  const elements = [...levels.map(band), 'line(position(x*y), color(name))'].map((text) => `ELEMENT: ${text}`);
  return chartItem('Fan', ['Date', 'Value'], columns, colors, ...elements);
}

// Points in the unit circle: [[real, imaginary], ...].
export function roots(points) {
  const columns = {
    said: points.map(([re, im]) => `modulus ${Math.hypot(re, im).toFixed(3)}`),
    re: points.map(([re]) => re),
    im: points.map(([, im]) => im),
  };
  return chartItem('Roots', ['Real', 'Imaginary'], columns,
    'SCALE: equal(dim(1), dim(2))', 'GUIDE: circle(at(0, 0), radius(1))', 'GUIDE: line(dim(1), at(0))',
    'GUIDE: line(dim(2), at(0))', 'ELEMENT: point(position(re*im), color(color.blue), text(said), label("Roots"))');
}

// Rows for every pair of names and step 0..steps; value(response, shock, step) counts from 0.
export function panel(names, steps, value) {
  const columns = { h: [], response: [], shock: [], y: [], low: [], high: [] };
  names.forEach((response, i) =>
    names.forEach((shock, j) => {
      for (let k = 0; k <= steps; k++) {
        const row = { h: String(k), response, shock, y: value(i, j, k) };
        Object.assign(row, { low: row.y - 0.5, high: row.y + 0.5 });
        for (const [name, cell] of Object.entries(row)) columns[name].push(cell);
      }
    }),
  );
  return chartItem('Responses', ['Horizon', 'Response'], columns,
    'PANEL: rows(response), columns(shock)', 'GUIDE: line(dim(2), at(0))',
    'ELEMENT: band(position(h*low*high), color.interior(color.blue), label("95%"))',
    'ELEMENT: line(position(h*y), color(color.blue), label("Response"))');
}

// series: [[name, values], ...] over the labels, stacked as areas, or as bars below a line of their sums.
export function stacked(labels, series, bars, window = 0) {
  const sums = labels.map((_, i) => series.reduce((sum, [, values]) => sum + values[i], 0));
  const columns = {
    x: series.flatMap(() => labels),
    name: series.flatMap(([name, values]) => values.map(() => name)),
    y: series.flatMap(([, values]) => values),
    sum: series.flatMap((_, s) => sums.map((sum) => (s === 0 ? sum : null))),
  };
  const line = ['ELEMENT: line(position(x*sum), color(color.black), label("Sum"))'];
  const stack = `ELEMENT: ${bars ? 'interval' : 'area'}(position(x*y), color(name), stack())`;
  if (window > 0) line.unshift(`GUIDE: window(dim(1), last(${window}))`);
  return chartItem(bars ? 'Contributions' : 'Shares', ['Date', 'Percent'], columns, stack, ...(bars ? line : []));
}
