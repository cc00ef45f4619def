#include "procedures/vardynamics/output/report_context.h"

#include <cmath>

namespace vardynamics {

std::string ReportContext::levelText() const {
  // 100 less 99.9 is 0.09999999999999432 in doubles.
  constexpr double kDecimals = 1e10;
  return texts.percent(std::round((100.0 - settings.level()) * kDecimals) / kDecimals);
}

}  // namespace vardynamics
