// Charts as pictures that need no page: title, legend, and the charts as they are shown now.

const MARGIN = 14;
const LEGEND_ROW = 20;

// A picture outside the page has no custom properties: their present values take their places.
function withColors(svg) {
  const probe = document.createElement('i');
  document.body.append(probe);
  const known = new Map();
  const valueOf = (name) => {
    probe.style.color = `var(${name})`;
    return getComputedStyle(probe).color;
  };
  const result = svg.replace(/var\((--[\w-]+)\)/g, (whole, name) => {
    if (!known.has(name)) known.set(name, valueOf(name));
    return known.get(name);
  });
  probe.remove();
  return result;
}

function textWidth(text, size) {
  const context = document.createElement('canvas').getContext('2d');
  context.font = `${size}px ${FONT}`;
  return context.measureText(text).width;
}

const svgText = (text, x, y, size, more = {}) =>
  svgElement('text', { x, y, 'font-size': size, 'font-family': FONT, fill: 'var(--ink)', ...more }, text);

// Entries from left to right in as many rows as they need; {group, height}.
function pictureLegend(charts, width) {
  const group = svgElement('g', {});
  let [x, row] = [0, 0];
  const entries = legendEntries(charts);
  for (const series of entries) {
    const wanted = 24 + textWidth(series.name, 12) + 18;
    if (x > 0 && x + wanted > width) [x, row] = [0, row + 1];
    const mark = svgElement('g', { transform: `translate(${x}, ${row * LEGEND_ROW})` }, swatch(series));
    mark.append(svgText(series.name, 24, 10, 12));
    group.append(mark);
    x += wanted;
  }
  return { group, height: entries.length > 0 ? (row + 1) * LEGEND_ROW : 0 };
}

// One chart as an <svg> element of its own.
async function drawnPiece(chart, width) {
  const view = makeView(chart, { ...chartSpec(chart, width), background: 'transparent' });
  await view.runAsync();
  const piece = new DOMParser().parseFromString(await view.toSVG(), 'image/svg+xml').documentElement;
  view.finalize();
  return piece;
}

const sizeOf = (piece, side) => Number(piece.getAttribute(side));

const BOLD = { 'font-weight': 600 };

// What stays of a heading in so many pixels.
function shortened(text, room) {
  let kept = text;
  while (kept && textWidth(kept + '\u2026', 12) > room) kept = kept.slice(0, -1);
  return textWidth(text, 12) <= room ? text : `${kept}\u2026`;
}

// The pieces of a panel on a grid, below the headings of its columns and beside those of its rows.
function arrangePanel(pieces, { rows, columns }) {
  const group = svgElement('g', {});
  const drawn = pieces.filter(Boolean);
  const [wide, high] = ['width', 'height'].map((side) => Math.max(...drawn.map((piece) => sizeOf(piece, side))) + 12);
  const [left, top] = [20, 20];
  columns.forEach((text, i) => group.append(svgText(shortened(text, wide - 12), left + i * wide, 12, 12, BOLD)));
  rows.forEach((text, i) => {
    const turned = { ...BOLD, 'text-anchor': 'middle', transform: `rotate(-90 12 ${top + (i + 0.5) * high})` };
    group.append(svgText(shortened(text, high - 12), 12, top + (i + 0.5) * high, 12, turned));
  });
  pieces.forEach((piece, i) => {
    piece?.setAttribute('x', left + (i % columns.length) * wide);
    piece?.setAttribute('y', top + Math.floor(i / columns.length) * high);
    if (piece) group.append(piece);
  });
  return { group, width: left + columns.length * wide - 12, height: top + rows.length * high };
}

const arrangeOne = ([piece]) => ({ group: piece, width: sizeOf(piece, 'width'), height: sizeOf(piece, 'height') });

// `owner` has the title, and `columns` where it is a panel; then places may be without a chart.
async function pictureSvg(places, owner) {
  const charts = places.filter(Boolean);
  const shown = charts[0].view.container().clientWidth;
  const least = owner.columns ? 160 : 300;
  const pieces = [];
  for (const chart of places) pieces.push(chart && (await drawnPiece(chart, Math.max(least, shown))));
  const { group, width: wanted, height: tall } = owner.columns ? arrangePanel(pieces, owner) : arrangeOne(pieces);
  const width = Math.max(300, wanted);
  const legend = pictureLegend(charts, width);
  legend.group.setAttribute('transform', `translate(${MARGIN}, ${MARGIN + 26})`);
  const top = MARGIN + 30 + legend.height;
  const body = svgElement('g', { transform: `translate(${MARGIN}, ${top})` }, group);
  const [fullWidth, height] = [width + 2 * MARGIN, top + tall + MARGIN];
  const svg = svgElement('svg', { width: fullWidth, height, viewBox: `0 0 ${fullWidth} ${height}` });
  svg.append(
    svgElement('title', {}, owner.title),
    svgElement('desc', {}, owner.description),
    svgElement('rect', { width: fullWidth, height, fill: 'var(--paper)' }),
    svgText(owner.title, MARGIN, MARGIN + 12, 14, { 'font-weight': 600 }),
    svgText(owner.axes ?? '', fullWidth - MARGIN, MARGIN + 12, 12, { 'text-anchor': 'end' }),
    legend.group,
    body,
  );
  return withColors(new XMLSerializer().serializeToString(svg));
}

async function saveSvg(charts, owner) {
  saveFile(new Blob([await pictureSvg(charts, owner)], { type: 'image/svg+xml' }), fileName(owner, 'svg'));
}

async function savePng(charts, owner, scale = 2) {
  const image = new Image();
  image.src = URL.createObjectURL(new Blob([await pictureSvg(charts, owner)], { type: 'image/svg+xml' }));
  await image.decode();
  const canvas = document.createElement('canvas');
  canvas.width = image.width * scale;
  canvas.height = image.height * scale;
  canvas.getContext('2d').drawImage(image, 0, 0, canvas.width, canvas.height);
  canvas.toBlob((blob) => saveFile(blob, fileName(owner, 'png')), 'image/png');
  URL.revokeObjectURL(image.src);
}
