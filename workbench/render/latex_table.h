// Tables for LaTeX documents.

#pragma once

#include <string>

#include "workbench/render/pivot_table.h"

namespace workbench {

// A float with caption, a tabular in the style of booktabs with the numbers as printed, and the notes below it;
// \label{tab:NAME} where the table has a name. Wants \usepackage{booktabs}, and nothing of its texts acts.
std::string paintLatex(const PivotTable& table);

}  // namespace workbench
