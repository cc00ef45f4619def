// Visible text (visible_text.h) on a character grid. Widths count terminal cells: a combining mark has 0, an East Asian
// or emoji character 2.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/visible_text.h"

namespace workbench {

int displayWidth(std::string_view text);
int longestWord(std::string_view text);  // width of the widest part without a blank

// A blank at which no line breaks, and texts with plain blanks in its place again.
inline constexpr std::string_view kTiedBlank = "\u00a0";
std::string untied(std::string text);

// A sentence in which no line ends inside "p = 0.14" or "95 %".
std::string tiedNumbers(std::string sentence);

// Lines of at most `width` cells (>= 2), broken at blanks, inside a word only when it is wider than a line. Blanks
// inside a line stay as they are. At least one line.
std::vector<std::string> wrapText(std::string_view text, int width);

// The text in at most `width` cells (>= 1): as it is, or its head and tail around the ellipsis. The tail is kept
// because that is where the names of lags differ.
std::string shortenText(std::string_view text, int width, std::string_view ellipsis);

}  // namespace workbench
