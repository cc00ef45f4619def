#include "procedures/vardynamics/output/backtest_parts.h"

#include <numeric>

#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {

std::string rivalName(const ReportContext& context, Rival rival) {
  const Texts& texts = context.texts;
  switch (rival) {
    case Rival::noChange:
      return texts.localize("No change");
    case Rival::seasonal:
      return texts.localize("Seasonal");
    case Rival::autoregression:
      break;
  }
  return "AR(" + std::to_string(context.analysis.model.lag()) + ")";
}

std::vector<std::size_t> backtestHorizons(const ReportContext& context) {
  constexpr std::size_t kFew = 8;
  const std::size_t horizon = context.analysis.backtest->horizon();
  if (horizon > kFew) return printedHorizons(horizon);
  std::vector<std::size_t> horizons(horizon);
  std::iota(horizons.begin(), horizons.end(), std::size_t{1});
  return horizons;
}

const std::optional<engine::ForecastComparison>& decisiveTest(const RivalScore& score) {
  return score.clarkWest ? score.clarkWest : score.dieboldMariano;
}

}  // namespace vardynamics
