// Trace lines on the standard error stream, under the name of whoever writes them.

#pragma once

#include <iostream>
#include <string>

namespace procedures {

// One write a line: the standard error stream is unbuffered.
inline void traceLine(std::string text) {
  std::cerr << (text += '\n');
}

// "Error: CLASS::ROUTINE - TEXT"
inline void traceError(const char* className, const std::string& routine, const std::string& text) {
  traceLine("Error: " + (className + ("::" + routine)) + " - " + text);
}

}  // namespace procedures
