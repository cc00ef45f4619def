#include "workbench/report/report.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "workbench/edge/texts.h"
#include "workbench/render/html_escape.h"
#include "workbench/render/html_table.h"
#include "workbench/render/pivot_table.h"
#include "workbench/report/assets.h"
#include "workbench/report/chart_section.h"

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

// The first line is prose; what follows is a command or lines of a trace, to be read and copied as they stand.
std::string messageText(std::string_view text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view verbatim = text.substr(std::min(end + 1, text.size()));
  return "<p>" + linesText(text.substr(0, end)) + "</p><pre class=\"verbatim\">" + linesText(verbatim) + "</pre>";
}

// What a message's kind is called in mark-up, and what the reader sees of it.
std::pair<std::string_view, std::string> kindNames(ReportMessage::Kind kind) {
  switch (kind) {
    case ReportMessage::Kind::error:
      return {"error", tr("Error")};
    case ReportMessage::Kind::warning:
      return {"warning", tr("Warning")};
    case ReportMessage::Kind::hint:
      return {"hint", tr("Hint")};
    case ReportMessage::Kind::note:
      break;
  }
  return {"note", tr("Note")};
}

class Page {
 public:
  explicit Page(const ReportInput& input) : input_(input) {}

  std::string write() {
    const std::string heading = htmlText(property("procedure").empty() ? tr("Run report") : property("procedure"));
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
    const std::string title = htmlText(tr("Command"));
    addSection("command", "run", title,
               fmt::format("<div class=\"section-head\"><h2>{}</h2><button type=\"button\" data-copy=\"command\">{}"
                           "</button></div>\n<pre class=\"command\" tabindex=\"0\">{}</pre>\n",
                           title, htmlText(tr("Copy")), linesText(input_.commandText)));
  }

  void addFacts() {
    if (input_.facts.empty() && input_.savedFiles.empty()) return;
    const std::string title = htmlText(tr("Run"));
    std::string out = "<h2>" + title + "</h2>\n<dl class=\"facts\">\n";
    for (const ReportFact& fact : input_.facts) {
      out += fmt::format("<div><dt>{}</dt><dd>{}</dd></div>\n", htmlText(fact.label), linesText(fact.value));
    }
    for (const std::string& file : input_.savedFiles) {
      out += fmt::format("<div><dt>{}</dt><dd>{}</dd></div>\n", htmlText(tr("Saved file")), htmlText(file));
    }
    addSection("facts", "run", title, out + "</dl>\n");
  }

  void addMessages() {
    if (input_.messages.empty()) return;
    const std::string title = htmlText(tr("Messages"));
    std::string out = "<h2>" + title + "</h2>\n<ul class=\"messages\">\n";
    for (const ReportMessage& message : input_.messages) {
      const auto& [kind, label] = kindNames(message.kind);
      out += fmt::format("<li class=\"{}\"><strong>{}</strong><div>{}</div></li>\n", kind, htmlText(label),
                         messageText(message.text));
    }
    addSection("messages", "run", title, out + "</ul>\n");
  }

  void addItems() {
    if (input_.document == nullptr || !input_.document->IsObject()) return;
    const auto items = input_.document->FindMember("items");
    if (items == input_.document->MemberEnd() || !items->value.IsArray()) return;
    std::size_t number = 0;
    for (const Json& item : items->value.GetArray()) {
      const std::string remarks = itemNotes(number);
      const std::string id = fmt::format("item-{}", ++number);
      const std::string type = item.IsObject() ? textProperty(item, "type") : "";
      if (type == "table") {
        addTable(id, readPivotTable(item, input_.locale), remarks);
      } else if (type == "chart") {
        addSection(id, "chart", htmlText(textProperty(item, "name")), charts_.add(item, input_.locale) + remarks);
      }
    }
  }

  std::string itemNotes(std::size_t place) const {
    std::string out;
    const auto found = input_.itemNotes.find(place);
    if (found == input_.itemNotes.end()) return out;
    for (const std::string& note : found->second) {
      out += fmt::format("<p class=\"remark\">{}: {}</p>\n", htmlText(tr("Note")), htmlText(note));
    }
    return out;
  }

  void addTable(const std::string& id, const PivotTable& table, const std::string& remarks) {
    const std::string title = htmlText(table.title);
    addSection(
        id, "table", title,
        fmt::format("<div class=\"table-tools\"><button type=\"button\" data-copy=\"table\" title=\"{}\">{}</button>"
                    "</div>\n<div class=\"scroll\" tabindex=\"0\" role=\"region\" aria-label=\"{}\">\n{}</div>\n{}",
                    htmlText(tr("Copy for a spreadsheet, in full precision")), htmlText(tr("Copy")), title,
                    htmlTable(table), remarks));
  }

  std::string head(const std::string& heading) const {
    return fmt::format(
        "<!DOCTYPE html>\n<html lang=\"{}\">\n<head>\n<meta charset=\"utf-8\">\n<meta "
        "http-equiv=\"Content-Security-Policy\" content=\"{}\">\n<meta name=\"viewport\" content=\"width=device-width, "
        "initial-scale=1\">\n<link rel=\"icon\" href=\"data:,\">\n<title>{}</title>\n<style>{}</style>\n</head>\n",
        htmlText(input_.language), contentPolicy(), heading, pageStyle());
  }

  std::string body(const std::string& heading) const {
    const std::string subtitle = htmlText(property("subtitle"));
    const std::string outline = htmlText(tr("Outline"));
    std::string out =
        fmt::format("<body>\n<a class=\"skip\" href=\"#content\">{}</a>\n<header>\n<div><h1><bdi>{}</bdi></h1>",
                    htmlText(tr("Skip to the output")), heading);
    if (!subtitle.empty()) out += "<p>" + subtitle + "</p>";
    out += fmt::format(
        "</div>\n<div class=\"page-tools\" hidden><button type=\"button\" data-page=\"theme\">{}</button><button "
        "type=\"button\" data-page=\"print\">{}</button></div>\n</header>\n<div class=\"columns\">\n<nav "
        "aria-label=\"{}\"><details open><summary>{}</summary>\n<ol>\n{}</ol>\n</details></nav>\n<main "
        "id=\"content\">\n",
        htmlText(tr("Dark")), htmlText(tr("Print")), outline, outline, outline_);
    if (!charts_.empty()) {
      out += "<noscript><p class=\"remark\">" + htmlText(tr("Charts are drawn by a script.")) + "</p></noscript>\n";
    }
    return out + main_ + "</main>\n</div>\n<div id=\"status\" role=\"status\" aria-live=\"polite\"></div>\n";
  }

  std::string scripts() const {
    std::string out =
        "<script type=\"application/json\" id=\"report-data\">" + charts_.json(input_.locale) + "</script>\n";
    for (const std::string_view code : {vegaScript(), vegaLiteScript(), interpreterScript(), pageScript()}) {
      out.append("<script>").append(code).append("</script>\n");
    }
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
