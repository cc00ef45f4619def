// One job: the command, the data, and the session's settings.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/cli/output_names.h"
#include "workbench/commands/common/composer.h"
#include "workbench/dataset/dictionary.h"
#include "workbench/dataset/load.h"
#include "workbench/dataset/transformation.h"
#include "workbench/dates/requests.h"
#include "workbench/dates/row_range.h"

namespace workbench {

struct Job {
  std::string command;
  std::shared_ptr<Composer> composer;  // that composed the command; null for a job file
  double scale = 1.0;                  // factor of the endogenous variables
  int jobs = 1;                        // threads that procedures may compute on; the command line's number goes first
  bool savesCases = false;             // files that VARMODEL saves tell row and date of every case
  bool complete = false;  // rows that lack a variable of a command are dropped before its procedure sees them
  DataRequest data;
  std::vector<DictionaryEntry> dictionary;
  std::vector<Transformation> transformations;
  std::optional<DatesRequest> dates;
  RowRange range;
  std::optional<PredictRequest> predict;
  std::optional<long> predictPeriods;  // periods after the last case, instead of `predict`
  std::string weight;
  std::vector<std::string> split;
  OutputNames outputs;
  std::filesystem::path file;        // empty for a job that was not read from a file
  std::filesystem::path baseFolder;  // relative data and SAVE paths start here
};

// Reads and checks a job file. Throws UsageError with file, line, key and remedy.
Job readJobFile(const std::filesystem::path& file);

}  // namespace workbench
