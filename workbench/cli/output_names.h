// What a run writes, beside the saved file that a command names, and what its report is called. The command line and a
// job file may both name it.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

struct OutputNames {
  // Files, "-" for standard output, empty for none.
  std::filesystem::path html;   // the report
  std::filesystem::path json;   // the record of the run
  std::filesystem::path trace;  // the procedure's trace lines
  // Folders, made where they are missing; empty for none. Without a format: csv and svg.
  std::filesystem::path tables;
  std::vector<std::string> tableFormats;
  std::filesystem::path charts;
  std::vector<std::string> chartFormats;
  // Of the report.
  std::string title;
  std::string author;
  std::string note;
};

// What is not given is as the other says.
OutputNames completed(OutputNames given, const OutputNames& otherwise);

}  // namespace workbench
