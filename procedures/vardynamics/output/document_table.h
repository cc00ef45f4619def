// A table of the output document as data.

#pragma once

#include <string>
#include <vector>

#include "host/output.h"

namespace vardynamics {

struct TableColumn {
  std::string label;
  std::vector<double> values = {};  // one a row; NaN where there is none
  int decimals = 3;
  std::string group = {};  // neighbours of one group stand under its name
};

struct DocumentTable {
  std::string id;     // English, the same in every language
  std::string title;  // display texts from here on
  std::string rowLabel;
  std::vector<std::string> rows = {};
  std::vector<TableColumn> columns = {};
  std::vector<std::string> notes = {};  // sentences under the table
  std::string columnLabel = {};         // shown when given
};

// Appends the table to the document. Host exceptions pass through.
void writeTable(StatJSONGenerator& generator, const DocumentTable& table);

}  // namespace vardynamics
