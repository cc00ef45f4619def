// What the command line asks for.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

enum class Verbosity { quiet, normal, verbose };

// Options that `run` and `fit` share.
struct OutputOptions {
  std::filesystem::path html;   // the report; empty: none
  std::filesystem::path json;   // the document as the procedure delivered it; empty: none
  std::filesystem::path trace;  // the procedure's trace lines; empty: none
  std::string language = "en";  // of titles, labels, messages and numbers
  bool plots = false;           // draw the charts in the terminal
  bool summary = false;         // print the procedure's text summary
  bool timings = false;         // one line a stage on stderr
  Verbosity verbosity = Verbosity::normal;
};

struct RunOptions {
  std::filesystem::path jobFile;
  OutputOptions output;
};

struct FitOptions {
  std::filesystem::path data;
  std::string query;
  std::vector<std::string> endogenous;
  std::vector<std::string> exogenous;
  std::vector<std::string> criteria;  // upper-case keywords; empty: BIC
  std::optional<int> minLag;
  std::optional<int> maxLag;
  std::optional<double> ciLevel;
  std::optional<long> predictPeriods;  // periods after the last case
  std::string dateColumn;
  std::vector<std::string> start;  // "year=1959" "quarter=1"
  std::string saveFile;
  bool includeUserMissing = false;
  OutputOptions output;
};

}  // namespace workbench
