// `varmodel fit`: a VARMODEL command from options.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/commands/common/composer.h"

namespace workbench::varmodel {

struct FitOptions {
  std::vector<std::string> endogenous;
  std::vector<std::string> exogenous;
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
  std::string compose(const ComposerRequest& request) const override;

  // Small units: the same again in a larger one.
  std::optional<NextRun> next(const FinishedRun& last, CommandRunner& runner) override;

 private:
  FitOptions options_;
};

}  // namespace workbench::varmodel
