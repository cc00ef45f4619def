// A panel: small charts side by side, with one set of tools.

function addPanelTools() {
  for (const grid of document.querySelectorAll('.panel')) {
    const panel = report.panels[Number(grid.dataset.panel)];
    const charts = panel.cells.map((number) => report.charts[number]);
    const section = grid.parentElement;
    grid.style.setProperty('--across', panel.columns.length);
    const drawAll = () => grid.querySelectorAll('.chart-frame').forEach(drawChart);
    const actions = {
      svg: () => saveSvg(charts, panel),
      png: () => savePng(charts, panel),
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
