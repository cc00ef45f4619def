// The data of a chart as a table: made when it is asked for, some rows at a time.

const ROWS_AT_ONCE = 200;

// A cell in full precision, as files and spreadsheets take it.
const full = (cell) => String(cell ?? '');

// Texts stay as they are.
const shownCell = (cell) => (typeof cell === 'number' ? inLanguage(full(cell)) : full(cell));

// Header and rows of texts and numbers. A row a category with a column a series; where a series has several points at
// one category, a row a point.
function dataRows(chart) {
  const labels = labelsOf(chart);
  const repeated = chart.series.some(
    (series) => 'x' in series && new Set(report.columns[series.x]).size < valuesOf(series).length,
  );
  if (repeated) {
    const rows = chart.series.flatMap((series) =>
      valuesOf(series).map((value, i) => [labels[placeOf(series, i)], series.name, value]),
    );
    return { header: [chart.xLabel, report.texts.series, chart.yLabel], rows };
  }
  const header = [chart.xLabel, ...chart.series.map((series) => series.name || chart.yLabel)];
  const cell = (series, place) => valuesOf(series)[pointsAt(series, place)[0]];
  const rows = labels.map((label, place) => [label, ...chart.series.map((series) => cell(series, place))]);
  return { header, rows };
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
    cell.textContent = shownCell(content);
    row.append(cell);
  });
  return row;
}

function fillDataView(place, chart) {
  const { header, rows } = dataRows(chart);
  const table = document.createElement('table');
  table.className = 'pivot';
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
  scroll.tabIndex = 0;
  scroll.append(table);
  const tools = document.createElement('div');
  tools.className = 'data-tools';
  const lines = () => [header, ...rows].map((row) => row.map(full));
  tools.append(
    makeButton(report.texts.copy, (event) => copyText(tabSeparated(lines()), event.currentTarget)),
    makeButton(report.texts.saveCsv, () =>
      saveFile(new Blob([commaSeparated(lines())], { type: 'text/csv' }), fileName(chart, 'csv')),
    ),
  );
  place.append(tools, scroll, more);
}

function fillDataViewsOnRequest() {
  for (const details of document.querySelectorAll('details.data')) {
    const frame = details.parentElement.querySelector('.chart-frame');
    const place = details.querySelector('.data-view');
    details.addEventListener('toggle', () => {
      if (details.open && !place.hasChildNodes()) fillDataView(place, report.charts[Number(frame.dataset.chart)]);
    });
  }
}
