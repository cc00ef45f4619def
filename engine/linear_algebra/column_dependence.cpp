#include "engine/linear_algebra/column_dependence.h"

#include <Eigen/QR>

namespace engine {
namespace {

constexpr double kLeft = 1e-7;
constexpr double kPart = 1e-6;
constexpr double kNoSpread = 1e-14;  // of the largest value

using Columns = Eigen::MatrixXd;

// About its mean with a constant, of length 1; zeros when it does not vary.
Eigen::VectorXd unitColumn(const std::vector<double>& values, bool constant) {
  Eigen::VectorXd column = Eigen::Map<const Eigen::VectorXd>(values.data(), static_cast<Eigen::Index>(values.size()));
  const double size = column.cwiseAbs().maxCoeff();
  if (size == 0.0) return column;
  column /= size;
  if (constant) column.array() -= column.mean();
  if (column.cwiseAbs().maxCoeff() <= kNoSpread) column.setZero();
  return column.stableNormalized();
}

Columns unitColumns(std::span<const std::vector<double>> columns, bool constant) {
  Columns unit(static_cast<Eigen::Index>(columns.empty() ? 0 : columns.front().size()),
               static_cast<Eigen::Index>(columns.size()));
  for (Eigen::Index j = 0; j < unit.cols(); ++j)
    unit.col(j) = unitColumn(columns[static_cast<std::size_t>(j)], constant);
  return unit;
}

// The coefficients of column j on those before it, and how much of it they leave.
Eigen::VectorXd project(const Columns& unit, Eigen::Index j, double& left) {
  const auto before = unit.leftCols(j);
  const Eigen::VectorXd weights = before.colPivHouseholderQr().solve(unit.col(j));
  left = (unit.col(j) - before * weights).norm();
  return weights;
}

}  // namespace

std::optional<ColumnDependence> findDependence(std::span<const std::vector<double>> columns, bool constant) {
  const Columns unit = unitColumns(columns, constant);
  for (Eigen::Index j = 0; j < unit.cols(); ++j) {
    double left = unit.col(j).norm();
    const Eigen::VectorXd weights = j == 0 ? Eigen::VectorXd() : project(unit, j, left);
    if (left > kLeft) continue;
    ColumnDependence found{.column = static_cast<std::size_t>(j)};
    for (Eigen::Index i = 0; i < weights.size(); ++i) {
      if (std::abs(weights[i]) > kPart) found.on.push_back(static_cast<std::size_t>(i));
    }
    return found;
  }
  return std::nullopt;
}

}  // namespace engine
