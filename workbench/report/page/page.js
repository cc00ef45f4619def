// The page around tables and charts: theme, outline, copying.

// A pivot table as rows of texts, numbers in full precision; groups of columns repeat over their columns.
function tableRows(table) {
  const grid = [];
  [...table.tHead.rows, ...table.tBodies[0].rows].forEach((row, r) => {
    grid[r] ??= [];
    let column = 0;
    for (const cell of row.cells) {
      while (grid[r][column] !== undefined) column++;
      const text = cell.dataset.value ?? cell.textContent;
      for (let down = 0; down < cell.rowSpan; down++) {
        grid[r + down] ??= [];
        for (let across = 0; across < cell.colSpan; across++) {
          grid[r + down][column + across] = down === 0 ? text : '';
        }
      }
    }
  });
  return grid;
}

function copyOnRequest() {
  document.addEventListener('click', (event) => {
    const button = event.target.closest('button[data-copy]');
    if (!button) return;
    const section = button.closest('section');
    const text =
      button.dataset.copy === 'table'
        ? tabSeparated(tableRows(section.querySelector('table')))
        : section.querySelector('pre').textContent;
    copyText(text, button);
  });
}

// Headers wrap at the width that a table's columns may have at most.
function boundColumns() {
  for (const table of document.querySelectorAll('table[data-widest]'))
    for (const cell of table.querySelectorAll('thead th:not(.corner, .over)'))
      cell.style.maxWidth = `${table.dataset.widest}px`;
}

function switchTheme() {
  const root = document.documentElement;
  const button = document.querySelector('[data-page=theme]');
  const dark = () =>
    getComputedStyle(root).colorScheme === 'dark' ||
    (!root.dataset.theme && matchMedia('(prefers-color-scheme: dark)').matches);
  const label = () => (button.textContent = dark() ? report.texts.light : report.texts.dark);
  button.addEventListener('click', () => {
    root.dataset.theme = dark() ? 'light' : 'dark';
    label();
  });
  matchMedia('(prefers-color-scheme: dark)').addEventListener('change', label);
  label();
}

// Marks the outline's entry of the section at the top of the window.
function followScrolling() {
  const nav = document.querySelector('nav');
  const links = new Map([...nav.querySelectorAll('a')].map((link) => [link.hash.slice(1), link]));
  const observer = new IntersectionObserver(
    (entries) => {
      for (const { isIntersecting, target } of entries) {
        const link = links.get(target.id);
        if (isIntersecting) link.setAttribute('aria-current', 'true');
        else link.removeAttribute('aria-current');
      }
      const current = nav.querySelector('a[aria-current]');
      if (current && !nav.contains(document.activeElement)) nav.scrollTop = current.offsetTop - nav.clientHeight / 2;
    },
    { rootMargin: '-10% 0px -75% 0px' },
  );
  document.querySelectorAll('main section').forEach((section) => observer.observe(section));
}

if (matchMedia('(max-width: 60rem)').matches) document.querySelector('nav details').open = false;
document.querySelector('.page-tools').hidden = false;
document.querySelector('[data-page=print]').addEventListener('click', () => window.print());
switchTheme();
boundColumns();
copyOnRequest();
addLegends();
fillDataViewsOnRequest();
followScrolling();
if (document.getElementById('library')) loadLibrary().then(drawWhenNear, sayThatNothingIsDrawn);
