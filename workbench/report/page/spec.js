// A chart's model as a Vega-Lite object.

const HEIGHT = 260;
const OPENING_HEIGHT = 195; // two find room on the first screen
const SMALL_HEIGHT = 110;

// Scientific where plain numbers would have a dozen digits; nothing for the usual format.
function numberFormat(chart) {
  let largest = 0;
  for (const series of chart.series)
    for (const value of valuesOf(series)) if (present(value)) largest = Math.max(largest, Math.abs(value));
  return largest >= 1e9 || (largest > 0 && largest < 1e-4) ? { format: '.2~e' } : {};
}

function plotHeight(chart) {
  if (chart.small) return SMALL_HEIGHT;
  return chart.opens ? OPENING_HEIGHT : HEIGHT;
}

const chartSignal = (chart, which) => ({ signal: `chartText(${report.charts.indexOf(chart)}, '${which}')` });

function titleOf(chart, which) {
  return chart.small ? null : chartSignal(chart, which);
}

function categoryAxis(chart) {
  const number = report.charts.indexOf(chart);
  return {
    title: titleOf(chart, 'xLabel'),
    titleLimit: { signal: 'width' },
    grid: false,
    values: { signal: `categoryTicks(${number}, from, to, width)` },
    labelExpr: `categoryLabel(${number}, datum.value)`,
    labelOverlap: 'greedy',
    labelFlush: false,
    labelLimit: 160,
  };
}

// Axes are bounded by the parameters from, to, low and high, which the page sets; bars would widen them by themselves.
const bounded = (from, to, nice) => ({ domainMin: expr(from), domainMax: expr(to), nice, zero: false, padding: 0 });

function xEncoding(chart) {
  const axis = chart.numeric
    ? { title: titleOf(chart, 'xLabel'), titleLimit: { signal: 'width' }, tickCount: 5, ...numberFormat(chart) }
    : categoryAxis(chart);
  return { field: 'x', type: 'quantitative', scale: bounded('from', 'to', false), axis };
}

function yEncoding(chart) {
  const tickCount = chart.small ? 3 : 5;
  const axis = { title: titleOf(chart, 'yLabel'), titleLimit: plotHeight(chart), tickCount, ...numberFormat(chart) };
  const nice = chart.yRange || chart.equal ? false : tickCount;
  return { field: 'y', type: 'quantitative', stack: null, scale: bounded('low', 'high', nice), axis };
}

// [from, to] of an axis of numbers.
function numberRange(chart) {
  if (chart.xRange) return chart.xRange;
  const all = chart.series.flatMap((series) => report.columns[series.x]).filter(present);
  for (const [dimension, at] of chart.lines ?? []) if (dimension === 1) all.push(at);
  for (const [x, , radius] of chart.circles ?? []) all.push(x - radius, x + radius);
  return all.length > 0 ? [Math.min(...all), Math.max(...all)] : [0, 1];
}

const widened = ([from, to], span) => [(from + to - span) / 2, (from + to + span) / 2];

// The parts of both axes that are shown: {from, to, low, high}.
function shownPart(chart, from = chart.from, to = chart.to) {
  const [low, high] = chart.numeric ? valueRange(chart, -Infinity, Infinity) : valueRange(chart, from, to);
  if (!chart.numeric) return { from, to, low, high };
  const x = numberRange(chart);
  const spans = [x[1] - x[0], high - low].map((span) => 1.08 * (span || 1));
  const [across, up] = chart.equal ? spans.map(() => Math.max(...spans)) : spans;
  const [[left, right], [bottom, top]] = [widened(x, across), widened([low, high], up)];
  return { from: left, to: right, low: bottom, high: top };
}

// Draws into a width of pixels, or into its container.
function chartSpec(chart, width = 'container') {
  const side = chart.equal && Math.min(360, Math.max(160, width - 75));
  return {
    description: chart.description,
    width: side || width,
    height: side || plotHeight(chart),
    autosize: { type: side ? 'pad' : 'fit-x', contains: 'padding' },
    params: Object.entries(shownPart(chart)).map(([name, value]) => ({ name, value })),
    data: { name: 'points' },
    layer: [
      ...guideLayers(chart),
      {
        encoding: {
          x: xEncoding(chart),
          y: yEncoding(chart),
          color: bySeries(chart, colorOf),
          detail: { field: 's', type: 'nominal' },
        },
        layer: seriesLayers(chart),
      },
    ],
  };
}
