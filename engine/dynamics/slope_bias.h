// The bias of the estimated lag coefficients of a vector autoregression in samples of finite length.

#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "engine/dynamics/lag_matrices.h"

namespace engine {

// The known terms beside the lags, as far as they matter for the bias.
struct KnownTerms {
  std::size_t polynomial = 1;  // columns of it: 0 none, 1 a constant, 2 a constant and a trend
  std::size_t seasons = 1;     // length of the cycle that has dummies; 1 for none
};

// The bias of [A_1 .. A_p], K x K p, at these lag matrices, the covariance S of the shocks and n rows (Pope 1990, with
// the deterministic terms besides the constant added): the first K rows of b = -G [D + F'(I - F'^2)^-1 + sum over the
// eigenvalues l of F of l (I - l F')^-1] Gamma^-1 / n, G = diag(S, 0), Gamma = F Gamma F' + G. D = c (I - F')^-1 for a
// polynomial of c columns; seasons of cycle s add the sum over j = 1..s-1 of z (I - z F')^-1, z = e^(-2 pi i j / s).
// Nothing when F is not stable or Gamma not positive definite to rounding.
std::optional<Matrix> slopeBias(std::span<const Matrix> lags, const Matrix& covariance, std::size_t rows,
                                const KnownTerms& terms);

// The same for any known columns, n values each on the rows of the regression: D is the sum over k = 1..n-1 of c_k
// F'^(k-1), c_k the sum over t of P(t, t + k), P the projection on the columns. The short forms equal it to order 1/n.
std::optional<Matrix> slopeBias(std::span<const Matrix> lags, const Matrix& covariance, std::size_t rows,
                                std::span<const std::vector<double>> knownColumns);

// The same where known columns drive part of the regressors: `driven` is that part of the K p lags, n values each. With
// G(k) the autocovariances of shocks' part and driven part (less its projection on the columns) together, W = G(0)^-1
// and R_j the first K rows of F'^j, b = -S sum over j of R_j [c_(j+1) I + W G(j+1) + tr(W G(j+1)) I] W / n, which is
// Pope's form where nothing is driven.
std::optional<Matrix> slopeBias(std::span<const Matrix> lags, const Matrix& covariance, std::size_t rows,
                                std::span<const std::vector<double>> knownColumns,
                                std::span<const std::vector<double>> driven);

}  // namespace engine
