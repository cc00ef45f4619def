#include "host/table_builder.h"

#include "workbench/document/document_writer.h"
#include "workbench/document/table_writer.h"
#include "workbench/edge/session.h"

namespace tablestatjson {

struct TableBuilder::State {
  StatJSONGenerator& generator;
  workbench::TableWriter table;
};

TableBuilder::TableBuilder(StatJSONGenerator& generator, const std::string& name) {
  ++workbench::currentSession().begunItems;
  state_.reset(new State{generator, {generator.getProcedureStatJSON().GetAllocator(), name}});
}
TableBuilder::~TableBuilder() = default;

void TableBuilder::setTitle(const std::string& title) {
  state_->table.setTitle(title);
}

void TableBuilder::hideTitle(bool hidden) {
  state_->table.hideTitle(hidden);
}

void TableBuilder::setMinColumnWidth(int points) {
  state_->table.setMinColumnWidth(points);
}

void TableBuilder::setMaxColumnWidth(int points) {
  state_->table.setMaxColumnWidth(points);
}

void TableBuilder::setDefaultCellFormat(int type, int width, int decimals) {
  state_->table.setDefaultCellFormat(type, width, decimals);
}

void TableBuilder::setColumnFormat(int column, int type, int width, int decimals) {
  state_->table.setColumnFormat(column, type, width, decimals);
}

void TableBuilder::setRowDimensionLabel(const std::string& label, bool shown) {
  state_->table.setRowDimensionLabel(label, shown);
}

void TableBuilder::setColumnDimensionLabel(const std::string& label, bool shown) {
  state_->table.setColumnDimensionLabel(label, shown);
}

void TableBuilder::addTitleFootnoteRef(int footnote) {
  state_->table.addTitleFootnoteRef(footnote);
}

void TableBuilder::addFootnote(const std::string& text) {
  state_->table.addFootnote(text);
}

void TableBuilder::addColumnCategories(const std::vector<std::string>& labels) {
  state_->table.addColumnCategories(labels);
}

void TableBuilder::addColumnSubcategories(int category, const std::vector<std::string>& labels) {
  state_->table.addColumnSubcategories(category, labels);
}

void TableBuilder::addRowCategories(const std::vector<std::string>& labels) {
  state_->table.addRowCategories(labels);
}

void TableBuilder::fillColumn(int column, const std::vector<double>& values) {
  state_->table.fillColumn(column, values);
}

void TableBuilder::fillRow(int row, const std::vector<double>& values) {
  state_->table.fillRow(row, values);
}

void TableBuilder::build() {
  workbench::appendItem(state_->generator.getProcedureStatJSON(), state_->table.finish());
}

}  // namespace tablestatjson
