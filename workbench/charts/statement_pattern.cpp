#include "workbench/charts/statement_pattern.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace workbench {

std::optional<std::vector<std::string>> matchStatement(std::string_view line, std::string_view pattern) {
  constexpr char kHole = '@';
  std::vector<std::string> captures;
  std::size_t hole = pattern.find(kHole);
  if (!line.starts_with(pattern.substr(0, hole))) return std::nullopt;
  if (hole == std::string_view::npos) return line == pattern ? std::optional(captures) : std::nullopt;
  line.remove_prefix(hole);
  while (hole != std::string_view::npos) {
    pattern.remove_prefix(hole + 1);
    hole = pattern.find(kHole);
    const std::string_view piece = pattern.substr(0, hole);
    const bool last = hole == std::string_view::npos;
    if (last && !line.ends_with(piece)) return std::nullopt;
    const std::size_t end = last ? line.size() - piece.size() : line.find(piece);
    if (end == std::string_view::npos) return std::nullopt;
    captures.emplace_back(line.substr(0, end));
    line.remove_prefix(end + piece.size());
  }
  return captures;
}

std::optional<double> numberIn(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<std::string> colorIn(std::string_view text) {
  constexpr std::string_view kPrefix = "color.";
  if (!text.starts_with(kPrefix)) return std::nullopt;
  text.remove_prefix(kPrefix.size());
  constexpr std::array<std::string_view, 5> kColors{"red", "green", "blue", "black", "grey"};
  if (std::ranges::find(kColors, text) == kColors.end()) return std::nullopt;
  return std::string(text);
}

std::string_view trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

std::vector<std::string_view> splitArguments(std::string_view text) {
  std::vector<std::string_view> arguments;
  int depth = 0;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || (text[i] == ',' && depth == 0)) {
      arguments.push_back(trimmed(text.substr(start, i - start)));
      start = i + 1;
    } else {
      depth += (text[i] == '(') - (text[i] == ')');
    }
  }
  return arguments;
}

}  // namespace workbench
