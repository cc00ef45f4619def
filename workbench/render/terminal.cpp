#include "workbench/render/terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "workbench/render/display_text.h"
#include "workbench/render/message_text.h"
#include "workbench/render/terminal_layout.h"

namespace workbench {

namespace {

constexpr int kNarrowestLine = 20;

// One line, filled from left to right.
class Line {
 public:
  // The text must not begin left of where the line ends.
  void put(int cell, std::string_view text) { put(cell, text, text); }

  // `written` is the text with what a terminal takes for its look.
  void put(int cell, std::string_view text, std::string_view written) {
    if (text.empty()) return;
    text_.append(static_cast<std::size_t>(std::max(cell - used_, 0)), ' ');
    text_ += written;
    used_ = std::max(cell, used_) + displayWidth(text);
  }

  const std::string& text() const { return text_; }

 private:
  std::string text_;
  int used_ = 0;
};

int lineWidth(const TerminalStyle& style) {
  return std::max(style.width, kNarrowestLine);
}

std::string repeat(std::string_view text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// A wrapped header text over [start, start + width), centred or flush right.
struct HeaderBlock {
  int start;
  int width;
  bool centred;
  std::vector<std::string> lines;

  void paint(const std::string& text, Line& line) const {
    const int free = width - displayWidth(text);
    line.put(start + (centred ? free / 2 : free), text);
  }
};

std::string bold(const std::string& text, const TerminalStyle& style) {
  return style.colour ? fmt::format("\x1b[1m{}\x1b[0m", text) : text;
}

class TablePainter {
 public:
  TablePainter(const PivotTable& table, const TerminalStyle& style)
      : table_(table),
        style_(style),
        width_(lineWidth(style)),
        layout_(layOut(table, width_, style.unicode ? "…" : "...")) {}

  std::string paint() {
    paintTitle();
    for (const ColumnPanel& panel : layout_.panels) {
      paintRule();
      if (panel.first == 0) paintSpans(panel, layout_.dimension);
      paintSpans(panel, layout_.groups);
      paintLeafLabels(panel);
      paintRule();
      paintRows(panel);
    }
    paintRule();
    paintFootnotes();
    return std::move(out_);
  }

 private:
  void newLine(const std::string& text) { out_ += text + '\n'; }

  std::string rule(int width) const { return repeat(style_.unicode ? "─" : "-", width); }

  std::string dim(const std::string& text) const {
    return style_.colour ? fmt::format("\x1b[2m{}\x1b[0m", text) : text;
  }

  void paintTitle() {
    if (!table_.titleShown) return;
    const std::string markers = table_.titleMarkers();
    out_ += paintHeading(markers.empty() ? table_.title : fmt::format("{} [{}]", table_.title, markers), style_);
  }

  void paintRule() { newLine(dim(rule(layout_.width()))); }

  void paintSpans(const ColumnPanel& panel, const std::vector<HeaderSpan>& spans) {
    std::vector<HeaderBlock> blocks;
    Line rules;
    for (const HeaderSpan& span : spans) {
      const std::size_t first = std::max(span.first, panel.first);
      const std::size_t last = std::min(span.last, panel.last());
      if (first >= last) continue;
      const int start = panel.start(first);
      const int width = panel.end(last - 1) - start;
      blocks.push_back({start, width, true, wrapText(span.label, std::max(width, 2))});
      rules.put(start, rule(width));
    }
    if (blocks.empty()) return;
    paintHeader(blocks, "");
    newLine(dim(rules.text()));
  }

  void paintLeafLabels(const ColumnPanel& panel) {
    std::vector<HeaderBlock> blocks;
    for (std::size_t leaf = panel.first; leaf < panel.last(); ++leaf) {
      const int width = panel.end(leaf) - panel.start(leaf);
      blocks.push_back({panel.start(leaf), width, false, wrapText(layout_.columns[leaf].label, std::max(width, 2))});
    }
    paintHeader(blocks, layout_.corner);
  }

  // The blocks side by side, their last lines in one row with the corner text.
  void paintHeader(const std::vector<HeaderBlock>& blocks, std::string_view corner) {
    std::size_t height = 1;
    for (const HeaderBlock& block : blocks) height = std::max(height, block.lines.size());
    for (std::size_t below = height; below > 0; --below) {
      Line line;
      if (below == 1) line.put(0, corner);
      for (const HeaderBlock& block : blocks)
        if (below <= block.lines.size()) block.paint(block.lines[block.lines.size() - below], line);
      newLine(line.text());
    }
  }

  void paintRows(const ColumnPanel& panel) {
    for (std::size_t row = 0; row < table_.rows.size(); ++row) {
      Line line;
      line.put(0, layout_.rowLabels[row]);
      for (std::size_t leaf = panel.first; leaf < panel.last(); ++leaf) {
        const Cell& cell = table_.cells[row][leaf];
        const NumberText& number = cell.shown;
        const int integer = displayWidth(std::string_view(number.text).substr(0, number.integerLength));
        line.put(panel.end(leaf) - layout_.columns[leaf].fractionWidth - integer, number.text,
                 cell.significant ? bold(number.text, style_) : number.text);
      }
      newLine(line.text());
    }
  }

  void paintFootnotes() {
    for (const Footnote& note : table_.footnotes) {
      std::string marker = note.marker.empty() ? "" : fmt::format("[{}] ", note.marker);
      const int indent = displayWidth(marker);
      for (const std::string& part : wrapText(tiedNumbers(visibleText(note.text)), width_ - indent)) {
        newLine(marker + untied(part));
        marker.assign(marker.size(), ' ');
      }
    }
  }

  const PivotTable& table_;
  const TerminalStyle& style_;
  int width_;
  TableLayout layout_;
  std::string out_;
};

std::string chartLine(const ChartItem& chart, const TerminalStyle& style, const Language& language) {
  const std::string text = language.tr("Chart: ^1 (^2 points)", chart.name, chart.points);
  std::string lines;
  for (const std::string& line : wrapText(visibleText(text), lineWidth(style))) lines += line + '\n';
  return lines;
}

std::string noteLines(const std::vector<std::string>& notes, const TerminalStyle& style, const Language& language) {
  std::string lines;
  for (const std::string& note : notes) lines += paintMessage("note", note, {.width = lineWidth(style)}, language);
  return lines;
}

// A sentence an entry, below a heading.
std::string headlineBlock(PivotTable& table, const DocumentView& view, const TerminalStyle& style,
                          const Language& language) {
  const std::string bullet = style.unicode ? "• " : "- ";
  std::string lines = paintHeading(language.tr("At a Glance"), style);
  for (const std::string& sentence : takeHeadline(table, view)) {
    std::string before = bullet;
    const int width = lineWidth(style) - displayWidth(bullet);
    for (const std::string& part : wrapText(tiedNumbers(visibleText(sentence)), width)) {
      lines += before + untied(part) + '\n';
      before = "  ";
    }
  }
  if (style.colour && view.testLevel) {
    const std::string text = language.tr("In the tables, a Sig. below the level is bold.");
    for (const std::string& part : wrapText(text, lineWidth(style))) lines += part + '\n';
  }
  return lines;
}

}  // namespace

std::string paintHeading(const std::string& text, const TerminalStyle& style) {
  std::string lines;
  if (text.empty()) return lines;
  for (const std::string& line : wrapText(visibleText(text), lineWidth(style))) lines += bold(line, style) + '\n';
  return lines;
}

std::string paintTerminal(const PivotTable& table, const TerminalStyle& style) {
  return TablePainter(table, style).paint();
}

std::string paintHeadlineTerminal(const rapidjson::Document& document, const TerminalStyle& style,
                                  const Language& language, const DocumentView& view) {
  std::size_t next = 0;
  for (DocumentItem& item : documentItems(document, language)) {
    auto* table = std::get_if<PivotTable>(&item);
    if (view.headline == next++ && table != nullptr) return headlineBlock(*table, view, style, language);
  }
  return {};
}

std::string paintDocumentTerminal(const rapidjson::Document& document, const TerminalStyle& style,
                                  const Language& language, const DocumentView& view) {
  std::vector<std::string> blocks{paintHeading(language.tr(textProperty(document, "procedure")), style) +
                                  paintHeading(textProperty(document, "subtitle"), style)};
  std::string charts;
  std::size_t next = 0;
  for (DocumentItem& item : documentItems(document, language)) {
    const std::size_t place = next++;
    if (view.hidden.contains(place)) continue;
    const auto notes = view.notes.find(place);
    const std::string below = notes == view.notes.end() ? "" : noteLines(notes->second, style, language);
    if (auto* table = std::get_if<PivotTable>(&item)) {
      if (view.headline == place) blocks.insert(blocks.begin() + 1, headlineBlock(*table, view, style, language));
      if (view.testLevel) markSignificant(*table, language.tr("Sig."), *view.testLevel);
      blocks.push_back(paintTerminal(*table, style) + below);
    }
    if (const auto* chart = std::get_if<ChartItem>(&item)) charts += chartLine(*chart, style, language);
  }
  if (!charts.empty() && style.listsCharts) blocks.push_back(paintHeading(language.tr("Charts"), style) + charts);
  std::erase(blocks, "");
  return fmt::format("{}", fmt::join(blocks, "\n"));
}

}  // namespace workbench
