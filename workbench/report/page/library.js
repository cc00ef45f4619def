// The chart library, which the page holds packed.

async function unpacked(base64) {
  const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('gzip'));
  return new Response(stream).text();
}

// Runs the library and tells it how the page writes numbers and labels its axes. The page's policy knows the digest of
// what is run. Fails in a browser that cannot unpack.
async function loadLibrary() {
  const script = document.createElement('script');
  script.textContent = await unpacked(document.getElementById('library').textContent);
  document.head.append(script);
  vega.formatLocale({ decimal: report.decimal, thousands, grouping: [3], currency: ['', ''] });
  vega.expressionFunction('categoryTicks', categoryTicks);
  vega.expressionFunction('categoryLabel', categoryLabel);
  vega.expressionFunction('chartText', chartText);
}

function sayThatNothingIsDrawn() {
  for (const frame of document.querySelectorAll('.chart-frame')) {
    frame.classList.add('drawn');
    frame.textContent = report.texts.notDrawn;
  }
}
