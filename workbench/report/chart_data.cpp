#include "workbench/report/chart_data.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>

#include "workbench/render/display_text.h"
#include "workbench/render/number_format.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;

const Json* findColumn(const Json& columns, const std::string& name) {
  if (!columns.IsObject() || name.empty()) return nullptr;
  const auto found = columns.FindMember(Json(rapidjson::StringRef(name.data(), name.size())));
  return found != columns.MemberEnd() && found->value.IsArray() ? &found->value : nullptr;
}

std::string cellText(const Json& cell) {
  if (cell.IsString()) return {cell.GetString(), cell.GetStringLength()};
  return cell.IsNumber() ? fullPrecision(cell.GetDouble()) : std::string();
}

double cellNumber(const Json& cell) {
  if (!cell.IsNumber() || isMissing(cell.GetDouble())) return std::numeric_limits<double>::quiet_NaN();
  return cell.GetDouble();
}

// Texts numbered in the order in which they are first asked for.
class Numbering {
 public:
  std::size_t operator()(const std::string& text) {
    const auto [found, added] = numbers_.try_emplace(text, texts_.size());
    if (added) texts_.push_back(text);
    return found->second;
  }

  const std::vector<std::string>& texts() const { return texts_; }

 private:
  std::unordered_map<std::string, std::size_t> numbers_;
  std::vector<std::string> texts_;
};

void sortCategories(ChartData& data) {
  std::vector<std::size_t> order(data.categories.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) -> const std::string& { return data.categories[i]; });
  std::vector<std::size_t> place(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) place[order[i]] = i;
  for (ChartSeries& series : data.series) {
    for (std::size_t& x : series.x) x = place[x];
  }
  std::ranges::sort(data.categories);
}

// Different bytes may look alike once they are made visible.
void nameSeries(std::vector<ChartSeries>& series) {
  std::set<std::string> taken;
  for (ChartSeries& one : series) {
    const std::string shown = visibleText(one.key);
    one.name = shown;
    for (int copy = 2; !taken.insert(one.name).second; ++copy) one.name = shown + " (" + std::to_string(copy) + ")";
  }
}

void colorSeries(ChartData& data, const ChartSpec& spec) {
  for (ChartSeries& series : data.series) {
    const auto mapped = spec.seriesColors.find(series.key);
    series.color = mapped != spec.seriesColors.end() ? mapped->second : spec.color;
  }
}

std::string findProblem(const ChartSpec& spec, const Json* x, const Json* y, const Json* names) {
  if (spec.element == ChartSpec::Element::none) return tr("The chart's specification names nothing to draw.");
  const auto absent = [](const std::string& column) { return tr("The chart has no data column '^1'.", column); };
  if (x == nullptr) return absent(spec.xColumn);
  if (y == nullptr) return absent(spec.yColumn);
  if (names == nullptr && !spec.seriesColumn.empty()) return absent(spec.seriesColumn);
  return {};
}

}  // namespace

bool ChartSeries::contiguous() const {
  for (std::size_t i = 1; i < x.size(); ++i) {
    if (x[i] != x[0] + i) return false;
  }
  return true;
}

std::size_t ChartData::longestSeries() const {
  std::size_t longest = 0;
  for (const ChartSeries& one : series) longest = std::max(longest, one.x.size());
  return longest;
}

std::set<std::string> columnNames(const Json& columns, const char* column) {
  std::set<std::string> names;
  if (const Json* cells = findColumn(columns, column)) {
    for (const Json& cell : cells->GetArray()) names.insert(cellText(cell));
  }
  return names;
}

ChartData readChartData(const Json& columns, const ChartSpec& spec) {
  const Json* x = findColumn(columns, spec.xColumn);
  const Json* y = findColumn(columns, spec.yColumn);
  const Json* names = findColumn(columns, spec.seriesColumn);
  ChartData data;
  data.problem = findProblem(spec, x, y, names);
  if (!data.problem.empty()) return data;

  const rapidjson::SizeType points = std::min({x->Size(), y->Size(), names != nullptr ? names->Size() : x->Size()});
  Numbering categories;
  Numbering series;
  for (rapidjson::SizeType i = 0; i < points; ++i) {
    const std::size_t index = series(names != nullptr ? cellText((*names)[i]) : spec.legendTitle);
    if (index == data.series.size()) data.series.emplace_back().key = series.texts().back();
    data.series[index].x.push_back(categories(cellText((*x)[i])));
    data.series[index].y.push_back(cellNumber((*y)[i]));
  }
  data.categories = categories.texts();
  if (points == 0) data.problem = tr("The chart has no points.");
  if (!spec.dataOrder) sortCategories(data);
  for (std::string& category : data.categories) category = visibleText(category);
  nameSeries(data.series);
  colorSeries(data, spec);
  return data;
}

}  // namespace workbench
