#include "workbench/report/chart_section.h"

#include <fmt/format.h>

#include <utility>

#include "workbench/render/display_text.h"
#include "workbench/render/html_escape.h"
#include "workbench/report/chart.h"
#include "workbench/report/chart_description.h"
#include "workbench/report/vega_lite.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;

constexpr std::size_t kMostDrawn = 3000;  // points of a series; more do not show on a screen

// What the page's script gets of one chart.
std::string chartJson(const ChartSpec& spec, const ChartData& data, std::size_t chart, const std::string& description,
                      ColumnStore& columns) {
  rapidjson::Document json(rapidjson::kObjectType);
  auto& pool = json.GetAllocator();
  const auto number = [](std::size_t value) { return Json(static_cast<std::uint64_t>(value)); };
  Json series(rapidjson::kArrayType);
  for (std::size_t i = 0; i < data.series.size(); ++i) {
    const ChartSeries& one = data.series[i];
    Json entry(rapidjson::kObjectType);
    entry.AddMember("name", Json(one.name, pool), pool).AddMember("color", Json(seriesColor(data, i), pool), pool);
    entry.AddMember("y", number(columns.add(one.y)), pool);
    if (one.contiguous()) {
      entry.AddMember("start", number(one.x.empty() ? 0 : one.x[0]), pool);
    } else {
      entry.AddMember("x", number(columns.add(one.x)), pool);
    }
    series.PushBack(entry, pool);
  }
  json.AddMember("spec", vegaLite(spec, data, chart, description, pool), pool);
  json.AddMember("categories", number(columns.add(data.categories)), pool).AddMember("series", series, pool);
  for (const auto& [key, text] : {std::pair{"title", &spec.title},
                                  {"xLabel", &spec.xLabel},
                                  {"yLabel", &spec.yLabel},
                                  {"legendTitle", &spec.legendTitle}}) {
    json.AddMember(rapidjson::StringRef(key), Json(visibleText(*text), pool), pool);
  }
  return scriptJson(json);
}

// The texts that the page's script shows.
std::string textsJson() {
  rapidjson::Document json(rapidjson::kObjectType);
  for (const auto& [key, text] : {std::pair{"copy", tr("Copy")},
                                  {"copied", tr("Copied")},
                                  {"notCopied", tr("Not copied")},
                                  {"saveCsv", tr("Save CSV")},
                                  {"showMore", tr("Show ^1 more of ^2")},
                                  {"series", tr("Series")},
                                  {"chart", tr("Chart")},
                                  {"dark", tr("Dark")},
                                  {"light", tr("Light")}}) {
    json.AddMember(rapidjson::StringRef(key), Json(text, json.GetAllocator()), json.GetAllocator());
  }
  return scriptJson(json);
}

std::string canvas(std::size_t chart, const std::string& description) {
  constexpr std::string_view kFormat = R"(<div class="chart-tools" hidden>
<button type="button" data-do="in" aria-label="{0}" title="{0}">+</button>
<button type="button" data-do="out" aria-label="{1}" title="{1}">−</button>
<button type="button" data-do="reset" title="{2}">{3}</button>
<button type="button" data-do="svg" title="{4}">SVG</button>
<button type="button" data-do="png" title="{5}">PNG</button>
</div>
<div class="chart-frame" data-chart="{6}" tabindex="0" role="img" aria-label="{7}"></div>
)";
  return fmt::format(kFormat, htmlText(tr("Zoom in")), htmlText(tr("Zoom out")), htmlText(tr("Show everything")),
                     htmlText(tr("Reset")), htmlText(tr("Save as an SVG picture")),
                     htmlText(tr("Save as a PNG picture")), chart, htmlText(description));
}

std::string dataPart(const ChartData& data, const std::string& description) {
  const std::size_t longest = data.longestSeries();
  std::string out;
  if (longest > kMostDrawn) {
    out =
        fmt::format("<p class=\"remark\">{}</p>\n",
                    htmlText(tr("Drawn from a sample: the longest series has ^1 points, about ^2 of them are shown at "
                                "a time, the extremes among them. Zooming in shows every point; the data below is "
                                "complete.",
                                longest, kMostDrawn)));
  }
  return out + fmt::format(
                   "<details class=\"data\"><summary>{}</summary>\n<p class=\"remark\">{}</p>\n<div "
                   "class=\"data-view\"></div></details>\n",
                   htmlText(tr("Show data")), htmlText(description));
}

std::string remarks(const std::vector<std::string>& notUnderstood) {
  if (notUnderstood.empty()) return {};
  std::string out = fmt::format("<div class=\"remark not-understood\"><p>{}</p>\n<ul>\n",
                                htmlText(tr("Not understood in this chart's specification, and not drawn:")));
  for (const std::string& line : notUnderstood) out += fmt::format("<li><code>{}</code></li>\n", htmlText(line));
  return out + "</ul></div>\n";
}

}  // namespace

std::string ChartSections::add(const Json& item, const Locale& locale) {
  const auto [spec, data] = readChart(item);
  const std::string description = describeChart(spec, data, locale);
  std::string out = fmt::format("<h3><bdi>{}</bdi></h3>\n", htmlText(spec.title));
  if (data.problem.empty()) {
    out += canvas(charts_.size(), description) + dataPart(data, description);
    charts_.push_back(chartJson(spec, data, charts_.size(), description, columns_));
  } else {
    out += fmt::format("<p class=\"remark problem\">{}</p>\n", htmlText(data.problem));
  }
  return out + remarks(spec.notUnderstood);
}

std::string ChartSections::json(const Locale& locale) const {
  const std::string& decimal = locale.decimalSeparator;
  return fmt::format("{{\"sample\":{},\n\"decimal\":{},\n\"texts\":{},\n\"columns\":{},\n\"charts\":[{}]}}", kMostDrawn,
                     scriptJson(Json(rapidjson::StringRef(decimal.data(), decimal.size()))), textsJson(),
                     columns_.json(), fmt::join(charts_, ",\n"));
}

}  // namespace workbench
