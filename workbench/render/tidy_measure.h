// What a column of a table measures, by its label.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/base/language.h"

namespace workbench {

struct TidyMeasure {
  std::string_view column;  // "estimate", "std.error", "conf.low", ...
  std::string level;        // in percent; empty where the label tells none
};

// Nothing for a label that is none of them in this language.
std::optional<TidyMeasure> tidyMeasure(const std::string& label, const Language& language);

}  // namespace workbench
