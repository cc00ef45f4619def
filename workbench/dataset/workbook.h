// The sheets of an Excel workbook (.xlsx: a zip file of XML).

#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace workbench {

bool isWorkbook(const std::filesystem::path& source);

// One sheet as comma-separated text in UTF-8: the stored values, not what the cells show. Cells formatted as dates
// become 2001-02-28 or 2001-02-28 13:05:00, percentages stay fractions, errors and empty cells nothing. Rows above the
// table, with fewer than two values, are left out, or as many rows as `skip` says.
//
// Without a name the workbook must have one sheet with values. Throws DataError, naming the sheets there are, and for a
// damaged workbook.
std::string sheetAsCsv(const std::filesystem::path& workbook, const std::string& sheet, std::optional<long> skip);

}  // namespace workbench
