// `varmodel fit`: the whole story of one model. VARMODEL chooses the lag and estimates, VARDYNAMICS tells at that lag
// what follows from it.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/commands/common/composer.h"
#include "workbench/commands/vardynamics/analyze_composer.h"
#include "workbench/commands/varmodel/model_composer.h"

namespace workbench {

class FitComposer final : public Composer {
 public:
  std::string name() const override { return "fit"; }
  std::string description() const override {
    return "Choose the lag, fit the model and tell what follows from it: tests, causality, shocks, forecasts";
  }
  void addOptions(CLI::App& app) override;
  std::string compose(const ComposerRequest& request) override;
  std::vector<OptionWord> optionWords(const FinishedRun& run) const override;
  std::vector<std::string> shortForm() const override;
  void present(const FinishedRun& run, DocumentView& view) const override;
  Notice hint(const FinishedRun& run) const override;

  RunnerSettings firstSettings(RunnerSettings settings) const override;
  // The passes of VARMODEL, and after the last one VARDYNAMICS at its lag.
  std::optional<NextRun> next(const FinishedRun& last, CommandRunner& runner) override;

 private:
  varmodel::ModelComposer model_;
  vardynamics::AnalyzeComposer dynamics_;
  ComposerRequest request_;
  bool modelOnly_ = false;
  bool modelDone_ = false;  // the run that follows, or has ended, is that of VARDYNAMICS
  std::string whyThisLag_;  // empty where it was given
};

}  // namespace workbench
