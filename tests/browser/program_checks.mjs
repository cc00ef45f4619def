// Reports of the program itself on the example data.

import { execFileSync } from 'node:child_process';
import { statSync, writeFileSync } from 'node:fs';
import { fileURLToPath } from 'node:url';

import { axisTexts, check, copied, download, drawn, equal, look, newPath, ok } from './harness.mjs';

const data = fileURLToPath(new URL('../../examples/us_macro_quarterly.csv', import.meta.url));

// The report of everything that fit does.
export function fitReport() {
  const html = newPath('html');
  const options = '--endogenous realgdp realcons realinv --dates year=year quarter=quarter --predict 8 -q --html';
  execFileSync(process.env.VARMODEL_PROGRAM, ['fit', data, ...options.split(' '), html]);
  return html;
}

export async function checkFirstScreen(page) {
  const { width, height } = page.viewportSize();
  await check(`the first screen of ${width} by ${height} holds forecasts and verdicts`, async () => {
    const frame = await drawn(page, 0);
    const end = await frame.locator('svg').evaluate((svg) => svg.getBoundingClientRect().bottom);
    ok((await page.evaluate(() => window.scrollY)) === 0 && end < height, `the first chart ends at ${end}`);
    const verdicts = await page.locator('.headline li').evaluateAll((all) =>
      all.map((entry) => entry.getBoundingClientRect().bottom));
    ok(verdicts[width > 1000 ? verdicts.length - 1 : 2] < height, `verdicts end at ${verdicts}`);
  });
}

export async function checkOutline(page) {
  await check('a table and a chart of one title are told apart', async () => {
    const names = await page.locator('nav a').allTextContents();
    equal(names.filter((name, i) => names.indexOf(name) < i), []);
    for (const kind of ['Chart', 'Table']) ok(names.includes(`Forecast - realgdp ${kind}`), `${kind} in ${names}`);
  });
  await check('a report of everything has at most 1.2 MB', async () =>
    ok(statSync(fileURLToPath(page.url())).size < 1.2e6, 'size'));
}

// The report of a job.
export function programReport(...options) {
  const [job, html] = [newPath('toml'), newPath('html')];
  writeFileSync(job, `command = '''
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
`);
  execFileSync(process.env.VARMODEL_PROGRAM, ['run', job, '--html', html, '-q', ...options]);
  return html;
}

export async function checkProgram(page) {
  await check('the program: every table and chart of the run', async () => {
    equal(await page.locator('section.table').count(), 6);
    equal(await page.locator('section.chart').count(), 19);
    ok(statSync(fileURLToPath(page.url())).size < 0.7e6, 'at most 0.7 MB');
    ok((await page.locator('pre.command').textContent()).includes('MAXLAG=4'), 'command');
    ok((await page.locator('#facts dd').count()) > 2, 'facts');
    const { lines, dots } = await look(await drawn(page, 0));
    equal([...lines.map(([, points]) => points), dots.length], [199, 10, 199, 9], 'the forecast chart');
  });
}

export async function checkGerman(page) {
  const first = page.locator('section.chart').nth(3); // behind three forecasts
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
    const series = await drawn(page, 3);
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
