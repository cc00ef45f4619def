// The report of a run: a page in one file that needs nothing else, opened without a network.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/json.h"
#include "workbench/render/number_format.h"
#include "workbench/render/pivot_table.h"

namespace workbench {

struct ReportFact {
  std::string label;
  std::string value;
};

struct ReportMessage {
  enum class Kind { error, warning, note, hint };
  Kind kind = Kind::note;
  std::string text;  // may have several lines; they stay as they are
};

// One command and what came of it.
struct ReportOutput {
  const rapidjson::Value* document = nullptr;  // as the converter received it; null when it received nothing
  std::string commandText;
  DocumentView view;
  std::vector<ReportFact> facts;  // rows, sample, ...
  std::vector<std::string> savedFiles;
};

// Texts may hold any bytes. Empty parts leave no trace in the page.
struct ReportInput {
  std::vector<ReportOutput> outputs;  // in the order run; several have a section each
  std::vector<ReportFact> facts;      // what the run was, in order of reading: data source, version, ...
  std::vector<ReportMessage> messages;
  std::string title = {};  // instead of the procedures, which then stand below it
  std::string author = {};
  std::string note = {};  // may have several lines
  Language language;
};

// The whole page: the headline of the only output that has one and the charts that lead it, messages, each output's
// tables and charts in its document's order, and what the run was. Throws std::runtime_error where a property of the
// document has the wrong JSON type.
std::string renderReport(const ReportInput& input);

}  // namespace workbench
