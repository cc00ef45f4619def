// Words of a command line as they are typed into a shell.

#pragma once

#include <string>
#include <vector>

namespace workbench {

// The text in single quotes unless no shell does anything to it as it stands.
std::string shellWord(const std::string& text);
std::string shellWords(const std::vector<std::string>& words);  // blanks between them

}  // namespace workbench
