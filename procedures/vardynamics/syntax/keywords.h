// The keywords of the command's lists, each with the switch it turns on or the value it stands for.

#pragma once

#include <array>
#include <string>
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

inline constexpr std::array<procedures::KeywordFlag<PlotSettings>, 2> kPlots = {{
    {"FORECAST", &PlotSettings::forecast},
    {"ROOTS", &PlotSettings::roots},
}};

template <typename Value>
struct KeywordValue {
  const char* keyword;
  Value value;
};

inline constexpr std::array<KeywordValue<Criterion>, 4> kCriteria = {{
    {"AIC", Criterion::aic},
    {"BIC", Criterion::bic},
    {"HQIC", Criterion::hqic},
    {"FPE", Criterion::fpe},
}};

inline constexpr std::array<KeywordValue<Deterministic>, 3> kDeterministics = {{
    {"CONSTANT", Deterministic::constant},
    {"NONE", Deterministic::none},
    {"TREND", Deterministic::trend},
}};

inline constexpr std::array<KeywordValue<Interval>, 2> kIntervals = {{
    {"ANALYTIC", Interval::analytic},
    {"NONE", Interval::none},
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
