// The report's data: columns that charts share, and the rows that a chart draws.

const report = JSON.parse(document.getElementById('report-data').textContent);

// Digits are grouped by the one of point and comma that does not stand before decimals.
const thousands = report.decimal === ',' ? '.' : ',';

vega.formatLocale({ decimal: report.decimal, thousands, grouping: [3], currency: ['', ''] });

// A number in English writing ("1,234.5") as the page's language writes it.
const inLanguage = (text) => text.replace(/[.,]/g, (sign) => (sign === '.' ? report.decimal : thousands));

const valuesOf = (series) => report.columns[series.y];

// Place on the axis of a series' i-th point.
const placeOf = (series, i) => ('start' in series ? series.start + i : report.columns[series.x][i]);

const labelsOf = (chart) => report.columns[chart.categories];

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

// Indexes of at most about `most` of the points `candidates`: of each run of neighbours the lowest and the highest, so
// that no extreme is lost.
function thinOut(values, candidates, most) {
  if (candidates.length <= most) return candidates;
  const kept = [];
  const run = (2 * candidates.length) / most;
  for (let begin = 0; begin < candidates.length; begin += run) {
    const part = candidates.slice(Math.floor(begin), Math.floor(begin + run));
    let low = part[0];
    let high = part[0];
    for (const i of part) {
      if (values[i] < values[low]) low = i;
      if (values[i] > values[high]) high = i;
    }
    kept.push(Math.min(low, high));
    if (low !== high) kept.push(Math.max(low, high));
  }
  return kept;
}

// Indexes of the points to draw while the places from..to are shown: a sample of those in view, and a sample of all,
// which keeps the value axis as it is.
function drawnPoints(series, from, to) {
  const values = valuesOf(series);
  const all = Array.from(values.keys());
  if (all.length <= report.sample) return all;
  const inView = all.filter((i) => placeOf(series, i) >= from - 1 && placeOf(series, i) <= to + 1);
  const seen = new Set(thinOut(values, inView, report.sample / 2));
  const outside = (i) => placeOf(series, i) < from - 1 || placeOf(series, i) > to + 1;
  for (const i of thinOut(values, all, report.sample / 2)) if (outside(i)) seen.add(i);
  return [...seen].sort((a, b) => a - b);
}

// Whether a point is marked by itself: in a short series, and where a line has no neighbour to lead to.
function standsAlone(values, i) {
  const gap = (k) => values[k] === null || values[k] === undefined;
  return values.length <= 24 || (gap(i - 1) && gap(i + 1));
}

// Rows for the data set "points". The first series comes last, so that it is drawn above the others.
function chartRows(chart, from, to) {
  const rows = [];
  for (const series of [...chart.series].reverse()) {
    const values = valuesOf(series);
    for (const i of drawnPoints(series, from, to)) {
      const dot = values[i] !== null && standsAlone(values, i);
      rows.push({ x: placeOf(series, i), y: values[i], series: series.name, dot });
    }
  }
  return rows;
}
