#include "workbench/render/table_formats.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <variant>
#include <vector>

#include "workbench/base/letter_case.h"
#include "workbench/render/html_table.h"
#include "workbench/render/latex_table.h"
#include "workbench/render/markdown_csv.h"

namespace workbench {

namespace {

constexpr std::array<TableFormat, 4> kFormats{{{"CSV", "csv", ".csv", paintCsv},
                                               {"Markdown", "md", ".md", paintMarkdown},
                                               {"LaTeX", "latex", ".tex", paintLatex},
                                               {"HTML", "html", ".html", htmlTable}}};

}  // namespace

std::span<const TableFormat> tableFormats() {
  return kFormats;
}

const TableFormat* tableFormatOf(std::string_view fileName) {
  const std::string name = lowerCase(std::string(fileName));
  const auto* found =
      std::ranges::find_if(kFormats, [&](const TableFormat& format) { return name.ends_with(format.extension); });
  return found == kFormats.end() ? nullptr : found;
}

std::string writeTables(const rapidjson::Value& document, const TableFormat& format, const Language& language) {
  std::vector<std::string> tables;
  for (const DocumentItem& item : documentItems(document, language)) {
    if (const auto* table = std::get_if<PivotTable>(&item)) tables.push_back(format.paint(*table));
  }
  return fmt::format("{}", fmt::join(tables, "\n"));
}

}  // namespace workbench
