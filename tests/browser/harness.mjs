// Runs checks on reports in Chromium, and counts them.

import { execFileSync } from 'node:child_process';
import { mkdtempSync, readFileSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';

import { chromium } from 'playwright-core';

const root = fileURLToPath(new URL('../../', import.meta.url));
const folder = mkdtempSync(join(tmpdir(), 'report-'));
const maker = process.env.VARMODEL_REPORT_PAGE ?? join(root, 'build/release/tests/report_page');
const counts = { passed: 0, failed: 0 };

export function ok(value, text) {
  if (!value) throw new Error(text);
}

export function equal(actual, expected, text = 'value') {
  const [a, b] = [actual, expected].map((value) => JSON.stringify(value));
  if (a !== b) throw new Error(`${text}: ${a?.slice(0, 400)}, expected ${b?.slice(0, 400)}`);
}

export async function check(name, action) {
  try {
    await action();
    counts.passed++;
  } catch (error) {
    counts.failed++;
    console.log(`FAILED ${name}\n  ${error.message.split('\n').slice(0, 6).join('\n  ')}`);
  }
}

let files = 0;
export const newPath = (extension) => join(folder, `${++files}.${extension}`);

// The report of a constructed input; see report_page.cpp.
export function makeReport(input) {
  const [from, to] = [newPath('json'), newPath('html')];
  writeFileSync(from, JSON.stringify(input));
  execFileSync(maker, [from, to]);
  return to;
}

let browser;
export async function start() {
  const switches = 'no-sandbox disable-gpu disable-quic no-first-run disable-background-networking disable-sync';
  browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: switches.split(' ').map((name) => `--${name}`),
  });
}

export async function finish() {
  await browser.close();
  const { passed, failed } = counts;
  console.log(`${passed} passed, ${failed} failed`);
  process.exit(failed === 0 && passed > 0 ? 0 : 1);
}

// Opens a report; whatever it says, requests, asks, or is forbidden to do is collected in `page.complaints`.
export async function open(file, options = {}) {
  const context = await browser.newContext({
    viewport: { width: 1280, height: 900 },
    permissions: ['clipboard-read', 'clipboard-write'],
    ...options,
  });
  context.setDefaultTimeout(15000);
  const page = await context.newPage();
  page.complaints = [];
  const url = pathToFileURL(file).href;
  page.on('console', (message) => page.complaints.push(`console: ${message.text()}`));
  page.on('pageerror', (error) => page.complaints.push(`error: ${error.message}`));
  page.on('dialog', (dialog) => {
    page.complaints.push(`dialog: ${dialog.message()}`);
    dialog.dismiss();
  });
  page.on('request', (request) => {
    const target = request.url();
    if (target !== url && !target.startsWith('blob:') && target !== 'data:,')
      page.complaints.push(`request: ${target.slice(0, 90)}`);
  });
  await page.addInitScript(() => {
    document.addEventListener('securitypolicyviolation', (event) =>
      console.error(`policy: ${event.violatedDirective} ${event.blockedURI} ${event.sample}`),
    );
  });
  await page.goto(url);
  return page;
}

export const phone = (width, height = 700) => ({ viewport: { width, height }, isMobile: true, hasTouch: true });

// No page may say, request, ask or be forbidden anything, whatever is done with it.
export async function visit(file, options, ...actions) {
  const page = await open(file, options);
  for (const action of actions) await action(page);
  const names = actions.map(({ name }) => name);
  await check(`no message, request, dialog, violation after ${names}`, () => equal(page.complaints, []));
  await page.context().close();
}

// The content of the file that a button saves.
export async function download(page, button) {
  const [saved] = await Promise.all([page.waitForEvent('download'), button.click()]);
  return readFileSync(await saved.path(), 'utf8');
}

export const copied = (page) => page.evaluate(() => navigator.clipboard.readText());

// Scrolls to a chart (counted from 0) and waits until it is drawn.
export async function drawn(page, index) {
  const frame = page.locator('.chart-frame').nth(index);
  await frame.scrollIntoViewIfNeeded();
  await page.waitForFunction((i) => document.querySelectorAll('.chart-frame')[i].classList.contains('drawn'), index);
  return frame;
}

// What a drawn chart shows.
export function look(frame) {
  return frame.evaluate((element) => {
    const all = (selector, root = element) => [...root.querySelectorAll(selector)];
    const marks = (kind) => all(`.mark-${kind}.role-mark path`);
    const texts = (selector) => all(`${selector} text`).map((text) => text.textContent);
    const legend = (selector) =>
      [...element.closest('section').querySelectorAll(`.legend ${selector}`)].map((entry) => entry.textContent);
    const points = (path) =>
      (path.getAttribute('d') ?? '').match(/[ML][^ML]*/g).map((part) => part.slice(1).split(',').map(Number));
    const label = (text) => {
      const { left, right, top } = text.getBoundingClientRect();
      return { left, right, top, text: text.textContent };
    };
    return {
      lines: marks('line').map((path) => [getComputedStyle(path).stroke, points(path).length]),
      widths: marks('line').map((path) => parseFloat(getComputedStyle(path).strokeWidth)),
      dashes: marks('line').map((path) => getComputedStyle(path).strokeDasharray !== 'none'),
      points: marks('line').map(points),
      bars: marks('rect').map((path) => getComputedStyle(path).fill),
      heights: marks('rect').map((path) => path.getBBox().height),
      rects: marks('rect').map((path) => {
        const { left, right, top, bottom } = path.getBoundingClientRect();
        return { left, right, top, bottom };
      }),
      bands: marks('area').map((path) => {
        const { x: left, height } = path.getBBox();
        return { left, height };
      }),
      areas: marks('area').map((path) => getComputedStyle(path).fill),
      dots: marks('symbol').map((path) => getComputedStyle(path).fill),
      axisTitles: texts('.role-axis-title').sort(),
      axes: all('.role-axis')
        .map((axis) => all('.role-axis-label text', axis).map(label))
        .map((labels) => labels.sort((a, b) => a.left - b.left || b.top - a.top)),
      legend: legend('li:not(.legend-title)'),
      legendTitle: legend('.legend-title'),
    };
  });
}

export function colorOf(page, property) {
  return page.evaluate((name) => {
    const probe = document.createElement('i');
    probe.style.color = `var(${name})`;
    document.body.append(probe);
    const { color } = getComputedStyle(probe);
    probe.remove();
    return color;
  }, property);
}

// The labels of each axis of what look() saw.
export const axisTexts = ({ axes }) => axes.map((axis) => axis.map(({ text }) => text));
