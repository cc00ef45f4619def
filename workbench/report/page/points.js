// Reading points off a chart whose axes are both numbers: the nearest one to the pointer, or one after the other by
// keys.

const NEAR = 40; // pixels

class PointInspection {
  constructor(frame, chart) {
    Object.assign(this, { frame, chart, at: -1 });
    this.tip = makeOverlay(frame, 'tip');
    this.points = chart.series.flatMap((series) =>
      valuesOf(series).flatMap((y, i) => (present(y) && present(placeOf(series, i)) ? [{ series, i }] : [])),
    );
  }

  // Where a point stands in the frame, in CSS pixels.
  pixelsOf({ series, i }) {
    const box = plotBox(this.frame, this.chart);
    const { from, to, low, high } = shownPart(this.chart);
    return [
      box.left + ((placeOf(series, i) - from) / (to - from)) * box.width,
      box.top + ((high - valuesOf(series)[i]) / (high - low)) * box.height,
    ];
  }

  show(at) {
    this.at = at;
    const point = this.points[at];
    const { series, i } = point;
    const { xLabel, yLabel } = this.chart;
    const lines = [
      [colorOf(series), xLabel, numberText(placeOf(series, i))],
      [colorOf(series), yLabel, numberText(valuesOf(series)[i])],
    ];
    fillTip(this.tip, series.texts === undefined ? series.name : report.columns[series.texts][i], lines);
    placeTip(this.frame, this.tip, ...this.pixelsOf(point));
  }

  point(event) {
    const { left, top } = this.frame.getBoundingClientRect();
    const distances = this.points.map((point) => {
      const [x, y] = this.pixelsOf(point);
      return Math.hypot(event.clientX - left - x, event.clientY - top - y);
    });
    const nearest = distances.indexOf(Math.min(...distances));
    if (distances[nearest] <= NEAR) this.show(nearest);
    else this.hide();
  }

  hide() {
    this.tip.hidden = true;
  }

  key(event) {
    const last = this.points.length - 1;
    const moves = {
      ArrowLeft: () => this.show(Math.max(0, this.at - 1)),
      ArrowRight: () => this.show(Math.min(last, this.at + 1)),
      Home: () => this.show(0),
      End: () => this.show(last),
      Escape: () => this.hide(),
    };
    if (event.ctrlKey || event.altKey || event.metaKey || !moves[event.key] || last < 0) return;
    event.preventDefault();
    moves[event.key]();
    announce(this.tip);
  }
}

function addPointInspection(frame, chart) {
  const inspection = new PointInspection(frame, chart);
  frame.addEventListener('pointermove', (event) => inspection.point(event));
  frame.addEventListener('pointerdown', (event) => inspection.point(event));
  frame.addEventListener('pointerleave', (event) => event.pointerType === 'touch' || inspection.hide());
  frame.addEventListener('blur', () => inspection.hide());
  frame.addEventListener('keydown', (event) => inspection.key(event));
}
