#include "workbench/dataset/header_names.h"

#include <algorithm>

#include "workbench/dataset/source_relation.h"
#include "workbench/dataset/text_lines.h"

namespace workbench {

namespace {

// "gdp" of "gdp_1"; "" for names without a number behind them.
std::string stem(const std::string& name) {
  const std::size_t end = name.find_last_not_of("0123456789");
  const bool numbered = end != std::string::npos && end > 0 && end + 1 < name.size() && name[end] == '_';
  return numbered ? name.substr(0, end) : "";
}

// Whether the name itself stands in one of the file's lines.
bool standsIn(const std::vector<std::string>& lines, const std::string& name) {
  return std::ranges::any_of(lines, [&](const std::string& line) { return line.find(name) != std::string::npos; });
}

}  // namespace

std::vector<RepeatedName> repeatedNames(const Dataset& dataset, const std::filesystem::path& source) {
  std::vector<RepeatedName> repeated;
  for (std::size_t i = 0; i < dataset.columns.size(); ++i) {
    const std::string& name = dataset.columns[i].name;
    const std::string first = stem(name);
    const int earlier = first.empty() ? -1 : dataset.find(first);
    if (earlier >= 0 && static_cast<std::size_t>(earlier) < i) repeated.push_back({first, i + 1, name});
  }
  if (repeated.empty() || !isDelimitedText(source)) return {};
  const std::vector<std::string> lines = firstLines(source);
  std::erase_if(repeated, [&](const RepeatedName& one) { return standsIn(lines, one.called); });
  return repeated;
}

}  // namespace workbench
