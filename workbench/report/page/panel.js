// A panel: small charts in rows and columns, with one set of tools.

// Row by row; nothing where a place has no chart.
const placesOfPanel = (panel) => panel.cells.map((number) => (number === null ? null : report.charts[number]));

const chartsOf = (panel) => placesOfPanel(panel).filter(Boolean);

// What a sheet has room for side by side; the charts of a wider panel stand in rows of a few, each below its own title.
const MOST_ON_PAPER = 5;
const WRAPPED_ON_PAPER = 4;

const isWide = (panel) => panel.columns.length > MOST_ON_PAPER;
const acrossOnPaper = (panel) => (isWide(panel) ? WRAPPED_ON_PAPER : panel.columns.length);

function addPanelTools() {
  for (const grid of document.querySelectorAll('.panel')) {
    const panel = report.panels[Number(grid.dataset.panel)];
    const section = grid.parentElement;
    grid.style.setProperty('--across', panel.columns.length);
    grid.style.setProperty('--on-paper', acrossOnPaper(panel));
    grid.classList.toggle('wide', isWide(panel));
    const cells = grid.querySelectorAll('.panel-cell');
    placesOfPanel(panel).forEach((chart, i) => (cells[i].dataset.title = chart?.title ?? ''));
    const drawAll = () => grid.querySelectorAll('.chart-frame').forEach(drawChart);
    const actions = {
      svg: () => saveSvg(placesOfPanel(panel), panel),
      png: () => savePng(placesOfPanel(panel), panel),
    };
    const tools = section.querySelector('.chart-tools');
    tools.hidden = false;
    tools.querySelectorAll('[data-do]').forEach((button) => (button.hidden = !(button.dataset.do in actions)));
    tools.addEventListener('click', (event) => {
      const action = actions[event.target.dataset.do];
      if (!action) return;
      drawAll();
      action();
    });
  }
}
