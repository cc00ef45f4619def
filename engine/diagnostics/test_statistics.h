// A test statistic with its degrees of freedom and its p-value.

#pragma once

namespace engine {

struct ChiSquaredTest {
  double statistic = 0.0;
  double degreesOfFreedom = 0.0;
  double pValue = 1.0;
};

struct FTest {
  double statistic = 0.0;
  double numeratorDegrees = 0.0;
  double denominatorDegrees = 0.0;
  double pValue = 1.0;
};

// Upper tails, taken as complements, so that a p-value of 1e-30 keeps its digits. Degrees of freedom are positive and
// need not be whole. NaN for a statistic that is NaN.
double chiSquaredTail(double statistic, double degreesOfFreedom);
double fTail(double statistic, double numeratorDegrees, double denominatorDegrees);

ChiSquaredTest chiSquaredTest(double statistic, double degreesOfFreedom);
FTest fTest(double statistic, double numeratorDegrees, double denominatorDegrees);

}  // namespace engine
