// A panel: small charts in rows and columns, with one set of tools.

// Row by row; nothing where a place has no chart.
const placesOfPanel = (panel) => panel.cells.map((number) => (number === null ? null : report.charts[number]));

const chartsOf = (panel) => placesOfPanel(panel).filter(Boolean);

function addPanelTools() {
  for (const grid of document.querySelectorAll('.panel')) {
    const panel = report.panels[Number(grid.dataset.panel)];
    const section = grid.parentElement;
    grid.style.setProperty('--across', panel.columns.length);
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
