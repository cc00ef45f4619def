// `varmodel fit`: a VARMODEL command from options.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/commands/common/composer.h"
#include "workbench/commands/varmodel/usable_lag.h"

namespace workbench::varmodel {

struct FitOptions {
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
class FitComposer final : public Composer {
 public:
  std::string name() const override { return "fit"; }
  std::string description() const override { return "Compose a command from options, print it, and run it"; }
  void addOptions(CLI::App& app) override;
  std::string compose(const ComposerRequest& request) override;
  std::vector<OptionWord> optionWords() const override;

  RunnerSettings firstSettings(RunnerSettings settings) const override;
  // Small units: the same again in a larger one. After the choice of a lag: everything for that lag.
  std::optional<NextRun> next(const FinishedRun& last, CommandRunner& runner) override;

 private:
  void readLag();
  bool choosesLag() const { return options_.minLag.value_or(1) != options_.maxLag.value_or(kDefaultMaxLag); }
  std::string lagChoice() const;
  std::string everything(int minLag, int maxLag) const;

  FitOptions options_;
  bool fixedLag_ = false;  // the lag order was given
  bool predicts_ = false;
  bool choosing_ = false;  // the last run is the choice of the lag
};

}  // namespace workbench::varmodel
