// VARMODEL commands from the options of `varmodel fit`.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/commands/common/composer.h"
#include "workbench/commands/varmodel/usable_lag.h"

namespace workbench::varmodel {

struct ModelOptions {
  std::vector<std::string> endogenous;
  std::vector<std::string> exogenous;
  std::vector<std::string> lag;       // as given: one number, or criteria
  std::vector<std::string> criteria;  // upper-case keywords; empty: BIC
  std::optional<int> minLag;
  std::optional<int> maxLag;
  std::optional<double> ciLevel;
  std::string saveFile;
  bool includeUserMissing = false;
};

// Asks for every statistic and chart that the options can produce.
class ModelComposer {
 public:
  // All but where the results are saved.
  void addModelOptions(CLI::App& app);
  ModelOptions& options() { return options_; }
  std::string compose(const ComposerRequest& request);
  std::vector<OptionWord> optionWords(const FinishedRun& run) const;
  // Of the tables, those that a first look needs.
  std::vector<std::string> shortForm() const;

  RunnerSettings firstSettings(RunnerSettings settings) const;
  // Small units: the same again in a larger one. After the choice of a lag: everything for that lag.
  std::optional<NextRun> next(const FinishedRun& last, CommandRunner& runner);

 private:
  void readLag();
  bool choosesLag() const { return options_.minLag.value_or(1) != options_.maxLag.value_or(kDefaultMaxLag); }
  std::string lagChoice() const;
  std::string everything(int minLag, int maxLag) const;

  ModelOptions options_;
  bool fixedLag_ = false;  // the lag order was given
  bool predicts_ = false;
  bool choosing_ = false;  // the last run is the choice of the lag
};

}  // namespace workbench::varmodel
