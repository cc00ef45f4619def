// Drawing charts, each when it comes near the visible part of the page.

const FONT = 'system-ui, -apple-system, "Segoe UI", Roboto, sans-serif';

const chartConfig = {
  background: 'transparent',
  font: FONT,
  view: { stroke: null },
  axis: {
    labelColor: 'var(--muted)',
    titleColor: 'var(--muted)',
    titleFontWeight: 'normal',
    labelFontSize: 11,
    titleFontSize: 12,
    titlePadding: 10,
    domainColor: 'var(--rule)',
    tickColor: 'var(--rule)',
    tickSize: 4,
    labelPadding: 5,
    gridColor: { condition: { test: 'datum.value === 0', value: 'var(--zero)' }, value: 'var(--grid)' },
  },
  axisY: { domain: false, ticks: false },
};

// Draws into an element; without one the view is only good for being saved.
function makeView(chart, specification, container) {
  const { spec } = vegaLite.compile(specification, { config: chartConfig });
  const view = new vega.View(vega.parse(spec, null, { ast: true }), {
    expr: vegaInterpreter.expressionInterpreter,
    renderer: container ? 'svg' : 'none',
    container,
    hover: false,
    tooltip: () => {},
  });
  view.insert('points', chartRows(chart));
  return view;
}

// Makes the parts of a chart's axis known: of categories, the part that is shown first.
function prepare(chart) {
  chart.length = chart.numeric ? 0 : labelsOf(chart).length;
  chart.from = chart.numeric ? -Infinity : chart.from - 0.5;
  chart.to = chart.numeric ? Infinity : chart.length - 0.5;
  chart.partBegins = chart.from;
}

function drawChart(frame) {
  const chart = report.charts[Number(frame.dataset.chart)];
  if (chart.view) return;
  prepare(chart);
  const drawing = document.createElement('div');
  drawing.className = 'drawing';
  frame.append(drawing);
  const width = chart.equal ? frame.clientWidth : 'container';
  chart.view = makeView(chart, chartSpec(chart, width), drawing).run();
  frame.classList.add('drawn');
  addTools(frame, chart);
  chart.numeric ? addPointInspection(frame, chart) : addInspection(frame, chart);
}

const isThinned = (chart) => chart.series.some((series) => 'levels' in series);

// Shows the places from..to, kept within the data and at least three wide.
function showPlaces(chart, from, to) {
  const wanted = Math.min(Math.max(to - from, Math.min(3, chart.length)), chart.length);
  const bars = chart.series.some((series) => series.kind === 'interval');
  const width = bars ? Math.round(wanted) : wanted; // a bar is shown whole or not at all
  const left = (from + to - width) / 2;
  const begin = bars ? Math.round(left + 0.5) - 0.5 : left;
  chart.from = Math.max(-0.5, Math.min(begin, chart.length - 0.5 - width));
  chart.to = chart.from + width;
  for (const [name, value] of Object.entries(shownPart(chart))) chart.view.signal(name, value);
  if (isThinned(chart)) {
    clearTimeout(chart.resample);
    chart.resample = setTimeout(() => {
      const rows = vega
        .changeset()
        .remove(() => true)
        .insert(chartRows(chart));
      chart.view.change('points', rows).run();
    }, 120);
  }
  chart.view.run();
  chart.labelPartButton?.();
}

// Halves or doubles what is shown around a place.
function zoom(chart, factor, around = (chart.from + chart.to) / 2) {
  showPlaces(chart, around - (around - chart.from) * factor, around + (chart.to - around) * factor);
}

const showAll = (chart) => showPlaces(chart, -0.5, chart.length - 0.5);

// The button between the last part of a long history and the whole of it.
function addPartButton(button, chart) {
  if (chart.numeric || chart.partBegins < 0) return;
  const labels = labelsOf(chart);
  const first = (whole) => labels[whole ? 0 : chart.partBegins + 0.5];
  const showsPart = () => chart.from > 0;
  chart.labelPartButton = () => (button.textContent = report.texts.showFrom.replace('^1', first(showsPart())));
  chart.labelPartButton();
  button.hidden = false;
  button.addEventListener('click', () =>
    showsPart() ? showAll(chart) : showPlaces(chart, chart.partBegins, chart.length - 0.5),
  );
}

function addTools(frame, chart) {
  const tools = frame.parentElement.querySelector('.chart-tools');
  if (!tools) return;
  const actions = {
    in: () => zoom(chart, 0.5),
    out: () => zoom(chart, 2),
    reset: () => showAll(chart),
    svg: () => saveSvg([chart], chart),
    png: () => savePng([chart], chart),
  };
  tools.hidden = false;
  tools.addEventListener('click', (event) => actions[event.target.dataset.do]?.());
  for (const button of tools.querySelectorAll('[data-do=in], [data-do=out], [data-do=reset]'))
    button.hidden = Boolean(chart.numeric);
  addPartButton(tools.querySelector('[data-do=part]'), chart);
}

// A sheet of A4 between its margins: letters keep their size, and three charts find room.
const PAPER = { width: 680, height: 195 };

// Gives a drawing the size that it has on paper, or again that of its place in the page.
function fitSize(frame, onPaper) {
  const chart = report.charts[Number(frame.dataset.chart)];
  if (!chart.view || chart.equal) return;
  const grid = frame.closest('.panel');
  const across = grid ? acrossOnPaper(report.panels[Number(grid.dataset.panel)]) : 1;
  const width = onPaper ? PAPER.width / across - 6 * (across - 1) : chart.view.container().clientWidth;
  chart.view.width(width).height(onPaper && !chart.small ? PAPER.height : plotHeight(chart)).run();
}

// One chart at a time, so that scrolling stays smooth; charts that were scrolled past meanwhile wait.
function drawWhenNear() {
  addPanelTools();
  const frames = document.querySelectorAll('.chart-frame');
  const near = new Set();
  const drawNext = () => {
    const [frame] = near;
    if (!frame) return;
    near.delete(frame);
    observer.unobserve(frame);
    drawChart(frame);
    if (near.size > 0) setTimeout(drawNext);
  };
  const observer = new IntersectionObserver(
    (entries) => {
      const idle = near.size === 0;
      for (const { isIntersecting, target } of entries) isIntersecting ? near.add(target) : near.delete(target);
      if (idle) setTimeout(drawNext);
    },
    { rootMargin: '300px' },
  );
  frames.forEach((frame) => observer.observe(frame));
  const drawAll = () => frames.forEach(drawChart);
  const onPaper = (printing) => {
    if (printing) drawAll();
    frames.forEach((frame) => fitSize(frame, printing));
  };
  window.addEventListener('beforeprint', () => onPaper(true));
  window.addEventListener('afterprint', () => onPaper(false));
  const paper = matchMedia('print');
  paper.addEventListener('change', (event) => onPaper(event.matches));
  if (paper.matches) onPaper(true);
}
