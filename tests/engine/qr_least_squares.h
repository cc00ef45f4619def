// The textbook way, independent of the engine: a design matrix for every lag, and Eigen's QR in long double.

#pragma once

#include <Eigen/QR>
#include <cmath>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

using LongMatrix = Eigen::Matrix<long double, Eigen::Dynamic, Eigen::Dynamic>;

// The rows firstRow .. T - 1; columns 1 (unless there is no constant), the series at t - 1, .., t - lag, the exogenous
// series at t.
inline LongMatrix designMatrix(const std::vector<std::vector<double>>& endogenous,
                               const std::vector<std::vector<double>>& exogenous, std::size_t firstRow, std::size_t lag,
                               bool constant = true) {
  const std::size_t rows = endogenous.front().size() - firstRow;
  const std::size_t columns = (constant ? 1 : 0) + lag * endogenous.size() + exogenous.size();
  LongMatrix x(static_cast<Eigen::Index>(rows), static_cast<Eigen::Index>(columns));
  for (std::size_t r = 0; r < rows; ++r) {
    Eigen::Index j = 0;
    const auto row = static_cast<Eigen::Index>(r);
    if (constant) x(row, j++) = 1.0L;
    for (std::size_t l = 1; l <= lag; ++l) {
      for (const auto& series : endogenous) x(row, j++) = series[firstRow + r - l];
    }
    for (const auto& series : exogenous) x(row, j++) = series[firstRow + r];
  }
  return x;
}

inline LongMatrix targetMatrix(const std::vector<std::vector<double>>& endogenous, std::size_t firstRow) {
  const std::size_t rows = endogenous.front().size() - firstRow;
  LongMatrix y(static_cast<Eigen::Index>(rows), static_cast<Eigen::Index>(endogenous.size()));
  for (std::size_t i = 0; i < endogenous.size(); ++i) {
    for (std::size_t r = 0; r < rows; ++r) {
      y(static_cast<Eigen::Index>(r), static_cast<Eigen::Index>(i)) = endogenous[i][firstRow + r];
    }
  }
  return y;
}

struct QrFit {
  LongMatrix coefficients;    // k x K
  LongMatrix residuals;       // n x K
  LongMatrix inverse;         // (X'X)^-1
  LongMatrix standardErrors;  // k x K, residual variance over n - k
};

inline QrFit fitByQr(const LongMatrix& x, const LongMatrix& y) {
  const Eigen::HouseholderQR<LongMatrix> qr(x);
  QrFit fit{qr.solve(y), {}, {}, {}};
  fit.residuals = y - x * fit.coefficients;
  const LongMatrix triangle = qr.matrixQR().topRows(x.cols()).triangularView<Eigen::Upper>();
  const LongMatrix inverted =
      triangle.triangularView<Eigen::Upper>().solve(LongMatrix::Identity(x.cols(), x.cols()).eval());
  fit.inverse = inverted * inverted.transpose();
  const auto degrees = static_cast<long double>(x.rows() - x.cols());
  fit.standardErrors = LongMatrix(x.cols(), y.cols());
  for (Eigen::Index i = 0; i < y.cols(); ++i) {
    const long double variance = fit.residuals.col(i).squaredNorm() / degrees;
    for (Eigen::Index j = 0; j < x.cols(); ++j) fit.standardErrors(j, i) = std::sqrt(variance * fit.inverse(j, j));
  }
  return fit;
}

}  // namespace engine
