// Taking apart the statements of the chart language.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// The text in each hole (@) of the pattern when the line fits it. The first and last piece of the pattern are tied to
// the line's ends, the pieces between to their first occurrence, so that the last hole takes whatever is left.
std::optional<std::vector<std::string>> matchStatement(std::string_view line, std::string_view pattern);

// A whole text that is a finite number.
std::optional<double> numberIn(std::string_view text);

// "red" of "color.red"; nothing for what is no known colour.
std::optional<std::string> colorIn(std::string_view text);

std::string_view trimmed(std::string_view text);  // without blanks at its ends

// Arguments at the top level of a call without free texts: "a(b,c), d" is "a(b,c)" and "d".
std::vector<std::string_view> splitArguments(std::string_view text);

}  // namespace workbench
