#include "workbench/report/vega_lite.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace workbench {

namespace {

using Json = rapidjson::Value;
using Pool = rapidjson::Document::AllocatorType;
using Element = ChartSpec::Element;

constexpr std::size_t kPaletteColors = 8;  // --chart-1 ... --chart-8
constexpr int kHeight = 260;
constexpr double kHairline = 1.5;  // what a line of size 1 is drawn with

class Builder {
 public:
  explicit Builder(Pool& pool) : pool_(pool) {}

  Json text(std::string_view value) const {
    return Json(value.data(), static_cast<rapidjson::SizeType>(value.size()), pool_);
  }

  template <class... Members>
  Json object(Members&&... members) const {
    Json result(rapidjson::kObjectType);
    fill(result, std::forward<Members>(members)...);
    return result;
  }

  template <class... Items>
  Json array(Items&&... items) const {
    Json result(rapidjson::kArrayType);
    (result.PushBack(value(std::forward<Items>(items)), pool_), ...);
    return result;
  }

  void push(Json& target, Json item) const { target.PushBack(item, pool_); }
  template <class Value>
  void add(Json& target, const char* key, Value&& member) const {
    fill(target, key, std::forward<Value>(member));
  }

 private:
  Json value(Json&& json) const { return std::move(json); }
  Json value(std::string_view string) const { return text(string); }
  Json value(const char* string) const { return text(string); }
  Json value(bool flag) const { return Json(flag); }
  Json value(int number) const { return Json(number); }
  Json value(double number) const { return Json(number); }
  Json value(std::nullptr_t) const { return Json(); }

  void fill(Json&) const {}
  template <class Value, class... Rest>
  void fill(Json& target, const char* key, Value&& member, Rest&&... rest) const {
    target.AddMember(rapidjson::StringRef(key), value(std::forward<Value>(member)), pool_);
    fill(target, std::forward<Rest>(rest)...);
  }

  Pool& pool_;
};

class ChartBuilder {
 public:
  ChartBuilder(const ChartSpec& spec, const ChartData& data, std::size_t chart, Pool& pool)
      : spec_(spec), data_(data), chart_(std::to_string(chart)), make_(pool) {}

  Json build(const std::string& description) const {
    const double count = static_cast<double>(data_.categories.size());
    return make_.object(
        "title", make_.object("text", text("title")), "description", description, "width", "container", "height",
        kHeight, "autosize", make_.object("type", "fit-x", "contains", "padding"), "params",
        make_.array(make_.object("name", "from", "value", -0.5), make_.object("name", "to", "value", count - 0.5)),
        "data", make_.object("name", "points"), "encoding",
        make_.object("x", categoryAxis(), "y", valueAxis(), "color", color(), "detail", field("series", "nominal")),
        "layer", layers());
  }

 private:
  Json field(const char* name, const char* type) const { return make_.object("field", name, "type", type); }
  Json expression(const std::string& code) const { return make_.object("expr", code); }
  Json text(const char* which) const { return make_.object("signal", "chartText(" + chart_ + ", '" + which + "')"); }

  Json categoryAxis() const {
    Json scale =
        make_.object("domainMin", expression("from"), "domainMax", expression("to"), "nice", false, "zero", false);
    Json axis = make_.object("title", text("xLabel"), "titleLimit", make_.object("signal", "width"), "grid", false,
                             "values", make_.object("signal", "categoryTicks(" + chart_ + ", from, to, width)"),
                             "labelExpr", "categoryLabel(" + chart_ + ", datum.value)", "labelOverlap", "greedy",
                             "labelFlush", false, "labelLimit", 160);
    return make_.object("field", "x", "type", "quantitative", "scale", std::move(scale), "axis", std::move(axis));
  }

  Json valueAxis() const {
    Json axis = make_.object("title", text("yLabel"), "titleLimit", kHeight, "tickCount", 5);
    if (const char* format = numberFormat()) make_.add(axis, "format", format);
    return make_.object("field", "y", "type", "quantitative", "stack", nullptr, "scale", valueScale(), "axis",
                        std::move(axis));
  }

  Json valueScale() const {
    if (!spec_.yRange) return make_.object("zero", spec_.element != Element::line, "nice", 5);
    return make_.object("domain", make_.array(spec_.yRange->min, spec_.yRange->max), "nice", false, "zero", false);
  }

  // Scientific where plain numbers would have a dozen digits; nothing for the usual format.
  const char* numberFormat() const {
    double largest = 0;
    for (const ChartSeries& series : data_.series) {
      for (const double y : series.y) largest = std::max(largest, std::isnan(y) ? 0 : std::abs(y));
    }
    return largest >= 1e9 || (largest > 0 && largest < 1e-4) ? ".2~e" : nullptr;
  }

  Json seriesNames() const {
    Json names(rapidjson::kArrayType);
    for (const ChartSeries& series : data_.series) make_.push(names, make_.text(series.name));
    return names;
  }

  Json legend() const {
    // One entry a column of 140 pixels. A single series is named by the legend's title itself.
    const bool single = spec_.seriesColumn.empty();
    if (single && spec_.legendTitle.empty()) return Json();
    Json title = single ? Json() : text("legendTitle");
    return make_.object("title", std::move(title), "orient", "top", "direction", "horizontal", "columns",
                        expression("max(1, floor(width / 140))"), "labelLimit", 120, "symbolLimit", 0, "symbolType",
                        spec_.element == Element::line ? "stroke" : "square", "symbolSize",
                        spec_.element == Element::line ? 160 : 90);
  }

  Json color() const {
    Json range(rapidjson::kArrayType);
    for (std::size_t i = 0; i < data_.series.size(); ++i) make_.push(range, make_.text(seriesColor(data_, i)));
    Json scale = make_.object("domain", seriesNames(), "range", std::move(range));
    return make_.object("field", "series", "type", "nominal", "scale", std::move(scale), "legend", legend());
  }

  // Dashes of the series that share their colour with an earlier one; null when there are none. A solid line has no
  // dashes at all: a pattern without gaps looks the same, but is cut into as many pieces.
  Json dash() const {
    constexpr std::array<std::pair<int, int>, 4> kDashes{{{0, 0}, {5, 3}, {2, 2}, {9, 3}}};
    Json range(rapidjson::kArrayType);
    bool dashed = false;
    for (std::size_t i = 0; i < data_.series.size(); ++i) {
      const std::size_t pattern = earlierOfColor(data_, i) % kDashes.size();
      const auto [drawn, gap] = kDashes[pattern];
      make_.push(range, pattern == 0 ? make_.array() : make_.array(drawn, gap));
      dashed |= pattern != 0;
    }
    if (!dashed) return Json();
    Json scale = make_.object("domain", seriesNames(), "range", std::move(range));
    return make_.object("field", "series", "type", "nominal", "scale", std::move(scale), "legend", legend());
  }

  Json layers() const {
    switch (spec_.element) {
      case Element::line:
        return make_.array(lines(), dots());
      case Element::area:
        return make_.array(area(), dots());
      default:
        return make_.array(bars());
    }
  }

  Json lines() const {
    const double width = std::max(spec_.size, 1.0) * kHairline;
    Json mark = make_.object("type", "line", "clip", true, "strokeWidth", width, "strokeJoin", "round");
    Json layer = make_.object("mark", std::move(mark));
    if (Json dashes = dash(); dashes.IsObject())
      make_.add(layer, "encoding", make_.object("strokeDash", std::move(dashes)));
    return layer;
  }

  Json dots() const {
    return make_.object("transform", make_.array(make_.object("filter", "datum.dot")), "mark",
                        make_.object("type", "circle", "clip", true, "size", 22, "opacity", 1));
  }

  Json area() const {
    const std::string outline = spec_.outline.empty() ? seriesColor(data_, 0) : "var(--chart-" + spec_.outline + ")";
    return make_.object("mark", make_.object("type", "area", "clip", true, "fillOpacity", 0.25, "line",
                                             make_.object("color", outline, "strokeWidth", kHairline, "clip", true)));
  }

  Json bars() const {
    const double widest = spec_.size > 0 ? spec_.size : 20;
    const std::string width = "clamp(0.7 * width / (to - from), 1, " + std::to_string(std::lround(widest)) + ")";
    return make_.object("mark",
                        make_.object("type", "bar", "clip", true, "orient", "vertical", "width", expression(width)));
  }

  const ChartSpec& spec_;
  const ChartData& data_;
  std::string chart_;
  Builder make_;
};

}  // namespace

std::string seriesColor(const ChartData& data, std::size_t series) {
  const std::string& color = data.series[series].color;
  return "var(--chart-" + (color.empty() ? std::to_string(series % kPaletteColors + 1) : color) + ")";
}

std::size_t earlierOfColor(const ChartData& data, std::size_t series) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < series; ++i) count += std::size_t{seriesColor(data, i) == seriesColor(data, series)};
  return count;
}

Json vegaLite(const ChartSpec& spec, const ChartData& data, std::size_t chart, const std::string& description,
              Pool& pool) {
  return ChartBuilder(spec, data, chart, pool).build(description);
}

}  // namespace workbench
