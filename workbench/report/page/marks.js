// What a chart draws, as layers of a Vega-Lite object.

const HAIRLINE = 1.5; // what a line of size 1 is drawn with
const DASHES = [[], [5, 3], [2, 2], [9, 3]];
const BAND_OPACITY = 0.2;

const colorOf = (series) => `var(--chart-${series.color})`;
const lineWidth = (series) => (series.under ? 3 : 1) * Math.max(series.size ?? 1, 1) * HAIRLINE;
const lineOpacity = (series) => (series.under ? 0.75 : 1); // paler ones do not stand out from the ground

// A scale that gives each series its own value of some property.
function bySeries(chart, property) {
  const numbers = chart.series.map((_, s) => s);
  const range = chart.series.map(property);
  return { field: 's', type: 'nominal', scale: { domain: numbers, range }, legend: null };
}

const expr = (code) => ({ expr: code });

// A layer of the points of some series.
function layerOf(chart, chosen, mark, encoding = {}) {
  const numbers = chart.series.flatMap((series, s) => (chosen(series) ? [s] : []));
  if (numbers.length === 0) return [];
  return [{ transform: [{ filter: { field: 's', oneOf: numbers } }], mark: { clip: true, ...mark }, encoding }];
}

const withEdge = { y2: { field: 'y2' } };

// One layer a band, the widest first, so that nested ones grow darker inwards.
function bandLayers(chart) {
  const bands = chart.series.filter(isBand).sort((a, b) => (a.depth ?? 0) - (b.depth ?? 0));
  return bands.flatMap((band) =>
    layerOf(chart, (series) => series === band, { type: 'area', fillOpacity: BAND_OPACITY }, withEdge),
  );
}

function areaLayers(chart) {
  const stacked = (series) => series.kind === 'area' && 'high' in series;
  const plain = (series) => series.kind === 'area' && !('high' in series);
  const outline = chart.series.find(plain);
  const line = outline && {
    color: outline.outline ? `var(--chart-${outline.outline})` : colorOf(outline),
    strokeWidth: HAIRLINE,
    clip: true,
  };
  return [
    // A line of the ground parts them, so that they are told apart by more than their colour.
    ...layerOf(chart, stacked, { type: 'area', fillOpacity: 1, stroke: 'var(--paper)', strokeWidth: 1 }, withEdge),
    ...layerOf(chart, plain, { type: 'area', fillOpacity: 0.25, line }),
  ];
}

function barLayers(chart) {
  const bar = (series) => series.kind === 'interval';
  const widest = chart.series.find(bar)?.size ?? 20;
  const width = expr(`clamp(0.7 * width / (to - from), 1, ${Math.round(widest)})`);
  return layerOf(chart, bar, { type: 'bar', orient: 'vertical', width }, withEdge);
}

// A layer for each width of lines, wide ones below.
function lineLayers(chart) {
  const isLine = (series) => series.kind === 'line';
  const widths = [...new Set(chart.series.filter(isLine).map(lineWidth))].sort((a, b) => b - a);
  // A solid line has no dashes at all: a pattern without gaps looks the same, but is cut into as many pieces.
  const strokeDash = bySeries(chart, (series) => DASHES[(series.dash ?? 0) % DASHES.length]);
  const encoding = chart.series.some((series) => series.dash) ? { strokeDash } : {};
  return widths.flatMap((strokeWidth) => {
    const chosen = (series) => isLine(series) && lineWidth(series) === strokeWidth;
    const strokeOpacity = lineOpacity(chart.series.find(chosen));
    return layerOf(chart, chosen, { type: 'line', strokeJoin: 'round', strokeWidth, strokeOpacity }, encoding);
  });
}

function dotLayers(chart) {
  const lineOrArea = (series) => ['line', 'area'].includes(series.kind) && !('high' in series);
  const [dots] = layerOf(chart, lineOrArea, { type: 'circle', size: 22, opacity: 1 });
  if (!dots) return [];
  dots.transform.push({ filter: 'datum.dot' });
  return [dots];
}

function pointLayers(chart) {
  const point = (series) => series.kind === 'point';
  const diameter = chart.series.find(point)?.size ?? 9;
  return layerOf(chart, point, { type: 'circle', size: diameter ** 2, opacity: 0.85 });
}

// Lines and circles that stand for no data.
function guideLayers(chart) {
  const look = { clip: true, stroke: 'var(--zero)', strokeWidth: 1 };
  const along = { x: (field) => ({ ...xEncoding(chart), field }), y: (field) => ({ ...yEncoding(chart), field }) };
  const rules = (chart.lines ?? []).map(([dimension, at]) => ({
    data: { values: [{ at }] },
    mark: { type: 'rule', ...look },
    encoding: dimension === 1 ? { x: along.x('at') } : { y: along.y('at') },
  }));
  const corners = Array.from({ length: 181 }, (_, k) => [k, (k * Math.PI) / 90]);
  const circles = (chart.circles ?? []).map(([x, y, radius]) => ({
    data: {
      values: corners.map(([k, angle]) => ({ k, x: x + radius * Math.cos(angle), y: y + radius * Math.sin(angle) })),
    },
    mark: { type: 'line', ...look },
    encoding: { x: along.x('x'), y: along.y('y'), order: { field: 'k', type: 'quantitative' } },
  }));
  return [...rules, ...circles];
}

function seriesLayers(chart) {
  return [bandLayers, areaLayers, barLayers, lineLayers, dotLayers, pointLayers].flatMap((make) => make(chart));
}
