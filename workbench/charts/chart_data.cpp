#include "workbench/charts/chart_data.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <unordered_map>
#include <utility>

#include "workbench/base/visible_text.h"

namespace workbench {

namespace {

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
  std::set<std::pair<std::size_t, std::string>> taken;
  for (ChartSeries& one : series) {
    const std::string shown = visibleText(one.key);
    one.name = shown;
    for (int copy = 2; !taken.insert({one.element, one.name}).second; ++copy)
      one.name = shown + " (" + std::to_string(copy) + ")";
  }
}

void colorSeries(ChartData& data, const ChartSpec& spec) {
  for (ChartSeries& series : data.series) {
    const auto mapped = spec.seriesColors.find(series.key);
    series.color = mapped != spec.seriesColors.end() ? mapped->second : spec.elements[series.element].color;
  }
}

ChartProblem findProblem(const ChartSpec& spec, const ChartColumns& columns) {
  if (spec.elements.empty()) return {ChartProblem::Kind::noElement, ""};
  for (const std::string& name : requiredColumns(spec)) {
    if (!columns.has(name)) return {ChartProblem::Kind::noColumn, name};
  }
  return {};
}

// Puts one element's points together.
class ElementReader {
 public:
  ElementReader(const ChartColumns& columns, const ChartSpec& spec, std::size_t element, Numbering& categories)
      : columns_(columns), spec_(spec), index_(element), element_(spec.elements[element]), categories_(categories) {}

  std::vector<ChartSeries> read(const std::vector<std::size_t>& rows) {
    for (const std::size_t row : kept(rows)) addPoint(row);
    return std::move(series_);
  }

 private:
  bool hasValue(std::size_t row) const { return !std::isnan(columns_.number(element_.yColumn, row)); }

  // The rows that belong to this element.
  std::vector<std::size_t> kept(const std::vector<std::size_t>& rows) const {
    if (spec_.elements.size() == 1 || !element_.seriesColumn.empty()) return rows;
    const auto valued = [this](std::size_t row) { return hasValue(row); };
    const auto first = std::find_if(rows.begin(), rows.end(), valued);
    const auto end = std::find_if(rows.rbegin(), std::make_reverse_iterator(first), valued).base();
    std::set<std::string> filled;
    for (auto row = first; row != end; ++row)
      if (hasValue(*row)) filled.insert(columns_.text(element_.xColumn, *row));
    std::vector<std::size_t> mine;
    std::copy_if(first, end, std::back_inserter(mine), [&](std::size_t row) {
      return hasValue(row) || !filled.contains(columns_.text(element_.xColumn, row));
    });
    return mine;
  }

  std::string keyOf(std::size_t row) const {
    if (!element_.seriesColumn.empty()) return columns_.text(element_.seriesColumn, row);
    return element_.label.empty() ? spec_.legendTitle : element_.label;
  }

  void addPoint(std::size_t row) {
    const std::size_t index = names_(keyOf(row));
    if (index == series_.size()) {
      series_.emplace_back().element = index_;
      series_.back().key = names_.texts().back();
    }
    ChartSeries& series = series_[index];
    if (spec_.numericX) {
      series.number.push_back(columns_.number(element_.xColumn, row));
    } else {
      series.x.push_back(categories_(columns_.text(element_.xColumn, row)));
    }
    series.y.push_back(columns_.number(element_.yColumn, row));
    if (!element_.upperColumn.empty()) series.upper.push_back(columns_.number(element_.upperColumn, row));
    if (!element_.textColumn.empty()) series.texts.push_back(visibleText(columns_.text(element_.textColumn, row)));
  }

  const ChartColumns& columns_;
  const ChartSpec& spec_;
  std::size_t index_;
  const ChartElement& element_;
  Numbering& categories_;
  Numbering names_;
  std::vector<ChartSeries> series_;
};

}  // namespace

bool ChartSeries::contiguous() const {
  for (std::size_t i = 1; i < x.size(); ++i) {
    if (x[i] != x[0] + i) return false;
  }
  return true;
}

std::size_t ChartData::longestSeries() const {
  std::size_t longest = 0;
  for (const ChartSeries& one : series) longest = std::max(longest, one.y.size());
  return longest;
}

ChartData readChartData(const ChartColumns& columns, const ChartSpec& spec, const std::vector<std::size_t>& rows) {
  ChartData data;
  data.problem = findProblem(spec, columns);
  if (data.problem) return data;
  Numbering categories;
  for (const std::size_t row : rows)
    if (!spec.numericX) categories(columns.text(spec.elements.front().xColumn, row));
  for (std::size_t element = 0; element < spec.elements.size(); ++element) {
    for (ChartSeries& series : ElementReader(columns, spec, element, categories).read(rows))
      data.series.push_back(std::move(series));
  }
  data.categories = categories.texts();
  if (data.series.empty()) data.problem.kind = ChartProblem::Kind::noPoints;
  if (!spec.dataOrder) sortCategories(data);
  for (std::string& category : data.categories) category = visibleText(category);
  nameSeries(data.series);
  colorSeries(data, spec);
  return data;
}

}  // namespace workbench
