// The page around tables and charts: what it holds, its themes, paper, small windows and old browsers.

import { FORECAST, TIME, labels } from './constructed.mjs';
import { checkDateLabels } from './drawing_checks.mjs';
import { check, copied, drawn, equal, look, ok } from './harness.mjs';

export async function checkTables(page) {
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

export async function checkOpening(page) {
  await check('a headline and the charts that lead it open the page, said once', async () => {
    const kinds = await page.locator('main section').evaluateAll((all) => all.map((section) => section.className));
    equal(kinds, ['headline', 'chart', 'run', 'table', 'table', 'run', 'run']);
    equal(await page.locator('.headline li').allTextContents(), ['Lag 2 was chosen.', 'The model is stable.']);
    equal(await page.getByText('The model is stable.').count(), 1);
    equal(await page.locator('tfoot').first().textContent().then((text) => text.trim()), 'a By AIC.');
    const outline = await page.locator('nav a').allTextContents();
    equal(outline, ['At a Glance', 'Forecast of a', 'Messages', 'Summary', 'Roots', 'Command', 'Run']);
  });
}

export async function checkThemes(page) {
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

export async function checkPhone(page) {
  const { width } = page.viewportSize();
  await check(`no sideways scrolling at ${width} pixels`, async () => {
    await drawn(page, FORECAST);
    equal(await page.evaluate(() => document.documentElement.scrollWidth), width);
    checkDateLabels(await look(await drawn(page, TIME)), labels);
  });
}

export async function checkTouch(page) {
  await check('a tap reads values, which stay until the next one elsewhere', async () => {
    const frame = await drawn(page, TIME);
    const { x, y, width } = await frame.boundingBox();
    await page.touchscreen.tap(x + width - 12, y + 100);
    ok((await frame.locator('.tip').textContent()).startsWith('2008'), 'values');
    ok(await frame.locator('.tip').isVisible(), 'they stay');
    await page.locator('h1').tap();
    await page.locator('#facts').tap();
    ok(await frame.locator('.tip').isHidden(), 'and go');
  });
  await check('everything that can be pressed is large enough for a finger', async () => {
    const small = await page.locator('button, summary, nav a').evaluateAll((all) =>
      all.filter((one) => one.checkVisibility() && one.offsetHeight < 24).map((one) => one.outerHTML.slice(0, 80)));
    equal(small, []);
  });
}

export async function checkPolicy(page) {
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

export async function checkOldBrowser(page) {
  await check('a browser that cannot unpack the library says so, and shows the rest', async () => {
    await page.addInitScript(() => delete window.DecompressionStream);
    await page.reload();
    await page.waitForFunction(() => document.querySelector('.chart-frame').textContent.includes('too old to draw'));
    await page.locator('#command button').click();
    ok((await copied(page)).startsWith('VARMODEL'), 'copying');
  });
}
