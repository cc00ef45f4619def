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
  legend: {
    labelColor: 'var(--ink)',
    titleColor: 'var(--muted)',
    titleFontWeight: 'normal',
    labelFontSize: 12,
    titleFontSize: 12,
    symbolStrokeWidth: 2,
    symbolSize: 160,
    offset: 8,
    columnPadding: 12,
  },
  title: { color: 'var(--ink)', fontSize: 14, fontWeight: 600, anchor: 'start', offset: 12, limit: 900 },
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
  view.insert('points', chartRows(chart, chart.from, chart.to));
  return view.run();
}

function drawChart(frame) {
  const chart = report.charts[Number(frame.dataset.chart)];
  if (chart.view) return;
  chart.length = labelsOf(chart).length;
  chart.from = -0.5;
  chart.to = chart.length - 0.5;
  const { title, ...untitled } = chart.spec;
  const drawing = document.createElement('div');
  drawing.className = 'drawing';
  frame.append(drawing);
  chart.view = makeView(chart, untitled, drawing);
  frame.classList.add('drawn');
  addTools(frame, chart);
  addInspection(frame, chart);
}

// Shows the places from..to, kept within the data and at least three wide.
function showPlaces(chart, from, to) {
  const width = Math.min(Math.max(to - from, Math.min(3, chart.length)), chart.length);
  const middle = (from + to) / 2;
  chart.from = Math.max(-0.5, Math.min(middle - width / 2, chart.length - 0.5 - width));
  chart.to = chart.from + width;
  chart.view.signal('from', chart.from).signal('to', chart.to);
  const sampled = chart.series.some((series) => valuesOf(series).length > report.sample);
  if (sampled) {
    clearTimeout(chart.resample);
    chart.resample = setTimeout(() => {
      const rows = vega
        .changeset()
        .remove(() => true)
        .insert(chartRows(chart, chart.from, chart.to));
      chart.view.change('points', rows).run();
    }, 120);
  }
  chart.view.run();
}

// Halves or doubles what is shown around a place.
function zoom(chart, factor, around = (chart.from + chart.to) / 2) {
  showPlaces(chart, around - (around - chart.from) * factor, around + (chart.to - around) * factor);
}

const showAll = (chart) => showPlaces(chart, -0.5, chart.length - 0.5);

function addTools(frame, chart) {
  const tools = frame.parentElement.querySelector('.chart-tools');
  const actions = {
    in: () => zoom(chart, 0.5),
    out: () => zoom(chart, 2),
    reset: () => showAll(chart),
    svg: () => saveSvg(chart),
    png: () => savePng(chart),
  };
  tools.hidden = false;
  tools.addEventListener('click', (event) => actions[event.target.dataset.do]?.());
}

// One chart at a time, so that scrolling stays smooth; charts that were scrolled past meanwhile wait.
function drawWhenNear() {
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
  window.addEventListener('beforeprint', drawAll);
  matchMedia('print').addEventListener('change', (event) => event.matches && drawAll());
}
