// How the data are read, as options of the commands that take a data file.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "workbench/dataset/file_format.h"

namespace workbench {

struct DataOptions {
  std::string decimal;
  std::string thousands;
  std::string na;                    // missing words as the command line has them: separated by commas
  std::vector<std::string> missing;  // as a job file has them
  std::optional<long> skip;
  std::string encoding;
  std::string sheet;
};

void addDataOptions(CLI::App& app, DataOptions& options);

// Throws UsageError for a value that cannot be meant.
FileFormat formatFrom(const DataOptions& options);

}  // namespace workbench
