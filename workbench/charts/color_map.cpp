#include "workbench/charts/color_map.h"

#include <utility>

#include "workbench/charts/statement_pattern.h"

namespace workbench {

namespace {

struct MapEntry {
  std::string name;
  std::string color;
  std::size_t length = 0;  // of the whole entry, the separator before the next one included
};

// The entry that ends a name at `quote`, if one can.
std::optional<MapEntry> entryEndingAt(std::string_view text, std::size_t quote) {
  constexpr std::string_view kOpen = "(\"";
  constexpr std::string_view kMiddle = "\", ";
  const std::size_t close = text.find(')', quote);
  if (close == std::string_view::npos) return std::nullopt;
  const auto color = colorIn(text.substr(quote + kMiddle.size(), close - quote - kMiddle.size()));
  const std::string_view rest = text.substr(close + 1);
  if (!color || (!rest.empty() && !rest.starts_with(", (\""))) return std::nullopt;
  const std::size_t separator = rest.empty() ? 0 : 2;
  return MapEntry{std::string(text.substr(kOpen.size(), quote - kOpen.size())), *color, close + 1 + separator};
}

// The longest name that the data knows, else the shortest possible one.
std::optional<MapEntry> firstEntry(std::string_view text, const std::set<std::string>& seriesNames) {
  std::optional<MapEntry> best;
  if (!text.starts_with("(\"")) return best;
  for (std::size_t at = text.find("\", color.", 2); at != std::string_view::npos;
       at = text.find("\", color.", at + 1)) {
    auto entry = entryEndingAt(text, at);
    if (!entry) continue;
    const bool isKnown = seriesNames.contains(entry->name);
    if (isKnown || !best) best = std::move(entry);
  }
  return best;
}

}  // namespace

std::optional<std::map<std::string, std::string>> parseColorMap(std::string_view entries,
                                                                const std::set<std::string>& seriesNames) {
  std::map<std::string, std::string> colors;
  while (!entries.empty()) {
    const auto entry = firstEntry(entries, seriesNames);
    if (!entry) return std::nullopt;
    colors[entry->name] = entry->color;
    entries.remove_prefix(entry->length);
  }
  return colors;
}

}  // namespace workbench
