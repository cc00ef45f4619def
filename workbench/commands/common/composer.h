// A subcommand of the program that composes a command from options (`varmodel fit`).

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command_runner.h"
#include "workbench/commands/common/option_words.h"

namespace workbench {

// What to run after a command.
struct NextRun {
  std::string text;
  RunnerSettings settings;
  bool replaces = false;     // the last run, which then is not shown
  bool showsChoice = false;  // everything for what the last run chose, of which then the choice alone is shown
};

// What all composed commands share beside their own options.
struct ComposerRequest {
  std::optional<long> predictPeriods;  // periods after the last case
};

class Composer {
 public:
  virtual ~Composer() = default;
  virtual std::string name() const = 0;
  virtual std::string description() const = 0;
  // Adds the options of this command; those of data, dates, horizon and output are the program's. They are read into
  // this object, which outlives the parser.
  virtual void addOptions(CLI::App& app) = 0;
  // The text of the first command, after the options were read.
  virtual std::string compose(const ComposerRequest& request) = 0;
  // What messages about a run of its say instead of keywords.
  virtual std::vector<OptionWord> optionWords(const FinishedRun& /*run*/) const { return {}; }
  // The tables that the terminal shows unless all are asked for: lasting names without their variable ("forecast").
  // None: all tables.
  virtual std::vector<std::string> shortForm() const { return {}; }
  // What it knows of a run beyond its command is added to how the run is shown.
  virtual void present(const FinishedRun& /*run*/, DocumentView& /*view*/) const {}
  // What to do about a run that failed, beside what its messages advise; empty when there is nothing to add.
  virtual Notice hint(const FinishedRun& /*run*/) const { return {}; }
  // With which settings it runs.
  virtual RunnerSettings firstSettings(RunnerSettings settings) const { return settings; }
  // What follows the last run; nothing when all is done. The runner may be used for further calls on the same data.
  virtual std::optional<NextRun> next(const FinishedRun& /*last*/, CommandRunner& /*runner*/) { return std::nullopt; }
};

}  // namespace workbench
