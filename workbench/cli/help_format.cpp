#include "workbench/cli/help_format.h"

#include <sstream>

#include "workbench/render/display_text.h"

namespace workbench {

namespace {

constexpr int kWidth = 80;
constexpr std::size_t kDescriptionColumn = 30;  // where the base class begins descriptions

// A line of an option goes on below its description; any other from its beginning.
std::string wrappedLine(const std::string& line) {
  if (displayWidth(line) <= kWidth) return line + "\n";
  const std::size_t head = line.starts_with("  ") ? kDescriptionColumn : 0;
  std::string lines;
  for (const std::string& part : wrapText(line.substr(head), kWidth - static_cast<int>(head))) {
    lines += (lines.empty() ? line.substr(0, head) : std::string(head, ' ')) + part + "\n";
  }
  return lines;
}

}  // namespace

std::string HelpFormat::make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const {
  std::istringstream lines(CLI::Formatter::make_help(app, std::move(name), mode));
  std::string text;
  for (std::string line; std::getline(lines, line);) text += wrappedLine(line);
  return text;
}

}  // namespace workbench
