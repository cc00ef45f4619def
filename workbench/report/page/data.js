// The report's data: columns that charts share, and the rows that a chart draws.

const report = JSON.parse(document.getElementById('report-data').textContent);

// Digits are grouped by the one of point and comma that does not stand before decimals.
const thousands = report.decimal === ',' ? '.' : ',';

// A number in English writing ("1,234.5") as the page's language writes it.
const inLanguage = (text) => text.replace(/[.,]/g, (sign) => (sign === '.' ? report.decimal : thousands));

const labelsOf = (chart) => report.columns[chart.categories];

const isBand = (series) => series.kind === 'band';

// What a series says of its points: values, or the lower edges of a band.
const valuesOf = (series) => report.columns[isBand(series) ? series.low : series.y];

const lowOf = (series) => report.columns[series.low];
const highOf = (series) => report.columns[series.high];

const present = (value) => value !== null && value !== undefined;

// Place on the axis of a series' i-th point.
const placeOf = (series, i) => ('start' in series ? series.start + i : report.columns[series.x][i]);

// Indexes of the points of a series at a place, in order.
function pointsAt(series, place) {
  if ('start' in series) {
    const i = place - series.start;
    return i >= 0 && i < valuesOf(series).length ? [i] : [];
  }
  if (!series.byPlace) {
    series.byPlace = new Map();
    report.columns[series.x].forEach((x, i) => series.byPlace.set(x, [...(series.byPlace.get(x) || []), i]));
  }
  return series.byPlace.get(place) || [];
}

// Calls `use` with the index of every point of a series on the places from..to.
function forPointsWithin(series, from, to, use) {
  const count = valuesOf(series).length;
  const known = 'start' in series;
  const end = known ? Math.min(count - 1, Math.floor(to) - series.start) : count - 1;
  for (let i = known ? Math.max(0, Math.ceil(from) - series.start) : 0; i <= end; i++) {
    if (known || (placeOf(series, i) >= from && placeOf(series, i) <= to)) use(i);
  }
}

// Indexes of the points to draw while the places from..to are shown: all of them, and of a long series those in view,
// at the finest of its levels that is not too many.
function drawnPoints(series, from, to) {
  const all = valuesOf(series);
  if (!series.levels) return Array.from(all.keys());
  const share = Math.min(1, (to - from) / all.length);
  const level = series.levels.find((column) => report.columns[column].length * share <= 2 * report.sample);
  const inView = (i) => placeOf(series, i) >= from - 1 && placeOf(series, i) <= to + 1;
  if (all.length * share > 2 * report.sample) {
    const kept = report.columns[level ?? series.levels.at(-1)];
    const begin = Math.max(0, kept.findIndex(inView) - 1);
    const end = kept.findLastIndex(inView) + 2;
    return kept.slice(begin, end);
  }
  const kept = [];
  forPointsWithin(series, from - 1, to + 1, (i) => kept.push(i));
  return kept;
}

// Whether a point is marked by itself: in a short series, and where a line has no neighbour to lead to.
function standsAlone(chart, series, i) {
  const values = valuesOf(series);
  return (values.length <= 24 && !chart.small) || (!present(values[i - 1]) && !present(values[i + 1]));
}

// The last value of a series, and its place.
function lastPoint(series) {
  const i = valuesOf(series).findLastIndex(present);
  return { x: placeOf(series, i), y: valuesOf(series)[i] };
}

// The row of a point: y is the value or the upper edge, y2 the lower edge or the base.
function rowOf(chart, series, i) {
  const row = { x: placeOf(series, i), i };
  if ('high' in series) return { ...row, y: highOf(series)[i], y2: lowOf(series)[i] };
  return { ...row, y: valuesOf(series)[i], y2: 0, dot: present(valuesOf(series)[i]) && standsAlone(chart, series, i) };
}

// Rows for the data set "points". The first series comes last, so that it is drawn above the others; one that continues
// another begins at that one's last value.
function chartRows(chart) {
  const rows = [];
  chart.series.forEach((series, s) => {
    const own = drawnPoints(series, chart.from, chart.to).map((i) => ({ s, ...rowOf(chart, series, i) }));
    if ('continues' in series) {
      const { x, y } = lastPoint(chart.series[series.continues]);
      own.unshift({ s, x, y, y2: y, dot: false });
    }
    rows.unshift(...own);
  });
  return rows;
}

// [lowest, highest] of what is drawn on the places from..to, for the value axis.
function valueRange(chart, from, to) {
  if (chart.yRange) return chart.yRange;
  let [low, high] = chart.besides ?? [Infinity, -Infinity];
  const reach = (value) => {
    if (!present(value)) return;
    low = Math.min(low, value);
    high = Math.max(high, value);
  };
  for (const series of chart.series) {
    const edges = 'high' in series ? [lowOf(series), highOf(series)] : [valuesOf(series)];
    forPointsWithin(series, from, to, (i) => edges.forEach((values) => reach(values[i])));
    if ('continues' in series && from < lastPoint(chart.series[series.continues]).x)
      reach(lastPoint(chart.series[series.continues]).y);
  }
  for (const [dimension, at] of chart.lines ?? []) if (dimension === 2) reach(at);
  for (const [, y, radius] of chart.circles ?? []) [y - radius, y + radius].forEach(reach);
  if (chart.zero) reach(0);
  if (low > high) return [0, 1];
  const pad = low < high ? 0 : Math.abs(low) / 20 || 1;
  return [low - pad, high + pad];
}
