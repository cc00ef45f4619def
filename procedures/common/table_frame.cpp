#include "procedures/common/table_frame.h"

#include <exception>

#include "host/codes.h"

namespace procedures {

namespace {

constexpr int kMinColumnWidth = 100;
constexpr int kMaxColumnWidth = 300;

}  // namespace

std::unique_ptr<tablestatjson::TableBuilder> createTable(StatJSONGenerator& generator, const std::string& name,
                                                         const TableFrame& frame) {
  std::unique_ptr<tablestatjson::TableBuilder> table;
  try {
    table = std::make_unique<tablestatjson::TableBuilder>(generator, name);
  } catch (const std::exception&) {
    return nullptr;
  }
  table->setTitle(frame.title);
  if (frame.showsTitle) table->hideTitle(false);
  if (frame.limitsWidth) {
    table->setMinColumnWidth(kMinColumnWidth);
    table->setMaxColumnWidth(kMaxColumnWidth);
  }
  table->setDefaultCellFormat(codes::kNumericFormat, kCellWidth, frame.decimals);
  table->setRowDimensionLabel(frame.rowLabel, true);
  table->setColumnDimensionLabel(frame.columnLabel, frame.showsColumnLabel);
  return table;
}

}  // namespace procedures
