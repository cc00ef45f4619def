#include "workbench/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace workbench {

namespace {

constexpr int usageExitCode = 2;

void addOutputOptions(CLI::App& app, OutputOptions& options) {
  app.add_option("--html", options.html, "Write the report, one self-contained page, to FILE")->type_name("FILE");
  app.add_option("--json", options.json, "Write the output document as JSON to FILE")->type_name("FILE");
  app.add_option("--trace", options.trace, "Write the procedure's trace to FILE")->type_name("FILE");
  app.add_option("--lang", options.language, "Language of the output: en, or one that has a dictionary (default: en)")
      ->type_name("CODE");
  app.add_flag("--plots", options.plots, "Draw the charts in the terminal too (needs gnuplot)");
  app.add_flag("--summary", options.summary, "Print the plain-text summary of all results");
  app.add_flag("--timings", options.timings, "Print one line a stage to standard error");
  auto* quiet = app.add_flag(
      "-q,--quiet", [&options](std::int64_t) { options.verbosity = Verbosity::quiet; }, "Print errors only");
  app.add_flag(
         "-v,--verbose", [&options](std::int64_t) { options.verbosity = Verbosity::verbose; },
         "Print the procedure's trace too")
      ->excludes(quiet);
}

void addRun(CLI::App& program, RunOptions& options) {
  CLI::App* run = program.add_subcommand("run", "Run the command of a job file");
  run->add_option("JOB", options.jobFile, "Job file (TOML)")->required()->type_name("JOB.toml");
  addOutputOptions(*run, options.output);
}

void addFit(CLI::App& program, FitOptions& options) {
  CLI::App* fit = program.add_subcommand("fit", "Compose a command from options, print it, and run it");
  fit->add_option("DATA", options.data, "Data file: CSV, Parquet, JSON, or a DuckDB database")->required();
  fit->add_option("--query", options.query, "SQL over the view 'source'")->type_name("SQL");
  fit->add_option("--endogenous", options.endogenous, "Two or more endogenous variables")->required()->type_name("VAR");
  fit->add_option("--exogenous", options.exogenous, "Exogenous variables")->type_name("VAR");
  fit->add_option("--lag", options.criteria, "Criteria that choose the lag (default: bic)")
      ->type_name("aic|bic|hqic")
      ->transform(CLI::IsMember({"AIC", "BIC", "HQIC"}, CLI::ignore_case));
  fit->add_option("--minlag", options.minLag, "Smallest lag order tried (default: 1)")->type_name("N");
  fit->add_option("--maxlag", options.maxLag, "Largest lag order tried, 1 to 25 (default: 10)")->type_name("N");
  fit->add_option("--cilevel", options.ciLevel, "Confidence level in percent (default: 95)")->type_name("PERCENT");
  fit->add_option("--predict", options.predictPeriods, "Forecast N periods after the last case")
      ->type_name("N")
      ->check(CLI::PositiveNumber);
  auto* column = fit->add_option("--dates", options.dateColumn, "DATE or TIMESTAMP column that dates the cases");
  fit->add_option("--start", options.start, "Date of the first case, such as year=1959 quarter=1")
      ->type_name("UNIT=N")
      ->excludes(column);
  fit->add_option("--save", options.saveFile, "Save predicted values and residuals (.csv, .parquet, .duckdb)")
      ->type_name("FILE");
  fit->add_flag("--include-missing", options.includeUserMissing, "Treat user-missing values as valid");
  addOutputOptions(*fit, options.output);
}

}  // namespace

Invocation parseCommandLine(int argc, const char* const* argv) {
  RunOptions run;
  FitOptions fit;
  CLI::App program("Vector autoregression: fit, diagnose, forecast, report.", "varmodel");
  program.set_version_flag("--version", VARMODEL_VERSION);
  program.require_subcommand(1);
  addRun(program, run);
  addFit(program, fit);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return EndNow{program.exit(error, std::cout, std::cerr) == 0 ? 0 : usageExitCode};
  }
  if (program.got_subcommand("run")) return run;
  return fit;
}

}  // namespace workbench
