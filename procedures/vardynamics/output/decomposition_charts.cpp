#include <string>

#include "procedures/vardynamics/output/charts.h"
#include "procedures/vardynamics/output/decomposition_parts.h"
#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {
namespace {

constexpr const char* kShownFirst = "GUIDE: window(dim(1), last(60))";

DocumentChart shareChart(const ReportContext& context, const VarianceShares& shares, std::size_t series) {
  const Texts& texts = context.texts;
  DocumentChart chart;
  std::vector<std::string> horizons;
  std::vector<std::string> shocks;
  std::vector<double> percentages;
  for (std::size_t j = 0; j < context.names().size(); ++j) {
    for (std::size_t h = 0; h < shares.shares.size(); ++h) {
      horizons.push_back(std::to_string(h + 1));
      shocks.push_back(context.names()[j]);
      percentages.push_back(kPercent * shares.shares[h](series, j));
    }
  }
  chart.texts = {{"horizon", horizons}, {"shock", shocks}};
  chart.numbers = {{"percent", percentages}};
  chart.statements = {"SCALE: cat(dim(1), sort.data())",
                      "SCALE: linear(dim(2), min(0), max(100))",
                      axisGuide(2, texts.localize("Percent")),
                      axisGuide(1, texts.localize("Horizon")),
                      "GUIDE: legend(aesthetic(aesthetic.color), label(\"" + texts.localize("Shocks to") + "\"))",
                      "ELEMENT: area(position(horizon*percent), color(shock), stack())"};
  return chart;
}

}  // namespace

DocumentChart varianceChart(const ReportContext& context, std::size_t series) {
  DocumentChart chart = shareChart(context, *context.analysis.decomposition->orthogonal, series);
  chart.id = "Variance Chart - " + context.names()[series];
  chart.title = context.texts.localize("Variance Decomposition") + " - " + context.names()[series];
  return chart;
}

DocumentChart generalizedChart(const ReportContext& context, std::size_t series) {
  DocumentChart chart = shareChart(context, *context.analysis.decomposition->normalised, series);
  chart.id = "Generalized Variance Chart - " + context.names()[series];
  chart.title = context.texts.localize("Normalised Generalized Decomposition") + " - " + context.names()[series];
  return chart;
}

DocumentChart historicalChart(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const History& history = *context.analysis.decomposition->history;
  const engine::Matrix sum = sumOfShocks(history);
  const std::string lineName = texts.localize("Data less base");
  DocumentChart chart{.id = "Historical Chart - " + context.names()[series],
                      .title = texts.localize("Historical Decomposition") + " - " + context.names()[series]};
  std::vector<std::string> dates;
  std::vector<std::string> shocks;
  std::vector<double> parts;
  std::vector<double> sums;
  for (std::size_t j = 0; j < history.parts.shocks.size(); ++j) {
    for (std::size_t row = 0; row < sum.rows; ++row) {
      dates.push_back(historicalLabel(context, row));
      shocks.push_back(context.names()[j]);
      parts.push_back(history.parts.shocks[j](row, series));
      sums.push_back(j == 0 ? sum(row, series) : kNoValue);
    }
  }
  chart.texts = {{"date", dates}, {"shock", shocks}};
  chart.numbers = {{"part", parts}, {"sum", sums}};
  chart.statements = {"SCALE: cat(dim(1), sort.data())",
                      kShownFirst,
                      axisGuide(2, context.names()[series]),
                      axisGuide(1, context.periodLabel()),
                      "GUIDE: legend(aesthetic(aesthetic.color), label(\"" + texts.localize("Shocks to") + "\"))",
                      "ELEMENT: interval(position(date*part), color(shock), stack())",
                      "ELEMENT: line(position(date*sum), color(color.black), label(\"" + lineName + "\"))"};
  return chart;
}

}  // namespace vardynamics
