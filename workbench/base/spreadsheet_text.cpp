#include "workbench/base/spreadsheet_text.h"

#include <cstdlib>
#include <string_view>

namespace workbench {

namespace {

bool isNumber(const char* text) {
  char* end = nullptr;
  std::strtod(text, &end);
  return end != text && *end == '\0';
}

// Behind any number of apostrophes.
bool wouldRun(const std::string& text) {
  const std::size_t first = text.find_first_not_of('\'');
  return first != std::string::npos && std::string_view("=+-@\t\r").find(text[first]) != std::string_view::npos &&
         !isNumber(text.c_str() + first);
}

}  // namespace

std::string inertText(const std::string& text) {
  return wouldRun(text) ? "'" + text : text;
}

std::string asWritten(const std::string& inert) {
  return inert.starts_with('\'') && wouldRun(inert) ? inert.substr(1) : inert;
}

}  // namespace workbench
