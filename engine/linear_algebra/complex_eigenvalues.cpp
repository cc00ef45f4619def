#include "engine/linear_algebra/complex_eigenvalues.h"

#include <Eigen/Eigenvalues>
#include <algorithm>
#include <cmath>

namespace engine {
namespace {

constexpr double kWorthwhile = 0.95;  // a step must reduce the norms by 5 %, as its inventors advise
constexpr int kMostSweeps = 100;

double rowNorm(const Matrix& a, std::size_t i) {
  double sum = 0.0;
  for (std::size_t j = 0; j < a.columns; ++j) sum += j == i ? 0.0 : std::abs(a(i, j));
  return sum;
}

double columnNorm(const Matrix& a, std::size_t i) {
  double sum = 0.0;
  for (std::size_t j = 0; j < a.rows; ++j) sum += j == i ? 0.0 : std::abs(a(j, i));
  return sum;
}

void scaleSimilarly(Matrix& a, std::size_t i, double factor) {
  for (std::size_t j = 0; j < a.columns; ++j) a(i, j) /= factor;
  for (std::size_t j = 0; j < a.rows; ++j) a(j, i) *= factor;
}

// True when row and column i were rescaled.
bool balanceOne(Matrix& a, std::size_t i) {
  const double row = rowNorm(a, i);
  const double column = columnNorm(a, i);
  if (!(row > 0.0) || !(column > 0.0)) return false;
  const double factor = std::exp2(std::round(0.5 * std::log2(row / column)));
  if (column * factor + row / factor >= kWorthwhile * (column + row)) return false;
  scaleSimilarly(a, i, factor);
  return true;
}

void balance(Matrix& a) {
  for (int sweep = 0; sweep < kMostSweeps; ++sweep) {
    bool changed = false;
    for (std::size_t i = 0; i < a.rows; ++i) changed = balanceOne(a, i) || changed;
    if (!changed) return;
  }
}

}  // namespace

std::optional<std::vector<std::complex<double>>> complexEigenvalues(Matrix a) {
  if (!std::ranges::all_of(a.values, [](double value) { return std::isfinite(value); })) return std::nullopt;
  if (a.rows == 0) return std::vector<std::complex<double>>{};
  balance(a);
  using RowMajor = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
  const auto size = static_cast<Eigen::Index>(a.rows);
  const Eigen::EigenSolver<Eigen::MatrixXd> solver(Eigen::Map<const RowMajor>(a.values.data(), size, size), false);
  if (solver.info() != Eigen::Success) return std::nullopt;
  std::vector<std::complex<double>> values(solver.eigenvalues().begin(), solver.eigenvalues().end());
  std::ranges::stable_sort(values, [](const auto& x, const auto& y) {
    return std::abs(x) != std::abs(y) ? std::abs(x) > std::abs(y) : x.imag() > y.imag();
  });
  return values;
}

}  // namespace engine
