// Width of a character on a character grid.

#pragma once

namespace workbench {

// Cells that a terminal gives a printable character: 0 (combining mark, format character), 1, or 2 (East Asian wide and
// fullwidth, emoji).
int characterWidth(char32_t character);

}  // namespace workbench
