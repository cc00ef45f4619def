// Reading values off a chart and moving along its axis, by pointer and by keys.

const MOST_VALUES = 12;

const numberText = (value) =>
  value === null ? '.' : inLanguage(value.toLocaleString('en-US', { maximumSignificantDigits: 7 }));

// What a series says of its i-th point.
const saidOf = (series, i) =>
  isBand(series)
    ? report.texts.range.replace('^1', numberText(lowOf(series)[i])).replace('^2', numberText(highOf(series)[i]))
    : numberText(valuesOf(series)[i]);

// Series with what they say of a place; of many, those nearest to `height` pixels from the top.
function valuesAt(chart, place, height) {
  const found = [];
  for (const series of chart.series)
    for (const i of pointsAt(series, place)) if (!isBand(series) || present(lowOf(series)[i])) found.push({ series, i });
  if (found.length <= MOST_VALUES) return found;
  const y = chart.view.scale('y');
  const distance = ({ series, i }) =>
    present(valuesOf(series)[i]) ? Math.abs(y(valuesOf(series)[i]) - height) : Infinity;
  const nearest = [...found].sort((a, b) => distance(a) - distance(b)).slice(0, MOST_VALUES);
  return found.filter((entry) => nearest.includes(entry));
}

// Where the drawing's plot stands inside the frame, in CSS pixels.
function plotBox(frame, chart) {
  const svg = frame.querySelector('svg');
  const outer = frame.getBoundingClientRect();
  const box = svg.getBoundingClientRect();
  const scale = box.width / svg.width.baseVal.value;
  const [x, y] = chart.view.origin();
  const padding = chart.view.padding();
  return {
    left: box.left - outer.left + (x + padding.left) * scale,
    top: box.top - outer.top + (y + padding.top) * scale,
    width: chart.view.signal('width') * scale,
    height: chart.view.signal('height') * scale,
  };
}

// A heading and lines of [colour, name, text].
function fillTip(tip, heading, lines) {
  const top = document.createElement('div');
  top.className = 'tip-place';
  top.textContent = heading;
  const rows = lines.map(([color, name, text]) => {
    const line = document.createElement('div');
    const mark = document.createElement('i');
    mark.style.background = color;
    const label = document.createElement('span');
    label.textContent = name;
    const number = document.createElement('b');
    number.textContent = text;
    line.append(mark, label, number);
    return line;
  });
  tip.replaceChildren(top, ...rows);
}

const tipLines = (chart, place, height) =>
  valuesAt(chart, place, height).map(({ series, i }) => [
    colorOf(series),
    series.name || chart.yLabel,
    saidOf(series, i),
  ]);

function makeOverlay(frame, name) {
  const element = document.createElement('div');
  element.className = name;
  element.hidden = true;
  frame.append(element);
  return element;
}

// Puts the tip beside a point of the frame, in CSS pixels. In a panel, which is scrolled and whose charts are narrower
// than a tip, it floats above everything.
function placeTip(frame, tip, x, y) {
  tip.hidden = false;
  if (frame.closest('.panel')) {
    const outer = frame.getBoundingClientRect();
    const beside = outer.left + x + 14;
    const room = window.innerWidth - 8 - tip.offsetWidth;
    const left = beside <= room ? beside : Math.max(8, outer.left + x - 14 - tip.offsetWidth);
    Object.assign(tip.style, { position: 'fixed', left: `${Math.min(left, room)}px`, top: `${outer.top + y}px` });
    return;
  }
  const right = x + 14 + tip.offsetWidth <= frame.clientWidth;
  const left = right ? x + 14 : Math.max(0, x - 14 - tip.offsetWidth);
  Object.assign(tip.style, { left: `${left}px`, top: `${y}px` });
}

// A picture's inner parts are hidden from a screen reader: what keys read off is said by the page.
function announce(tip) {
  const said = [...tip.children].map((line) => [...line.childNodes].map((part) => part.textContent).filter(Boolean).join(' '));
  document.getElementById('status').textContent = tip.hidden ? '' : said.join('; ');
}

class Inspection {
  constructor(frame, chart) {
    this.frame = frame;
    this.chart = chart;
    this.place = null;
    [this.cursor, this.brush, this.tip] = ['cursor', 'brush', 'tip'].map((name) => makeOverlay(frame, name));
  }

  // Place under a pointer event, not rounded.
  placeUnder(event) {
    const box = plotBox(this.frame, this.chart);
    const share = (event.clientX - this.frame.getBoundingClientRect().left - box.left) / box.width;
    return this.chart.from + Math.min(1, Math.max(0, share)) * (this.chart.to - this.chart.from);
  }

  pixelOf(place, box) {
    return box.left + ((place - this.chart.from) / (this.chart.to - this.chart.from)) * box.width;
  }

  show(place, clientY) {
    this.place = Math.min(this.chart.length - 1, Math.max(0, Math.round(place)));
    const box = plotBox(this.frame, this.chart);
    const x = this.pixelOf(this.place, box);
    const height = clientY === undefined ? box.height / 2 : clientY - this.frame.getBoundingClientRect().top - box.top;
    fillTip(this.tip, labelsOf(this.chart)[this.place], tipLines(this.chart, this.place, height));
    Object.assign(this.cursor.style, { left: `${x}px`, top: `${box.top}px`, height: `${box.height}px` });
    this.cursor.hidden = false;
    placeTip(this.frame, this.tip, x, box.top + 6);
  }

  hide() {
    this.place = null;
    this.cursor.hidden = true;
    this.tip.hidden = true;
  }

  // Moves the cursor, and what is shown along with it.
  step(by) {
    const { chart } = this;
    const from = this.place ?? Math.round(by > 0 ? chart.from : chart.to);
    const place = Math.min(chart.length - 1, Math.max(0, from + by));
    if (place < chart.from || place > chart.to) {
      const shift = place < chart.from ? place - 0.5 - chart.from : place + 0.5 - chart.to;
      showPlaces(chart, chart.from + shift, chart.to + shift);
    }
    this.show(place);
  }

  // A mouse marks the part to be shown; a finger, or a mouse with Shift, moves the axis.
  startDrag(event) {
    const { chart } = this;
    if (event.button !== 0 || (chart.small && event.pointerType === 'touch')) return; // a finger scrolls the panel
    const pans = event.pointerType === 'touch' || event.shiftKey;
    this.drag = { pans, x: event.clientX, place: this.placeUnder(event), from: chart.from, to: chart.to };
    this.frame.setPointerCapture(event.pointerId);
  }

  continueDrag(event) {
    const { chart, drag } = this;
    if (!drag.moved && Math.abs(event.clientX - drag.x) < 5) return;
    drag.moved = true;
    this.hide();
    const box = plotBox(this.frame, chart);
    if (drag.pans) {
      const shift = ((drag.x - event.clientX) / box.width) * (drag.to - drag.from);
      showPlaces(chart, drag.from + shift, drag.to + shift);
      return;
    }
    const ends = [drag.place, this.placeUnder(event)].map((place) => this.pixelOf(place, box)).sort((a, b) => a - b);
    const [left, right] = ends;
    const size = { left: `${left}px`, width: `${right - left}px`, top: `${box.top}px`, height: `${box.height}px` };
    Object.assign(this.brush.style, size);
    this.brush.hidden = false;
  }

  endDrag(event) {
    const { chart, drag } = this;
    this.drag = null;
    this.brush.hidden = true;
    if (!drag?.moved && event.type === 'pointerup' && event.pointerType === 'touch')
      this.show(this.placeUnder(event), event.clientY);
    if (!drag?.moved || drag.pans || event.type === 'pointercancel') return;
    const [from, to] = [drag.place, this.placeUnder(event)].sort((a, b) => a - b);
    showPlaces(chart, Math.round(from) - 0.5, Math.round(to) + 0.5);
  }

  wheel(event) {
    const { chart } = this;
    if (event.ctrlKey || (event.shiftKey && !chart.small)) {
      event.preventDefault();
      zoom(chart, (event.deltaY || event.deltaX) < 0 ? 0.8 : 1.25, this.placeUnder(event));
    }
  }

  key(event) {
    const { chart } = this;
    const page = Math.max(1, Math.round((chart.to - chart.from) / 10));
    const moves = {
      ArrowLeft: () => this.step(event.shiftKey ? -page : -1),
      ArrowRight: () => this.step(event.shiftKey ? page : 1),
      Home: () => this.step(-chart.length),
      End: () => this.step(chart.length),
      '+': () => zoom(chart, 0.5, this.place ?? undefined),
      '-': () => zoom(chart, 2, this.place ?? undefined),
      0: () => showAll(chart),
      Escape: () => this.hide(),
    };
    if (event.ctrlKey || event.altKey || event.metaKey || !moves[event.key]) return;
    event.preventDefault();
    moves[event.key]();
    if (this.place !== null && !['ArrowLeft', 'ArrowRight', 'Home', 'End'].includes(event.key)) this.show(this.place);
    announce(this.tip);
  }
}

function addInspection(frame, chart) {
  const inspection = new Inspection(frame, chart);
  const on = (type, handle, options) => frame.addEventListener(type, handle, options);
  on('pointerdown', (event) => inspection.startDrag(event));
  on('pointermove', (event) => {
    if (inspection.drag) inspection.continueDrag(event);
    else inspection.show(inspection.placeUnder(event), event.clientY);
  });
  on('pointerup', (event) => inspection.endDrag(event));
  on('pointercancel', (event) => inspection.endDrag(event));
  // A finger leaves whenever it is lifted; what it asked for stays until it asks elsewhere.
  on('pointerleave', (event) => inspection.drag || event.pointerType === 'touch' || inspection.hide());
  on('blur', () => inspection.hide());
  const follow = () => inspection.place !== null && inspection.show(inspection.place);
  if (chart.small) window.addEventListener('scroll', follow, { capture: true, passive: true });
  on('dblclick', () => showAll(chart));
  on('wheel', (event) => inspection.wheel(event), { passive: false });
  on('keydown', (event) => inspection.key(event));
}
