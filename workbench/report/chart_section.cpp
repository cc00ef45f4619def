#include "workbench/report/chart_section.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "workbench/render/chart_description.h"
#include "workbench/render/html_escape.h"
#include "workbench/report/chart_model.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;

// The texts that the page's script shows.
std::string textsJson(const Language& language) {
  rapidjson::Document json(rapidjson::kObjectType);
  for (const auto& [key, text] : {std::pair{"copy", language.tr("Copy")},
                                  {"copied", language.tr("Copied")},
                                  {"notCopied", language.tr("Not copied")},
                                  {"saveCsv", language.tr("Save CSV")},
                                  {"showMore", language.tr("Show ^1 more of ^2")},
                                  {"showFrom", language.tr("Show from ^1")},
                                  {"range", language.tr("^1 to ^2")},
                                  {"lower", language.tr("^1, lower")},
                                  {"upper", language.tr("^1, upper")},
                                  {"remark", language.tr("Remark")},
                                  {"series", language.tr("Series")},
                                  {"chart", language.tr("Chart")},
                                  {"notDrawn", language.tr("This browser is too old to draw charts.")},
                                  {"dark", language.tr("Dark")},
                                  {"light", language.tr("Light")}}) {
    json.AddMember(rapidjson::StringRef(key), Json(text, json.GetAllocator()), json.GetAllocator());
  }
  return scriptJson(json);
}

std::string tools(const std::string& title, const Language& language) {
  constexpr std::string_view kFormat = R"(<div class="chart-tools" role="group" aria-label="{6}" hidden>
<button type="button" data-do="part" hidden></button>
<button type="button" data-do="in" aria-label="{0}" title="{0}">+</button>
<button type="button" data-do="out" aria-label="{1}" title="{1}">−</button>
<button type="button" data-do="reset" title="{2}">{3}</button>
<button type="button" data-do="svg" title="{4}">SVG</button>
<button type="button" data-do="png" title="{5}">PNG</button>
</div>
)";
  return fmt::format(kFormat, htmlText(language.tr("Zoom in")), htmlText(language.tr("Zoom out")),
                     htmlText(language.tr("Show everything")), htmlText(language.tr("Reset")),
                     htmlText(language.tr("Save as an SVG picture")), htmlText(language.tr("Save as a PNG picture")),
                     htmlText(title));
}

std::string dataPart(const ChartData& data, const std::string& description, const Language& language) {
  const std::size_t longest = data.longestSeries();
  std::string out;
  if (longest > kMostDrawn) {
    out = fmt::format(
        "<p class=\"remark\">{}</p>\n",
        htmlText(language.tr("Drawn from a sample: the longest series has ^1 points, about ^2 of them are shown at "
                             "a time, the extremes among them. Zooming in shows every point; the data below is "
                             "complete.",
                             longest, kMostDrawn)));
  }
  return out + fmt::format(
                   "<details class=\"data\"><summary>{}</summary>\n<p class=\"remark\">{}</p>\n<div "
                   "class=\"data-view\"></div></details>\n",
                   htmlText(language.tr("Show data")), htmlText(description));
}

std::string remarks(const std::vector<std::string>& notUnderstood, const Language& language) {
  if (notUnderstood.empty()) return {};
  std::string out = fmt::format("<div class=\"remark not-understood\"><p>{}</p>\n<ul>\n",
                                htmlText(language.tr("Not understood in this chart's specification, and not drawn:")));
  for (const std::string& line : notUnderstood) out += fmt::format("<li><code>{}</code></li>\n", htmlText(line));
  return out + "</ul></div>\n";
}

std::string problemRemark(const Chart& chart, const Language& language) {
  return fmt::format("<p class=\"remark problem\">{}</p>\n", htmlText(problemText(chart.data.problem, language)));
}

// What the charts of a row or a column have in common; each chart's own description says it too.
std::string panelHeading(const char* kind, const std::string& text) {
  return fmt::format("<div class=\"panel-{}\" aria-hidden=\"true\"><bdi>{}</bdi></div>\n", kind, htmlText(text));
}

}  // namespace

std::string ChartSections::addFrame(const Chart& chart, const std::string& description, const Language& language) {
  charts_.push_back(chartModel(chart, description, columns_));
  return fmt::format(
      "<div class=\"chart-frame\" data-chart=\"{}\" tabindex=\"0\" role=\"img\" aria-label=\"{}\" "
      "aria-description=\"{}\"></div>\n",
      charts_.size() - 1, htmlText(description),
      htmlText(language.tr("Arrow keys read the values; plus and minus zoom, 0 shows everything.")));
}

std::string ChartSections::addPanel(const Chart& panel, const std::string& description, const Language& language) {
  const std::string axes = axesText(panel.spec, language);
  std::string out = fmt::format(
      "<p class=\"remark\">{}</p>\n<div class=\"panel\" data-panel=\"{}\" tabindex=\"0\" role=\"group\" "
      "aria-label=\"{}\">\n<div class=\"panel-corner\"></div>\n",
      htmlText(axes), panels_.size(), htmlText(description));
  for (const std::string& heading : panel.panelColumns) out += panelHeading("column", heading);
  std::vector<std::optional<std::size_t>> cells;
  for (std::size_t i = 0; i < panel.cells.size(); ++i) {
    const Chart& cell = panel.cells[i];
    const std::size_t across = panel.panelColumns.size();
    if (i % across == 0) out += panelHeading("row", panel.panelRows[i / across]);
    cells.push_back(cell.data.problem ? std::nullopt : std::optional(charts_.size()));
    out += fmt::format(
        "<div class=\"panel-cell\">{}</div>\n",
        cell.data.problem ? problemRemark(cell, language) : addFrame(cell, describeChart(cell, language), language));
  }
  panels_.push_back(panelModel(panel, axes, description, cells));
  return out + "</div>\n";
}

std::string ChartSections::add(const Json& item, const Language& language) {
  const Chart chart = readChart(item, language.tr("(not a text)"));
  const std::string description = describeChart(chart, language);
  std::string out = fmt::format("<h3><bdi>{}</bdi></h3>\n", htmlText(chart.spec.title));
  if (chart.data.problem) {
    out += problemRemark(chart, language);
  } else {
    out += tools(chart.spec.title, language) +
           (chart.cells.empty() ? addFrame(chart, description, language) : addPanel(chart, description, language));
    out += dataPart(chart.data, description, language);
  }
  return out + remarks(chart.spec.notUnderstood, language);
}

std::string ChartSections::json(const Language& language) const {
  const std::string& decimal = language.decimalSeparator();
  constexpr std::string_view kFormat =
      "{{\"sample\":{},\n\"decimal\":{},\n\"texts\":{},\n\"columns\":{},\n\"charts\":[{}],\n\"panels\":[{}]}}";
  return fmt::format(kFormat, kMostDrawn, scriptJson(Json(rapidjson::StringRef(decimal.data(), decimal.size()))),
                     textsJson(language), columns_.json(), fmt::join(charts_, ",\n"), fmt::join(panels_, ",\n"));
}

}  // namespace workbench
