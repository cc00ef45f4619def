// Trace lines on the standard error stream, under the name of whoever writes them.
//
// A host reads them line by line, and names of variables come from anywhere: a line break within a text shows as \n or
// \r, so that no name makes a line of its own.

#pragma once

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

namespace procedures {

// Writes a text on one line, without taking memory.
struct OneLine {
  std::string_view text;
};

inline std::ostream& operator<<(std::ostream& stream, OneLine line) {
  for (std::string_view rest = line.text;;) {
    const std::size_t end = std::min(rest.find_first_of("\n\r"), rest.size());
    stream.write(rest.data(), static_cast<std::streamsize>(end));
    if (end == rest.size()) return stream;
    stream << (rest[end] == '\n' ? "\\n" : "\\r");
    rest.remove_prefix(end + 1);
  }
}

inline std::string onOneLine(std::string text) {
  for (auto at = text.find_first_of("\n\r"); at != std::string::npos; at = text.find_first_of("\n\r", at)) {
    text.replace(at, 1, text[at] == '\n' ? "\\n" : "\\r");
  }
  return text;
}

// One write a line: the standard error stream is unbuffered.
inline void traceLine(std::string text) {
  std::cerr << ((text = onOneLine(std::move(text))) += '\n');
}

// "Error: CLASS::ROUTINE - TEXT"
inline void traceError(const char* className, const std::string& routine, const std::string& text) {
  traceLine("Error: " + (className + ("::" + routine)) + " - " + text);
}

// The last words of a guard that lets nothing through: the stream itself may be what throws.
inline void traceGuarded(const char* lead, const char* what = "") noexcept {
  try {
    std::cerr << lead << OneLine{what} << std::endl;
  } catch (...) {
    return;
  }
}

}  // namespace procedures
