#include "procedures/vardynamics/output/decomposition_parts.h"

#include "procedures/vardynamics/output/number_style.h"

namespace vardynamics {

HistoricalChange historicalChange(const ReportContext& context, std::size_t series) {
  const engine::HistoricalDecomposition& parts = context.analysis.decomposition->history->parts;
  const std::vector<double> data = historicalData(context, series);
  const auto change = [series](const engine::Matrix& part) { return part(part.rows - 1, series) - part(0, series); };
  HistoricalChange result{.first = data.front(),
                          .last = data.back(),
                          .deterministic = change(parts.deterministic),
                          .initial = change(parts.initial)};
  for (const engine::Matrix& part : parts.exogenous) result.exogenous.push_back(change(part));
  for (const engine::Matrix& part : parts.shocks) result.shocks.push_back(change(part));
  return result;
}

std::vector<double> historicalData(const ReportContext& context, std::size_t series) {
  const std::vector<double>& observed = context.observations.sample.endogenous[series];
  return {observed.begin() + static_cast<std::ptrdiff_t>(context.analysis.model.fit.firstRow), observed.end()};
}

const std::string& historicalLabel(const ReportContext& context, std::size_t row) {
  return context.observations.label(context.analysis.model.fit.firstRow + row);
}

int historicalDecimals(const ReportContext& context, std::size_t series) {
  constexpr int kDigits = 3;
  return decimalsFor(context.analysis.model.equations[series].standardError, kDigits);
}

}  // namespace vardynamics
