#include <string>

#include "procedures/vardynamics/output/backtest_parts.h"
#include "procedures/vardynamics/output/charts.h"

namespace vardynamics {
namespace {

class ErrorLines {
 public:
  void add(const std::string& name, std::size_t horizon, double error) {
    horizons_.push_back(std::to_string(horizon));
    names_.push_back(name);
    errors_.push_back(error);
  }
  void moveTo(DocumentChart& chart) {
    chart.texts = {{"horizon", std::move(horizons_)}, {"name", std::move(names_)}};
    chart.numbers = {{"error", std::move(errors_)}};
  }

 private:
  std::vector<std::string> horizons_;
  std::vector<std::string> names_;
  std::vector<double> errors_;
};

}  // namespace

DocumentChart backtestChart(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const SeriesScores& scores = context.analysis.backtest->series[series];
  const std::string model = "VAR(" + std::to_string(context.analysis.model.lag()) + ")";
  ErrorLines lines;
  for (std::size_t h = 0; h < scores.model.size(); ++h) {
    lines.add(model, h + 1, scores.model[h].errors.accuracy.rootMeanSquare);
  }
  for (const RivalScores& rival : scores.rivals) {
    for (std::size_t h = 0; h < rival.horizons.size(); ++h) {
      lines.add(rivalName(context, rival.rival), h + 1, rival.horizons[h].errors.accuracy.rootMeanSquare);
    }
  }
  DocumentChart chart{.id = "Back-Test Chart - " + context.names()[series],
                      .title = texts.localize("Back-Test") + " - " + context.names()[series]};
  lines.moveTo(chart);
  chart.statements = {"SCALE: cat(dim(1), sort.data())",
                      "SCALE: cat(aesthetic(aesthetic.color), map((\"" + model + "\", color.black)))",
                      axisGuide(2, texts.localize("RMSE")), axisGuide(1, texts.localize("Horizon")),
                      "ELEMENT: line(position(horizon*error), color(name))"};
  return chart;
}

}  // namespace vardynamics
