#include "engine/regression/lag_condition.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace engine {
namespace {

using Norms = LagConditionNumbers::Norms;

// The largest column sum, or NaN when one is.
double largest(const std::vector<double>& sums) {
  double norm = 0.0;
  for (const double sum : sums) norm = std::isnan(sum) ? sum : std::max(norm, sum);
  return norm;
}

// `element(i, j)` for i <= j. The column sums of the first regressors grow with each further one.
template <class Element>
Norms normsOf(std::size_t count, const Element& element) {
  Norms result;
  std::vector<double> sums;
  double norm = 0.0;
  for (std::size_t j = 0; j < count; ++j) {
    result.scales.push_back(std::sqrt(element(j, j)));
    sums.push_back(1.0);
    for (std::size_t i = 0; i < j; ++i) {
      const double size = std::abs(element(i, j)) / (result.scales[i] * result.scales[j]);
      sums[i] += size;
      sums[j] += size;
      norm = std::isnan(size) ? size : std::max(norm, sums[i]);
    }
    norm = std::max(norm, sums[j]);
    result.values.push_back(norm);
  }
  return result;
}

// Adds the sizes of one row of a symmetric matrix, given on and right of the diagonal, to the column sums of the matrix
// whose columns, but not yet rows, are scaled. Four sums across the row, so that none waits for the one before.
void addRowSizes(std::span<const double> row, std::size_t i, const std::vector<double>& scales,
                 std::vector<double>& sums) {
  constexpr std::size_t kSums = 4;
  double across[kSums] = {std::abs(row[i]) * scales[i]};
  const auto add = [&](std::size_t j, std::size_t lane) {
    const double size = std::abs(row[j]);
    sums[j] += size * scales[i];
    across[lane] += size * scales[j];
  };
  std::size_t j = i + 1;
  for (; j + kSums <= row.size(); j += kSums) {
    for (std::size_t lane = 0; lane < kSums; ++lane) add(j + lane, lane);
  }
  for (; j < row.size(); ++j) add(j, 0);
  sums[i] += (across[0] + across[1]) + (across[2] + across[3]);
}

// The 1-norm of the inverse of the scaled matrix, from the inverse of the matrix; `firstRow` stands for its row 0.
template <class Real>
double inverseNorm(const NestedRegression<Real>& regression, std::span<const double> firstRow,
                   const std::vector<double>& scales) {
  std::vector<double> sums(firstRow.size());
  addRowSizes(firstRow, 0, scales, sums);
  for (std::size_t i = 1; i < sums.size(); ++i) addRowSizes(regression.inverseRow(i), i, scales, sums);
  for (std::size_t j = 0; j < sums.size(); ++j) sums[j] *= scales[j];
  return largest(sums);
}

}  // namespace

// With Z = X M, where M subtracts centre j of regressor j, (X'X)^-1 = M (Z'Z)^-1 M': its first row is q' (Z'Z)^-1 M'
// with q = (1, -c1, -c2, ..).
template <class Real>
std::vector<Real> originalConstantRow(const LagData& data, const NestedRegression<Real>& regression) {
  const std::size_t count = regression.regressorCount();
  std::vector<Real> row(count, Real(0.0));
  std::vector<Real> weights = {Real(1.0)};
  for (std::size_t j = 1; j < count; ++j) weights.push_back(Real(-data.regressorCenter(j)));
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

template <class Real>
Real originalCrossProduct(const LagData& data, const Planes<Real>& centered, std::size_t i, std::size_t j) {
  const Real centerI(data.regressorCenter(i));
  const Real centerJ(data.regressorCenter(j));
  const Real rows(static_cast<double>(data.rowCount()));
  return centered.at(i, j) + centerI * centered.at(0, j) + centered.at(0, i) * centerJ + rows * centerI * centerJ;
}

template <class Real>
LagConditionNumbers::LagConditionNumbers(const LagData& data, const Planes<Real>& crossProducts)
    : centered_(
          normsOf(crossProducts.rows(), [&](std::size_t i, std::size_t j) { return rounded(crossProducts.at(i, j)); })),
      original_(normsOf(crossProducts.rows(), [&](std::size_t i, std::size_t j) {
        return rounded(originalCrossProduct(data, crossProducts, i, j));
      })) {}

template <class Real>
LagConditions LagConditionNumbers::of(const LagData& data, const NestedRegression<Real>& regression) const {
  const std::size_t count = regression.regressorCount();
  const std::vector<Real> constantRow = originalConstantRow(data, regression);
  std::vector<double> originalRow;
  originalRow.reserve(count);
  for (const Real& value : constantRow) originalRow.push_back(rounded(value));
  const double centeredNorm = inverseNorm(regression, regression.inverseRow(0), centered_.scales);
  const double originalNorm = inverseNorm(regression, originalRow, original_.scales);
  return {1.0 / (centered_.values[count - 1] * centeredNorm), 1.0 / (original_.values[count - 1] * originalNorm)};
}

template std::vector<double> originalConstantRow(const LagData&, const NestedRegression<double>&);
template std::vector<DoubleDouble> originalConstantRow(const LagData&, const NestedRegression<DoubleDouble>&);
template double originalCrossProduct(const LagData&, const Planes<double>&, std::size_t, std::size_t);
template DoubleDouble originalCrossProduct(const LagData&, const Planes<DoubleDouble>&, std::size_t, std::size_t);
template LagConditionNumbers::LagConditionNumbers(const LagData&, const Planes<double>&);
template LagConditionNumbers::LagConditionNumbers(const LagData&, const Planes<DoubleDouble>&);
template LagConditions LagConditionNumbers::of(const LagData&, const NestedRegression<double>&) const;
template LagConditions LagConditionNumbers::of(const LagData&, const NestedRegression<DoubleDouble>&) const;

}  // namespace engine
