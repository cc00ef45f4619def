#include "bench/openblas_pipeline.h"

#include <cblas.h>
#include <lapacke.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace bench {
namespace {

// Column-major [1, lag 1 of every series, .., lag maxLag, targets], n x m. Not set to zero first.
std::unique_ptr<double[]> stackedColumns(const std::vector<std::vector<double>>& series, std::size_t maxLag,
                                         std::size_t n) {
  std::unique_ptr<double[]> columns(new double[n * (1 + (maxLag + 1) * series.size())]);
  double* next = std::fill_n(columns.get(), n, 1.0);
  for (std::size_t l = 1; l <= maxLag; ++l) {
    for (const auto& one : series) next = std::copy_n(one.data() + maxLag - l, n, next);
  }
  for (const auto& one : series) next = std::copy_n(one.data() + maxLag, n, next);
  return columns;
}

}  // namespace

std::vector<PipelineFit> fitWithOpenBlas(const std::vector<std::vector<double>>& series, std::size_t maxLag) {
  const int count = static_cast<int>(series.size());
  const std::size_t rows = series.front().size() - maxLag;
  const int n = static_cast<int>(rows);
  const int all = 1 + static_cast<int>(maxLag + 1) * count;
  const int regressors = all - count;
  const auto columns = stackedColumns(series, maxLag, rows);
  std::vector<double> gram(static_cast<std::size_t>(all) * static_cast<std::size_t>(all));
  cblas_dsyrk(CblasColMajor, CblasUpper, CblasTrans, all, n, 1.0, columns.get(), n, 0.0, gram.data(), all);
  std::vector<PipelineFit> fits(maxLag);
  const double* targets = columns.get() + static_cast<std::size_t>(regressors) * rows;
  for (std::size_t lag = 1; lag <= maxLag; ++lag) {
    PipelineFit& fit = fits[lag - 1];
    const int k = 1 + static_cast<int>(lag) * count;
    const auto size = static_cast<std::size_t>(k);
    const auto wide = static_cast<std::size_t>(all);
    fit.inverse.resize(size * size);
    for (std::size_t j = 0; j < size; ++j) {
      for (std::size_t i = 0; i <= j; ++i) fit.inverse[j * size + i] = fit.inverse[i * size + j] = gram[j * wide + i];
    }
    std::vector<int> pivots(size);
    if (LAPACKE_dgetrf(LAPACK_COL_MAJOR, k, k, fit.inverse.data(), k, pivots.data()) != 0 ||
        LAPACKE_dgetri(LAPACK_COL_MAJOR, k, fit.inverse.data(), k, pivots.data()) != 0) {
      throw std::runtime_error("singular");
    }
    fit.coefficients.resize(size * static_cast<std::size_t>(count));
    cblas_dgemm(CblasColMajor, CblasNoTrans, CblasNoTrans, k, count, k, 1.0, fit.inverse.data(), k,
                gram.data() + static_cast<std::size_t>(regressors) * wide, all, 0.0, fit.coefficients.data(), k);
    fit.residuals.assign(targets, targets + rows * static_cast<std::size_t>(count));
    cblas_dgemm(CblasColMajor, CblasNoTrans, CblasNoTrans, n, count, k, -1.0, columns.get(), n, fit.coefficients.data(),
                k, 1.0, fit.residuals.data(), n);
  }
  return fits;
}

}  // namespace bench
