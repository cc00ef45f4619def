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
    .map((row) => row.map(inert).map((text) => (/[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text)).join(','))
    .join('\r\n') + '\r\n';

const fileName = (owner, extension) =>
  `${
    owner.title
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
