// Texts that a spreadsheet would run as a formula when it opens them in a file of separated values.

#pragma once

#include <string>

namespace workbench {

// The text behind an apostrophe where it would be run, or where it has such an apostrophe itself; nothing is lost:
// asWritten(inertText(text)) is the text.
std::string inertText(const std::string& text);

// What inertText was given.
std::string asWritten(const std::string& inert);

}  // namespace workbench
