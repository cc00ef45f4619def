#include "engine/linear_algebra/eigenvalues.h"

#include <Eigen/Eigenvalues>

namespace engine {

std::vector<double> eigenvaluesOf(const std::vector<std::vector<double>>& matrix) {
  const auto size = static_cast<Eigen::Index>(matrix.size());
  Eigen::MatrixXd dense(size, size);
  for (std::size_t i = 0; i < matrix.size(); ++i) {
    if (matrix[i].size() != matrix.size()) return {};
    for (std::size_t j = 0; j < matrix.size(); ++j) {
      dense(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)) = matrix[i][j];
    }
  }
  if (matrix.empty()) return {};
  const Eigen::EigenSolver<Eigen::MatrixXd> solver(dense, /*computeEigenvectors=*/false);
  if (solver.info() != Eigen::Success) return {};
  std::vector<double> realParts;
  for (const auto& value : solver.eigenvalues()) realParts.push_back(value.real());
  return realParts;
}

}  // namespace engine
