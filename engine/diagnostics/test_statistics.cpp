#include "engine/diagnostics/test_statistics.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <cmath>

namespace engine {

double chiSquaredTail(double statistic, double degreesOfFreedom) {
  if (std::isnan(statistic)) return statistic;
  if (std::isinf(statistic)) return 0.0;
  return boost::math::cdf(
      boost::math::complement(boost::math::chi_squared_distribution<double>(degreesOfFreedom), statistic));
}

double fTail(double statistic, double numeratorDegrees, double denominatorDegrees) {
  if (std::isnan(statistic)) return statistic;
  if (std::isinf(statistic)) return 0.0;
  return boost::math::cdf(boost::math::complement(
      boost::math::fisher_f_distribution<double>(numeratorDegrees, denominatorDegrees), statistic));
}

ChiSquaredTest chiSquaredTest(double statistic, double degreesOfFreedom) {
  return {statistic, degreesOfFreedom, chiSquaredTail(statistic, degreesOfFreedom)};
}

FTest fTest(double statistic, double numeratorDegrees, double denominatorDegrees) {
  return {statistic, numeratorDegrees, denominatorDegrees, fTail(statistic, numeratorDegrees, denominatorDegrees)};
}

}  // namespace engine
