#include "workbench/commands/fit/fit_composer.h"

#include <algorithm>
#include <utility>

#include "workbench/commands/varmodel/selected_lag.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

bool isDynamics(const FinishedRun& run) {
  return run.command.name() == "VARDYNAMICS";
}

}  // namespace

void FitComposer::addOptions(CLI::App& app) {
  model_.addModelOptions(app);
  dynamics_.addShockOptions(app);
  app.add_option(
         "--save", model_.options().saveFile,
         "Save residuals and, with --predict, forecasts, a row a period with its date (with --model-only: predicted "
         "values and residuals): .csv, .parquet, .duckdb")
      ->type_name("FILE");
  app.add_flag("--model-only", modelOnly_,
               "VARMODEL alone: lag choice, estimates, residual tests, forecasts without limits");
}

std::string FitComposer::compose(const ComposerRequest& request) {
  if (modelOnly_) return model_.compose(request);
  request_ = request;
  varmodel::ModelOptions& model = model_.options();
  vardynamics::AnalyzeOptions& dynamics = dynamics_.options();
  dynamics.endogenous = model.endogenous;
  dynamics.exogenous = model.exogenous;
  dynamics.includeUserMissing = model.includeUserMissing;
  dynamics.saveFile = std::exchange(model.saveFile, {});
  if (model.ciLevel) dynamics.levels = {*model.ciLevel};
  return model_.compose({});
}

std::vector<OptionWord> FitComposer::optionWords(const FinishedRun& run) const {
  return isDynamics(run) ? dynamics_.optionWords(run) : model_.optionWords(run);
}

std::vector<std::string> FitComposer::shortForm() const {
  return modelOnly_ ? model_.shortForm()
                    : std::vector<std::string>{"lag-selection", "forecast", "forecast-in-levels", "condition"};
}

void FitComposer::present(const FinishedRun& run, DocumentView& view) const {
  if (!isDynamics(run) || whyThisLag_.empty()) return;
  const int lag = dynamics_.lag().value_or(0);
  view.saidOtherwise.emplace_back(tr("Lag ^1 was given.", lag), whyThisLag_);
}

Notice FitComposer::hint(const FinishedRun& run) const {
  if (!isDynamics(run)) return {};
  return Notice("fit.model-stands", "What VARMODEL found above stands. To have that alone, give --model-only.");
}

RunnerSettings FitComposer::firstSettings(RunnerSettings settings) const {
  settings = model_.firstSettings(settings);
  settings.predicts = settings.predicts && modelOnly_;
  return settings;
}

std::optional<NextRun> FitComposer::next(const FinishedRun& last, CommandRunner& runner) {
  if (modelDone_) return std::nullopt;
  std::optional<NextRun> next = model_.next(last, runner);
  if (modelOnly_) return next;
  if (next) {
    next->settings.predicts = false;  // the forecast is VARDYNAMICS'
    if (next->showsChoice) whyThisLag_ = varmodel::whyThisLag(last);
    return next;
  }
  if (!last.outcome.succeeded) return std::nullopt;
  modelDone_ = true;
  dynamics_.options().lag = varmodel::lagRange(last.record).most;
  return NextRun{.text = dynamics_.compose(request_), .settings = runner.settings()};
}

}  // namespace workbench
