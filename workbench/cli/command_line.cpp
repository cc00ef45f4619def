#include "workbench/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <sstream>
#include <utility>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/languages.h"
#include "workbench/base/terminal.h"
#include "workbench/base/utf8_path.h"
#include "workbench/cli/help_examples.h"
#include "workbench/cli/help_format.h"
#include "workbench/cli/manual_text.h"
#include "workbench/cli/usage_message.h"
#include "workbench/cli/version.h"
#include "workbench/commands/common/option_checks.h"
#include "workbench/commands/registry.h"
#include "workbench/edge/texts.h"
#include "workbench/export/chart_files.h"
#include "workbench/export/table_files.h"

namespace workbench {

namespace {

CLI::Option* addFile(CLI::App& app, const std::string& name, std::filesystem::path& file,
                     const std::string& description) {
  const auto take = [&file](const std::string& text) { file = pathFromUtf8(text); };
  return app.add_option_function<std::string>(name, take, description);
}

void addLanguageOption(CLI::App& app, OutputOptions& options) {
  app.add_option("--lang", options.language, "Language of the output: en, or one that has a dictionary (default: en)")
      ->type_name("CODE");
}

void addFolderOptions(CLI::App& app, OutputOptions& options) {
  auto* tables = addFile(app, "--tables", options.tables, "Write every table to a file of its own in the folder DIR")
                     ->type_name("DIR");
  app.add_option("--table-format", options.tableFormats, "Of these files, one or several (default: csv)")
      ->type_name("csv|md|latex|html|tidy")
      ->transform(keywordOf(tableFormatWords()))
      ->needs(tables);
  auto* charts =
      addFile(app, "--charts", options.charts, "Write every chart as a picture into the folder DIR (needs gnuplot)")
          ->type_name("DIR");
  app.add_option("--chart-format", options.chartFormats, "Of the pictures, one or several (default: svg)")
      ->type_name("svg|png|pdf")
      ->transform(keywordOf(chartFormatWords()))
      ->needs(charts);
  app.add_option("--title", options.title, "Title of the report")->type_name("TEXT");
  app.add_option("--author", options.author, "Who made the report")->type_name("TEXT");
  app.add_option("--note", options.note, "What the report says below its title")->type_name("TEXT");
}

void addOutputOptions(CLI::App& app, OutputOptions& options) {
  addFile(app, "--html", options.html, "Write the report, one self-contained page, to FILE")->type_name("FILE");
  addFile(app, "--json", options.json, "Write the record of the run, with its output documents, as JSON to FILE")
      ->type_name("FILE");
  addFile(app, "--trace", options.trace, "Write the procedure's trace to FILE")->type_name("FILE");
  addFolderOptions(app, options);
  addLanguageOption(app, options);
  app.add_flag("--plots", options.plots, "Draw the charts in the terminal too (needs gnuplot)");
  app.add_flag("--summary", options.summary, "Print the plain-text summary of all results");
  app.add_option("--jobs", options.jobs, "Threads for long computations (default: 1); the numbers are the same")
      ->type_name("N")
      ->check(CLI::Range(1, kMostJobs));
  app.add_flag("--timings", options.timings, "Print one line a stage to standard error");
  auto* quiet = app.add_flag(
      "-q,--quiet", [&options](std::int64_t) { options.verbosity = Verbosity::quiet; },
      "Print only errors and warnings; notes stand in the report and the record");
  app.add_flag(
         "-v,--verbose", [&options](std::int64_t) { options.verbosity = Verbosity::verbose; },
         "Print the procedure's trace too")
      ->excludes(quiet);
}

void addUnsafeOption(CLI::App& app, bool& unsafeSql) {
  app.add_flag("--unsafe-sql", unsafeSql, "Let the query write, load extensions and reach any file and the network");
}

void addRun(CLI::App& program, RunOptions& options) {
  CLI::App* run = program.add_subcommand("run", "Run the command of a job file");
  addFile(*run, "JOB", options.jobFile, "Job file (TOML)")->required()->type_name("JOB.toml");
  addUnsafeOption(*run, options.unsafeSql);
  addOutputOptions(*run, options.output);
}

void addDateOptions(CLI::App& app, ComposeOptions& options) {
  constexpr const char* kGroup = "Dates";
  auto* dates = app.add_option("--dates", options.dates,
                               "Column that dates the cases, or columns of components such as year=YEAR quarter=Q")
                    ->type_name("COLUMN|UNIT=COLUMN")
                    ->group(kGroup);
  app.add_option("--start", options.start, "Date of the first case, such as year=1959 quarter=1")
      ->type_name("UNIT=N")
      ->excludes(dates)
      ->group(kGroup);
  app.add_flag("--sort", options.sort, "Put the rows in the order of their dates")->needs(dates)->group(kGroup);
  app.add_flag("--exchange-day-month", options.exchangesDayAndMonth,
               "Read dates such as 3/4/2001 in the other order than by themselves")
      ->needs(dates)
      ->group(kGroup);
  app.add_option("--holidays", options.holidays,
                 "Business days that are no cases, such as 2024-12-25; gaps: every one that has no row")
      ->type_name("DAY|gaps")
      ->needs(dates)
      ->group(kGroup);
  app.add_flag("--fill-gaps", options.fillGaps, "Missing periods become rows without values")
      ->needs(dates)
      ->group(kGroup);
}

void addComposer(CLI::App& program, ComposeOptions& options) {
  CLI::App* app = program.add_subcommand(options.composer->name(), options.composer->description());
  addFile(*app, "DATA", options.data, "Data file: CSV, Excel, Parquet, JSON, or a DuckDB database")->required();
  app->add_option("--query", options.query, "SQL over the view 'source'")->type_name("SQL");
  addUnsafeOption(*app, options.unsafeSql);
  options.composer->addOptions(*app);
  app->add_option("--predict", options.predict,
                  "Forecast N periods after the last case, or through a period (2011Q3; of yearly data 2011)")
      ->type_name("N|PERIOD")
      ->check(atLeastOne("Leave it out where no forecast is wanted."));
  app->add_option("--from", options.range.from, "First case used: a period (1984Q1) or a case number")
      ->type_name("PERIOD");
  app->add_option("--to", options.range.to, "Last case used")->type_name("PERIOD");
  app->add_option("--transform", options.transformations,
                  "VARIABLE=log, diff, dlog, sdiff or pct, with a factor if you like: realgdp=dlog*100")
      ->type_name("VARIABLE=HOW");
  app->add_flag("--complete", options.complete, "Drop the rows that lack a variable of the command");
  app->add_flag("--save-cases", options.savesCases,
                "The row and the date of every case in a file of predicted values too (other saved files have them)");
  addDateOptions(*app, options);
  addDataOptions(*app, options.reading);
  addFile(*app, "--write-job", options.output.writtenJob, "Write a job file that does this run again to FILE")
      ->type_name("FILE");
  app->add_flag("--all", options.output.everything,
                "Show every table and the commands in the terminal, not the main ones");
  addOutputOptions(*app, options.output);
}

void addCheck(CLI::App& program, RunOptions& options) {
  options.checkOnly = true;
  CLI::App* check = program.add_subcommand("check", "Tell whether a job can be run, without running it");
  addFile(*check, "JOB", options.jobFile, "Job file (TOML)")->required()->type_name("JOB.toml");
  addUnsafeOption(*check, options.unsafeSql);
  addLanguageOption(*check, options.output);
}

void addDescribe(CLI::App& program, DescribeOptions& options) {
  CLI::App* describe = program.add_subcommand("describe", "Show what a data file holds, and what would be refused");
  addFile(*describe, "DATA", options.data, "Data file: CSV, Excel, Parquet, JSON, or a DuckDB database")->required();
  describe->add_option("--query", options.query, "SQL over the view 'source'")->type_name("SQL");
  addUnsafeOption(*describe, options.unsafeSql);
  addDataOptions(*describe, options.reading);
  addLanguageOption(*describe, options.output);
}

// The text is made when it is asked for, and the program then has done what it was asked.
void addFlagThatEnds(CLI::App& program, const std::string& name, std::string (*text)(),
                     const std::string& description) {
  program
      .add_flag_callback(
          name, [text] { throw CLI::CallForVersion(text(), 0); }, description)
      ->configurable(false);
}

// The parser writes into them: they must not move while it lives.
std::vector<ComposeOptions> composedJobs() {
  std::vector<ComposeOptions> jobs;
  for (std::unique_ptr<Composer>& composer : composers()) jobs.emplace_back().composer = std::move(composer);
  return jobs;
}

// What is wrong with the command line is said in the language that it asks for, where there is such a one.
void speakAsAsked(const std::vector<std::string>& words) {
  const auto option = std::ranges::find(words, "--lang");
  if (option == words.end() || std::next(option) == words.end()) return;
  const std::vector<std::string> codes = availableLanguages(installedDictionaries());
  if (std::ranges::count(codes, *std::next(option)) > 0) {
    setLanguage(readLanguage(installedDictionaries(), *std::next(option)));
  }
}

}  // namespace

Invocation parseCommandLine(int argc, const char* const* argv) {
  RunOptions run;
  RunOptions check;
  DescribeOptions describe;
  std::vector<ComposeOptions> composed = composedJobs();
  CLI::App program("Vector autoregression: fit, diagnose, forecast, report.", "varmodel");
  addFlagThatEnds(program, "--version", versionText, "Show the version, the facts of its build and the parts it finds");
  addFlagThatEnds(program, "--licenses", licencesText, "Show the licences of the program and of what it contains");
  program.require_subcommand(1);
  program.formatter(std::make_shared<HelpFormat>());
  addRun(program, run);
  addCheck(program, check);
  addDescribe(program, describe);
  for (ComposeOptions& options : composed) addComposer(program, options);
  addExamples(program);
  std::vector<std::string> words(argv + 1, argv + argc);
  speakAsAsked(words);
  if (const auto text = manualText(program, words)) {
    std::cout << *text;
    return EndNow{0};
  }
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
      std::ostringstream out;
      program.exit(error, out, out);
      putText(stdout, out.str());
      return EndNow{0};
    }
    throw UsageError(usageMessage(program, error, words));
  }
  words.insert(words.begin(), program.get_name());
  run.output.commandLine = words;
  for (ComposeOptions& options : composed) {
    options.output.commandLine = words;
    if (program.got_subcommand(options.composer->name())) return options;
  }
  if (program.got_subcommand("describe")) return describe;
  return program.got_subcommand("check") ? check : run;
}

}  // namespace workbench
