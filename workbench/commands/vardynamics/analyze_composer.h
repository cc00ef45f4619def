// `varmodel analyze`: a VARDYNAMICS command from options.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/commands/common/composer.h"

namespace workbench::vardynamics {

struct AnalyzeOptions {
  std::vector<std::string> endogenous = {};
  std::vector<std::string> exogenous = {};
  std::optional<int> exogenousLags = {};
  std::optional<int> lag = {};
  std::string criterion = {};  // upper-case keyword; empty: the procedure's default
  std::optional<int> minLag = {};
  std::optional<int> maxLag = {};
  std::string deterministic = {};  // likewise
  bool seasonal = false;
  bool conditional = false;
  std::optional<int> shockHorizon = {};
  std::vector<std::string> order = {};
  std::vector<std::string> cumulative = {};
  std::string bands = {};  // upper-case keyword; empty: the procedure's default
  std::optional<int> replications = {};
  std::optional<int> seed = {};
  bool backtest = false;
  std::vector<double> levels = {};
  std::string saveFile = {};
  bool includeUserMissing = false;
};

// Asks for everything that the options can produce; a forecast only when periods are asked for.
class AnalyzeComposer final : public Composer {
 public:
  std::string name() const override { return "analyze"; }
  std::string description() const override {
    return "Compose a VARDYNAMICS command (tests, causality, forecasts with limits), print it, and run it";
  }
  void addOptions(CLI::App& app) override;
  std::string compose(const ComposerRequest& request) override;
  std::vector<OptionWord> optionWords(const FinishedRun& run) const override;
  std::vector<std::string> shortForm() const override;

  // Those of shocks, decompositions, back-test and draws alone.
  void addShockOptions(CLI::App& app);
  AnalyzeOptions& options() { return options_; }
  std::optional<int> lag() const { return options_.lag; }

 private:
  std::string modelSubcommand() const;
  std::string shockSubcommands() const;

  AnalyzeOptions options_;
};

}  // namespace workbench::vardynamics
