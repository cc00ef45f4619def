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

std::size_t lineAt(std::string_view text, std::size_t at) {
  return 1 + static_cast<std::size_t>(std::ranges::count(text.substr(0, at), '\n'));
}

OpenQuote openAt(std::string_view text, std::size_t at) {
  const std::size_t lineBegin = text.substr(0, at).rfind('\n') + 1;  // npos + 1 is the beginning
  return {.line = lineAt(text, at),
          .column = 1 + decodeUtf8(text.substr(lineBegin, at - lineBegin)).size(),
          .quote = quoteAt(text, at)};
}

// Shows every place outside of texts and comments to `visit`, which ends the walk by true. The place where it ended, or
// where a quote stays open; the size of the text otherwise.
template <typename Visit>
std::size_t walk(std::string_view toml, Visit visit) {
  for (std::size_t at = 0; at < toml.size();) {
    if (toml[at] == '#') {
      at = std::min(toml.find('\n', at), toml.size());
    } else if (toml[at] == '"' || toml[at] == '\'') {
      const std::string quote = quoteAt(toml, at);
      const std::size_t behind = behindClosing(toml, at + quote.size(), quote);
      if (behind == std::string_view::npos) return at;
      at = behind;
    } else {
      if (visit(toml[at])) return at;
      ++at;
    }
  }
  return toml.size();
}

}  // namespace

std::optional<OpenQuote> findOpenQuote(std::string_view toml) {
  const std::size_t end = walk(toml, [](char) { return false; });
  if (end == toml.size()) return std::nullopt;
  return openAt(toml, end);
}

std::optional<std::size_t> findDeepKey(std::string_view toml, std::size_t mostParts) {
  std::size_t parts = 1;
  const auto deepens = [&](char c) {
    if (std::string_view("=,[]{}\n").find(c) != std::string_view::npos) parts = 1;
    return c == '.' && ++parts > mostParts;
  };
  const std::size_t end = walk(toml, deepens);
  if (parts <= mostParts) return std::nullopt;
  return lineAt(toml, end);
}

}  // namespace workbench
