// What the user may have meant: the known name nearest to one that is unknown.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/notice.h"

namespace workbench {

// The first candidate that the text abbreviates, if it abbreviates just one (from two letters on), else the candidate
// at the smallest distance, if that is near: at most a third of the text's characters, at least 1, at most 3; a single
// character has no neighbours. Letters count the same in either case.
std::optional<std::string> nearestName(std::string_view text, const std::vector<std::string>& candidates);

// `Did you mean "x"?`, or nothing when no candidate is near.
Notice didYouMean(std::string_view text, const std::vector<std::string>& candidates);

// The same without quotes, for a word as it is typed.
Notice didYouMeanWord(std::string_view text, const std::vector<std::string>& candidates);

// didYouMean, or `WHAT: a, b, c.` when nothing is near.
Notice didYouMeanOrList(std::string_view text, const std::vector<std::string>& candidates, const Notice& what);

// "a, b, c", after the twentieth "and N more".
Notice listed(const std::vector<std::string>& names);

}  // namespace workbench
