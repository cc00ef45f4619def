// What lag the size of the data allows.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

inline constexpr int kDefaultMaxLag = 10;

// MINLAG and MAXLAG as the command gives them, or their defaults.
struct LagRange {
  int least = 1;
  int most = kDefaultMaxLag;
};
LagRange lagRange(const CallRecord& parsed);

struct UsableLag {
  std::int64_t rows = 0;
  std::int64_t endogenous = 0;
  std::int64_t exogenous = 0;
  std::int64_t lag = 0;  // largest MAXLAG (at most 25) that leaves a regular residual covariance; below 1: none
};

// Nothing when the procedure read no cases.
std::optional<UsableLag> usableLag(const FinishedRun& run);

// Whether MAXLAG is beyond it.
bool exceedsUsableLag(const FinishedRun& run);

Notice usableLagText(const UsableLag& usable);

}  // namespace workbench::varmodel
