// Texts of unknown origin, made harmless.

#pragma once

#include <string>
#include <string_view>

namespace workbench {

// Valid UTF-8 in which nothing acts or hides: C0 controls and DEL in caret notation (^[), and U+FFFD for C1 controls,
// line and paragraph separators, bidirectional marks, overrides and isolates, characters without width, and bytes that
// are no UTF-8. Everything else, right-to-left names included, is kept; so are the joiners of scripts and emoji,
// between characters that are not ASCII.
std::string visibleText(std::string_view text);

// The same for a text of several lines, which stay.
std::string visibleLines(std::string_view text);

}  // namespace workbench
