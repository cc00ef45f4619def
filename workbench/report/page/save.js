// What leaves the page: the clipboard and files.

async function copyText(text, button) {
  let copied = true;
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    const area = document.createElement('textarea');
    area.value = text;
    document.body.append(area);
    area.select();
    copied = document.execCommand('copy');
    area.remove();
    button.focus();
  }
  const said = copied ? report.texts.copied : report.texts.notCopied;
  document.getElementById('status').textContent = said;
  const before = button.dataset.label ?? button.textContent;
  button.dataset.label = before;
  button.textContent = said;
  setTimeout(() => (button.textContent = before), 1500);
}

// A text that begins like a formula gets an apostrophe, so that a spreadsheet takes it for a text.
function inert(text) {
  const isNumber = text !== '' && !Number.isNaN(Number(text));
  return !isNumber && /^[=+\-@]/.test(text) ? `'${text}` : text;
}

const tabSeparated = (rows) =>
  rows.map((row) => row.map((text) => inert(text).replace(/[\t\r\n]+/g, ' ')).join('\t')).join('\n') + '\n';

const commaSeparated = (rows) =>
  rows
    .map((row) => row.map((text) => (/[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text)).join(','))
    .join('\r\n') + '\r\n';

const fileName = (chart, extension) =>
  `${
    chart.title
      .replace(/[^\p{L}\p{N}_-]+/gu, ' ')
      .trim()
      .slice(0, 80) || report.texts.chart
  }.${extension}`;

function saveFile(blob, name) {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

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

// The chart as it is shown now, with its title.
async function chartSvg(chart) {
  const width = chart.view.container().clientWidth;
  const view = makeView(chart, {
    ...chart.spec,
    width: Math.max(300, width - 70),
    background: 'var(--paper)',
    padding: 12,
  });
  await view.signal('from', chart.from).signal('to', chart.to).runAsync();
  const svg = await view.toSVG();
  view.finalize();
  return withColors(svg);
}

async function saveSvg(chart) {
  saveFile(new Blob([await chartSvg(chart)], { type: 'image/svg+xml' }), fileName(chart, 'svg'));
}

async function savePng(chart, scale = 2) {
  const image = new Image();
  image.src = URL.createObjectURL(new Blob([await chartSvg(chart)], { type: 'image/svg+xml' }));
  await image.decode();
  const canvas = document.createElement('canvas');
  canvas.width = image.width * scale;
  canvas.height = image.height * scale;
  canvas.getContext('2d').drawImage(image, 0, 0, canvas.width, canvas.height);
  canvas.toBlob((blob) => saveFile(blob, fileName(chart, 'png')), 'image/png');
  URL.revokeObjectURL(image.src);
}
