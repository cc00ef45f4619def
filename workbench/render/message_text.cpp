#include "workbench/render/message_text.h"

#include <sstream>

#include "workbench/render/display_text.h"

namespace workbench {

namespace {

constexpr int indentation = 2;

std::string labelled(std::string_view label, const TerminalStyle& style, const Language& language) {
  std::string text = language.tr(label) + ":";
  if (!style.colour) return text;
  const char* colour = label == "error" ? "\x1b[1;31m" : label == "warning" ? "\x1b[1;33m" : "\x1b[1m";
  return colour + text + "\x1b[0m";
}

bool isVerbatim(const std::string& line) {
  return line.compare(0, 2, "  ") == 0 || line.compare(0, 1, "/") == 0;
}

}  // namespace

std::string paintMessage(std::string_view label, std::string_view text, const TerminalStyle& style,
                         const Language& language) {
  const std::string shownLabel = language.tr(label) + ":";
  std::istringstream lines{std::string(text)};
  std::string painted;
  for (std::string line; std::getline(lines, line);) {
    const bool first = painted.empty();
    if (!first && isVerbatim(line)) {
      painted += std::string(indentation, ' ') + visibleText(line) + "\n";
      continue;
    }
    // The label stands in the first line; a placeholder of its width keeps the wrapping right.
    const std::string shown = (first ? shownLabel + " " : std::string()) + visibleText(line);
    bool begin = first;
    for (const std::string& part : wrapText(shown, style.width - indentation)) {
      painted += begin ? labelled(label, style, language) + part.substr(shownLabel.size())
                       : std::string(indentation, ' ') + part;
      painted += "\n";
      begin = false;
    }
  }
  return painted;
}

}  // namespace workbench
