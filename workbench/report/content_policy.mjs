// The report's content security policy: content_policy.mjs STYLE SCRIPT... allows these files, each the whole
// text of an element, and nothing else. Packed scripts are named by what they unpack to.

import { createHash } from 'node:crypto';
import { readFileSync } from 'node:fs';

const source = (file) => `'sha256-${createHash('sha256').update(readFileSync(file)).digest('base64')}'`;
const [style, ...scripts] = process.argv.slice(2).map(source);

process.stdout.write(
  `default-src 'none'; script-src ${scripts.join(' ')}; style-src ${style}; img-src data: blob:; ` +
    "base-uri 'none'; form-action 'none'",
);
