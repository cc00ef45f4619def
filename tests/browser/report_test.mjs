// What a person sees in a report. VARMODEL_PROGRAM is the program, VARMODEL_REPORT_PAGE the maker of constructed
// reports; the working folder does not matter.

import { execFileSync } from 'node:child_process';
import { writeFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';

import { chart, document, FORECAST_COLORS, macroData, table } from './documents.mjs';
import {
  check,
  colorOf,
  download,
  drawn,
  equal,
  finish,
  look,
  makeReport,
  newPath,
  ok,
  open,
  read,
  skip,
  start,
} from './harness.mjs';
import { hostileNames, visible } from './hostile_names.mjs';

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
  return {
    command: 'VARMODEL\n  /MODEL ENDOGENOUS=realgdp realcons',
    facts: [['Rows read', '203']],
    messages: [
      [0, 'Went wrong.\n  here\n  ^'],
      [1, 'Careful.'],
      [2, 'By the way.'],
      [3, 'Try this.'],
    ],
    savedFiles: ['out.csv'],
    document: document([
      table(
        'Goodness of Fit',
        ['Lag 1', 'Lag 2'],
        ['AIC', 'BIC'],
        [
          [1.23456789012345, -0.1],
          [null, 1e-9],
        ],
        { titleFootnotes: [0], footnotes: ['Optimal lag:  2 .AIC : Lag 2 '] },
      ),
      table(
        'Test for Residuals',
        names,
        [{ label: 'Autocorrelation', children: ['Statistic', 'df'] }, 'ACF'],
        [
          [1, 2, 3],
          [4, 5, 6],
        ],
      ),
      chart({ kind: 0, title: 'Time Series -realgdp' }, ['', labels, gdp]),
      chart({ kind: 1, title: 'ACF -realgdp', xLabel: 'Lag Number', yLabel: 'ACF' }, ['', lags, autocorrelations]),
      chart({ kind: 2, title: 'Area' }, ['', labels, gdp]),
      chart(
        { kind: 4, title: 'Residuals', yLabel: 'Residuals' },
        ...names.map((name) => [name, labels, columns[name]]),
      ),
      chart(
        { kind: 3, title: 'Fit Values -realgdp', yLabel: 'realgdp' },
        ['Observed', labels, gdp],
        ['Fitted', labels, fitted],
      ),
      chart(
        { kind: 3, title: 'Forecast -realgdp', yLabel: 'realgdp', colors: FORECAST_COLORS },
        ['Observed', labels, gdp],
        ['Fitted', labels, fitted],
        ['Forecast', future, [13000, 13100, 13200]],
      ),
      strange,
      chart({ kind: 0, title: 'Long' }, ['', months(5000), wave(5000)]),
      chart({ kind: 0, title: 'Huge' }, ['', months(50000), wave(50000)]),
    ]),
  };
}

// Labels are of the data, in its order, and have room.
function checkDateLabels({ axisLabels, labelBoxes }, all) {
  const shown = axisLabels.find((list) => all.includes(list[0]));
  ok(shown && shown.length >= 3 && shown.length <= 20, `${shown?.length} labels`);
  const places = shown.map((label) => all.indexOf(label));
  ok(
    places.every((place, i) => place >= 0 && (i === 0 || place > places[i - 1])),
    `labels ${shown}`,
  );
  const boxes = labelBoxes.filter(({ text }) => shown.includes(text)).sort((a, b) => a.left - b.left);
  ok(
    boxes.every((box, i) => i === 0 || box.left > boxes[i - 1].right),
    'labels overlap',
  );
}

async function checkMarks(page) {
  const [red, green, blue] = await Promise.all(
    ['--chart-red', '--chart-3', '--chart-blue'].map((name) => colorOf(page, name)),
  );
  ok(new Set([red, green, blue]).size === 3, 'three colours');
  const view = async (index) => look(await drawn(page, index));

  await check('time series: one red line with a point a quarter', async () => {
    const { lines, axisTitles, legend, axisLabels } = await view(TIME);
    equal(
      lines.map((line) => [line.color, line.points.length]),
      [[red, 203]],
    );
    const heights = lines[0].points.map(([, y]) => y);
    equal(heights.indexOf(Math.min(...heights)), gdp.indexOf(Math.max(...gdp)), 'place of the peak');
    equal([...axisTitles].sort(), ['Date', 'Values']);
    equal(legend, ['Observed']);
    ok(
      axisLabels.some((list) => list.includes('10,000')),
      'value labels',
    );
  });
  await check('dates on the axis at 203, 5,000 and 50,000 points', async () => {
    checkDateLabels(await view(TIME), labels);
    checkDateLabels(await view(LONG), months(5000));
    checkDateLabels(await view(HUGE), months(50000));
  });
  await check('bars: blue, from zero on a scale from -1 to 1', async () => {
    const { bars, axisLabels, legend } = await view(BARS);
    equal(
      bars.map((bar) => bar.color),
      Array(4).fill(blue),
    );
    const unit = bars[0].height / 0.9;
    bars.forEach((bar, i) => ok(Math.abs(bar.height / unit - Math.abs(autocorrelations[i])) < 0.02, `bar ${i}`));
    ok(
      axisLabels.some((list) => list[0].endsWith('1.0') && list.at(-1) === '1.0' && list.length > 2),
      'scale',
    );
    ok(
      axisLabels.some((list) => list.join() === lags.join()),
      'lags',
    );
    equal(legend, ['ACF']);
  });
  await check('area: red', async () => equal((await view(AREA)).areas, [red]));
  await check('several series: the palette, the first on top', async () => {
    const { lines, legend, legendTitle } = await view(COMBINED);
    equal(
      lines.map((line) => line.color),
      [blue, red],
    );
    equal(legend, ['realgdp', 'realcons']);
    equal(legendTitle, ['Variable']);
  });
  await check('fit: Observed drawn above Fitted', async () => {
    const { lines, axisTitles } = await view(FIT);
    equal(
      lines.map((line) => [line.color, line.points.length]),
      [
        [blue, 203],
        [red, 203],
      ],
    );
    ok(axisTitles.includes('realgdp'), 'axis title');
  });
  await check('forecast: mapped colours, dashes and dots apart from Fitted', async () => {
    const { lines, dots, legend } = await view(FORECAST);
    equal(
      lines.map((line) => line.color),
      [blue, blue, red],
    );
    equal(
      lines.map((line) => line.dashes !== 'none'),
      [true, false, false],
    );
    equal(dots, Array(3).fill(blue));
    equal(legend, ['Observed', 'Fitted', 'Forecast']);
    ok(lines[0].points[0][0] > lines[2].points.at(-1)[0], 'forecasts follow the observations');
  });
  await check('a line that is not understood is named', async () => {
    const section = page.locator('section.chart').nth(STRANGE);
    equal(await section.locator('.not-understood code').allTextContents(), ['SCALE: log(dim(2), base(10))']);
    equal((await view(STRANGE)).lines.length, 1);
  });
}

async function checkLongSeries(page) {
  await check('50,000 points: a sample is drawn, the peak in it, and the page says so', async () => {
    const { lines } = await look(await drawn(page, HUGE));
    ok(lines[0].points.length > 1000 && lines[0].points.length <= 3100, `${lines[0].points.length} points`);
    const top = Math.min(...lines[0].points.map(([, y]) => y));
    ok(lines[0].points.filter(([, y]) => y < top + 100).length === 1, 'the one peak');
    ok(
      (await page.locator('section.chart').nth(HUGE).textContent()).includes('the longest series has 50000 points'),
      'remark',
    );
  });
  await check('zooming in shows every point', async () => {
    const frame = await drawn(page, HUGE);
    await frame.focus();
    for (let i = 0; i < 9; i++) await page.keyboard.press('+');
    await page.waitForTimeout(500);
    const { lines } = await look(frame);
    const width = await frame.evaluate(
      (element) => element.querySelector('.mark-group.role-frame .background').getBBox().width,
    );
    const inView = lines[0].points.filter(([x]) => x >= 0 && x <= width).length;
    ok(inView >= 96 && inView <= 100, `${inView} points of 97.7 places`);
    await page.keyboard.press('0');
  });
  await check('all data can be saved', async () => {
    const section = page.locator('section.chart').nth(HUGE);
    await section.locator('summary').click();
    await section.locator('tbody tr').first().waitFor();
    equal(await section.locator('tbody tr').count(), 200, 'rows shown at first');
    const lines = read(await download(page, section.getByRole('button', { name: 'Save CSV' })))
      .trimEnd()
      .split('\r\n');
    equal([lines.length, lines[0], lines[31235].split(',')[0]], [50001, 'Date,Observed', months(50000)[31234]]);
    ok(Number(lines[31235].split(',')[1]) === wave(31235)[31234], 'full precision');
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
    const copy = async (i) => {
      await page.locator('section.table').nth(i).getByRole('button').click();
      return page.evaluate(() => navigator.clipboard.readText());
    };
    equal(await copy(0), 'Variable\tAIC\tBIC\nLag 1\t1.23456789012345\t-0.1\nLag 2\t\t1e-09\n');
    equal((await copy(1)).split('\n').slice(0, 3), [
      'Variable\tAutocorrelation\tAutocorrelation\tACF',
      '\tStatistic\tdf\t',
      'realgdp\t1\t2\t3',
    ]);
    await page.locator('#command').getByRole('button').click();
    equal(await page.evaluate(() => navigator.clipboard.readText()), 'VARMODEL\n  /MODEL ENDOGENOUS=realgdp realcons');
  });
  await check('run facts, messages and outline', async () => {
    equal(await page.locator('#facts dd').allTextContents(), ['203', 'out.csv']);
    equal(await page.locator('#messages strong').allTextContents(), ['Error', 'Warning', 'Note', 'Hint']);
    equal(await page.locator('nav a').count(), 3 + 11);
    equal(await page.locator('nav a').nth(5).textContent(), 'Time Series -realgdp');
  });
}

async function checkReading(page) {
  const tip = page.locator('.chart-frame').nth(FORECAST).locator('.tip');
  await check('values under the pointer and under the keys', async () => {
    const frame = await drawn(page, FORECAST);
    await frame.focus();
    await page.keyboard.press('End');
    equal(await tip.locator('div').allTextContents(), ['2010Q2', 'Forecast13,200']);
    await page.keyboard.press('Home');
    equal(await tip.locator('div').allTextContents(), ['1959Q1', 'Observed2,710.349', 'Fitted2,710.349']);
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
    const zoomed = await look(frame);
    const dates = zoomed.axisLabels.find((list) => list.includes('1985Q1'));
    ok(dates && !dates.includes('1960Q1') && dates.length >= 4, `labels ${zoomed.axisLabels}`);
    await page.mouse.dblclick(box.x + box.width * 0.5, box.y + 100);
    checkDateLabels(await look(frame), labels);
  });
  await check('the description is made of the numbers', async () => {
    const text = await page.locator('.chart-frame').nth(TIME).getAttribute('aria-label');
    ok(text.includes('1959Q1 to 2009Q3') && text.includes('highest 13415.3 at 2008Q2'), text);
    ok((await page.locator('.chart-frame').nth(TIME).locator('[role=graphics-document]').count()) > 0, 'role');
  });
  await check('charts are saved as pictures that need no page', async () => {
    const section = page.locator('section.chart').nth(FORECAST);
    const save = (kind) => download(page, section.getByRole('button', { name: kind }));
    const svg = read(await save('SVG'));
    ok(svg.startsWith('<svg') && svg.includes('Forecast -realgdp') && !svg.includes('var('), svg.slice(0, 200));
    const png = read(await save('PNG'));
    ok(png.slice(1, 4) === 'PNG' && png.length > 5000, 'PNG');
  });
}

async function checkThemes(file) {
  const ground = (page) => page.evaluate(() => getComputedStyle(document.body).backgroundColor);
  const brightness = (color) =>
    color
      .match(/[\d.]+/g)
      .slice(0, 3)
      .map(Number)
      .reduce((a, b) => a + b) / 3;
  const page = await open(file, { colorScheme: 'dark' });
  await check('dark by preference, light by the button', async () => {
    ok(brightness(await ground(page)) < 50, 'dark');
    const dark = (await look(await drawn(page, TIME))).lines[0].color;
    await page.getByRole('button', { name: 'Light' }).click();
    ok(brightness(await ground(page)) > 240, 'light');
    ok((await look(await drawn(page, TIME))).lines[0].color !== dark, 'the chart follows');
  });
  await check('print: everything drawn, on white, without controls', async () => {
    await page.getByRole('button', { name: 'Dark' }).click();
    await page.emulateMedia({ media: 'print' });
    await page.waitForFunction(() => !document.querySelector('.chart-frame:not(.drawn)'));
    ok(brightness(await ground(page)) > 240, 'white');
    for (const hidden of ['nav', '.page-tools', '.chart-tools', '.table-tools']) {
      ok(await page.locator(hidden).first().isHidden(), hidden);
    }
  });
  await check('the dark and printed page keeps quiet', () => equal(page.complaints, []));
  await page.context().close();
}

async function checkPhone(file) {
  for (const width of [390, 320]) {
    const page = await open(file, { viewport: { width, height: 700 }, isMobile: true, hasTouch: true });
    await check(`no sideways scrolling at ${width} pixels`, async () => {
      await drawn(page, FORECAST);
      equal(await page.evaluate(() => document.documentElement.scrollWidth), width);
      checkDateLabels(await look(await drawn(page, TIME)), labels);
    });
    await page.context().close();
  }
}

async function checkPolicy(page) {
  await check('the page keeps quiet: no message, request, dialog, violation', () => equal(page.complaints, []));
  await check('the policy stops foreign code', async () => {
    await page.evaluate(() => {
      const script = document.createElement('script');
      script.textContent = 'window.intruder = true';
      document.body.append(script);
    });
    equal(await page.evaluate(() => window.intruder), undefined);
    ok(
      page.complaints.some((text) => text.includes('policy: script-src')),
      'the violation is seen',
    );
  });
}

function hostileInput() {
  const items = hostileNames.flatMap((name) => {
    const many = chart(
      {
        kind: 3,
        title: name,
        xLabel: name,
        yLabel: name,
        source: name,
        colors: { [name]: 'color.green', Zulu: 'color.blue' },
      },
      [name, [name, 'b', 'c'], [1, 2, 3]],
      ['Zulu', [name, 'b', 'c'], [3, 2, 1]],
    );
    // An object literal would take the key "__proto__" for something else.
    many.vizl = many.vizl.map((line) =>
      line.includes(', map(') && name === '__proto__'
        ? 'SCALE: cat(aesthetic(aesthetic.color), map(("Zulu", color.blue), ("__proto__", color.green)))'
        : line,
    );
    many.vizl.push(`UNKNOWN: ${name}`);
    return [
      table(name, [name], [name, { label: name, children: [name, 'x'] }], [[1, 2, 3]], {
        titleFootnotes: [0],
        footnotes: [name],
        rowDimension: { label: name, shown: true },
        columnDimension: { label: name, shown: true },
      }),
      many,
    ];
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
  const all = (texts, where) =>
    ok(
      texts.length > 0 && texts.every((text) => same(text, shown)),
      `${where}: ${JSON.stringify(texts).slice(0, 300)}`,
    );
  const pivot = page.locator('section.table').nth(index);
  all(await pivot.locator('caption bdi, tbody th, thead .corner, tfoot bdi').allTextContents(), 'table');
  all(
    (await pivot.locator('thead th').allTextContents()).filter((text) => text !== 'x'),
    'column headers',
  );
  const section = page.locator('section.chart').nth(index);
  all(await section.locator('h3').allTextContents(), 'heading');
  equal(await section.locator('.not-understood code').allTextContents(), [`UNKNOWN: ${shown}`]);
  const frame = await drawn(page, index);
  const view = await look(frame);
  equal(view.axisTitles.length, 2);
  all(view.axisTitles, 'axis titles');
  equal(view.legend.length, 2);
  ok(view.legend.some((text) => same(text, shown)) && view.legend.includes('Zulu'), `legend: ${view.legend}`);
  ok(
    view.axisLabels.some((list) => ['c', 'b'].includes(list.at(-1)) && same(list[0], shown)),
    `axis labels: ${view.axisLabels}`,
  );
  equal(
    view.lines.map((line) => line.points.length),
    [3, 3],
  );
  equal(view.lines[1].color, await colorOf(page, '--chart-green'), 'mapped colour');
  ok((await frame.getAttribute('aria-label')).includes(shown), 'description');
  await frame.focus();
  await page.keyboard.press('Home');
  all(
    [await frame.locator('.tip-place').textContent(), await frame.locator('.tip span').first().textContent()],
    'values',
  );
  await section.locator('details.data').evaluate((details) => (details.open = true));
  await section.locator('.data-view table').waitFor();
  all(
    (await section.locator('.data-view thead th').allTextContents()).filter((text) => text !== 'Zulu'),
    'data',
  );
}

async function checkHostileNames() {
  const page = await open(makeReport(hostileInput()));
  for (const [index, name] of hostileNames.entries()) {
    await check(`hostile name ${JSON.stringify(name).slice(0, 60)}`, () => checkHostileName(page, name, index));
  }
  await check('hostile names in command, facts and messages', async () => {
    const shown = hostileNames.map(visible);
    const lines = (name) =>
      name
        .split('\n')
        .map((line) => visible(line.replaceAll('\r', '').replaceAll('\t', '    ')))
        .join('\n');
    equal(await page.locator('#facts dt').allTextContents(), [...shown, ...shown.map(() => 'Saved file')]);
    equal(await page.locator('#facts dd').allTextContents(), [...hostileNames.map(lines), ...shown]);
    const joined = (name) => lines(name).replace('\n', ''); // the lines after the first are an element of their own
    equal(await page.locator('#messages li > div').allTextContents(), hostileNames.map(joined));
    equal(await page.locator('pre.command').textContent(), lines(hostileNames.join('|')));
    equal(await page.locator('h1').textContent(), shown[0]);
  });
  await check('hostile names stay texts', async () => {
    equal(page.complaints, []);
    equal(await page.locator('main img, main iframe, main script, main b:not(.tip b)').count(), 0);
    equal(await page.title(), hostileNames[0]);
  });
  await page.context().close();
}

// The program's own report of the example data.
function programReport(program, ...options) {
  const job = newPath('toml');
  const html = newPath('html');
  const data = fileURLToPath(new URL('../../examples/us_macro_quarterly.csv', import.meta.url));
  writeFileSync(
    job,
    `command = '''
VARMODEL PREDICT
  /MODEL ENDOGENOUS=realgdp realcons realinv LAG=[AIC BIC HQIC] MINLAG=1 MAXLAG=4
  /METHOD TYPE=[OLS]
  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT PARAMETERS FORECASTS]
  /SERIESPLOT PLOT=[TIMESERIES ACF RES RESCOMB RESACF FIT FORECAST]
'''
[data]
source = '${data}'
[dates]
variables = { year = "year", quarter = "quarter" }
[predict]
thru = { year = 2011, quarter = 4 }
`,
  );
  execFileSync(program, ['run', job, '--html', html, '-q', ...options]);
  return html;
}

async function checkProgram(program) {
  const html = programReport(program);
  const page = await open(html);
  await check('the program: every table and chart of the run', async () => {
    equal(await page.locator('section.table').count(), 6);
    equal(await page.locator('section.chart').count(), 19);
    ok(read(html).length < 2e6, 'at most 2 MB');
    ok((await page.locator('pre.command').textContent()).includes('MAXLAG=4'), 'command');
    ok((await page.locator('#facts dd').count()) > 2, 'facts');
  });
  await check('the program: the forecast chart', async () => {
    const { lines, dots } = await look(await drawn(page, 16));
    equal(
      lines.map((line) => line.points.length),
      [9, 199, 199],
    );
    equal(dots.length, 9);
  });
  await check('the program: the page keeps quiet', () => equal(page.complaints, []));
  await page.context().close();
}

async function checkGerman(program) {
  const page = await open(programReport(program, '--lang', 'de'));
  const chartAt = (index) => page.locator('section.chart').nth(index);
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
    const [shown, value] = [await cell.textContent(), await cell.getAttribute('data-value')];
    ok(/^-?\d+,\d{3}$/.test(shown), shown);
    await page.locator('section.table').first().getByRole('button', { name: 'Kopieren' }).click();
    await page.waitForFunction(
      async (wanted) => (await navigator.clipboard.readText()).split(/[\t\n]/).includes(wanted),
      value,
    );
  });
  await check('German: numbers of a chart', async () => {
    const series = await drawn(page, 0);
    const big = (await look(series)).axisLabels.flat();
    ok(big.includes('10.000') && !big.includes('10,000'), `thousands: ${big}`);
    await series.focus();
    await page.keyboard.press('Home');
    equal(await series.locator('.tip b').first().textContent(), '2.710,349');
    const [lags] = await page.locator('.chart-frame').evaluateAll((frames) =>
      frames.flatMap((frame, i) => (frame.getAttribute('aria-label').startsWith('Balkendiagramm') ? [i] : [])),
    );
    const small = (await look(await drawn(page, lags))).axisLabels.flat();
    ok(small.includes('1,0') && !small.includes('1.0'), `decimals: ${small}`);
    ok((await series.getAttribute('aria-label')).includes('2710,35 bei 1959'), 'description');
  });
  await check('German: the data of a chart, shown with a comma, saved with a point', async () => {
    await chartAt(0).getByText('Daten zeigen').click();
    equal(await chartAt(0).locator('tbody td').first().textContent(), '2710,349');
    equal(await chartAt(0).locator('thead th').first().textContent(), 'Datum');
    const saved = read(await download(page, chartAt(0).getByRole('button', { name: 'CSV speichern' })));
    ok(saved.split('\r\n')[1].endsWith(',2710.349'), saved.slice(0, 80));
  });
  await check('German: the page keeps quiet', () => equal(page.complaints, []));
  await page.context().close();
}

await start();
const file = makeReport(constructed());
const page = await open(file);
await checkMarks(page);
await checkLongSeries(page);
await checkTables(page);
await checkReading(page);
await checkPolicy(page);
await page.context().close();
await checkThemes(file);
await checkPhone(file);
await checkHostileNames();
if (process.env.VARMODEL_PROGRAM) {
  await checkProgram(process.env.VARMODEL_PROGRAM);
  await checkGerman(process.env.VARMODEL_PROGRAM);
} else skip('the program', 'VARMODEL_PROGRAM is not set');
await finish();
