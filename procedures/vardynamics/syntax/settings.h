// The parsed and validated command: what every later step reads.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/regression/lag_selection.h"
#include "host/case_file.h"

namespace vardynamics {

inline constexpr std::int32_t kFewestReplications = 100;
inline constexpr std::int32_t kMostReplications = 1'000'000;

// Variables in command order; the two lists are parallel.
struct VariableList {
  std::vector<std::int32_t> indexes = {};  // of the dataset's dictionary
  std::vector<std::string> names = {};
};

enum class Deterministic { constant, none, trend };  // trend: constant and linear trend
using engine::Criterion;
enum class Interval { analytic, bootstrap, none };
enum class Bands { bootstrap, analytic, none };
enum class Resampling { residual, wild };

struct ModelSettings {
  VariableList endogenous = {};  // at least 2
  VariableList exogenous = {};
  std::int32_t exogenousLags = 0;        // XLAGS: each exogenous series enters at lags 0..q
  std::optional<std::int32_t> lag = {};  // LAG; without it the lag is selected
  Criterion criterion = Criterion::aic;
  std::int32_t minLag = 1;
  std::optional<std::int32_t> maxLag = {};  // without it min(12, T/(4K)), at least 1
  Deterministic deterministic = Deterministic::constant;
  bool seasonal = false;
};

struct TestSettings {
  bool portmanteau = true;
  bool lagrange = true;
  bool arch = true;
  bool normality = true;
  bool unitRoots = true;
  std::optional<std::int32_t> lags = {};  // of the first three; without it 12 (at least p + 1), 1..4, 4
};

struct CausalitySettings {
  bool granger = true;
  bool instantaneous = true;
  std::int32_t augment = 0;  // lags fitted beyond p and left out of the Granger tests
};

struct ForecastSettings {
  std::optional<std::int32_t> horizon = {};  // 1..1000
  Interval interval = Interval::analytic;
  bool conditional = false;
  bool simultaneous = false;  // with bootstrap limits only: they hold a whole path
};

// Endogenous series are meant by their positions in MODEL.
struct ImpulseSettings {
  bool orthogonal = true;
  bool generalized = false;
  bool reduced = true;
  bool exogenous = true;  // only where the model has exogenous series
  std::int32_t horizon = 20;
  bool unit = false;                     // SIZE: one unit of the shock's own series, else one standard deviation
  std::vector<bool> cumulative = {};     // [series]; empty for none
  std::vector<std::size_t> shocks = {};  // endogenous series that are shocked and shown
  std::vector<std::size_t> exogenousShocks = {};
  Bands bands = Bands::bootstrap;
  bool simultaneous = false;  // with bootstrap bands only
};

struct DecompositionSettings {
  bool variance = true;
  bool generalized = false;
  bool historical = true;
  std::int32_t horizon = 20;
  Bands bands = Bands::bootstrap;  // never analytic
};

struct BacktestSettings {
  std::optional<std::int32_t> origins = {};  // without it min(40, n/4)
  std::int32_t horizon = 4;
  std::int32_t step = 1;
  bool rolling = false;  // WINDOW: windows as long as the first, else all rows up to the origin
};

// Of the one set of draws from which all bands of a run are read.
struct BootstrapSettings {
  std::int32_t replications = 2000;
  std::int32_t seed = 1;
  Resampling resampling = Resampling::residual;  // RESAMPLE of IMPULSE
};

// What a flag asks for is drawn where the run has it.
struct PlotSettings {
  bool forecast = true;
  bool impulse = true;
  bool variance = true;
  bool historical = true;
  bool roots = true;
  bool backtest = true;
};

struct SaveSettings {
  std::shared_ptr<const UserCaseFileSpec> file = {};  // initialised
  bool forecasts = false;
  bool residuals = false;
  bool shocks = false;  // the orthogonal ones
  bool backtest = false;
};

// A subcommand that was left out is absent; those that only switch something on are flags.
struct Settings {
  ModelSettings model;
  bool stability = false;
  std::optional<TestSettings> tests = {};
  std::optional<CausalitySettings> causality = {};
  std::optional<ForecastSettings> forecast = {};
  std::optional<ImpulseSettings> impulse = {};
  std::optional<DecompositionSettings> decomposition = {};
  std::optional<BacktestSettings> backtest = {};
  BootstrapSettings bootstrap = {};
  // ORDER: positions of the endogenous series in the order behind all orthogonal shocks of the run; empty: that of
  // MODEL.
  std::vector<std::size_t> order = {};
  std::optional<PlotSettings> plot = {};
  std::optional<SaveSettings> save = {};
  std::vector<double> levels = {95.0};  // CILEVEL in percent, ascending; the largest decides verdicts
  bool includeUserMissing = false;

  double level() const { return levels.back(); }
};

}  // namespace vardynamics
