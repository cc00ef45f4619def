#include "engine/regression/original_units.h"

#include <cmath>

namespace engine {
namespace {

// The centre of regressor j in its placed unit.
double placedCenter(const LagData& data, std::size_t j) {
  return std::ldexp(data.placement(j).center, -data.placement(j).exponent);
}

// The constant's row of the inverse, k values. With Z = X M, where M subtracts centre j of regressor j, (X'X)^-1 =
// M (Z'Z)^-1 M': that row is q' (Z'Z)^-1 M' with q = (1, -c1, -c2, ..), all other elements are those of (Z'Z)^-1.
template <class Real>
std::vector<Real> constantRow(const LagData& data, const NestedRegression<Real>& regression) {
  const std::size_t count = regression.regressorCount();
  std::vector<Real> row(count, Real(0.0));
  std::vector<Real> weights = {Real(1.0)};
  for (std::size_t j = 1; j < count; ++j) weights.push_back(Real(-placedCenter(data, j)));
  for (std::size_t i = 0; i < count; ++i) {
    row[i] = row[i] + weights[i] * regression.inverse(i, i);
    for (std::size_t j = i + 1; j < count; ++j) {
      const Real element = regression.inverse(i, j);
      row[i] = row[i] + weights[j] * element;
      row[j] = row[j] + weights[i] * element;
    }
  }
  for (std::size_t j = 1; j < count; ++j) row[0] = row[0] + weights[j] * row[j];
  return row;
}

}  // namespace

// y' = b0 + sum of b(j) x'(j), with y' = (y - cy) / uy and x'(j) = (x(j) - c(j)) / u(j).
template <class Real>
std::vector<double> originalCoefficients(const LagData& data, std::size_t lag, std::size_t equation,
                                         const NestedRegression<Real>& regression) {
  const Planes<Real>& placed = regression.coefficients();
  const std::size_t count = data.regressorCount(lag);
  const Placement& target = data.endogenous(equation).placement();
  std::vector<double> result(count);
  for (std::size_t j = 0; j < count; ++j) {
    result[data.coefficientIndex(lag, j)] =
        std::ldexp(rounded(placed.at(j, equation)), target.exponent - data.placement(j).exponent);
  }
  if (!data.hasConstant()) return result;
  DoubleDouble constant = DoubleDouble(std::ldexp(target.center, -target.exponent)) + inTwice(placed.at(0, equation));
  for (std::size_t j = 1; j < count; ++j) {
    constant = constant - inTwice(placed.at(j, equation)) * DoubleDouble(placedCenter(data, j));
  }
  result[0] = std::ldexp(rounded(constant), target.exponent);
  return result;
}

template <class Real>
InverseDiagonal originalInverseDiagonal(const LagData& data, std::size_t lag,
                                        const NestedRegression<Real>& regression) {
  const std::size_t count = data.regressorCount(lag);
  InverseDiagonal diagonal{std::vector<double>(count), std::vector<int>(count)};
  for (std::size_t j = 0; j < count; ++j) {
    const std::size_t index = data.coefficientIndex(lag, j);
    diagonal.values[index] = rounded(regression.inverse(j, j));
    diagonal.exponents[index] = data.placement(j).exponent;
  }
  if (data.hasConstant()) diagonal.values[0] = rounded(constantRow(data, regression)[0]);
  return diagonal;
}

template <class Real>
Matrix originalInverse(const LagData& data, std::size_t lag, const NestedRegression<Real>& regression) {
  const std::size_t count = data.regressorCount(lag);
  std::vector<Real> first;
  if (data.hasConstant()) first = constantRow(data, regression);
  Matrix result(count, count);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i; j < count; ++j) {
      const double element = rounded(i == 0 && data.hasConstant() ? first[j] : regression.inverse(i, j));
      const std::size_t row = data.coefficientIndex(lag, i);
      const std::size_t column = data.coefficientIndex(lag, j);
      result(row, column) = result(column, row) =
          std::ldexp(element, -data.placement(i).exponent - data.placement(j).exponent);
    }
  }
  return result;
}

template std::vector<double> originalCoefficients(const LagData&, std::size_t, std::size_t,
                                                  const NestedRegression<double>&);
template std::vector<double> originalCoefficients(const LagData&, std::size_t, std::size_t,
                                                  const NestedRegression<DoubleDouble>&);
template InverseDiagonal originalInverseDiagonal(const LagData&, std::size_t, const NestedRegression<double>&);
template InverseDiagonal originalInverseDiagonal(const LagData&, std::size_t, const NestedRegression<DoubleDouble>&);
template Matrix originalInverse(const LagData&, std::size_t, const NestedRegression<double>&);
template Matrix originalInverse(const LagData&, std::size_t, const NestedRegression<DoubleDouble>&);

}  // namespace engine
