// What the command line asks for.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/base/standard_streams.h"
#include "workbench/cli/data_options.h"
#include "workbench/cli/output_names.h"
#include "workbench/commands/common/composer.h"
#include "workbench/dates/row_range.h"

namespace workbench {

inline constexpr int kMostJobs = 1024;

enum class Verbosity { quiet, normal, verbose };

// Options that `run` and `fit` share.
struct OutputOptions : OutputNames {
  std::filesystem::path writtenJob;  // a job file that does the run again, "-" for standard output
  std::string language = "en";       // of titles, labels, messages and numbers
  bool plots = false;                // draw the charts in the terminal
  bool everything = false;           // of a composed job all tables are shown in the terminal
  bool summary = false;              // print the procedure's text summary
  bool timings = false;              // one line a stage on stderr
  std::optional<int> jobs;           // threads that procedures may compute on
  Verbosity verbosity = Verbosity::normal;
  std::vector<std::string> commandLine;  // as given, for the record

  // A file is called "-": standard output is its, and shows nothing else.
  bool takesStandardOutput() const {
    return html == kStandardStream || json == kStandardStream || trace == kStandardStream ||
           writtenJob == kStandardStream;
  }
  bool showsOutput() const { return verbosity != Verbosity::quiet && !takesStandardOutput(); }
};

struct RunOptions {
  std::filesystem::path jobFile;
  bool checkOnly = false;  // nothing is run
  bool unsafeSql = false;  // the job's query is run without its lock
  OutputOptions output;
};

// A data file to be described.
struct DescribeOptions {
  std::filesystem::path data;
  std::string query;
  bool unsafeSql = false;
  DataOptions reading;
  OutputOptions output;
};

// A job whose command is composed from options.
struct ComposeOptions {
  std::filesystem::path data;
  std::string query;
  bool unsafeSql = false;
  DataOptions reading;
  std::string predict;             // a number of periods after the last case, or a period
  bool savesCases = false;         // saved files tell row and date of every case
  bool complete = false;           // rows that lack a variable are dropped
  std::vector<std::string> dates;  // a column, or "year=YEAR" "quarter=Q"
  std::vector<std::string> start;  // "year=1959" "quarter=1"
  bool sort = false;
  bool fillGaps = false;
  std::vector<std::string> holidays;  // days, and the word "gaps"
  bool exchangesDayAndMonth = false;
  RowRange range;
  std::vector<std::string> transformations;  // "realgdp=dlog*100"
  std::shared_ptr<Composer> composer;
  OutputOptions output;
};

}  // namespace workbench
