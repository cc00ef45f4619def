// Values as they stand in a TOML file.

#pragma once

#include <string>
#include <vector>

namespace workbench {

std::string tomlText(const std::string& text);
std::string tomlTexts(const std::vector<std::string>& texts);  // a list
std::string tomlNumber(double value);                          // of a finite number; reads back as the same

}  // namespace workbench
