// Texts of unknown origin on a character grid. Widths count terminal cells: a combining mark has 0, an East Asian or
// emoji character 2.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// Valid UTF-8 in which nothing acts: C0 controls and DEL in caret notation (^[), and U+FFFD for C1 controls, line and
// paragraph separators, bidirectional overrides and isolates, and bytes that are no UTF-8. Everything else,
// right-to-left names included, is kept.
std::string visibleText(std::string_view text);

// The functions below expect such text.

int displayWidth(std::string_view text);
int longestWord(std::string_view text);  // width of the widest part without a blank

// Lines of at most `width` cells (>= 2), broken at blanks, inside a word only when it is wider than a line. Blanks
// inside a line stay as they are. At least one line.
std::vector<std::string> wrapText(std::string_view text, int width);

// The text in at most `width` cells (>= 1): as it is, or its head and tail around the ellipsis. The tail is kept
// because that is where the names of lags differ.
std::string shortenText(std::string_view text, int width, std::string_view ellipsis);

}  // namespace workbench
