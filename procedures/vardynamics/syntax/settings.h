// The parsed and validated command: what every later step reads.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/case_file.h"

namespace vardynamics {

// Variables in command order; the two lists are parallel.
struct VariableList {
  std::vector<std::int32_t> indexes = {};  // of the dataset's dictionary
  std::vector<std::string> names = {};
};

enum class Deterministic { constant, none, trend };  // trend: constant and linear trend
enum class Criterion { aic, bic, hqic, fpe };
enum class Interval { analytic, none };

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
};

struct PlotSettings {
  bool forecast = true;
  bool roots = true;
};

struct SaveSettings {
  std::shared_ptr<const UserCaseFileSpec> file = {};  // initialised
  bool forecasts = false;
  bool residuals = false;
};

// A subcommand that was left out is absent; those that only switch something on are flags.
struct Settings {
  ModelSettings model;
  bool stability = false;
  std::optional<TestSettings> tests = {};
  std::optional<CausalitySettings> causality = {};
  std::optional<ForecastSettings> forecast = {};
  std::optional<PlotSettings> plot = {};
  std::optional<SaveSettings> save = {};
  std::vector<double> levels = {95.0};  // CILEVEL in percent, ascending; the largest decides verdicts
  bool includeUserMissing = false;

  double level() const { return levels.back(); }
};

}  // namespace vardynamics
