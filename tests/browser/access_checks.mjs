// The page for people who see little, use no mouse, or listen to it.

import { readFileSync, writeFileSync } from 'node:fs';

import { FORECAST, HUGE, TIME } from './constructed.mjs';
import { check, colorOf, drawn, equal, look, newPath, ok } from './harness.mjs';

// Red, green and blue of a colour as the page computes it.
const parts = (color) => color.match(/[\d.]+/g).slice(0, 3).map(Number);

function contrast(one, other) {
  const linear = (part) => (part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
  const luminance = (color) => {
    const [red, green, blue] = parts(color).map((part) => linear(part / 255));
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
  };
  const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b);
  return (light + 0.05) / (dark + 0.05);
}

export async function checkContrast(page) {
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
  await check('lines stand out as they are drawn, the wide pale ones too', async () => {
    const paper = parts(await colorOf(page, '--paper'));
    const frame = await drawn(page, FORECAST);
    const drawnLines = await frame.locator('.mark-line.role-mark path').evaluateAll((all) =>
      all.map((path) => [getComputedStyle(path).stroke, Number(getComputedStyle(path).strokeOpacity)]));
    ok(drawnLines.some(([, opacity]) => opacity < 1), 'a pale line');
    for (const [stroke, opacity] of drawnLines) {
      const mixed = parts(stroke).map((part, i) => opacity * part + (1 - opacity) * paper[i]);
      ok(contrast(`rgb(${mixed})`, `rgb(${paper})`) >= 3, `${stroke} at ${opacity}`);
    }
  });
}

export async function checkForcedColors(page) {
  await check('forced colours: the drawing keeps its series, everything else is the system\'s', async () => {
    const [[line]] = (await look(await drawn(page, TIME))).lines;
    ok(contrast(line, await colorOf(page, '--paper')) >= 3, `line ${line}`);
    equal(await colorOf(page, '--muted'), await colorOf(page, '--ink'), 'text');
    ok(await page.getByRole('button', { name: /Dark|Light/ }).isHidden(), 'no choice of a theme');
  });
}

// As a browser sees the page that does not know light-dark().
export function withoutLightDark(file) {
  const path = newPath('html');
  const page = readFileSync(file, 'utf8').replaceAll('light-dark(', 'unknown(');
  writeFileSync(path, page.replace(/<meta http-equiv="Content-Security-Policy"[^>]*>/, ''));
  return path;
}

export async function checkZoomed(page) {
  await check('at 200 % nothing is cut off', async () => {
    await drawn(page, TIME);
    equal(await page.evaluate(() => document.documentElement.scrollWidth), 640);
    const buttons = await page.locator('section.chart').first().locator('button:visible').evaluateAll((all) =>
      all.map((button) => button.getBoundingClientRect().right));
    ok(buttons.length > 4 && Math.max(...buttons) <= 640, `buttons to ${buttons}`);
  });
}

export async function checkKeyboard(page) {
  await check('keys alone reach everything that can be used, each with a mark around it and a name', async () => {
    for (let i = 0; i <= HUGE; i++) await drawn(page, i); // a chart that is not drawn has no buttons
    await page.evaluate(() => document.querySelectorAll('details').forEach((details) => (details.open = true)));
    const focused = () =>
      page.evaluate(() => {
        const { activeElement: element } = document;
        element.dataset.reached = '';
        const mark = getComputedStyle(element).outlineStyle !== 'none';
        return { mark, name: element.ariaLabel || element.textContent.trim(), role: element.role, skip: element.className };
      });
    const everything = 'a[href], button, summary, [tabindex="0"]';
    const stops = await page.locator(everything).evaluateAll((all) => all.filter((one) => one.checkVisibility()).length);
    for (let i = 0; i < stops; i++) {
      await page.keyboard.press('Tab');
      const { mark, name, role, skip } = await focused();
      ok(mark && name !== '' && (i > 0 || skip === 'skip'), `stop ${i}: ${name} ${role}`);
    }
    const missed = await page.locator(everything).evaluateAll((all) =>
      all.filter((one) => one.checkVisibility() && !('reached' in one.dataset)).map((one) => one.outerHTML.slice(0, 80)));
    equal(missed, []);
  });
  await check('what scrolls is a region with a name, and every header of a table says its scope', async () => {
    const nameless = await page.locator('[tabindex="0"]').evaluateAll((all) =>
      all.filter((one) => !['region', 'img', 'group'].includes(one.role) || !one.ariaLabel).map((one) => one.outerHTML.slice(0, 80)));
    equal(nameless, []);
    equal(await page.locator('th:not([scope])').count(), 0);
    equal(await page.locator('.data-view table').first().getAttribute('aria-label'), 'Time Series -realgdp');
  });
  await check('a link of the outline leads to its place, and the next key into it', async () => {
    await page.getByRole('link', { name: 'Test for Residuals' }).press('Enter');
    const section = page.locator('section.table').nth(1);
    const distance = () => section.evaluate((place) => Math.abs(place.getBoundingClientRect().top - 16));
    await page.waitForTimeout(500);  // what is drawn there must not move it
    ok(await distance() < 2, `${await distance()} pixels off`);
    await page.keyboard.press('Tab');
    ok(await page.locator('section.table').nth(1).locator(':focus').count(), 'focus');
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
