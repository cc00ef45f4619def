// The data of a chart as a table: made when it is asked for, some rows at a time.

const ROWS_AT_ONCE = 200;

// A cell in full precision, as files and spreadsheets take it.
const full = (cell) => String(cell ?? '');

// Texts stay as they are.
const shownCell = (cell) => (typeof cell === 'number' ? inLanguage(full(cell)) : full(cell));

// A point a row, with its own text, of a chart whose axes are both numbers.
function pointRows(chart) {
  const texts = chart.series.some((series) => 'texts' in series);
  const row = (series, i) => [
    series.name,
    placeOf(series, i),
    valuesOf(series)[i],
    ...(texts ? [report.columns[series.texts]?.[i]] : []),
  ];
  const header = [report.texts.series, chart.xLabel, chart.yLabel, ...(texts ? [report.texts.remark] : [])];
  return { header, rows: chart.series.flatMap((series) => valuesOf(series).map((_, i) => row(series, i))) };
}

// A point a row, where a series has several at one category.
function repeatedRows(chart) {
  const labels = labelsOf(chart);
  const rows = chart.series.flatMap((series) =>
    valuesOf(series).map((value, i) => [labels[placeOf(series, i)], series.name, value]),
  );
  return { header: [chart.xLabel, report.texts.series, chart.yLabel], rows };
}

// The columns of a series: name and values.
function seriesColumns(chart, series) {
  const name = series.name || chart.yLabel;
  if (!isBand(series)) return [[name, series, valuesOf(series)]];
  return [
    [report.texts.lower.replace('^1', name), series, lowOf(series)],
    [report.texts.upper.replace('^1', name), series, highOf(series)],
  ];
}

// Header and rows of texts and numbers: a row a category, a column a series.
function dataRows(chart) {
  if (chart.numeric) return pointRows(chart);
  const repeated = chart.series.some(
    (series) => 'x' in series && new Set(report.columns[series.x]).size < valuesOf(series).length,
  );
  if (repeated) return repeatedRows(chart);
  const columns = chart.series.flatMap((series) => seriesColumns(chart, series));
  const rows = labelsOf(chart).map((label, place) => [
    label,
    ...columns.map(([, series, values]) => values[pointsAt(series, place)[0]]),
  ]);
  return { header: [chart.xLabel, ...columns.map(([name]) => name)], rows };
}

// The rows of all cells of a panel, each with its chart's title.
function panelRows(panel) {
  const parts = chartsOf(panel).map((chart) => [chart.title, dataRows(chart)]);
  return {
    header: [report.texts.chart, ...parts[0][1].header],
    rows: parts.flatMap(([title, { rows }]) => rows.map((row) => [title, ...row])),
  };
}

function makeButton(text, action) {
  const button = document.createElement('button');
  button.type = 'button';
  button.textContent = text;
  button.addEventListener('click', action);
  return button;
}

function makeRow(cells, tag, scope) {
  const row = document.createElement('tr');
  cells.forEach((content, i) => {
    const cell = document.createElement(i === 0 ? 'th' : tag);
    if (i === 0 || tag === 'th') cell.scope = i === 0 ? scope : 'col';
    if (i === 0 && tag === 'th') cell.className = 'corner';
    cell.textContent = shownCell(content);
    row.append(cell);
  });
  return row;
}

function fillDataView(place, owner, { header, rows }) {
  const table = document.createElement('table');
  table.className = 'pivot';
  table.ariaLabel = owner.title;
  table.createTHead().append(makeRow(header, 'th', 'col'));
  const body = table.createTBody();
  const more = makeButton('', () => showMore());
  const showMore = () => {
    const shown = body.rows.length;
    body.append(...rows.slice(shown, shown + ROWS_AT_ONCE).map((row) => makeRow(row, 'td', 'row')));
    const left = rows.length - body.rows.length;
    more.hidden = left === 0;
    more.textContent = report.texts.showMore
      .replace('^1', Math.min(left, ROWS_AT_ONCE))
      .replace('^2', left);
  };
  showMore();
  const scroll = document.createElement('div');
  scroll.className = 'scroll';
  Object.assign(scroll, { tabIndex: 0, role: 'region', ariaLabel: owner.title });
  scroll.append(table);
  const tools = document.createElement('div');
  tools.className = 'data-tools';
  const lines = () => [header, ...rows].map((row) => row.map(full));
  tools.append(
    makeButton(report.texts.copy, (event) => copyText(tabSeparated(lines()), event.currentTarget)),
    makeButton(report.texts.saveCsv, () =>
      saveFile(new Blob([commaSeparated(lines())], { type: 'text/csv' }), fileName(owner, 'csv')),
    ),
  );
  place.append(tools, scroll, more);
}

function fillDataViewsOnRequest() {
  for (const details of document.querySelectorAll('details.data')) {
    const { chart, panel } = details.parentElement.querySelector('[data-panel], [data-chart]').dataset;
    const owner = panel === undefined ? report.charts[Number(chart)] : report.panels[Number(panel)];
    const place = details.querySelector('.data-view');
    details.addEventListener('toggle', () => {
      if (!details.open || place.hasChildNodes()) return;
      fillDataView(place, owner, panel === undefined ? dataRows(owner) : panelRows(owner));
    });
  }
}
