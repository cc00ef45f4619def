#include "workbench/report/report.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "workbench/base/visible_text.h"
#include "workbench/charts/chart.h"
#include "workbench/document/document_reader.h"
#include "workbench/render/display_text.h"
#include "workbench/render/html_escape.h"
#include "workbench/render/html_table.h"
#include "workbench/render/pivot_table.h"
#include "workbench/report/assets.h"
#include "workbench/report/chart_section.h"
#include "workbench/report/outline.h"

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
std::pair<std::string_view, std::string> kindNames(ReportMessage::Kind kind, const Language& language) {
  switch (kind) {
    case ReportMessage::Kind::error:
      return {"error", language.tr("Error")};
    case ReportMessage::Kind::warning:
      return {"warning", language.tr("Warning")};
    case ReportMessage::Kind::hint:
      return {"hint", language.tr("Hint")};
    case ReportMessage::Kind::note:
      break;
  }
  return {"note", language.tr("Note")};
}

class Page {
 public:
  explicit Page(const ReportInput& input) : input_(input) {}

  std::string write() {
    const std::string title = input_.title.empty() ? heading() : htmlText(input_.title);
    const ReportOutput* opening = onlyOpening();
    if (opening != nullptr) addOpening(*opening);
    addMessages();
    for (std::size_t i = 0; i < input_.outputs.size(); ++i) {
      const ReportOutput& output = input_.outputs[i];
      if (input_.outputs.size() > 1) addOutputHead(output, i + 1);
      if (opens(output) && &output != opening) addOpening(output);
      addItems(output);
    }
    if (input_.outputs.size() == 1)
      addCommand(input_.outputs.front(), "command", htmlText(input_.language.tr("Command")));
    addFacts();
    return head(title) + body(title) + scripts() + "</body>\n</html>\n";
  }

 private:
  // A property that the documents of all commands share; "" where they do not.
  std::string property(const char* name) const {
    std::set<std::string> texts;
    for (const ReportOutput& output : input_.outputs) {
      if (output.document != nullptr && output.document->IsObject()) texts.insert(textProperty(*output.document, name));
    }
    return texts.size() == 1 ? *texts.begin() : "";
  }

  // The procedures of the run, each once.
  std::string heading() const {
    std::vector<std::string> names;
    for (const ReportOutput& output : input_.outputs) {
      const bool read = output.document != nullptr && output.document->IsObject();
      std::string name = read ? textProperty(*output.document, "procedure") : "";
      if (!name.empty() && std::ranges::find(names, name) == names.end()) names.push_back(std::move(name));
    }
    return htmlText(names.empty() ? input_.language.tr("Run report") : fmt::format("{}", fmt::join(names, " · ")));
  }

  static bool opens(const ReportOutput& output) {
    return output.view.headline.has_value() || !output.view.leadingCharts.empty();
  }

  // The output that opens the page: the only one that has what does.
  const ReportOutput* onlyOpening() const {
    const auto found = std::ranges::find_if(input_.outputs, opens);
    return std::ranges::count_if(input_.outputs, opens) == 1 ? &*found : nullptr;
  }

  // `title` is HTML already.
  void addSection(const std::string& id, const char* kind, const std::string& title, const std::string& content) {
    outline_.add(kind, id, title);
    main_ += fmt::format("<section id=\"{}\" class=\"{}\">\n{}</section>\n", id, kind, content);
  }

  void addCommand(const ReportOutput& output, const std::string& id, const std::string& title,
                  const std::string& below = {}) {
    if (output.commandText.empty()) return;
    addSection(
        id, "run", title,
        fmt::format(
            "<div class=\"section-head\"><h2>{0}</h2><button type=\"button\" data-copy=\"command\">{1}"
            "</button></div>\n<pre class=\"command\" tabindex=\"0\" role=\"region\" aria-label=\"{0}\">{2}</pre>\n{3}",
            title, htmlText(input_.language.tr("Copy")), linesText(output.commandText), below));
  }

  void addOutputHead(const ReportOutput& output, std::size_t number) {
    addCommand(output, fmt::format("command-{}", number), htmlText(input_.language.tr("Command ^1", number)),
               factList(factsOf(output)));
  }

  std::vector<ReportFact> factsOf(const ReportOutput& output) const {
    std::vector<ReportFact> facts = output.facts;
    for (const std::string& file : output.savedFiles)
      facts.push_back({input_.language.tr("Saved file"), visibleText(file)});
    return facts;
  }

  static std::string factList(const std::vector<ReportFact>& facts) {
    if (facts.empty()) return {};
    std::string out = "<dl class=\"facts\">\n";
    for (const ReportFact& fact : facts) {
      out += fmt::format("<div><dt>{}</dt><dd>{}</dd></div>\n", htmlText(fact.label), linesText(fact.value));
    }
    return out + "</dl>\n";
  }

  void addFacts() {
    std::vector<ReportFact> facts = input_.facts;
    if (input_.outputs.size() == 1) {
      const std::vector<ReportFact> own = factsOf(input_.outputs.front());
      facts.insert(facts.end(), own.begin(), own.end());
    }
    if (facts.empty()) return;
    const std::string title = htmlText(input_.language.tr("Run"));
    addSection("facts", "run", title, "<h2>" + title + "</h2>\n" + factList(facts));
  }

  void addMessages() {
    if (input_.messages.empty()) return;
    const std::string title = htmlText(input_.language.tr("Messages"));
    std::string out = "<h2>" + title + "</h2>\n<ul class=\"messages\">\n";
    for (const ReportMessage& message : input_.messages) {
      const auto& [kind, label] = kindNames(message.kind, input_.language);
      out += fmt::format("<li class=\"{}\"><strong>{}</strong><div>{}</div></li>\n", kind, htmlText(label),
                         messageText(message.text));
    }
    addSection("messages", "run", title, out + "</ul>\n");
  }

  // Calls use(item, place) for every item of the output that is shown.
  template <class Use>
  static void forItems(const ReportOutput& output, Use use) {
    const Json* items = output.document != nullptr ? itemsOf(*output.document) : nullptr;
    for (rapidjson::SizeType place = 0; items != nullptr && place < items->Size(); ++place)
      if (!output.view.hidden.contains(place)) use((*items)[place], place);
  }

  // The headline's sentences and, beside them, the charts that lead.
  void addOpening(const ReportOutput& output) {
    const DocumentView& view = output.view;
    main_ += "<div class=\"opening\">\n";
    forItems(output, [&](const Json& item, std::size_t place) {
      if (view.headline == place) addHeadline(readPivotTable(item, input_.language), view);
    });
    forItems(output, [&](const Json& item, std::size_t place) {
      if (view.leadingCharts.contains(place)) addItem(item, view, place);
    });
    main_ += "</div>\n";
  }

  void addHeadline(PivotTable table, const DocumentView& view) {
    const std::string title = htmlText(input_.language.tr("At a Glance"));
    std::string list;
    for (const std::string& sentence : takeHeadline(table, view))
      list += fmt::format("<li><bdi>{}</bdi></li>\n", htmlText(tiedNumbers(sentence)));
    addSection(fmt::format("headline-{}", ++headlines_), "headline", title,
               fmt::format("<h2>{}</h2>\n<ul>\n{}</ul>\n{}", title, list, view.testLevel ? boldRemark() : ""));
  }

  std::string boldRemark() const {
    return fmt::format("<p class=\"remark\">{}</p>\n",
                       htmlText(input_.language.tr("In the tables, a Sig. below the level is bold.")));
  }

  void addItems(const ReportOutput& output) {
    forItems(output, [&](const Json& item, std::size_t place) {
      if (!output.view.leadingCharts.contains(place)) addItem(item, output.view, place);
    });
  }

  void addItem(const Json& item, const DocumentView& view, std::size_t place) {
    const std::string id = fmt::format("item-{}", ++items_);
    const std::string type = item.IsObject() ? textProperty(item, "type") : "";
    const std::string remarks = itemNotes(view, place);
    if (type == "table") {
      PivotTable table = readPivotTable(item, input_.language);
      if (view.headline == place) takeUnmarkedFootnotes(table);
      if (view.testLevel) markSignificant(table, input_.language.tr("Sig."), *view.testLevel);
      addTable(id, table, remarks);
    } else if (type == "chart") {
      addSection(id, "chart", htmlText(chartTitle(item)), charts_.add(item, input_.language) + remarks);
    }
  }

  std::string itemNotes(const DocumentView& view, std::size_t place) const {
    std::string out;
    const auto found = view.notes.find(place);
    if (found == view.notes.end()) return out;
    for (const std::string& note : found->second) {
      out += fmt::format("<p class=\"remark\">{}: {}</p>\n", htmlText(input_.language.tr("Note")), htmlText(note));
    }
    return out;
  }

  void addTable(const std::string& id, const PivotTable& table, const std::string& remarks) {
    const std::string title = htmlText(table.title);
    addSection(
        id, "table", title,
        fmt::format(
            "<div class=\"table-tools\" role=\"group\" aria-label=\"{0}\"><button type=\"button\" data-copy=\"table\" "
            "title=\"{1}\">{2}</button></div>\n<div class=\"scroll\" tabindex=\"0\" role=\"region\" "
            "aria-label=\"{0}\">\n{3}</div>\n{4}",
            title, htmlText(input_.language.tr("Copy for a spreadsheet, in full precision")),
            htmlText(input_.language.tr("Copy")), htmlTable(table), remarks));
  }

  std::string head(const std::string& title) const {
    const std::string author =
        input_.author.empty() ? "" : fmt::format("<meta name=\"author\" content=\"{}\">\n", htmlText(input_.author));
    return fmt::format(
        "<!DOCTYPE html>\n<html lang=\"{}\">\n<head>\n<meta charset=\"utf-8\">\n<meta "
        "http-equiv=\"Content-Security-Policy\" content=\"{}\">\n<meta name=\"viewport\" content=\"width=device-width, "
        "initial-scale=1\">\n{}<link rel=\"icon\" href=\"data:,\">\n<title>{}</title>\n<style>{}</style>\n</head>\n",
        htmlText(input_.language.code()), contentPolicy(), author, title, pageStyle());
  }

  std::string belowTitle() const {
    std::string out;
    const auto add = [&](const char* kind, const std::string& html) {
      if (!html.empty()) out += fmt::format("<p class=\"{}\"><bdi>{}</bdi></p>", kind, html);
    };
    add("author", htmlText(input_.author));
    if (!input_.title.empty()) add("procedures", heading());
    add("subtitle", htmlText(property("subtitle")));
    add("about", linesText(input_.note));
    return out;
  }

  std::string body(const std::string& title) const {
    const std::string outline = htmlText(input_.language.tr("Outline"));
    std::string out =
        fmt::format("<body>\n<a class=\"skip\" href=\"#content\">{}</a>\n<header>\n<div><h1><bdi>{}</bdi></h1>",
                    htmlText(input_.language.tr("Skip to the output")), title);
    out += belowTitle();
    out += fmt::format(
        "</div>\n<div class=\"page-tools\" hidden><button type=\"button\" data-page=\"theme\">{}</button><button "
        "type=\"button\" data-page=\"print\">{}</button></div>\n</header>\n<div class=\"columns\">\n<nav "
        "aria-label=\"{}\"><details open><summary>{}</summary>\n<ol>\n{}</ol>\n</details></nav>\n<main "
        "id=\"content\">\n",
        htmlText(input_.language.tr("Dark")), htmlText(input_.language.tr("Print")), outline, outline,
        outline_.html(input_.language));
    if (!charts_.empty()) {
      out += "<noscript><p class=\"remark\">" + htmlText(input_.language.tr("Charts are drawn by a script.")) +
             "</p></noscript>\n";
    }
    return out + main_ + "</main>\n</div>\n" + licences() +
           "<div id=\"status\" role=\"status\" aria-live=\"polite\"></div>\n";
  }

  // The licences ask to come along with every copy of the library.
  std::string licences() const {
    if (charts_.empty()) return {};
    const std::string title = htmlText(input_.language.tr("Licences of the chart library in this page"));
    return fmt::format("<footer><details><summary>{}</summary>\n<pre>{}</pre></details></footer>\n", title,
                       libraryLicences());
  }

  std::string scripts() const {
    std::string out =
        "<script type=\"application/json\" id=\"report-data\">" + charts_.json(input_.language) + "</script>\n";
    if (!charts_.empty())
      out.append("<script type=\"text/plain\" id=\"library\">").append(packedLibrary()).append("</script>\n");
    out.append("<script>").append(pageScript()).append("</script>\n");
    return out;
  }

  const ReportInput& input_;
  ChartSections charts_;
  std::size_t items_ = 0;  // shown so far
  std::size_t headlines_ = 0;
  Outline outline_;
  std::string main_;
};

}  // namespace

std::string renderReport(const ReportInput& input) {
  return Page(input).write();
}

}  // namespace workbench
