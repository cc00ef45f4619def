// Writing names and texts into a command.

#pragma once

#include <string>
#include <string_view>

namespace workbench {

// In double quotes, a double quote doubled. A text with a line end has no form in a command: its string stays unclosed.
std::string quoteText(std::string_view text);

// A variable name or prefix as it stands in a list: plain when it reads back as one word, else quoted.
std::string quoteName(std::string_view name);

}  // namespace workbench
