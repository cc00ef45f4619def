#include <string>
#include <utility>

#include "procedures/vardynamics/output/backtest_parts.h"
#include "procedures/vardynamics/output/charts.h"
#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {
namespace {

// Root mean squared errors, those of the model in a column of their own: it is drawn apart from its rivals.
class ErrorLines {
 public:
  void addModel(std::size_t horizon, double error) { add(horizon, kNoValue, error, ""); }
  void addRival(std::size_t horizon, double error, const std::string& name) { add(horizon, error, kNoValue, name); }

  void moveTo(DocumentChart& chart) {
    chart.texts = {{"horizon", std::move(horizons_)}, {"rival", std::move(names_)}};
    chart.numbers = {{"error", std::move(errors_)}, {"model", std::move(model_)}};
  }

 private:
  void add(std::size_t horizon, double error, double model, const std::string& name) {
    horizons_.push_back(std::to_string(horizon));
    names_.push_back(name);
    errors_.push_back(error);
    model_.push_back(model);
  }

  std::vector<std::string> horizons_;
  std::vector<std::string> names_;
  std::vector<double> errors_;
  std::vector<double> model_;
};

}  // namespace

DocumentChart backtestChart(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const SeriesScores& scores = context.analysis.backtest->series[series];
  const std::string model = "VAR(" + std::to_string(context.analysis.model.lag()) + ")";
  ErrorLines lines;
  for (const RivalScores& rival : scores.rivals) {
    for (std::size_t h = 0; h < rival.horizons.size(); ++h) {
      lines.addRival(h + 1, rival.horizons[h].errors.accuracy.rootMeanSquare, rivalName(context, rival.rival));
    }
  }
  for (std::size_t h = 0; h < scores.model.size(); ++h) {
    lines.addModel(h + 1, scores.model[h].errors.accuracy.rootMeanSquare);
  }
  DocumentChart chart{.id = "Back-Test Chart - " + context.names()[series],
                      .title = texts.localize("Back-Test") + " - " + context.names()[series]};
  lines.moveTo(chart);
  chart.statements = {
      "SCALE: cat(dim(1), sort.data())", axisGuide(2, texts.localize("RMSE")), axisGuide(1, texts.localize("Horizon")),
      "ELEMENT: line(position(horizon*error), color(rival))",
      "ELEMENT: line(position(horizon*model), color(color.black), size(size.\"2\"), label(\"" + model + "\"))"};
  return chart;
}

}  // namespace vardynamics
