// The page for people who see little, use no mouse, or listen to it.

import { readFileSync, writeFileSync } from 'node:fs';

import { FORECAST, TIME } from './constructed.mjs';
import { check, colorOf, drawn, equal, look, newPath, ok } from './harness.mjs';

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
