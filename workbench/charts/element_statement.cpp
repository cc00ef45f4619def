#include "workbench/charts/element_statement.h"

#include "workbench/charts/statement_pattern.h"

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

std::optional<Kind> kindIn(std::string_view name) {
  for (const auto& [known, kind] : kMarks) {
    if (known == name) return kind;
  }
  return std::nullopt;
}

class ArgumentReader {
 public:
  ArgumentReader(ElementStatement& statement, const DeclaredColumns& declared)
      : statement_(statement), element_(statement.element), declared_(declared) {}

  // Whether the argument was understood.
  bool read(std::string_view argument) {
    if (argument == "shape.interior(shape.square)") return true;  // bars are rectangles anyway
    if (argument == "stack()") return readStack();
    if (const auto size = matchStatement(argument, "size(size.\"@\")")) return readSize((*size)[0]);
    if (const auto text = matchStatement(argument, "text(@)")) return readColumn((*text)[0], element_.textColumn);
    return readPosition(argument) || readColor(argument);
  }

 private:
  bool readStack() {
    element_.stacked = element_.kind == Kind::area || element_.kind == Kind::interval;
    return element_.stacked;
  }

  bool readSize(std::string_view text) {
    const auto pixels = numberIn(text);
    if (pixels) element_.size = *pixels;
    return pixels.has_value();
  }

  bool readColumn(std::string_view name, std::string& column) const {
    const std::string* found = declared_.find(name);
    if (found != nullptr) column = *found;
    return found != nullptr;
  }

  bool readPosition(std::string_view argument) {
    const bool band = element_.kind == Kind::band;
    const auto position = matchStatement(argument, band ? "position(@*@*@)" : "position(@*@)");
    if (!position) return false;
    statement_.numericX = element_.kind == Kind::point && !declared_.categories.contains((*position)[0]);
    return readColumn((*position)[0], element_.xColumn) && readColumn((*position)[1], element_.yColumn) &&
           (!band || readColumn((*position)[2], element_.upperColumn));
  }

  bool readColor(std::string_view argument) {
    if (const auto outline = matchStatement(argument, "color.exterior(@)")) {
      return takeColor((*outline)[0], element_.outline);
    }
    auto color = matchStatement(argument, "color.interior(@)");
    if (!color) color = matchStatement(argument, "color(@)");
    if (!color) return false;
    const bool bySeries = element_.kind != Kind::band && readColumn((*color)[0], element_.seriesColumn);
    return bySeries || takeColor((*color)[0], element_.color);
  }

  static bool takeColor(std::string_view text, std::string& color) {
    const auto known = colorIn(text);
    if (known) color = *known;
    return known.has_value();
  }

  ElementStatement& statement_;
  ChartElement& element_;
  const DeclaredColumns& declared_;
};

}  // namespace

const std::string* DeclaredColumns::find(std::string_view name) const {
  const auto found = columns.find(std::string(name));
  return found == columns.end() ? nullptr : &found->second;
}

std::optional<ElementStatement> readElementStatement(std::string_view line, const DeclaredColumns& declared) {
  // A label is free text and stands last.
  auto call = matchStatement(line, "ELEMENT: @(@, label(\"@\"))");
  if (!call) call = matchStatement(line, "ELEMENT: @(@)");
  const auto kind = call ? kindIn((*call)[0]) : std::nullopt;
  if (!kind) return std::nullopt;
  ElementStatement statement;
  statement.element.kind = *kind;
  if (call->size() == 3) statement.element.label = call->back();
  ArgumentReader reader(statement, declared);
  for (const std::string_view argument : splitArguments((*call)[1])) statement.whole &= reader.read(argument);
  return statement;
}

}  // namespace workbench
