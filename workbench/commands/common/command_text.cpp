#include "workbench/commands/common/command_text.h"

#include "workbench/language/quoting.h"

namespace workbench {

std::string nameList(const std::vector<std::string>& variables) {
  std::string text;
  for (const std::string& variable : variables) text += (text.empty() ? "" : " ") + quoteName(variable);
  return text;
}

}  // namespace workbench
