// One document of a run, and what is needed to write its tables and charts as files.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/file_set.h"
#include "workbench/base/json.h"
#include "workbench/render/pivot_table.h"
#include "workbench/render/tidy_table.h"

namespace workbench {

struct ExportedDocument {
  const rapidjson::Value* document = nullptr;
  std::vector<std::string> ids;  // a lasting name for each item
  DocumentView view;
  TidyShapes shapes;
  std::string procedure;  // name of the command
  int command = 1;        // its number, from 1
};

}  // namespace workbench
