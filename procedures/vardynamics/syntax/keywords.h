// The keywords of the command's lists, each with the switch it turns on or the value it stands for.

#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "procedures/common/command_table.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

inline constexpr std::array<procedures::KeywordFlag<TestSettings>, 5> kTests = {{
    {"PORTMANTEAU", &TestSettings::portmanteau},
    {"LM", &TestSettings::lagrange},
    {"ARCH", &TestSettings::arch},
    {"NORMALITY", &TestSettings::normality},
    {"UNITROOT", &TestSettings::unitRoots},
}};

inline constexpr std::array<procedures::KeywordFlag<CausalitySettings>, 2> kCausalities = {{
    {"GRANGER", &CausalitySettings::granger},
    {"INSTANTANEOUS", &CausalitySettings::instantaneous},
}};

inline constexpr std::array<procedures::KeywordFlag<ImpulseSettings>, 4> kShockTypes = {{
    {"ORTHOGONAL", &ImpulseSettings::orthogonal},
    {"GENERALIZED", &ImpulseSettings::generalized},
    {"REDUCED", &ImpulseSettings::reduced},
    {"EXOGENOUS", &ImpulseSettings::exogenous},
}};

inline constexpr std::array<procedures::KeywordFlag<DecompositionSettings>, 3> kDecompositions = {{
    {"VARIANCE", &DecompositionSettings::variance},
    {"GENERALIZED", &DecompositionSettings::generalized},
    {"HISTORICAL", &DecompositionSettings::historical},
}};

inline constexpr std::array<procedures::KeywordFlag<PlotSettings>, 6> kPlots = {{
    {"FORECAST", &PlotSettings::forecast},
    {"IMPULSE", &PlotSettings::impulse},
    {"VARIANCE", &PlotSettings::variance},
    {"HISTORICAL", &PlotSettings::historical},
    {"ROOTS", &PlotSettings::roots},
    {"BACKTEST", &PlotSettings::backtest},
}};

inline constexpr const char* kAllSeries = "ALL";  // of CUMULATIVE

template <typename Value>
struct KeywordValue {
  std::string_view keyword;
  Value value;
};

// Every criterion that the engine knows, by its name.
inline std::vector<KeywordValue<Criterion>> criteria() {
  std::vector<KeywordValue<Criterion>> keywords;
  for (const engine::CriterionRow& row : engine::criterionTable()) keywords.push_back({row.name, row.criterion});
  return keywords;
}

inline constexpr std::array<KeywordValue<Deterministic>, 3> kDeterministics = {{
    {"CONSTANT", Deterministic::constant},
    {"NONE", Deterministic::none},
    {"TREND", Deterministic::trend},
}};

inline constexpr std::array<KeywordValue<Interval>, 3> kIntervals = {{
    {"ANALYTIC", Interval::analytic},
    {"BOOTSTRAP", Interval::bootstrap},
    {"NONE", Interval::none},
}};

inline constexpr std::array<KeywordValue<Bands>, 3> kResponseBands = {{
    {"BOOTSTRAP", Bands::bootstrap},
    {"ANALYTIC", Bands::analytic},
    {"NONE", Bands::none},
}};

inline constexpr std::array<KeywordValue<Bands>, 2> kShareBands = {{
    {"BOOTSTRAP", Bands::bootstrap},
    {"NONE", Bands::none},
}};

inline constexpr std::array<KeywordValue<Resampling>, 2> kResamplings = {{
    {"RESIDUAL", Resampling::residual},
    {"WILD", Resampling::wild},
}};

// The spellings of a table, in its order.
template <typename Table>
std::vector<std::string> spellings(const Table& table) {
  std::vector<std::string> texts;
  for (const auto& row : table) texts.emplace_back(row.keyword);
  return texts;
}

// The value of a keyword; the table's first for one it does not hold.
template <typename Table>
auto valueOf(const Table& table, const std::string& keyword) {
  for (const auto& row : table) {
    if (keyword == row.keyword) return row.value;
  }
  return table.front().value;
}

}  // namespace vardynamics
