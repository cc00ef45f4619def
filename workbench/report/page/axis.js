// Ticks of a category axis, thinned out so that labels have room, on round periods where the labels are dates.

// Pixels that a label takes with the gap beside it, from the longest of some labels.
function labelWidth(labels) {
  const sample = labels.filter((_, i) => i % Math.ceil(labels.length / 50) === 0);
  return 22 + 6.5 * Math.min(24, Math.max(...sample.map((label) => label.length)));
}

// {cycle, year(i)} of labels that count a year and something in it ("1959Q1", "Q1 1959", "1959-01"), else cycle 1.
function findCycle(labels) {
  const parts = (label) => {
    const year = /\d{4}/.exec(label);
    return year && { year: Number(year[0]), rest: label.replace(year[0], '') };
  };
  const head = labels.slice(0, 80).map(parts);
  if (head.length < 2 || head.some((part) => !part)) return { cycle: 1 };
  const year = (i) => parts(labels[i])?.year;
  if (head.every((part) => part.rest === '')) return { cycle: 1, year };
  const cycle = head.findIndex((part, i) => i > 0 && part.rest === head[0].rest);
  const repeats = cycle > 1 && head.every((part, i) => i < cycle || part.rest === head[i - cycle].rest);
  return repeats ? { cycle, year } : { cycle: 1 };
}

// The smallest round step of at least `wanted` places: 1, 2, 5, 10, ... years, below a year its divisors.
function roundStep(wanted, cycle) {
  for (let step = 1; step < cycle; step++) if (cycle % step === 0 && step >= wanted) return step;
  for (let power = cycle; ; power *= 10) {
    for (const factor of [1, 2, 5]) if (factor * power >= wanted) return factor * power;
  }
}

// A place that gets a tick: the first of a year that is a multiple of the step.
function anchorOf(labels, { cycle, year }, step) {
  if (!year) return labels.length > 2 * step && step > 1 ? step - 1 : 0;
  const years = Math.max(1, step / cycle);
  for (let i = 1; i < labels.length && i <= step + cycle; i++) {
    if (year(i) !== year(i - 1) && year(i) % years === 0) return i;
  }
  return 0;
}

function categoryTicks(number, from, to, width) {
  const chart = report.charts[number];
  const labels = labelsOf(chart);
  chart.cycle ??= findCycle(labels);
  chart.labelWidth ??= labelWidth(labels);
  const room = Math.max(2, Math.floor(width / chart.labelWidth));
  const step = roundStep((to - from) / room, chart.cycle.cycle);
  const anchor = anchorOf(labels, chart.cycle, step);
  const first = Math.max(0, Math.ceil(from));
  const ticks = [];
  for (let place = first + ((((anchor - first) % step) + step) % step); place <= to; place += step) {
    if (place < labels.length) ticks.push(place);
  }
  return ticks;
}

const categoryLabel = (number, place) => labelsOf(report.charts[number])[Math.round(place)] ?? '';

// Texts reach Vega by call, never as literals: it would take "constructor" for the name of a signal.
const chartText = (number, which) => report.charts[number][which];

vega.expressionFunction('categoryTicks', categoryTicks);
vega.expressionFunction('categoryLabel', categoryLabel);
vega.expressionFunction('chartText', chartText);
