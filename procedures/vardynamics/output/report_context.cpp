#include "procedures/vardynamics/output/report_context.h"

#include <cmath>

namespace vardynamics {

namespace {

// In percent.
double leftBy(double confidenceLevel) {
  // 100 less 99.9 is 0.09999999999999432 in doubles.
  constexpr double kDecimals = 1e10;
  return std::round((100.0 - confidenceLevel) * kDecimals) / kDecimals;
}

}  // namespace

double ReportContext::testLevel() const {
  return leftBy(settings.level()) / 100.0;
}

std::string ReportContext::levelText() const {
  return texts.percent(leftBy(settings.level()));
}

}  // namespace vardynamics
