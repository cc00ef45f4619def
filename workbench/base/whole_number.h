// Whole numbers that users write.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "workbench/base/notice.h"

namespace workbench {

// Nothing for a text that is no whole number. Throws UsageError, naming the place ("--lag"), for one beyond `largest`
// in either direction.
std::optional<std::int64_t> wholeNumber(std::string_view text, const Notice& place, std::int64_t largest);

}  // namespace workbench
