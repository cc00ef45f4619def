// Trace lines of the output routines.

#pragma once

#include <iostream>
#include <string>

namespace varmodel {

// One write a line: the standard error stream is unbuffered.
inline void traceLine(std::string text) {
  std::cerr << (text += '\n');
}

// "Error: VAROutputGen::ROUTINE - TEXT"
inline void traceError(const std::string& routine, const std::string& text) {
  traceLine("Error: VAROutputGen::" + routine + " - " + text);
}

}  // namespace varmodel
