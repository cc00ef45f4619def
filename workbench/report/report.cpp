#include "workbench/report/report.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "workbench/render/html_escape.h"
#include "workbench/render/html_table.h"
#include "workbench/render/pivot_table.h"
#include "workbench/report/assets.h"
#include "workbench/report/chart_section.h"
#include "workbench/report/sha256.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;

// Texts of several lines, tabs opened to blanks so that they do not show as control characters.
std::string linesText(std::string_view text) {
  std::string out;
  std::string line;
  const auto flush = [&] { out += htmlText(std::exchange(line, {})); };
  for (const char c : text) {
    if (c == '\r') continue;
    if (c == '\n') {
      flush();
      out += '\n';
    } else {
      c == '\t' ? void(line += "    ") : line.push_back(c);
    }
  }
  flush();
  return out;
}

class Page {
 public:
  explicit Page(const ReportInput& input) : input_(input) {}

  std::string write() {
    const std::string heading = property("procedure").empty() ? "Run report" : htmlText(property("procedure"));
    addCommand();
    addFacts();
    addMessages();
    addItems();
    return head(heading) + body(heading) + scripts() + "</body>\n</html>\n";
  }

 private:
  std::string property(const char* name) const {
    return input_.document != nullptr && input_.document->IsObject() ? textProperty(*input_.document, name) : "";
  }

  // `title` is HTML already.
  void addSection(const std::string& id, const char* kind, const std::string& title, const std::string& content) {
    outline_ += fmt::format("<li class=\"{}\"><a href=\"#{}\"><bdi>{}</bdi></a></li>\n", kind, id, title);
    main_ += fmt::format("<section id=\"{}\" class=\"{}\">\n{}</section>\n", id, kind, content);
  }

  void addCommand() {
    if (input_.commandText.empty()) return;
    addSection("command", "run", "Command",
               "<div class=\"section-head\"><h2>Command</h2><button type=\"button\" data-copy=\"command\">Copy</button>"
               "</div>\n<pre class=\"command\" tabindex=\"0\">" +
                   linesText(input_.commandText) + "</pre>\n");
  }

  void addFacts() {
    if (input_.facts.empty() && input_.savedFiles.empty()) return;
    std::string out = "<h2>Run</h2>\n<dl class=\"facts\">\n";
    for (const ReportFact& fact : input_.facts) {
      out += fmt::format("<div><dt>{}</dt><dd>{}</dd></div>\n", htmlText(fact.label), linesText(fact.value));
    }
    for (const std::string& file : input_.savedFiles) {
      out += fmt::format("<div><dt>Saved file</dt><dd>{}</dd></div>\n", htmlText(file));
    }
    addSection("facts", "run", "Run", out + "</dl>\n");
  }

  void addMessages() {
    if (input_.messages.empty()) return;
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kKinds{
        {{"error", "Error"}, {"warning", "Warning"}, {"note", "Note"}, {"hint", "Hint"}}};
    std::string out = "<h2>Messages</h2>\n<ul class=\"messages\">\n";
    for (const ReportMessage& message : input_.messages) {
      const auto& [kind, label] = kKinds.at(static_cast<std::size_t>(message.kind));
      out += fmt::format("<li class=\"{}\"><strong>{}</strong><p>{}</p></li>\n", kind, label, linesText(message.text));
    }
    addSection("messages", "run", "Messages", out + "</ul>\n");
  }

  void addItems() {
    if (input_.document == nullptr || !input_.document->IsObject()) return;
    const auto items = input_.document->FindMember("items");
    if (items == input_.document->MemberEnd() || !items->value.IsArray()) return;
    std::size_t number = 0;
    for (const Json& item : items->value.GetArray()) {
      const std::string id = fmt::format("item-{}", ++number);
      const std::string type = item.IsObject() ? textProperty(item, "type") : "";
      if (type == "table") {
        addTable(id, readPivotTable(item, input_.locale));
      } else if (type == "chart") {
        addSection(id, "chart", htmlText(textProperty(item, "name")), charts_.add(item));
      }
    }
  }

  void addTable(const std::string& id, const PivotTable& table) {
    const std::string title = htmlText(table.title);
    addSection(id, "table", title,
               fmt::format("<div class=\"table-tools\"><button type=\"button\" data-copy=\"table\" title=\"Copy for a "
                           "spreadsheet, in full precision\">Copy</button></div>\n<div class=\"scroll\" tabindex=\"0\" "
                           "role=\"region\" aria-label=\"{}\">\n{}</div>\n",
                           title, htmlTable(table)));
  }

  std::string styles() const { return std::string(kPivotTableCss) + std::string(pageStyle()); }

  static std::array<std::string_view, 4> codes() {
    return {vegaScript(), vegaLiteScript(), interpreterScript(), pageScript()};
  }

  std::string head(const std::string& heading) const {
    std::string allowed;
    for (const std::string_view code : codes()) allowed += fmt::format(" '{}'", integritySource(code));
    const std::string policy = fmt::format(
        "default-src 'none'; script-src{}; style-src '{}'; img-src data: blob:; base-uri 'none'; form-action 'none'",
        allowed, integritySource(styles()));
    return fmt::format(
        "<!DOCTYPE html>\n<html lang=\"{}\">\n<head>\n<meta charset=\"utf-8\">\n<meta "
        "http-equiv=\"Content-Security-Policy\" content=\"{}\">\n<meta name=\"viewport\" content=\"width=device-width, "
        "initial-scale=1\">\n<link rel=\"icon\" href=\"data:,\">\n<title>{}</title>\n<style>{}</style>\n</head>\n",
        htmlText(input_.language), policy, heading, styles());
  }

  std::string body(const std::string& heading) const {
    const std::string subtitle = htmlText(property("subtitle"));
    std::string out = "<body>\n<a class=\"skip\" href=\"#content\">Skip to the output</a>\n<header>\n<div><h1><bdi>" +
                      heading + "</bdi></h1>";
    if (!subtitle.empty()) out += "<p>" + subtitle + "</p>";
    out +=
        "</div>\n<div class=\"page-tools\" hidden><button type=\"button\" data-page=\"theme\">Dark</button><button "
        "type=\"button\" data-page=\"print\">Print</button></div>\n</header>\n<div class=\"columns\">\n<nav "
        "aria-label=\"Outline\"><details open><summary>Outline</summary>\n<ol>\n" +
        outline_ + "</ol>\n</details></nav>\n<main id=\"content\">\n";
    if (!charts_.empty()) out += "<noscript><p class=\"remark\">Charts are drawn by a script.</p></noscript>\n";
    return out + main_ + "</main>\n</div>\n<div id=\"status\" role=\"status\" aria-live=\"polite\"></div>\n";
  }

  std::string scripts() const {
    std::string out = "<script type=\"application/json\" id=\"report-data\">" + charts_.json() + "</script>\n";
    for (const std::string_view code : codes()) out.append("<script>").append(code).append("</script>\n");
    return out;
  }

  const ReportInput& input_;
  ChartSections charts_;
  std::string outline_;
  std::string main_;
};

}  // namespace

std::string renderReport(const ReportInput& input) {
  return Page(input).write();
}

}  // namespace workbench
