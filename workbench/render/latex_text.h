// Texts of unknown origin inside a LaTeX document.

#pragma once

#include <string>
#include <string_view>

namespace workbench {

// Prints the text and does nothing else, in running text, in a cell of a table and in a caption, under pdfLaTeX
// (letters with accents want \usepackage[T1]{fontenc}), XeLaTeX and LuaLaTeX. What pdfLaTeX has no character for is
// written with its code there ("U+4E2D").
std::string latexText(std::string_view text);

}  // namespace workbench
