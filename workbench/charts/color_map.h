// The colours that a chart gives to its series.

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace workbench {

// The entries `("NAME", color.COLOUR), ...` of a colour map; nothing when the text is no such list. Names stand in it
// without any escaping: one that the data knows ends where it can, any other as early as possible.
std::optional<std::map<std::string, std::string>> parseColorMap(std::string_view entries,
                                                                const std::set<std::string>& seriesNames);

}  // namespace workbench
