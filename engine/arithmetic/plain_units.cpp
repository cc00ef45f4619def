#include "engine/arithmetic/plain_units.h"

#include <cmath>

namespace engine {

std::vector<double> inPlainUnits(std::span<const double> values) {
  double largest = 0.0;
  for (const double value : values) largest = std::fmax(largest, std::fabs(value));
  const int exponent = largest > 0.0 ? std::ilogb(largest) : 0;
  std::vector<double> result;
  for (const double value : values) result.push_back(std::scalbn(value, -exponent));
  return result;
}

std::vector<double> aboutFirst(std::span<const double> values) {
  std::vector<double> result = inPlainUnits(values);
  const double first = result.empty() ? 0.0 : result.front();
  for (double& value : result) value -= first;
  return inPlainUnits(result);
}

}  // namespace engine
