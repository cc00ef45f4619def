// Values as they stand in a TOML file.

#pragma once

#include <string>

namespace workbench {

std::string tomlText(const std::string& text);
std::string tomlNumber(double value);

}  // namespace workbench
