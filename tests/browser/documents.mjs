// Output documents for the tests: tables and charts as the procedure writes them, from plain values.

import { readFileSync } from 'node:fs';

const read = (path) => readFileSync(new URL(`../../${path}`, import.meta.url), 'utf8');

// Columns of the example data by name, and the labels of its quarters.
export function macroData() {
  const [header, ...rows] = read('examples/us_macro_quarterly.csv')
    .trim()
    .split(/\r?\n/)
    .map((line) => line.split(','));
  const columns = Object.fromEntries(header.map((name, i) => [JSON.parse(name), rows.map((row) => Number(row[i]))]));
  const labels = columns.year.map((year, i) => `${year}Q${columns.quarter[i]}`);
  return { columns, labels };
}

// Names that a variable may have.
export const hostileNames = [...JSON.parse(read('tests/render/hostile_names.json')), 'n'.repeat(300)];

// How a page shows them: control characters are made visible, so that nothing acts.
export const visible = (name) =>
  name
    .replace(/[\0-\x1f\x7f]/g, (c) => `^${String.fromCharCode(c.charCodeAt(0) ^ 64)}`)
    .replace(/[\x80-\x9f\u2028-\u202e\u2066-\u2069]/g, '\ufffd');

const line = (color) => `line(position(xdata*ydata), color(${color}), size(size."1"))`;
const square = 'shape.interior(shape.square), size(size."20")';
const bars = `interval(position(xdata*ydata), color.interior(color.blue), ${square})`;
const area = 'area(position(xdata*ydata), color.interior(color.red), color.exterior(color.red))';

// The lines of a chart's specification. Texts stand in them without any escaping; colours are [[series, colour], ...].
function vizl({ kind, title, xLabel = 'Date', yLabel = 'Values', colors = [], source = 'VAR' }) {
  const entries = [...colors].sort(([a], [b]) => (a < b ? -1 : 1)).map(([name, color]) => `("${name}", ${color})`);
  return [
    `SOURCE: s = userSource(id("${source}"))`,
    'DATA: xdata  = col(source(s), name("xdata"), unit.category())',
    'DATA: ydata  = col(source(s), name("ydata"))',
    kind === 3 && 'DATA: seriesname = col(source(s), name("seriesname"), unit.category())',
    'GRAPH: begin()',
    'SCALE: cat(dim(1), sort.data())',
    kind === 1 && 'SCALE: linear(dim(2), min(-1), max(1))',
    entries.length > 0 && `SCALE: cat(aesthetic(aesthetic.color), map(${entries.join(', ')}))`,
    `GUIDE: axis(dim(2),label("${yLabel}"))`,
    `GUIDE: axis(dim(1),label("${xLabel}"))`,
    `GUIDE: text.title(label("${title}"))`,
    `GUIDE: legend(aesthetic(aesthetic.color${kind === 1 ? '.interior' : ''}), ` +
      `label("${['Observed', 'ACF', 'Observed', 'Variable'][kind]}"))`,
    `ELEMENT: ${[line('color.red'), bars, area, line('seriesname')][kind]}`,
    'GRAPH: end()',
  ].filter(Boolean);
}

// series: [[name, labels, values], ...]; the one-series kinds take the first.
export function chart(description, ...series) {
  const columns = { xdata: series.flatMap(([, x]) => x), ydata: series.flatMap(([, , y]) => y) };
  if (description.kind === 3) columns.seriesname = series.flatMap(([name, x]) => x.map(() => name));
  return { type: 'chart', name: description.title, columns, vizl: vizl(description) };
}

export function table(title, rows, columns, cells, more = {}) {
  return {
    type: 'table',
    title,
    rowDimension: { label: 'Variable', shown: true },
    columns: columns.map((column) => (typeof column === 'string' ? { label: column } : column)),
    rows,
    cells,
    ...more,
  };
}

export const document = (items) => ({ procedure: 'Vector Autoregressive Models', subtitle: '', items });
