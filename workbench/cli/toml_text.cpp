#include "workbench/cli/toml_text.h"

#include <sstream>

#include "workbench/cli/toml_reader.h"
#include "workbench/render/number_format.h"

namespace workbench {

std::string tomlText(const std::string& text) {
  std::ostringstream out;
  out << toml::value<std::string>(text);
  return out.str();
}

std::string tomlNumber(double value) {
  const std::string text = fullPrecision(value);
  return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

}  // namespace workbench
