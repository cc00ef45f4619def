// What a person sees in a report. VARMODEL_PROGRAM is the program, VARMODEL_REPORT_PAGE the maker of constructed
// reports; the working folder does not matter.

import { execFileSync } from 'node:child_process';
import { readFileSync, statSync, writeFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';

import { chart, document, hostileNames, macroData, table, visible } from './documents.mjs';
import {
  check, colorOf, copied, download, drawn, equal, finish, look, makeReport, newPath, ok, open, start,
} from './harness.mjs';

const { columns, labels } = macroData();
const gdp = columns.realgdp;
const fitted = gdp.map((value, i) => (i < 2 ? value : 2 * gdp[i - 1] - gdp[i - 2]));
const future = ['2009Q4', '2010Q1', '2010Q2'];
const lags = ['1', '2', '3', '4'];
const autocorrelations = [0.9, -0.4, 0.1, 0];

// Places of the constructed charts in their report.
const [TIME, BARS, AREA, COMBINED, FIT, FORECAST, STRANGE, LONG, HUGE] = [0, 1, 2, 3, 4, 5, 6, 7, 8];

const months = (count) =>
  Array.from({ length: count }, (_, i) => `${1000 + Math.floor(i / 12)}M${String((i % 12) + 1).padStart(2, '0')}`);
const wave = (count) => Array.from({ length: count }, (_, i) => Math.sin(i / 50) + (i === 31234 ? 9 : 0));

function constructed() {
  const strange = chart({ kind: 0, title: 'Strange' }, ['', labels, gdp]);
  strange.vizl.splice(6, 0, 'SCALE: log(dim(2), base(10))');
  const names = ['realgdp', 'realcons'];
  const fit = [['Observed', labels, gdp], ['Fitted', labels, fitted]];
  const colors = [['Observed', 'color.red'], ['Fitted', 'color.blue'], ['Forecast', 'color.blue']];
  const criteria = [[1.23456789012345, -0.1], [null, 1e-9]];
  const note = { titleFootnotes: [0], footnotes: ['Optimal lag:  2 .AIC : Lag 2 '] };
  const tests = [{ label: 'Autocorrelation', children: ['Statistic', 'df'] }, 'ACF'];
  return {
    command: 'VARMODEL\n  /MODEL ENDOGENOUS=realgdp realcons',
    facts: [['Rows read', '203']],
    messages: ['Went wrong.\n  here\n  ^', 'Careful.', 'By the way.', 'Try this.'].map((text, kind) => [kind, text]),
    savedFiles: ['out.csv'],
    document: document([
      table('Goodness of Fit', ['Lag 1', 'Lag 2'], ['AIC', 'BIC'], criteria, note),
      table('Test for Residuals', names, tests, [[1, 2, 3], [4, 5, 6]]),
      chart({ kind: 0, title: 'Time Series -realgdp' }, ['', labels, gdp]),
      chart({ kind: 1, title: 'ACF -realgdp', xLabel: 'Lag Number', yLabel: 'ACF' }, ['', lags, autocorrelations]),
      chart({ kind: 2, title: 'Area' }, ['', labels, gdp]),
      chart({ kind: 3, title: 'Residuals' }, ...names.map((name) => [name, labels, columns[name]])),
      chart({ kind: 3, title: 'Fit Values -realgdp', yLabel: 'realgdp' }, ...fit),
      chart({ kind: 3, title: 'Forecast -realgdp', colors }, ...fit, ['Forecast', future, [13000, 13100, 13200]]),
      strange,
      chart({ kind: 0, title: 'Long' }, ['', months(5000), wave(5000)]),
      chart({ kind: 0, title: 'Huge' }, ['', months(50000), wave(50000)]),
    ]),
  };
}

const axisTexts = ({ axes }) => axes.map((axis) => axis.map(({ text }) => text));

// Labels are of the data, in its order, and have room.
function checkDateLabels({ axes }, all) {
  const shown = axes.find((axis) => all.includes(axis[0]?.text)) ?? [];
  ok(shown.length >= 3 && shown.length <= 20, `${shown.length} labels`);
  const places = shown.map(({ text }) => all.indexOf(text));
  ok(places.every((place, i) => place >= 0 && (i === 0 || place > places[i - 1])), `labels ${places}`);
  ok(shown.every(({ left }, i) => i === 0 || left > shown[i - 1].right), 'labels overlap');
}

async function checkMarks(page) {
  const color = (name) => colorOf(page, `--chart-${name}`);
  const [red, green, blue] = [await color('red'), await color('green'), await color('blue')];
  equal(new Set([red, green, blue]).size, 3, 'colours');
  const view = async (index) => look(await drawn(page, index));
  const cases = [
    [TIME, 'time series: one red line, a point a quarter', { lines: [[red, 203]], axisTitles: ['Date', 'Values'] }],
    [TIME, 'the legend of a time series', { legend: ['Observed'] }],
    [BARS, 'bars: blue', { bars: lags.map(() => blue), legend: ['ACF'], axisTitles: ['ACF', 'Lag Number'] }],
    [AREA, 'area: red', { areas: [red] }],
    [COMBINED, 'several series: the palette, the first on top', { lines: [[blue, 203], [red, 203]] }],
    [COMBINED, 'the legend of several series', { legend: ['realgdp', 'realcons'], legendTitle: ['Variable'] }],
    [FIT, 'fit: Fitted drawn above Observed', { lines: [[red, 203], [blue, 203]], axisTitles: ['Date', 'realgdp'] }],
    [FORECAST, 'forecast: mapped colours', { lines: [[red, 203], [blue, 4], [blue, 203]] }],
    [FORECAST, 'forecast: dashes apart from Fitted', { dashes: [false, true, false] }],
    [FORECAST, 'forecast: dots', { dots: [blue, blue, blue] }],
    [FORECAST, 'the legend of a forecast', { legend: ['Observed', 'Fitted', 'Forecast'] }],
    [STRANGE, 'a chart that is understood in part is drawn', { lines: [[red, 203]] }],
  ];
  for (const [index, name, expected] of cases) {
    await check(name, async () => {
      const seen = await view(index);
      for (const key of Object.keys(expected)) equal(seen[key], expected[key], key);
    });
  }
  await check('places and scales', async () => {
    const time = await view(TIME);
    const heights = time.points[0].map(([, y]) => y);
    equal(heights.indexOf(Math.min(...heights)), gdp.indexOf(Math.max(...gdp)), 'place of the peak');
    ok(axisTexts(time).some((list) => list.includes('10,000')), 'value labels');
    const bars = await view(BARS);
    const unit = bars.heights[0] / 0.9;
    bars.heights.forEach((height, i) => ok(Math.abs(height / unit - Math.abs(autocorrelations[i])) < 0.02, `bar ${i}`));
    ok(axisTexts(bars).some((list) => list.join() === lags.join()), 'lags');
    ok(axisTexts(bars).some((list) => list[0]?.endsWith('1.0') && list.at(-1) === '1.0' && list.length > 2), 'scale');
    const { points } = await view(FORECAST);
    equal(points[1][0], points[0].at(-1), 'the forecast begins at the last observed value');
    ok(points[1].at(-1)[0] > points[0].at(-1)[0], 'forecasts follow the observations');
  });
  await check('dates on the axis at 203, 5,000 and 50,000 points', async () => {
    checkDateLabels(await view(TIME), labels);
    checkDateLabels(await view(LONG), months(5000));
    checkDateLabels(await view(HUGE), months(50000));
  });
  await check('a line that is not understood is named', async () => {
    const named = page.locator('section.chart').nth(STRANGE).locator('.not-understood code');
    equal(await named.allTextContents(), ['SCALE: log(dim(2), base(10))']);
  });
}

async function checkLongSeries(page) {
  const section = page.locator('section.chart').nth(HUGE);
  await check('50,000 points: a sample is drawn, the peak in it, and the page says so', async () => {
    const [points] = (await look(await drawn(page, HUGE))).points;
    ok(points.length > 1000 && points.length <= 3100, `${points.length} points`);
    const top = Math.min(...points.map(([, y]) => y));
    equal(points.filter(([, y]) => y < top + 100).length, 1, 'peaks');
    ok((await section.textContent()).includes('the longest series has 50000 points'), 'remark');
  });
  await check('zooming in shows every point', async () => {
    const frame = await drawn(page, HUGE);
    await frame.focus();
    for (let i = 0; i < 9; i++) await page.keyboard.press('+');
    await page.waitForTimeout(500);
    const [points] = (await look(frame)).points;
    const width = await frame.locator('.mark-group.role-frame .background').first().evaluate((e) => e.getBBox().width);
    const inView = points.filter(([x]) => x >= 0 && x <= width).length;
    ok(inView >= 96 && inView <= 100, `${inView} points of 97.7 places`);
    await page.keyboard.press('0');
  });
  await check('all data can be saved', async () => {
    await section.locator('summary').click();
    await section.locator('tbody tr').first().waitFor();
    equal(await section.locator('tbody tr').count(), 200, 'rows shown at first');
    const lines = (await download(page, section.getByRole('button', { name: 'Save CSV' }))).trimEnd().split('\r\n');
    const [label, value] = lines[31235].split(',');
    equal([lines.length, lines[0], label], [50001, 'Date,Observed', months(50000)[31234]]);
    equal(Number(value), wave(31235)[31234], 'full precision');
  });
}

async function checkTables(page) {
  await check('a table: caption, footnote, scopes, shown numbers', async () => {
    const first = page.locator('table.pivot').first();
    ok((await first.locator('caption').textContent()).startsWith('Goodness of Fit'), 'caption');
    ok((await first.locator('tfoot').textContent()).includes('Optimal lag:  2 .AIC : Lag 2 '), 'footnote');
    equal(await first.locator('th[scope=row]').allTextContents(), ['Lag 1', 'Lag 2']);
    equal(await first.locator('td[data-value]').allTextContents(), ['1.235', '-0.100', '.', '1.0e-09']);
  });
  await check('copying gives a spreadsheet full precision', async () => {
    const copy = async (section) => {
      await section.getByRole('button').click();
      return copied(page);
    };
    const tables = page.locator('section.table');
    equal(await copy(tables.nth(0)), 'Variable\tAIC\tBIC\nLag 1\t1.23456789012345\t-0.1\nLag 2\t\t1e-09\n');
    const grouped = 'Variable\tAutocorrelation\tAutocorrelation\tACF\n\tStatistic\tdf\t\nrealgdp\t1\t2\t3\n';
    ok((await copy(tables.nth(1))).startsWith(grouped), 'groups');
    equal(await copy(page.locator('#command')), 'VARMODEL\n  /MODEL ENDOGENOUS=realgdp realcons');
  });
  await check('run facts, messages and outline', async () => {
    equal(await page.locator('#facts dd').allTextContents(), ['203', 'out.csv']);
    equal(await page.locator('#messages strong').allTextContents(), ['Error', 'Warning', 'Note', 'Hint']);
    equal(await page.locator('nav a').count(), 3 + 11);
    equal(await page.locator('nav a').nth(3).textContent(), 'Time Series -realgdp');
  });
}

async function checkReading(page) {
  await check('values under the pointer and under the keys', async () => {
    const frame = await drawn(page, FORECAST);
    const tip = frame.locator('.tip');
    await frame.focus();
    await page.keyboard.press('End');
    equal(await tip.locator('div').allTextContents(), ['2010Q2', 'Forecast13,200']);
    await page.keyboard.press('Home');
    equal(await tip.locator('div').allTextContents(), ['1959Q1', 'Observed2,710.349', 'Fitted2,710.349']);
    await page.keyboard.press('End');
    const box = await frame.boundingBox();
    await page.mouse.move(box.x + box.width - 8, box.y + 120);
    ok((await tip.textContent()).startsWith('2010Q2'), 'pointer');
    await page.keyboard.press('Escape');
    ok(await tip.isHidden(), 'Escape hides the values');
  });
  await check('marking a span zooms to it, a double click shows everything again', async () => {
    const frame = await drawn(page, TIME);
    const box = await frame.boundingBox();
    await page.mouse.move(box.x + box.width * 0.5, box.y + 100);
    await page.mouse.down();
    await page.mouse.move(box.x + box.width * 0.6, box.y + 100, { steps: 4 });
    await page.mouse.up();
    const dates = axisTexts(await look(frame)).find((list) => list.includes('1985Q1'));
    ok(dates && !dates.includes('1960Q1') && dates.length >= 4, `labels ${dates}`);
    await page.mouse.dblclick(box.x + box.width * 0.5, box.y + 100);
    checkDateLabels(await look(frame), labels);
  });
  await check('the description is made of the numbers', async () => {
    const frame = page.locator('.chart-frame').nth(TIME);
    const text = await frame.getAttribute('aria-label');
    ok(text.includes('1959Q1 to 2009Q3') && text.includes('highest 13415.3 at 2008Q2'), text);
    equal(await frame.locator('[role=graphics-document]').getAttribute('aria-label'), text);
  });
  await check('charts are saved as pictures that need no page', async () => {
    const section = page.locator('section.chart').nth(FORECAST);
    const save = (kind) => download(page, section.getByRole('button', { name: kind }));
    const svg = await save('SVG');
    ok(svg.startsWith('<svg') && svg.includes('Forecast -realgdp') && !svg.includes('var('), svg.slice(0, 200));
    const png = await save('PNG');
    ok(png.slice(1, 4) === 'PNG' && png.length > 5000, 'PNG');
  });
}

async function checkThemes(page) {
  const brightness = async () => {
    const ground = await page.evaluate(() => getComputedStyle(document.body).backgroundColor);
    const [red, green, blue] = ground.match(/[\d.]+/g).map(Number);
    return (red + green + blue) / 3;
  };
  await check('dark by preference, light by the button', async () => {
    ok((await brightness()) < 50, 'dark');
    const [[dark]] = (await look(await drawn(page, TIME))).lines;
    await page.getByRole('button', { name: 'Light' }).click();
    ok((await brightness()) > 240, 'light');
    const [[light]] = (await look(await drawn(page, TIME))).lines;
    ok(light !== dark, 'the chart follows');
  });
  await check('print: everything drawn, on white, without controls', async () => {
    await page.getByRole('button', { name: 'Dark' }).click();
    await page.emulateMedia({ media: 'print' });
    await page.waitForFunction(() => !document.querySelector('.chart-frame:not(.drawn)'));
    ok((await brightness()) > 240, 'white');
    for (const hidden of ['nav', '.page-tools', '.chart-tools', '.table-tools'])
      ok(await page.locator(hidden).first().isHidden(), hidden);
  });
}

async function checkPhone(page) {
  const { width } = page.viewportSize();
  await check(`no sideways scrolling at ${width} pixels`, async () => {
    await drawn(page, FORECAST);
    equal(await page.evaluate(() => document.documentElement.scrollWidth), width);
    checkDateLabels(await look(await drawn(page, TIME)), labels);
  });
}

async function checkPolicy(page) {
  await check('the policy stops foreign code', async () => {
    await page.evaluate(() => {
      const script = document.createElement('script');
      script.textContent = 'window.intruder = true';
      document.body.append(script);
    });
    equal(await page.evaluate(() => window.intruder), undefined);
    ok(page.complaints.some((text) => text.includes('policy: script-src')), 'the violation is seen');
  });
}

function hostileInput() {
  const items = hostileNames.flatMap((name) => {
    const colors = [[name, 'color.green'], ['Zulu', 'color.blue']];
    const places = [name, 'b', 'c'];
    const many = chart({ kind: 3, title: name, xLabel: name, yLabel: name, source: name, colors },
      [name, places, [1, 2, 3]], ['Zulu', places, [3, 2, 1]]);
    many.vizl.push(`UNKNOWN: ${name}`);
    const dimension = { label: name, shown: true };
    const more = { titleFootnotes: [0], footnotes: [name], rowDimension: dimension, columnDimension: dimension };
    return [table(name, [name], [name, { label: name, children: [name, 'x'] }], [[1, 2, 3]], more), many];
  });
  return {
    document: { ...document(items), procedure: hostileNames[0], subtitle: hostileNames[1] },
    command: hostileNames.join('|'),
    facts: hostileNames.map((name) => [name, name]),
    messages: hostileNames.map((name, i) => [i % 4, name]),
    savedFiles: hostileNames,
  };
}

// A drawing trims its texts, and ends them in an ellipsis where it has no more room.
const same = (shown, name) =>
  shown === name ||
  shown === name.trim() ||
  (shown.endsWith('\u2026') && shown.length > 8 && name.startsWith(shown.slice(0, -1)));

async function checkHostileName(page, name, index) {
  const shown = visible(name);
  const all = (texts, where, count = texts.length) =>
    ok(texts.length > 0 && texts.length === count && texts.every((text) => same(text, shown)),
      `${where}: ${JSON.stringify(texts).slice(0, 300)}`);
  const pivot = page.locator('section.table').nth(index);
  all(await pivot.locator('caption bdi, tbody th, thead .corner, tfoot bdi').allTextContents(), 'table', 4);
  const headers = await pivot.locator('thead th').allTextContents();
  all(headers.filter((text) => text !== 'x'), 'column headers', 5);
  const section = page.locator('section.chart').nth(index);
  all(await section.locator('h3').allTextContents(), 'heading');
  equal(await section.locator('.not-understood code').allTextContents(), [`UNKNOWN: ${shown}`]);
  const frame = await drawn(page, index);
  const view = await look(frame);
  all(view.axisTitles, 'axis titles', 2);
  equal(view.legend.length, 2);
  ok(view.legend.some((text) => same(text, shown)) && view.legend.includes('Zulu'), `legend: ${view.legend}`);
  const texts = axisTexts(view);
  ok(texts.some((list) => ['c', 'b'].includes(list.at(-1)) && same(list[0], shown)), `axis labels: ${texts}`);
  equal(view.lines, [[await colorOf(page, '--chart-blue'), 3], [await colorOf(page, '--chart-green'), 3]], 'lines');
  ok((await frame.getAttribute('aria-label')).includes(shown), 'description');
  await frame.focus();
  await page.keyboard.press('Home');
  all([await frame.locator('.tip-place').textContent(), await frame.locator('.tip span').first().textContent()], 'tip');
  await section.locator('details.data').evaluate((details) => (details.open = true));
  await section.locator('.data-view table').waitFor();
  const columnNames = await section.locator('.data-view thead th').allTextContents();
  all(columnNames.filter((text) => text !== 'Zulu'), 'data', 2);
}

async function checkHostileNames(page) {
  for (const [index, name] of hostileNames.entries())
    await check(`hostile name ${JSON.stringify(name).slice(0, 60)}`, () => checkHostileName(page, name, index));
  await check('hostile names in command, facts and messages', async () => {
    const shown = hostileNames.map(visible);
    const plain = (name) => name.replaceAll('\r', '').replaceAll('\t', '    ').split('\n').map(visible).join('\n');
    equal(await page.locator('#facts dt').allTextContents(), [...shown, ...shown.map(() => 'Saved file')]);
    equal(await page.locator('#facts dd').allTextContents(), [...hostileNames.map(plain), ...shown]);
    const joined = (name) => plain(name).replace('\n', ''); // the lines after the first are an element of their own
    equal(await page.locator('#messages li > div').allTextContents(), hostileNames.map(joined));
    equal(await page.locator('pre.command').textContent(), plain(hostileNames.join('|')));
    equal(await page.locator('h1').textContent(), shown[0]);
  });
  await check('hostile names stay texts', async () => {
    equal(await page.locator('main img, main iframe, main script, main b:not(.tip b)').count(), 0);
    equal(await page.title(), hostileNames[0]);
  });
}

async function checkOpening(page) {
  await check('a headline and the charts that lead it open the page, said once', async () => {
    const kinds = await page.locator('main section').evaluateAll((all) => all.map((section) => section.className));
    equal(kinds, ['headline', 'chart', 'run', 'table', 'table', 'run', 'run']);
    equal(await page.locator('.headline li').allTextContents(), ['Lag 2 was chosen.', 'The model is stable.']);
    equal(await page.getByText('The model is stable.').count(), 1);
    equal(await page.locator('tfoot').first().textContent().then((text) => text.trim()), 'a By AIC.');
    const outline = await page.locator('nav a').allTextContents();
    equal(outline, ['At a Glance', 'Forecast of a', 'Messages', 'Summary', 'Roots', 'Command', 'Run']);
    ok((await page.locator('section.chart').boundingBox()).y < 500, 'the chart on the first screen');
  });
}

function openingInput() {
  const notes = { titleFootnotes: [1], footnotes: ['Lag 2 was chosen.', 'By AIC.', 'The model is stable.'] };
  const forecast = { ...chart({ kind: 0, title: 'Forecast of a' }, ['', labels, gdp]), name: 'Forecast Chart - a' };
  return {
    ...constructed(),
    document: document([
      table('Summary', ['Rows'], ['Value'], [[203]], notes),
      table('Roots', ['1'], ['Modulus'], [[0.9]]),
      forecast,
    ]),
    headline: 0,
    leadingCharts: [2],
  };
}

// Of colours as the page computes them.
function contrast(one, other) {
  const linear = (part) => (part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
  const luminance = (color) => {
    const [red, green, blue] = color.match(/[\d.]+/g).map((part) => linear(Number(part) / 255));
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  };
  const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b);
  return (light + 0.05) / (dark + 0.05);
}

async function checkContrast(page) {
  await check('series, guide lines and buttons stand out from the ground', async () => {
    const series = ['red', 'green', 'blue', 'grey', 'black', ...Array.from({ length: 10 }, (_, i) => i + 1)];
    const paper = await colorOf(page, '--paper');
    for (const name of [...series.map((name) => `--chart-${name}`), '--zero', '--edge']) {
      const found = contrast(await colorOf(page, name), paper);
      ok(found >= 3, `${name}: ${found}`);
    }
    for (const name of ['--ink', '--muted', '--accent', '--bad', '--warn'])
      ok(contrast(await colorOf(page, name), paper) >= 4.5, name);
  });
}

async function checkForcedColors(page) {
  await check('forced colours: the drawing keeps its series, everything else is the system\'s', async () => {
    const [[line]] = (await look(await drawn(page, TIME))).lines;
    ok(contrast(line, await colorOf(page, '--paper')) >= 3, `line ${line}`);
    equal(await colorOf(page, '--muted'), await colorOf(page, '--ink'), 'text');
    ok(await page.getByRole('button', { name: /Dark|Light/ }).isHidden(), 'no choice of a theme');
  });
}

async function checkOldBrowser(page) {
  await check('a browser that cannot unpack the library says so, and shows the rest', async () => {
    await page.addInitScript(() => delete window.DecompressionStream);
    await page.reload();
    await page.waitForFunction(() => document.querySelector('.chart-frame').textContent.includes('too old to draw'));
    await page.locator('#command button').click();
    ok((await copied(page)).startsWith('VARMODEL'), 'copying');
  });
}

// As a browser sees the page that does not know light-dark().
function withoutLightDark() {
  const path = newPath('html');
  const page = readFileSync(file, 'utf8').replaceAll('light-dark(', 'unknown(');
  writeFileSync(path, page.replace(/<meta http-equiv="Content-Security-Policy"[^>]*>/, ''));
  return path;
}

async function checkZoomed(page) {
  await check('at 200 % nothing is cut off', async () => {
    await drawn(page, TIME);
    equal(await page.evaluate(() => document.documentElement.scrollWidth), 640);
    const buttons = await page.locator('section.chart').first().locator('button:visible').evaluateAll((all) =>
      all.map((button) => button.getBoundingClientRect().right));
    ok(buttons.length > 4 && Math.max(...buttons) <= 640, `buttons to ${buttons}`);
  });
}

async function checkKeyboard(page) {
  await check('keys alone reach output, buttons, charts and data', async () => {
    const focused = () => page.evaluate(() => document.activeElement.className || document.activeElement.textContent);
    await page.keyboard.press('Tab');
    equal(await focused(), 'skip');
    await page.keyboard.press('Enter');
    const seen = new Set();
    for (let i = 0; i < 30; i++) {
      await page.keyboard.press('Tab');
      seen.add(await focused());
    }
    for (const stop of ['Copy', 'scroll', '+', 'SVG', 'chart-frame drawn', 'Show data']) ok(seen.has(stop), `${stop} in ${[...seen]}`);
  });
  await check('a screen reader is told what a chart shows, how to read it, and what was read', async () => {
    const frame = await drawn(page, FORECAST);
    const tree = await page.locator('section.chart').nth(FORECAST).ariaSnapshot();
    ok(/heading "Forecast -realgdp" \[level=3\]/.test(tree) && /img "Line chart: Forecast -realgdp/.test(tree), tree.slice(0, 300));
    ok((await frame.getAttribute('aria-description')).startsWith('Arrow keys'), 'how');
    await frame.focus();
    await page.keyboard.press('End');
    equal(await page.locator('#status').textContent(), '2010Q2; Forecast 13,200');
  });
}

// The program's own report of the example data.
function programReport(...options) {
  const [job, html] = [newPath('toml'), newPath('html')];
  writeFileSync(job, `command = '''
VARMODEL PREDICT
  /MODEL ENDOGENOUS=realgdp realcons realinv LAG=[AIC BIC HQIC] MINLAG=1 MAXLAG=4
  /METHOD TYPE=[OLS]
  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT PARAMETERS FORECASTS]
  /SERIESPLOT PLOT=[TIMESERIES ACF RES RESCOMB RESACF FIT FORECAST]
'''
[data]
source = '${fileURLToPath(new URL('../../examples/us_macro_quarterly.csv', import.meta.url))}'
[dates]
variables = { year = "year", quarter = "quarter" }
[predict]
thru = { year = 2011, quarter = 4 }
`);
  execFileSync(process.env.VARMODEL_PROGRAM, ['run', job, '--html', html, '-q', ...options]);
  return html;
}

async function checkProgram(page) {
  await check('the program: every table and chart of the run', async () => {
    equal(await page.locator('section.table').count(), 6);
    equal(await page.locator('section.chart').count(), 19);
    ok(statSync(fileURLToPath(page.url())).size < 0.7e6, 'at most 0.7 MB');
    ok((await page.locator('pre.command').textContent()).includes('MAXLAG=4'), 'command');
    ok((await page.locator('#facts dd').count()) > 2, 'facts');
    const { lines, dots } = await look(await drawn(page, 16));
    equal([...lines.map(([, points]) => points), dots.length], [199, 10, 199, 9], 'the forecast chart');
  });
}

async function checkGerman(page) {
  const first = page.locator('section.chart').first();
  await check('German: language, headings and buttons', async () => {
    equal(await page.locator('html').getAttribute('lang'), 'de');
    equal(await page.locator('#command h2').textContent(), 'Befehl');
    equal(await page.locator('nav summary').textContent(), 'Gliederung');
    equal(await page.locator('.page-tools button').allTextContents(), ['Dunkel', 'Drucken']);
    await page.locator('#command button').click();
    await page.locator('#status').getByText('Kopiert', { exact: true }).waitFor({ state: 'attached' });
  });
  await check('German: tables show a decimal comma, copies have a point', async () => {
    const cell = page.locator('section.table td[data-value*="."]').first();
    ok(/^-?\d+,\d{3}$/.test(await cell.textContent()), await cell.textContent());
    await page.locator('section.table').first().getByRole('button', { name: 'Kopieren' }).click();
    ok((await copied(page)).split(/[\t\n]/).includes(await cell.getAttribute('data-value')), 'copy');
  });
  await check('German: numbers of a chart', async () => {
    const series = await drawn(page, 0);
    const big = axisTexts(await look(series)).flat();
    ok(big.includes('10.000') && !big.includes('10,000'), `thousands: ${big}`);
    await series.focus();
    await page.keyboard.press('Home');
    equal(await series.locator('.tip b').first().textContent(), '2.710,349');
    ok((await series.getAttribute('aria-label')).includes('2710,35 bei 1959'), 'description');
    const kinds = await page.locator('.chart-frame').evaluateAll((all) => all.map((frame) => frame.ariaLabel));
    const bars = kinds.findIndex((kind) => kind.startsWith('Balkendiagramm'));
    const small = axisTexts(await look(await drawn(page, bars))).flat();
    ok(small.includes('1,0') && !small.includes('1.0'), `decimals: ${small}`);
  });
  await check('German: the data of a chart, shown with a comma, saved with a point', async () => {
    await first.getByText('Daten zeigen').click();
    equal(await first.locator('tbody td').first().textContent(), '2710,349');
    equal(await first.locator('thead th').first().textContent(), 'Datum');
    const saved = await download(page, first.getByRole('button', { name: 'CSV speichern' }));
    ok(saved.split('\r\n')[1].endsWith(',2710.349'), saved.slice(0, 80));
  });
}

// No page may say, request, ask or be forbidden anything, whatever is done with it.
async function visit(file, options, ...actions) {
  const page = await open(file, options);
  for (const action of actions) await action(page);
  const names = actions.map(({ name }) => name);
  await check(`no message, request, dialog, violation after ${names}`, () => equal(page.complaints, []));
  await page.context().close();
}

await start();
const file = makeReport(constructed());
const phone = (width) => ({ viewport: { width, height: 700 }, isMobile: true, hasTouch: true });
await visit(file, {}, checkMarks, checkLongSeries, checkTables, checkReading);
await visit(makeReport(openingInput()), {}, checkOpening);
await visit(file, { colorScheme: 'dark' }, checkThemes);
await visit(file, {}, checkContrast, checkKeyboard);
await visit(file, { colorScheme: 'dark' }, checkContrast);
await visit(withoutLightDark(), { colorScheme: 'dark' }, checkContrast, checkThemes);
await visit(file, {}, checkOldBrowser);
await visit(file, { forcedColors: 'active' }, checkForcedColors);
await visit(file, { viewport: { width: 640, height: 450 }, deviceScaleFactor: 2 }, checkZoomed);
await visit(file, phone(390), checkPhone);
await visit(file, phone(320), checkPhone);
await visit(makeReport(hostileInput()), {}, checkHostileNames);
await checkPolicy(await open(file));
if (process.env.VARMODEL_PROGRAM) {
  await visit(programReport(), {}, checkProgram);
  await visit(programReport('--lang', 'de'), {}, checkGerman);
} else console.log('skipped the program: VARMODEL_PROGRAM is not set');
await finish();
