// Charts as a person sees them: legends that have room, round ticks, forecasts that can be read, and every kind of chart
// drawn, read, saved and printed.

import { execFileSync } from 'node:child_process';

import { fan, panel, roots, stacked } from './chart_kinds.mjs';
import { chart, document, macroData, table } from './documents.mjs';
import {
  check, colorOf, download, drawn, equal, finish, look, makeReport, newPath, ok, open, phone, start, visit,
} from './harness.mjs';

const { columns, labels } = macroData();
const gdp = columns.realgdp;
const fitted = gdp.map((value, i) => (i < 2 ? value : 2 * gdp[i - 1] - gdp[i - 2]));
const future = ['2009Q4', '2010Q1', '2010Q2', '2010Q3'];
const seven = ['realgdp', 'realcons', 'realinv', 'realgovt', 'realdpi', 'cpi', 'm1'];

const report = (...items) =>
  makeReport({ document: document(items), command: '', facts: [], messages: [], savedFiles: [] });
const section = (page, index) => page.locator('section.chart').nth(index);
const lines = (names) => names.map((name) => [name, labels, columns[name]]);
const near = (a, b, tolerance = 1) => Math.abs(a - b) <= tolerance;

// Boxes of a chart's title, tools, legend and drawing, from above to below.
const boxes = (page, index) =>
  section(page, index).evaluate((element) =>
    ['h3', '.chart-tools', '.legend', '.drawing'].map((selector) => {
      const { top, bottom, left, right } = element.querySelector(selector).getBoundingClientRect();
      return { selector, top, bottom, left, right };
    }),
  );

async function checkLegends(page) {
  const { width } = page.viewportSize();
  for (const [index, names] of [[0, seven.slice(0, 3)], [1, seven]]) {
    await check(`a legend of ${names.length} series has a place of its own at ${width} pixels`, async () => {
      equal((await look(await drawn(page, index))).legend, names);
      const [title, tools, legend, drawing] = await boxes(page, index);
      ok(legend.top >= Math.max(title.bottom, tools.bottom) - 1, `legend at ${legend.top}, tools to ${tools.bottom}`);
      ok(drawing.top >= legend.bottom - 1, `drawing at ${drawing.top}, legend to ${legend.bottom}`);
      ok(title.right <= tools.left || title.bottom <= tools.top, 'title beside tools');
      const entries = await section(page, index).locator('.legend li').evaluateAll((all) =>
        all.map((entry) => entry.getBoundingClientRect().right));
      ok(Math.max(...entries) <= width, 'entries in the window');
    });
  }
  await check(`no sideways scrolling at ${width} pixels`, async () =>
    equal(await page.evaluate(() => window.document.documentElement.scrollWidth), width));
}

const placesOf = ({ axes }, all) => axes.map((axis) => axis.map(({ text }) => text)).find((list) => all.includes(list[0]));

async function checkTicks(page) {
  await check('ticks of residuals without dates are round', async () => {
    const numbers = columns.cpi.map((_, i) => String(i + 5));
    const shown = placesOf(await look(await drawn(page, 2)), numbers);
    ok(shown.length > 4 && shown.every((label) => Number(label) % 10 === 0), `labels ${shown}`);
  });
}

async function checkNumbers() {
  await check('scientific numbers for the very large and small alone', async () => {
    const shown = async (values) => {
      const page = await open(report(chart({ kind: 0, title: 'T' }, ['', ['1', '2'], values])));
      const { axes } = await look(await drawn(page, 0));
      await page.context().close();
      return axes.flat().map(({ text }) => text).filter((text) => /e/.test(text)).length;
    };
    for (const values of [[2e9, 3e9], [0, -3e-7]]) ok((await shown(values)) > 2, `${values}`);
    for (const values of [[12990.3, 1], [0, 0], [0.001, 0.002]]) equal(await shown(values), 0, `${values}`);
  });
}

async function checkZero() {
  await check('what is drawn from zero shows zero, a line need not', async () => {
    const shown = async (kind) => {
      const page = await open(report(chart({ kind, title: 'T' }, ['', ['1', '2'], [100, 110]])));
      const { axes } = await look(await drawn(page, 0));
      await page.context().close();
      return axes.flat().map(({ text }) => text);
    };
    ok((await shown(2)).includes('0'), 'area');
    ok(!(await shown(0)).includes('0'), 'line');
  });
}

const FORECAST = 3;

async function checkForecast(page) {
  const button = () => section(page, FORECAST).locator('[data-do=part]');
  const seen = async () => look(await drawn(page, FORECAST));
  await check('a short forecast of a long history: the last part first, the whole behind a button', async () => {
    const years = async () => placesOf(await seen(), [...labels, ...future]);
    equal((await years())[0], '2004Q1');
    equal(await button().textContent(), 'Show from 1959Q1');
    await button().click();
    ok((await years())[0].startsWith('196'), `labels ${await years()}`);
    equal(await button().textContent(), 'Show from 2003Q2');
    await button().click();
    equal((await years())[0], '2004Q1', 'back');
  });
  await check('the value axis fits what is shown', async () => {
    const values = (await seen()).axes.flat().map(({ text }) => text);
    ok(!values.includes('4,000') && values.includes('13,000'), `values ${values}`);
  });
  await check('dashes begin at the last observed value, and Fitted lies above a wide Observed', async () => {
    const { points, lines: all, widths } = await seen();
    equal(all.map(([, count]) => count), [203, 5, 203]);
    equal(points[1][0], points[0].at(-1));
    ok(widths[0] >= 2 * widths[2], `widths ${widths}`);
  });
}

const FAN = 4;
const ROOTS = 5;
const PANEL = 6;
const SHARES = 7;
const BARS = 8;

// A panel has nine frames where another chart has one.
const frameOf = (index) => (index > PANEL ? index + 8 : index);

async function checkKinds(page) {
  const seen = async (index) => look(await drawn(page, frameOf(index)));
  const tip = (index) => page.locator('.chart-frame').nth(frameOf(index)).locator('.tip');
  const press = async (index, key) => {
    await page.locator('.chart-frame').nth(frameOf(index)).focus();
    await page.keyboard.press(key);
  };
  await check('a fan: nested bands that begin at the last value', async () => {
    const { bands, points, legend, areas } = await seen(FAN);
    const blue = await colorOf(page, '--chart-blue');
    equal(areas, [blue, blue, blue]);
    const heights = bands.map(({ height }) => height);
    ok(heights[0] > heights[1] && heights[1] > heights[2], `the widest first: ${heights}`);
    ok(near(heights[1] / heights[0], 80 / 95, 0.02), `heights ${heights}`);
    ok(bands.every(({ left }) => near(left, points[1].at(-1)[0])), 'joined');
    equal(legend, ['50%', '95%', '80%', 'Observed', 'Forecast']);
    await press(FAN, 'End');
    equal(await tip(FAN).locator('div').nth(2).textContent(), '95%12,956 to 13,032');
  });
  await check('roots: a round circle, points at their places, what each says', async () => {
    const { points, lines: all, dots } = await seen(ROOTS);
    const circle = points[all.findIndex(([, count]) => count > 100)];
    const span = (k) => Math.max(...circle.map((point) => point[k])) - Math.min(...circle.map((point) => point[k]));
    ok(near(span(0), span(1), 0.5) && span(0) > 150, `circle of ${span(0)} by ${span(1)}`);
    equal(dots.length, 3);
    await press(ROOTS, 'Home');
    equal(await tip(ROOTS).locator('div').allTextContents(), ['modulus 0.970', 'Real0.97', 'Imaginary0']);
    const box = await page.locator('.chart-frame').nth(ROOTS).locator('.mark-symbol path').nth(1).boundingBox();
    await page.mouse.move(box.x + 3, box.y + 3);
    ok((await tip(ROOTS).textContent()).startsWith('modulus 0.781'), 'pointer');
    const text = await page.locator('.chart-frame').nth(ROOTS).getAttribute('aria-label');
    ok(text.includes('modulus 0.970 | modulus 0.781') && text.includes('circle of radius 1'), text);
  });
  await check('a panel: nine charts, one value axis a row, zero lines', async () => {
    for (const side of ['row', 'column'])
      equal(await section(page, PANEL).locator(`.panel-${side}`).allTextContents(), ['a', 'b', 'c'], side);
    const frames = section(page, PANEL).locator('.chart-frame');
    const axis = async (cell) => {
      const { axes } = await look(await drawn(page, PANEL + cell));
      return axes.flat().map(({ text }) => text);
    };
    equal(await axis(0), await axis(2));
    ok(JSON.stringify(await axis(0)) !== JSON.stringify(await axis(3)), 'rows differ');
    equal(await frames.first().locator('.mark-rule.role-mark line').count(), 1);
    equal(await section(page, PANEL).locator('.legend li').allTextContents(), ['95%', 'Response']);
    ok((await frames.nth(1).getAttribute('aria-label')).includes('a / b'), 'each is described');
    await frames.nth(1).focus();
    await page.keyboard.press('Home');
    equal(await frames.nth(1).locator('.tip div').allTextContents(), ['0', '95%0.5 to 1.5', 'Response1']);
  });
  await check('stacked areas fill the axis, stacked bars part at zero below their line', async () => {
    const shares = await seen(SHARES);
    const total = shares.bands.reduce((sum, { height }) => sum + height, 0);
    ok(near(total, 3 * shares.bands[0].height, 3), 'three equal shares');
    const bars = await seen(BARS);
    equal([bars.bars.length, bars.lines.map(([, count]) => count)], [8, [4]]);
    const [first, second] = [bars.rects[0], bars.rects[4]];
    ok(near(first.bottom, second.top, 1) || near(first.top, second.bottom, 1), 'one stands on the other');
    await press(BARS, 'Home');
    equal(await tip(BARS).locator('div').allTextContents(), ['w', 'up3', 'down-1', 'Sum2']);
  });
}

async function checkBarEdges() {
  await check('bars at the edges of what is shown are whole', async () => {
    const page = await open(report(stacked(labels.slice(0, 90), [['up', Array(90).fill(2)]], true, 60)));
    const frame = await drawn(page, 0);
    await frame.focus();
    for (const [key, count] of [['Escape', 60], ['+', 30], ['+', 15], ['ArrowLeft', 15], ['Home', 15], ['-', 30]]) {
      await page.keyboard.press(key);
      const plot = await frame.locator('.mark-group.role-frame .background').first().boundingBox();
      const shown = (await look(frame)).rects.filter(({ left, right }) => right > plot.x && left < plot.x + plot.width);
      const cut = shown.filter(({ left, right }) => left < plot.x - 0.5 || right > plot.x + plot.width + 0.5);
      equal([shown.length, cut.length], [count, 0], `after ${key}`);
    }
    await page.context().close();
  });
}

async function checkData(page) {
  const rows = async (index) => {
    await section(page, index).locator('summary').click();
    const file = await download(page, section(page, index).getByRole('button', { name: 'Save CSV' }));
    return file.trimEnd().split('\r\n');
  };
  await check('the data of every kind', async () => {
    const fanRows = await rows(FAN);
    equal(fanRows[0], 'Date,"50%, lower","50%, upper","95%, lower","95%, upper","80%, lower","80%, upper",Observed,Forecast');
    equal([fanRows.length, fanRows.at(-1)], [208, '2010Q3,12974,13014,12956,13032,12962,13026,,12994']);
    equal((await rows(ROOTS))[2], 'Roots,0.6,0.5,modulus 0.781');
    const responses = await rows(PANEL);
    equal([responses.length, responses[0]], [1 + 9 * 21, 'Chart,Horizon,"95%, lower","95%, upper",Response']);
    equal(responses[1 + 21], 'a / b,0,0.5,1.5,1');
    equal((await rows(BARS))[1], 'w,3,-1,2');
  });
}

async function checkPictures(page) {
  for (const [index, names] of [[FAN, ['95%', 'Observed']], [PANEL, ['a', 'c', 'Response', 'Response by Horizon']], [BARS, ['up', 'Sum']]]) {
    await check(`chart ${index} saved as a picture has title, legend and all its parts`, async () => {
      const svg = await download(page, section(page, index).getByRole('button', { name: 'SVG' }));
      const title = await section(page, index).locator('h3').textContent();
      for (const text of [title, ...names]) ok(svg.includes(`>${text}<`), text);
      ok(!svg.includes('var('), 'no custom properties');
      if (index === PANEL) equal(svg.match(/<svg/g).length, 10, 'nine charts in one');
    });
  }
}

// The box of a panel's part, in the window.
const boxOf = (page, selector) => page.locator(selector).first().evaluate((element) => element.getBoundingClientRect().toJSON());

async function checkPanels() {
  const names = Array.from({ length: 10 }, (_, i) => `series ${i}`);
  const file = report(panel(names, 8, (i, j, k) => (i + 1) * (j / (k + 1))));
  await check('a panel of ten by ten scrolls in its frame, its headings stay in sight', async () => {
    const page = await open(file);
    await page.locator('.panel').evaluate((element) => element.scrollTo(800, 900));
    await drawn(page, 99);
    const frame = await boxOf(page, '.panel');
    ok(frame.height < 900 && frame.right < 1280, 'the frame fits the window');
    const [column, row] = [await boxOf(page, '.panel-column:nth-child(11)'), await boxOf(page, '.panel-row >> nth=9')];
    ok(near(column.top, frame.top) && near(row.left, frame.left), `headings at ${column.top} and ${row.left}`);
    const last = page.locator('.chart-frame').nth(99);
    await last.focus();
    await page.keyboard.press('Home');
    const tip = await last.locator('.tip').evaluate((element) => element.getBoundingClientRect().toJSON());
    ok(tip.width > 60 && tip.right <= 1280 && tip.left >= 0, `tip from ${tip.left} to ${tip.right}`);
    await page.context().close();
  });
  await check('a panel of three by three fits a phone', async () => {
    const page = await open(report(panel(['a', 'b', 'c'], 20, (i, j, k) => j / (k + 1))), phone(390));
    await drawn(page, 8);
    equal(await page.locator('.panel').evaluate((element) => element.scrollWidth - element.clientWidth), 0);
    const widths = await page.locator('.drawing').evaluateAll((all) => all.map((drawing) => drawing.clientWidth));
    ok(Math.min(...widths) > 95, `charts of ${widths}`);
    await page.context().close();
  });
}

// A head, or a title, must not stand at the foot of a page without its first rows.
async function checkPrinting() {
  await check('print: every head stays with its first rows', async () => {
    const sizes = Array.from({ length: 60 }, (_, i) => 4 + ((i * 37) % 29));
    const tables = sizes.map((size, t) => {
      const rows = Array.from({ length: size }, (_, i) => `row ${t} ${i}`);
      const title = t % 3 ? `Table ${t}` : `Table ${t} with a name that takes two lines or more of a table this narrow`;
      return table(title, rows, ['Estimate', 'Error'], rows.map((_, i) => [i, i / 3]));
    });
    const page = await open(report(...tables));
    const file = newPath('pdf');
    await page.pdf({ path: file, format: 'A4' });
    await page.context().close();
    const pages = execFileSync('pdftotext', ['-layout', file, '-']).toString().split('\f');
    ok(pages.length > 20, `${pages.length} pages`);
    for (const [number, text] of pages.entries()) {
      const written = text.split('\n').map((line) => line.trim()).filter(Boolean);
      const below = written.length - 1 - written.findLastIndex((line) => !line.startsWith('row'));
      ok(written.length === 0 || below >= 3, `page ${number + 1} ends with ${written.slice(-3).join(' / ')}`);
      ok(written.length === 0 || !/^(lines|more|narrow|of a)/.test(written[0]), `page ${number + 1}: ${written[0]}`);
    }
  });
  await check('print: charts are drawn for paper, so that letters keep their size', async () => {
    const page = await open(report(chart({ kind: 3, title: 'Three' }, ...lines(seven.slice(0, 3)))));
    const shown = () => page.locator('.drawing svg').evaluate((svg) => svg.clientWidth);
    await drawn(page, 0);
    const screen = await shown();
    const becomes = (width) =>
      page.waitForFunction((wanted) => window.document.querySelector('.drawing svg').clientWidth === wanted, width);
    await page.emulateMedia({ media: 'print' });
    await becomes(680);
    await page.emulateMedia({ media: 'screen' });
    await becomes(screen);
    await page.context().close();
  });
  await check('print: a wide panel is wrapped, its charts wide enough and each below its title', async () => {
    const names = Array.from({ length: 7 }, (_, i) => `s${i}`);
    const page = await open(report(panel(names, 8, (i, j, k) => i * j - k)), { viewport: { width: 680, height: 900 } });
    await page.emulateMedia({ media: 'print' });
    await page.waitForFunction(() => !window.document.querySelector('.chart-frame:not(.drawn)'));
    const found = await page.locator('.panel-cell').evaluateAll((all) => all.map((cell) => {
      const { left, right, bottom } = cell.querySelector('svg').getBoundingClientRect();
      return { title: getComputedStyle(cell, '::before').content, left, right, bottom };
    }));
    equal(new Set(found.map(({ title }) => title)).size, 49);
    ok(found.every(({ left, right }) => right - left > 140 && right <= 680), 'width');
    const end = await boxOf(page, '.panel');
    ok(near(Math.max(...found.map(({ bottom }) => bottom)), end.bottom, 8), 'none is cut off');
    await page.context().close();
  });
}

async function checkTablesOfPhones(page) {
  await check('the title of a wide table stands beside its button', async () => {
    const [title, button] = await page.locator('section.table').evaluate((section) =>
      ['caption bdi', 'button'].map((selector) => section.querySelector(selector).getBoundingClientRect().toJSON()));
    ok(title.right <= button.left, `title to ${title.right}, button from ${button.left}`);
    const rows = await page.locator('th[scope=row]').evaluateAll((all) => all.map((cell) => cell.offsetHeight));
    ok(Math.max(...rows) < 40, `names of rows stay on one line: ${rows}`);
    const note = page.locator('tfoot div');
    for (const left of [0, 300]) {
      await page.locator('.scroll').evaluate((scroll, to) => scroll.scrollTo(to, 0), left);
      const box = await note.boundingBox();
      ok(box.x >= 0 && box.x + box.width <= page.viewportSize().width, `its note from ${box.x}, ${box.width} wide`);
    }
  });
}

async function checkColumnWidths() {
  await check('columns have the width that the table asks for where there is room', async () => {
    const names = ['A', 'B', 'C', 'D', 'E'];
    const items = [{}, { columnWidth: { min: 100, max: 300 } }].map((more) =>
      table('T', ['r'], names, [names.map((_, i) => i)], more));
    const widths = async (options) => {
      const page = await open(report(...items), options);
      const found = await page.locator('tbody td').evaluateAll((all) => all.map((cell) => cell.offsetWidth));
      const fits = await page.locator('.scroll').last().evaluate((scroll) => scroll.scrollWidth <= scroll.clientWidth);
      await page.context().close();
      return [Math.min(...found.slice(5)), fits];
    };
    equal(await widths({ viewport: { width: 1280, height: 900 } }), [100, true]);
    const [narrow, fits] = await widths({ viewport: { width: 480, height: 700 } });
    ok(narrow < 100 && fits, `columns of ${narrow}`);
  });
}

await start();
const colors = [['Observed', 'color.red'], ['Fitted', 'color.blue'], ['Forecast', 'color.blue']];
const forecasts = ['Forecast', future, [13000, 13100, 13200, 13300]];
const numbers = columns.cpi.map((_, i) => String(i + 5));
const file = report(
  chart({ kind: 3, title: 'Three' }, ...lines(seven.slice(0, 3))),
  chart({ kind: 3, title: 'Seven' }, ...lines(seven)),
  chart({ kind: 0, title: 'Residuals' }, ['', numbers, columns.cpi]),
  chart({ kind: 3, title: 'Forecast', colors }, ['Observed', labels, gdp], ['Fitted', labels, fitted], forecasts),
  fan(labels, gdp.map(Math.round), future),
  roots([[0.97, 0], [0.6, 0.5], [-0.3, -0.2]]),
  panel(['a', 'b', 'c'], 20, (i, j, k) => (i + 1) * (j / (k + 1))),
  stacked(labels.slice(0, 20), ['p', 'q', 'r'].map((name) => [name, Array(20).fill(100 / 3)]), false),
  stacked(['w', 'x', 'y', 'z'], [['up', [3, 2, 1, 2]], ['down', [-1, 1, -2, 1]]], true),
);
await visit(file, {}, checkLegends, checkTicks, checkForecast, checkKinds, checkData, checkPictures);
await visit(file, phone(360), checkLegends);
await visit(file, phone(480), checkLegends);
const wide = table('VAR Model Parameters - investment', ['realinv(t-1)'], seven, [seven.map((_, i) => 1000 * i)],
  { titleFootnotes: [0], footnotes: ['A note of so many words that it needs several lines on a phone, all of them to be read.'] });
await visit(report(wide), phone(360), checkTablesOfPhones);
await checkNumbers();
await checkZero();
await checkPanels();
await checkBarEdges();
await checkPrinting();
await checkColumnWidths();
await finish();
