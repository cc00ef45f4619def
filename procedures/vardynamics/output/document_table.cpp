#include "procedures/vardynamics/output/document_table.h"

#include <cstddef>
#include <stdexcept>

#include "host/codes.h"
#include "host/table_builder.h"
#include "procedures/common/table_frame.h"

namespace vardynamics {
namespace {

using Builder = tablestatjson::TableBuilder;

void addColumnLabels(Builder& builder, const std::vector<TableColumn>& columns) {
  int category = 0;
  for (std::size_t i = 0; i < columns.size(); ++category) {
    const std::string& group = columns[i].group;
    if (group.empty()) {
      builder.addColumnCategories({columns[i++].label});
      continue;
    }
    std::vector<std::string> labels;
    for (; i < columns.size() && columns[i].group == group; ++i) labels.push_back(columns[i].label);
    builder.addColumnCategories({group});
    builder.addColumnSubcategories(category, labels);
  }
}

}  // namespace

void writeTable(StatJSONGenerator& generator, const DocumentTable& table) {
  const procedures::TableFrame frame{.title = table.title,
                                     .limitsWidth = false,
                                     .rowLabel = table.rowLabel,
                                     .columnLabel = table.columnLabel,
                                     .showsColumnLabel = !table.columnLabel.empty()};
  const auto builder = procedures::createTable(generator, table.id, frame);
  if (!builder) throw std::runtime_error("The host cannot create the table " + table.id);
  addColumnLabels(*builder, table.columns);
  builder->addRowCategories(table.rows);
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const auto column = static_cast<int>(i);
    builder->setColumnFormat(column, codes::kNumericFormat, procedures::kCellWidth, table.columns[i].decimals);
    builder->fillColumn(column, table.columns[i].values);
  }
  for (const std::string& note : table.notes) builder->addFootnote(note);
  builder->build();
}

}  // namespace vardynamics
