// What charts draw, and how they are read.

import {
  AREA, BARS, COMBINED, FIT, FORECAST, HUGE, LONG, STRANGE, TIME, autocorrelations, gdp, labels, lags, months, wave,
} from './constructed.mjs';
import { axisTexts, check, colorOf, download, drawn, equal, look, ok } from './harness.mjs';

// Labels are of the data, in its order, and have room.
export function checkDateLabels({ axes }, all) {
  const shown = axes.find((axis) => all.includes(axis[0]?.text)) ?? [];
  ok(shown.length >= 3 && shown.length <= 20, `${shown.length} labels`);
  const places = shown.map(({ text }) => all.indexOf(text));
  ok(places.every((place, i) => place >= 0 && (i === 0 || place > places[i - 1])), `labels ${places}`);
  ok(shown.every(({ left }, i) => i === 0 || left > shown[i - 1].right), 'labels overlap');
}

export async function checkMarks(page) {
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

export async function checkLongSeries(page) {
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

export async function checkReading(page) {
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
