// What a person sees in a report. VARMODEL_PROGRAM is the program, VARMODEL_REPORT_PAGE the maker of constructed
// reports; the working folder does not matter.

import { checkContrast, checkForcedColors, checkKeyboard, checkZoomed, withoutLightDark } from './access_checks.mjs';
import { constructed, openingInput } from './constructed.mjs';
import { checkLongSeries, checkMarks, checkReading } from './drawing_checks.mjs';
import { finish, makeReport, open, phone, start, visit } from './harness.mjs';
import { checkHostileNames, hostileInput } from './hostile_checks.mjs';
import {
  checkOldBrowser, checkOpening, checkPhone, checkPolicy, checkTables, checkThemes, checkTouch,
} from './page_checks.mjs';
import { checkFirstScreen, checkGerman, checkOutline, checkProgram, fitReport, programReport } from './program_checks.mjs';

await start();
const file = makeReport(constructed());
await visit(file, {}, checkMarks, checkLongSeries, checkTables, checkReading);
await visit(makeReport(openingInput()), {}, checkOpening);
await visit(file, { colorScheme: 'dark' }, checkThemes);
await visit(file, {}, checkContrast, checkKeyboard);
await visit(file, { colorScheme: 'dark' }, checkContrast);
await visit(withoutLightDark(file), { colorScheme: 'dark' }, checkContrast, checkThemes);
await visit(file, {}, checkOldBrowser);
await visit(file, { forcedColors: 'active' }, checkForcedColors);
await visit(file, { viewport: { width: 640, height: 450 }, deviceScaleFactor: 2 }, checkZoomed);
await visit(file, phone(390), checkPhone, checkTouch);
await visit(file, phone(320), checkPhone);
await visit(makeReport(hostileInput()), {}, checkHostileNames);
await checkPolicy(await open(file));
if (process.env.VARMODEL_PROGRAM) {
  const everything = fitReport();
  await visit(everything, {}, checkFirstScreen, checkOutline);
  await visit(everything, phone(390, 844), checkFirstScreen);
  await visit(programReport(), {}, checkProgram);
  await visit(programReport('--lang', 'de'), {}, checkGerman);
} else console.log('skipped the program: VARMODEL_PROGRAM is not set');
await finish();
