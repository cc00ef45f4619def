// Names that a variable may have, wherever the page shows them.

import { chart, document, hostileNames, table, visible } from './documents.mjs';
import { axisTexts, check, colorOf, drawn, equal, look, ok } from './harness.mjs';

export function hostileInput() {
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

export async function checkHostileNames(page) {
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
