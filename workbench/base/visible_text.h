// Texts of unknown origin, made harmless.

#pragma once

#include <string>
#include <string_view>

namespace workbench {

// Valid UTF-8 in which nothing acts: C0 controls and DEL in caret notation (^[), and U+FFFD for C1 controls, line and
// paragraph separators, bidirectional overrides and isolates, and bytes that are no UTF-8. Everything else,
// right-to-left names included, is kept.
std::string visibleText(std::string_view text);

}  // namespace workbench
