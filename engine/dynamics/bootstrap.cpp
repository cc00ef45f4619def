#include "engine/dynamics/bootstrap.h"

#include <atomic>
#include <utility>

namespace engine {
namespace {

constexpr std::size_t kBlock = 50;  // some milliseconds of work between two looks at the progress

}  // namespace

BootstrapDraws::BootstrapDraws(ResamplingPlan plan, BootstrapOptions options)
    : plan_(std::move(plan)), options_(std::move(options)) {
  const std::size_t k = plan_.series;
  values_.resize(options_.replications * k * (k * plan_.lag + plan_.terms + k));
}

DrawnModel BootstrapDraws::model(std::size_t replication) const {
  const std::size_t k = plan_.series;
  const std::size_t lags = k * k * plan_.lag;
  const std::size_t terms = k * plan_.terms;
  const std::span<double> all = std::span(values_).subspan(replication * (lags + terms + k * k));
  return {all.first(lags), all.subspan(lags, terms), all.subspan(lags + terms, k * k)};
}

bool BootstrapDraws::run() {
  std::atomic<std::size_t> uncorrected{0};
  const bool finished = forEachBlock(options_.replications, kBlock, options_.jobs, options_.progress,
                                     [&](std::size_t first, std::size_t last) {
                                       Replication replication(plan_);
                                       for (std::size_t r = first; r < last; ++r) {
                                         RandomStream random(options_.seed, r);
                                         if (!replication.run(options_.resample, random, model(r))) ++uncorrected;
                                       }
                                     });
  uncorrected_ = plan_.correct ? uncorrected.load() : 0;
  return finished;
}

LagMatrices BootstrapDraws::lagMatrices(std::size_t replication) const {
  const std::size_t k = plan_.series;
  const std::span<const double> values = model(replication).lags;
  LagMatrices lags(plan_.lag, Matrix(k, k));
  for (std::size_t l = 0; l < plan_.lag; ++l) {
    for (std::size_t i = 0; i < k; ++i) {
      for (std::size_t j = 0; j < k; ++j) lags[l](i, j) = values[i * k * plan_.lag + (plan_.lag - 1 - l) * k + j];
    }
  }
  return lags;
}

// R^-1 times the coefficients of Q. The constant's is that of the series less their centre.
Matrix BootstrapDraws::termCoefficients(std::size_t replication) const {
  Matrix coefficients(plan_.terms, plan_.series);
  const std::span<const double> values = model(replication).terms;
  for (std::size_t d = plan_.terms; d-- > 0;) {
    for (std::size_t i = 0; i < plan_.series; ++i) {
      double value = values[d * plan_.series + i];
      for (std::size_t j = d + 1; j < plan_.terms; ++j) value -= plan_.triangle(d, j) * coefficients(j, i);
      coefficients(d, i) = value / plan_.triangle(d, d);
    }
  }
  return coefficients;
}

}  // namespace engine
