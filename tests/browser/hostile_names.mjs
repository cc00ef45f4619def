// Names that a variable may have, and how a page shows them.

export const hostileNames = [
  '</script><script>alert(1)</script>',
  '<img src=x onerror=alert(1)>',
  '<!--<script>',
  ']]>',
  'a"b',
  "it's",
  '")',
  '"))',
  'a"), label("b',
  'a", color.green), ("b',
  'label("x")',
  '{{name}}',
  '${name}',
  '](javascript:alert(1))',
  '&lt;b&gt; &amp;',
  'a\\nb\\u0041\\',
  'line\nbreak\r\n',
  'tab\there',
  'nul\0byte',
  '\u05e9\u05dc\u05d5\u05dd',
  '\u202eevil',
  '\u2028separator',
  '\u{1f469}\u200d\u{1f52c} \u{1f4c8}',
  "datum['constructor']",
  '__proto__',
  'constructor',
  'signal',
  '@hole@',
  '=1+1',
  '  blanks  ',
  'n'.repeat(300),
  'data:text/html,<script>alert(1)</script>',
];

// Control characters are made visible, so that nothing acts.
export const visible = (name) =>
  name
    .replace(/[\0-\x1f\x7f]/g, (c) => `^${String.fromCharCode(c.charCodeAt(0) ^ 64)}`)
    .replace(/[\x80-\x9f\u2028-\u202e\u2066-\u2069]/g, '\ufffd');
