// Output documents for the tests: tables and charts as the procedure writes them, from plain values.

import { readFileSync } from 'node:fs';

const root = new URL('../../', import.meta.url);

// Columns of the example data by name, and the labels of its quarters.
export function macroData() {
  const text = readFileSync(new URL('examples/us_macro_quarterly.csv', root), 'utf8');
  const [header, ...rows] = text
    .trim()
    .split(/\r?\n/)
    .map((line) => line.split(','));
  const columns = Object.fromEntries(header.map((name, i) => [JSON.parse(name), rows.map((row) => Number(row[i]))]));
  const labels = columns.year.map((year, i) => `${year}Q${columns.quarter[i]}`);
  return { columns, labels };
}

// The lines of a chart's specification. Texts stand in them without any escaping.
export function vizl({ kind, title, xLabel = 'Date', yLabel = 'Values', color = 'red', colors = {}, source = 'VAR' }) {
  const many = kind === 3 || kind === 4;
  const entries = Object.entries(colors).sort(([a], [b]) => (a < b ? -1 : 1));
  const legends = {
    0: [
      'GUIDE: legend(aesthetic(aesthetic.color), label("Observed"))',
      `ELEMENT: line(position(xdata*ydata), color(color.${color}), size(size."1"))`,
    ],
    1: [
      'GUIDE: legend(aesthetic(aesthetic.color.interior), label("ACF"))',
      'ELEMENT: interval(position(xdata*ydata), color.interior(color.blue), shape.interior(shape.square), size(size."20"))',
    ],
    2: [
      'GUIDE: legend(aesthetic(aesthetic.color), label("Observed"))',
      'ELEMENT: area(position(xdata*ydata), color.interior(color.red), color.exterior(color.red))',
    ],
    3: [
      'GUIDE: legend(aesthetic(aesthetic.color), label("Variable"))',
      'ELEMENT: line(position(xdata*ydata), color(seriesname), size(size."1"))',
    ],
  };
  return [
    `SOURCE: s = userSource(id("${source}"))`,
    'DATA: xdata  = col(source(s), name("xdata"), unit.category())',
    'DATA: ydata  = col(source(s), name("ydata"))',
    ...(many ? ['DATA: seriesname = col(source(s), name("seriesname"), unit.category())'] : []),
    'GRAPH: begin()',
    'SCALE: cat(dim(1), sort.data())',
    ...(kind === 1 ? ['SCALE: linear(dim(2), min(-1), max(1))'] : []),
    ...(many && entries.length
      ? [`SCALE: cat(aesthetic(aesthetic.color), map(${entries.map(([name, c]) => `("${name}", ${c})`).join(', ')}))`]
      : []),
    `GUIDE: axis(dim(2),label("${yLabel}"))`,
    `GUIDE: axis(dim(1),label("${xLabel}"))`,
    `GUIDE: text.title(label("${title}"))`,
    ...legends[many ? 3 : kind],
    'GRAPH: end()',
  ];
}

// series: [[name, labels, values], ...]; the one-series kinds take the first.
export function chart(description, ...series) {
  const columns = { xdata: series.flatMap(([, x]) => x), ydata: series.flatMap(([, , y]) => y) };
  if (description.kind >= 3) columns.seriesname = series.flatMap(([name, x]) => x.map(() => name));
  return { type: 'chart', name: description.title, columns, vizl: vizl(description) };
}

export function table(title, rows, columns, cells, more = {}) {
  return {
    type: 'table',
    name: title,
    title,
    rowDimension: { label: 'Variable', shown: true },
    columnDimension: { label: 'Statistics', shown: false },
    columns: columns.map((column) => (typeof column === 'string' ? { label: column } : column)),
    rows,
    cells,
    cellFormat: { type: 5, width: 10, decimals: 3 },
    ...more,
  };
}

export const document = (items) => ({ procedure: 'Vector Autoregressive Models', subtitle: '', items });

export const FORECAST_COLORS = { Observed: 'color.red', Fitted: 'color.blue', Forecast: 'color.blue' };
