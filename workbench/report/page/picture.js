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

// The pieces in rows of `across`, each below its heading; [element, height].
function arrange(pieces, charts, across, top) {
  const group = svgElement('g', {});
  let y = top;
  for (let first = 0; first < pieces.length; first += across) {
    const row = pieces.slice(first, first + across);
    const heading = across > 1 || pieces.length > 1 ? 18 : 0;
    let x = MARGIN;
    row.forEach((piece, i) => {
      if (heading) group.append(svgText(charts[first + i].title, x, y + 12, 12, { 'font-weight': 600 }));
      piece.setAttribute('x', x);
      piece.setAttribute('y', y + heading);
      group.append(piece);
      x += sizeOf(piece, 'width') + 12;
    });
    y += heading + Math.max(...row.map((piece) => sizeOf(piece, 'height'))) + 6;
  }
  return { group, bottom: y };
}

// `owner` has the title, and `columns` where it is a panel.
async function pictureSvg(charts, owner) {
  const across = owner.columns?.length ?? 1;
  const shown = charts[0].view.container().clientWidth;
  const pieces = [];
  for (const chart of charts) pieces.push(await drawnPiece(chart, Math.max(across > 1 ? 160 : 300, shown)));
  const rows = pieces.slice(0, across).reduce((sum, piece) => sum + sizeOf(piece, 'width') + 12, -12);
  const width = Math.max(300, rows);
  const legend = pictureLegend(charts, width);
  legend.group.setAttribute('transform', `translate(${MARGIN}, ${MARGIN + 26})`);
  const { group, bottom } = arrange(pieces, charts, across, MARGIN + 30 + legend.height);
  const [fullWidth, height] = [width + 2 * MARGIN, bottom + MARGIN];
  const svg = svgElement('svg', { width: fullWidth, height, viewBox: `0 0 ${fullWidth} ${height}` });
  svg.append(
    svgElement('title', {}, owner.title),
    svgElement('desc', {}, owner.description),
    svgElement('rect', { width: fullWidth, height, fill: 'var(--paper)' }),
    svgText(owner.title, MARGIN, MARGIN + 12, 14, { 'font-weight': 600 }),
    svgText(owner.axes ?? '', fullWidth - MARGIN, MARGIN + 12, 12, { 'text-anchor': 'end' }),
    legend.group,
    group,
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
