// Pivot tables of the output document. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/edge.h"
#include "host/output.h"

namespace tablestatjson {

// Collects one table and appends it to the generator's document on build(). A property whose setter is never called is
// absent from the document. Columns are counted over leaves: a category without subcategories, or each subcategory.
class HOST_API TableBuilder {
 public:
  TableBuilder(StatJSONGenerator& generator, const std::string& name);
  TableBuilder(const TableBuilder&) = delete;
  TableBuilder& operator=(const TableBuilder&) = delete;
  ~TableBuilder();

  void setTitle(const std::string& title);
  void hideTitle(bool hidden);
  void setMinColumnWidth(int points);
  void setMaxColumnWidth(int points);
  void setDefaultCellFormat(int type, int width, int decimals);
  void setColumnFormat(int column, int type, int width, int decimals);
  void setRowDimensionLabel(const std::string& label, bool shown);
  void setColumnDimensionLabel(const std::string& label, bool shown);
  void addTitleFootnoteRef(int footnote);
  void addFootnote(const std::string& text);

  void addColumnCategories(const std::vector<std::string>& labels);
  void addColumnSubcategories(int category, const std::vector<std::string>& labels);
  void addRowCategories(const std::vector<std::string>& labels);
  void fillColumn(int column, const std::vector<double>& values);  // one value a row; missing where it is shorter
  void fillRow(int row, const std::vector<double>& values);        // one value a leaf column
  void build();

 private:
  friend struct ::HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace tablestatjson
