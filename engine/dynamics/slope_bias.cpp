#include "engine/dynamics/slope_bias.h"

#include <cmath>
#include <complex>
#include <numbers>

#include "engine/dynamics/stationary_covariance.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/complex_eigenvalues.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/lu.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

using Complex = std::complex<double>;

constexpr double kNegligible = 1e-17;  // powers of F below this no longer change a sum of terms near 1

// A(z) = I - A_1 z - .. - A_p z^p as the real matrix [[Re, -Im], [Im, Re]].
Matrix embeddedPolynomial(std::span<const Matrix> lags, Complex z) {
  const std::size_t k = lags.front().rows;
  Matrix result = identityMatrix(2 * k);
  Complex power = z;
  for (const Matrix& lag : lags) {
    for (std::size_t i = 0; i < k; ++i) {
      for (std::size_t j = 0; j < k; ++j) {
        result(i, j) -= lag(i, j) * power.real();
        result(k + i, k + j) -= lag(i, j) * power.real();
        result(i, k + j) += lag(i, j) * power.imag();
        result(k + i, j) -= lag(i, j) * power.imag();
      }
    }
    power *= z;
  }
  return result;
}

// Adds the real part of weight times the first K rows of (I - z F')^-1, which are A(z)^-1' [I, z I, .., z^(p-1) I].
// False when A(z) is singular.
bool addResolvent(std::span<const Matrix> lags, Complex z, Complex weight, Matrix& sum) {
  const std::size_t k = lags.front().rows;
  Matrix inverse;
  if (!invertMatrix(embeddedPolynomial(lags, z), inverse)) return false;
  for (std::size_t l = 0; l < lags.size(); ++l) {
    for (std::size_t i = 0; i < k; ++i) {
      for (std::size_t j = 0; j < k; ++j) {
        sum(i, l * k + j) += weight.real() * inverse(j, i) - weight.imag() * inverse(k + j, i);
      }
    }
    weight *= z;
  }
  return true;
}

// F'(I - F'^2)^-1 = ((I - F')^-1 - (I + F')^-1) / 2, and the sum over the eigenvalues.
bool addLagTerms(std::span<const Matrix> lags, Matrix& sum) {
  const auto eigenvalues = complexEigenvalues(companionMatrix(lags));
  if (!eigenvalues || !(std::abs(eigenvalues->front()) < 1.0)) return false;
  bool regular = addResolvent(lags, 1.0, 0.5, sum) && addResolvent(lags, -1.0, -0.5, sum);
  for (const Complex& value : *eigenvalues) regular = regular && addResolvent(lags, value, value, sum);
  return regular;
}

bool addKnownTerms(std::span<const Matrix> lags, const KnownTerms& terms, Matrix& sum) {
  bool regular = addResolvent(lags, 1.0, static_cast<double>(terms.polynomial), sum);
  for (std::size_t j = 1; j < terms.seasons; ++j) {
    const double angle = 2.0 * std::numbers::pi * static_cast<double>(j) / static_cast<double>(terms.seasons);
    const Complex z = std::polar(1.0, -angle);
    regular = regular && addResolvent(lags, z, z, sum);
  }
  return regular;
}

// c_k for the projection on the basis.
double projectionSum(const OrthonormalBasis& basis, std::size_t k) {
  double sum = 0.0;
  for (std::size_t i = 0; i < basis.size(); ++i) {
    const std::span<const double> vector = basis[i];
    sum += dotProduct(vector.first(vector.size() - k), vector.subspan(k));
  }
  return sum;
}

// The sum over k of c_k F'^(k-1): the first K rows of F'^(k-1) are Phi(k-1)', Phi(k-2)', .., Phi(k-p)'.
void addKnownColumns(std::span<const Matrix> lags, const OrthonormalBasis& basis, std::size_t rows, Matrix& sum) {
  const std::size_t k = lags.front().rows;
  std::vector<Matrix> recent(lags.size(), Matrix(k, k));  // Phi(j-1), Phi(j-2), ..
  recent.front() = identityMatrix(k);
  for (std::size_t j = 1; j < rows; ++j) {
    double norm = 0.0;
    for (const Matrix& phi : recent) norm += sumOfSquares(phi);
    if (norm < kNegligible * kNegligible) return;
    const double weight = projectionSum(basis, j);
    for (std::size_t l = 0; l < lags.size(); ++l) {
      for (std::size_t a = 0; a < k; ++a) {
        for (std::size_t b = 0; b < k; ++b) sum(a, l * k + b) += weight * recent[l](b, a);
      }
    }
    Matrix next(k, k);
    for (std::size_t l = 0; l < lags.size(); ++l) addScaled(1.0, multiply(lags[l], recent[l]), next);
    recent.insert(recent.begin(), std::move(next));
    recent.pop_back();
  }
}

// Everything in units in which the shocks have variance 1, so that the units of the series do not matter.
struct Standardised {
  std::vector<double> deviations;
  LagMatrices lags;
  Matrix covariance;
};

Standardised standardised(std::span<const Matrix> lags, const Matrix& covariance) {
  Standardised result{{}, {lags.begin(), lags.end()}, covariance};
  const std::size_t k = covariance.rows;
  for (std::size_t i = 0; i < k; ++i) result.deviations.push_back(std::sqrt(covariance(i, i)));
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t j = 0; j < k; ++j) {
      result.covariance(i, j) /= result.deviations[i] * result.deviations[j];
      for (Matrix& lag : result.lags) lag(i, j) *= result.deviations[j] / result.deviations[i];
    }
  }
  return result;
}

// -S sum Gamma^-1 / n, back in the units of the series.
std::optional<Matrix> biasFrom(const Standardised& model, const Matrix& sum, std::size_t rows) {
  const auto gamma = stationaryCovariance(model.lags, model.covariance);
  const auto factor = gamma ? choleskyFactor(*gamma) : std::nullopt;
  if (!factor) return std::nullopt;
  Matrix solved = transposed(multiply(model.covariance, sum));
  solveLower(*factor, solved);
  solveLowerTransposed(*factor, solved);
  Matrix bias = transposed(solved);
  const std::size_t k = bias.rows;
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t j = 0; j < bias.columns; ++j) {
      bias(i, j) *= -model.deviations[i] / model.deviations[j % k] / static_cast<double>(rows);
    }
  }
  return bias;
}

}  // namespace

std::optional<Matrix> slopeBias(std::span<const Matrix> lags, const Matrix& covariance, std::size_t rows,
                                const KnownTerms& terms) {
  const Standardised model = standardised(lags, covariance);
  Matrix sum(covariance.rows, covariance.rows * lags.size());
  if (!addLagTerms(model.lags, sum) || !addKnownTerms(model.lags, terms, sum)) return std::nullopt;
  return biasFrom(model, sum, rows);
}

std::optional<Matrix> slopeBias(std::span<const Matrix> lags, const Matrix& covariance, std::size_t rows,
                                std::span<const std::vector<double>> knownColumns) {
  const Standardised model = standardised(lags, covariance);
  Matrix sum(covariance.rows, covariance.rows * lags.size());
  if (!addLagTerms(model.lags, sum)) return std::nullopt;
  OrthonormalBasis basis;
  for (const std::vector<double>& column : knownColumns) basis.append(column);
  addKnownColumns(model.lags, basis, rows, sum);
  return biasFrom(model, sum, rows);
}

}  // namespace engine
