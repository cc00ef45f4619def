// The inputs of reports that show everything the page can hold, from the example data.

import { chart, document, macroData, table } from './documents.mjs';

export const { columns, labels } = macroData();
export const gdp = columns.realgdp;
const fitted = gdp.map((value, i) => (i < 2 ? value : 2 * gdp[i - 1] - gdp[i - 2]));
const future = ['2009Q4', '2010Q1', '2010Q2'];
export const lags = ['1', '2', '3', '4'];
export const autocorrelations = [0.9, -0.4, 0.1, 0];

// Places of the constructed charts in their report.
export const [TIME, BARS, AREA, COMBINED, FIT, FORECAST, STRANGE, LONG, HUGE] = [0, 1, 2, 3, 4, 5, 6, 7, 8];

export const months = (count) =>
  Array.from({ length: count }, (_, i) => `${1000 + Math.floor(i / 12)}M${String((i % 12) + 1).padStart(2, '0')}`);
export const wave = (count) => Array.from({ length: count }, (_, i) => Math.sin(i / 50) + (i === 31234 ? 9 : 0));

export function constructed() {
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

export function openingInput() {
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
