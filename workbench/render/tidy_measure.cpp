#include "workbench/render/tidy_measure.h"

#include <array>
#include <utility>

namespace workbench {

namespace {

// What a column measures, by its label in English.
using Entry = std::pair<std::string_view, std::string_view>;
constexpr auto kMeasures = std::to_array<Entry>({
    {"Coefficients", "estimate"},
    {"Coefficient", "estimate"},
    {"Forecast", "estimate"},
    {"Response", "estimate"},
    {"Share", "estimate"},
    {"Standard Error", "std.error"},
    {"Std. Error", "std.error"},
    {"t", "statistic"},
    {"F", "statistic"},
    {"Statistic", "statistic"},
    {"df", "df"},
    {"df1", "df"},
    {"df2", "df2"},
    {"Sig.", "p.value"},
    {"Lower", "conf.low"},
    {"Upper", "conf.high"},
    {"^1 Lower", "conf.low"},
    {"^1 Upper", "conf.high"},
    {"^1 CI Lower", "conf.low"},
    {"^1 CI Upper", "conf.high"},
    {"Unconditional", "unconditional"},
});

// "95%" and "99,5 %" are 95 and 99.5.
std::string levelIn(std::string_view text) {
  std::string level;
  for (const char c : text) {
    if (c >= '0' && c <= '9') level += c;
    if (c == '.' || c == ',') level += '.';
  }
  return level;
}

// The label as a text of the language, in which a marker may stand for anything.
std::optional<TidyMeasure> readMeasure(const std::string& label, const Entry& entry, const Language& language) {
  const std::string text = language.tr(entry.first);
  const std::size_t marker = text.find("^1");
  if (marker == std::string::npos) return label == text ? std::optional(TidyMeasure{entry.second, ""}) : std::nullopt;
  const std::string_view before = std::string_view(text).substr(0, marker);
  const std::string_view after = std::string_view(text).substr(marker + 2);
  if (label.size() <= text.size() - 2 || !label.starts_with(before) || !label.ends_with(after)) return std::nullopt;
  const std::string level = levelIn(std::string_view(label).substr(marker, label.size() + 2 - text.size()));
  return level.empty() ? std::nullopt : std::optional(TidyMeasure{entry.second, level});
}

}  // namespace

std::optional<TidyMeasure> tidyMeasure(const std::string& label, const Language& language) {
  for (const Entry& entry : kMeasures) {
    if (auto measure = readMeasure(label, entry, language)) return measure;
  }
  return std::nullopt;
}

}  // namespace workbench
