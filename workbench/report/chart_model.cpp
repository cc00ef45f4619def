#include "workbench/report/chart_model.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "workbench/base/visible_text.h"
#include "workbench/charts/chart_layout.h"
#include "workbench/charts/thinning.h"
#include "workbench/charts/ticks.h"
#include "workbench/render/html_escape.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;
using Kind = ChartElement::Kind;

std::string_view markName(ChartElement::Kind kind) {
  return std::ranges::find(kMarks, kind, [](const auto& mark) { return mark.second; })->first;
}

class ModelWriter {
 public:
  explicit ModelWriter(const Chart& chart) : chart_(chart), spec_(chart.spec) {}

  void addTexts(const std::string& description) {
    for (const auto& [key, text] : {std::pair{"title", &spec_.title},
                                    {"xLabel", &spec_.xLabel},
                                    {"yLabel", &spec_.yLabel},
                                    {"legendTitle", &spec_.legendTitle}}) {
      add(json_, key, Json(visibleText(*text), pool()));
    }
    add(json_, "description", Json(description, pool()));
    if (spec_.elements.size() == 1 && spec_.elements[0].seriesColumn.empty()) add(json_, "single", Json(true));
  }

  void addAxes(const ChartLayout& layout, ColumnStore& columns) {
    if (spec_.numericX) {
      add(json_, "numeric", Json(true));
    } else {
      add(json_, "categories", number(columns.add(chart_.data.categories)));
      add(json_, "ticks", ticks());
      add(json_, "from", number(layout.firstShown));
    }
    if (spec_.equalAxes) add(json_, "equal", Json(true));
    bool zero = false;
    for (const ChartElement& element : spec_.elements)
      zero |= element.kind == Kind::area || element.kind == Kind::interval;
    if (zero) add(json_, "zero", Json(true));
    addRange("xRange", spec_.xRange);
    addRange("yRange", spec_.yRange);
    addRange("besides", chart_.besides);
  }

  void addMarks() {
    Json lines(rapidjson::kArrayType);
    for (const auto& [dimension, at] : spec_.lines) lines.PushBack(array(dimension, at), pool());
    if (!lines.Empty()) add(json_, "lines", std::move(lines));
    Json circles(rapidjson::kArrayType);
    for (const auto& [x, y, radius] : spec_.circles) circles.PushBack(array(x, y, radius), pool());
    if (!circles.Empty()) add(json_, "circles", std::move(circles));
  }

  void addSeries(const ChartLayout& layout, ColumnStore& columns) {
    Json list(rapidjson::kArrayType);
    for (std::size_t i = 0; i < layout.series.size(); ++i)
      list.PushBack(series(chart_.data.series[i], layout.series[i], columns), pool());
    add(json_, "series", std::move(list));
  }

  void addPanel(const std::string& axes, const std::vector<std::optional<std::size_t>>& cells) {
    add(json_, "axes", Json(axes, pool()));
    add(json_, "rows", texts(chart_.panelRows));
    add(json_, "columns", texts(chart_.panelColumns));
    Json list(rapidjson::kArrayType);
    for (const auto& cell : cells) list.PushBack(cell ? number(*cell) : Json(), pool());
    add(json_, "cells", std::move(list));
  }

  std::string text() const { return scriptJson(json_); }

 private:
  rapidjson::Document::AllocatorType& pool() { return json_.GetAllocator(); }

  void add(Json& target, const char* key, Json value) {
    target.AddMember(rapidjson::StringRef(key), std::move(value), pool());
  }

  static Json number(std::size_t value) { return Json(static_cast<std::uint64_t>(value)); }

  template <class... Numbers>
  Json array(Numbers... numbers) {
    Json list(rapidjson::kArrayType);
    (list.PushBack(numbers, pool()), ...);
    return list;
  }

  Json numbers(const std::vector<std::size_t>& values) {
    Json list(rapidjson::kArrayType);
    for (const std::size_t value : values) list.PushBack(number(value), pool());
    return list;
  }

  Json texts(const std::vector<std::string>& values) {
    Json list(rapidjson::kArrayType);
    for (const std::string& value : values) list.PushBack(Json(value, pool()), pool());
    return list;
  }

  void addRange(const char* key, const std::optional<ChartSpec::Range>& range) {
    if (range) add(json_, key, array(range->min, range->max));
  }

  Json ticks() {
    Json rungs(rapidjson::kArrayType);
    for (const TickRung& rung : tickLadder(chart_.data.categories)) {
      Json entry(rapidjson::kArrayType);
      entry.PushBack(number(rung.step), pool());
      entry.PushBack(rung.places.empty() ? number(rung.first) : numbers(rung.places), pool());
      rungs.PushBack(entry, pool());
    }
    return rungs;
  }

  Json series(const ChartSeries& series, const SeriesLayout& layout, ColumnStore& columns) {
    const ChartElement& element = spec_.elements[series.element];
    Json entry(rapidjson::kObjectType);
    add(entry, "name", Json(series.name, pool()));
    add(entry, "kind", Json(std::string(markName(element.kind)), pool()));
    add(entry, "color", Json(layout.color, pool()));
    if (element.size > 0) add(entry, "size", Json(element.size));
    if (!element.outline.empty()) add(entry, "outline", Json(element.outline, pool()));
    if (layout.dash > 0) add(entry, "dash", number(layout.dash));
    if (layout.depth > 0) add(entry, "depth", number(layout.depth));
    if (layout.under) add(entry, "under", Json(true));
    if (layout.continues) add(entry, "continues", number(*layout.continues));
    addPlaces(entry, series, columns);
    addValues(entry, series, layout, columns);
    return entry;
  }

  void addPlaces(Json& entry, const ChartSeries& series, ColumnStore& columns) {
    if (spec_.numericX) {
      add(entry, "x", number(columns.add(series.number)));
    } else if (series.contiguous()) {
      add(entry, "start", number(series.x.empty() ? 0 : series.x[0]));
    } else {
      add(entry, "x", number(columns.add(series.x)));
    }
  }

  void addValues(Json& entry, const ChartSeries& series, const SeriesLayout& layout, ColumnStore& columns) {
    const bool band = !series.upper.empty();
    if (!band) add(entry, "y", number(columns.add(series.y)));
    if (band || !layout.low.empty()) {
      add(entry, "low", number(columns.add(band ? series.y : layout.low)));
      add(entry, "high", number(columns.add(band ? series.upper : layout.high)));
    }
    if (!series.texts.empty()) add(entry, "texts", number(columns.add(series.texts)));
    const bool thinned = !band && layout.low.empty() && series.x.size() > kMostDrawn;
    if (thinned) add(entry, "levels", levels(series, columns));
  }

  // Indexes of ever fewer points, a quarter each time, the last for the whole axis.
  Json levels(const ChartSeries& series, ColumnStore& columns) {
    Json list(rapidjson::kArrayType);
    const std::size_t categories = chart_.data.categories.size();
    std::size_t drawn = kMostDrawn / 2;
    while (16 * drawn <= series.x.size()) drawn *= 4;
    for (; 2 * drawn >= kMostDrawn; drawn /= 4)
      list.PushBack(number(columns.add(drawnPoints(series.x, series.y, {0, categories}, drawn))), pool());
    return list;
  }

  const Chart& chart_;
  const ChartSpec& spec_;
  rapidjson::Document json_{rapidjson::kObjectType};
};

}  // namespace

std::string chartModel(const Chart& chart, const std::string& description, ColumnStore& columns) {
  const ChartLayout layout = layOutChart(chart);
  ModelWriter writer(chart);
  writer.addTexts(description);
  writer.addAxes(layout, columns);
  writer.addMarks();
  writer.addSeries(layout, columns);
  return writer.text();
}

std::string panelModel(const Chart& panel, const std::string& axes, const std::string& description,
                       const std::vector<std::optional<std::size_t>>& cells) {
  ModelWriter writer(panel);
  writer.addTexts(description);
  writer.addPanel(axes, cells);
  return writer.text();
}

}  // namespace workbench
