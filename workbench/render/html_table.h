// A pivot table as an accessible HTML table.

#pragma once

#include <string>

#include "workbench/render/pivot_table.h"

namespace workbench {

// A <table class="pivot"> of its own: caption, column headers with their scopes (groups as column groups), row headers,
// numbers as shown with the full-precision value in data-value (empty when missing), footnotes in <tfoot>. A hidden
// title becomes the table's aria-label. The least width of columns stands on their groups, the greatest in data-widest
// for the page's script. The look of `table.pivot` is up to the page's style sheet.
std::string htmlTable(const PivotTable& table);

}  // namespace workbench
