#include "workbench/cli/open_quote.h"

#include <algorithm>

#include "workbench/base/utf8.h"

namespace workbench {

namespace {

std::string quoteAt(std::string_view text, std::size_t at) {
  const std::string three(3, text[at]);
  return text.substr(at).starts_with(three) ? three : std::string(1, text[at]);
}

// Behind the quote that closes the one before `at`; npos when none does. Only double quotes know escapes.
std::size_t behindClosing(std::string_view text, std::size_t at, const std::string& quote) {
  for (; at < text.size(); ++at) {
    if (text[at] == '\\' && quote.front() == '"') {
      ++at;
    } else if (text[at] == '\n' && quote.size() == 1) {
      return std::string_view::npos;
    } else if (text.substr(at).starts_with(quote)) {
      return at + quote.size();
    }
  }
  return std::string_view::npos;
}

OpenQuote openAt(std::string_view text, std::size_t at) {
  const std::size_t lineBegin = text.substr(0, at).rfind('\n') + 1;  // npos + 1 is the beginning
  return {.line = 1 + static_cast<std::size_t>(
                          std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n')),
          .column = 1 + decodeUtf8(text.substr(lineBegin, at - lineBegin)).size(),
          .quote = quoteAt(text, at)};
}

}  // namespace

std::optional<OpenQuote> findOpenQuote(std::string_view toml) {
  for (std::size_t at = 0; at < toml.size();) {
    if (toml[at] == '#') {
      at = std::min(toml.find('\n', at), toml.size());
    } else if (toml[at] == '"' || toml[at] == '\'') {
      const std::string quote = quoteAt(toml, at);
      const std::size_t behind = behindClosing(toml, at + quote.size(), quote);
      if (behind == std::string_view::npos) return openAt(toml, at);
      at = behind;
    } else {
      ++at;
    }
  }
  return std::nullopt;
}

}  // namespace workbench
