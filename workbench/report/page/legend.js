// The names of a chart's series beside how they are drawn: words of the page, that wrap where there is no room.

// Series of one name are told once; a single unnamed one is not.
function legendEntries(charts) {
  const entries = new Map();
  for (const series of charts.flatMap((chart) => chart.series))
    if (series.name && !entries.has(series.name)) entries.set(series.name, series);
  return [...entries.values()];
}

// Bands grow darker inwards, where they lie on each other.
const bandOpacity = (series) => 1 - (1 - BAND_OPACITY) ** ((series.depth ?? 0) + 1);

const swatchOpacity = (series) => {
  if (isBand(series)) return bandOpacity(series);
  return series.kind === 'line' ? lineOpacity(series) : 1;
};

// The swatch of a series as a mark of a picture of 18 by 12 pixels.
function swatch(series) {
  const look = { opacity: swatchOpacity(series), fill: colorOf(series) };
  if (series.kind === 'point') return svgElement('circle', { cx: 9, cy: 6, r: 4.5, ...look });
  if (series.kind !== 'line') return svgElement('rect', { x: 3, y: 1, width: 11, height: 10, rx: 2, ...look });
  const dashes = DASHES[(series.dash ?? 0) % DASHES.length].join(' ') || 'none';
  const stroke = { stroke: colorOf(series), 'stroke-width': Math.min(5, lineWidth(series) + 0.5) };
  return svgElement('line', { x1: 0, x2: 18, y1: 6, y2: 6, ...look, ...stroke, 'stroke-dasharray': dashes });
}

function svgElement(name, attributes, ...children) {
  const element = document.createElementNS('http://www.w3.org/2000/svg', name);
  for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
  element.append(...children);
  return element;
}

function makeLegend(charts, title) {
  const list = document.createElement('ul');
  list.className = 'legend';
  if (title && !charts[0].single) {
    const heading = document.createElement('li');
    heading.className = 'legend-title';
    heading.textContent = title;
    list.append(heading);
  }
  for (const series of legendEntries(charts)) {
    const entry = document.createElement('li');
    const name = document.createElement('span');
    name.textContent = series.name;
    entry.append(svgElement('svg', { width: 18, height: 12, 'aria-hidden': true }, swatch(series)), name);
    list.append(entry);
  }
  return list;
}

function addLegends() {
  for (const frame of document.querySelectorAll('.chart > .chart-frame')) {
    const chart = report.charts[Number(frame.dataset.chart)];
    chart.opens = Boolean(frame.closest('.opening'));
    if (legendEntries([chart]).length > 0) frame.before(makeLegend([chart], chart.legendTitle));
  }
  for (const grid of document.querySelectorAll('.panel')) {
    const panel = report.panels[Number(grid.dataset.panel)];
    const charts = chartsOf(panel);
    for (const chart of charts) chart.small = true;
    if (legendEntries(charts).length > 1) grid.before(makeLegend(charts, panel.legendTitle));
  }
}
