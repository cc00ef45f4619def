// Tables as text for other programs.

#pragma once

#include <string>

#include "workbench/render/pivot_table.h"

namespace workbench {

// Title, a pipe table with formatted numbers, footnotes. No text of the table can act as markup.
std::string paintMarkdown(const PivotTable& table);

// RFC 4180 (CRLF, quotes doubled): a header record, then one record a row; numbers in full precision with a decimal
// point in every language, missing values empty, no title and no footnotes. Texts are unchanged bytes.
std::string paintCsv(const PivotTable& table);

// A text as a field of a CSV file, quoted where it must be.
std::string csvField(const std::string& text);

}  // namespace workbench
