// A pivot table as an accessible HTML table.

#pragma once

#include <string>
#include <string_view>

#include "workbench/render/pivot_table.h"

namespace workbench {

// Rules for `table.pivot`, to be placed in a page's style sheet once. They take the custom properties --rule (colour of
// lines) and --muted (colour of secondary text) if the page sets them.
extern const std::string_view kPivotTableCss;

// A <table class="pivot"> of its own: caption, column headers with their scopes (groups as column groups), row headers,
// numbers as shown with the full-precision value in data-value (empty when missing), footnotes in <tfoot>. A hidden
// title becomes the table's aria-label.
std::string htmlTable(const PivotTable& table);

}  // namespace workbench
