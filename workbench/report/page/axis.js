// Ticks of a category axis: the narrowest of a chart's rungs for whose labels there is room.

// Pixels that a label takes with the gap beside it, from the longest of some labels.
function labelWidth(labels) {
  const sample = labels.filter((_, i) => i % Math.ceil(labels.length / 50) === 0);
  return 22 + 6.5 * Math.min(24, Math.max(...sample.map((label) => label.length)));
}

function categoryTicks(number, from, to, width) {
  const chart = report.charts[number];
  const count = labelsOf(chart).length;
  chart.labelWidth ??= labelWidth(labelsOf(chart));
  const apart = ((to - from) * chart.labelWidth) / Math.max(width, chart.labelWidth);
  const [step, places] = chart.ticks.find(([wide]) => wide >= apart) ?? chart.ticks.at(-1);
  const begin = Math.max(0, Math.ceil(from));
  const end = Math.min(count - 1, Math.floor(to));
  const every = (first) =>
    Array.from({ length: Math.max(0, Math.floor((end - first) / step) + 1) }, (_, k) => first + k * step);
  const ticks = Array.isArray(places)
    ? places.filter((place) => place >= begin && place <= end)
    : every(places + step * Math.max(0, Math.ceil((begin - places) / step)));
  return ticks.length > 1 ? ticks : every(begin);
}

const categoryLabel = (number, place) => labelsOf(report.charts[number])[Math.round(place)] ?? '';

// Texts reach Vega by call, never as literals: it would take "constructor" for the name of a signal.
const chartText = (number, which) => report.charts[number][which];
