// Tables in long form, one observation a row, with the same columns whatever the run and its language: what programs
// read that put several models beside each other. docs/outputs.md tells what each file holds.

#pragma once

#include <cmath>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/render/pivot_table.h"

namespace workbench {

// How a table of some kind becomes rows of a file. Its labels of columns say what they measure; where they stand for
// something else, `groups` names what that is.
struct TidyShape {
  std::string_view id;       // lasting name of the tables, without their variable
  std::string_view file;     // "coefficients"
  std::string_view subject = {};  // the column of the variable in the lasting name; empty for tables that have none there
  std::string_view rows;     // the column of the labels of rows
  std::string_view groups = {};   // the column of the labels of columns; empty where columns are measures
  std::size_t shared = 0;    // measures before the first group, which belong to all
  std::string_view mark = {};     // a column that tells kinds of tables apart, and what it then holds
  std::string_view marked = {};
};

struct TidyShapes {
  std::vector<TidyShape> shapes;
  double level = std::nan("");  // of limits whose labels tell none
};

// One of the files, filled table by table.
class TidyFiles {
 public:
  explicit TidyFiles(const Language& language) : language_(language) {}

  // `id` is the table's lasting name. One that no shape fits goes, cell by cell, to "values".
  void add(const std::string& id, const PivotTable& table, const TidyShapes& shapes, const std::string& procedure,
           int command);

  // Name of each file that has rows -> its text, as CSV in full precision.
  std::map<std::string, std::string> texts() const;

 private:
  using Row = std::map<std::string_view, std::string>;

  const Language& language_;
  std::map<std::string_view, std::vector<Row>> rows_;
};

}  // namespace workbench
