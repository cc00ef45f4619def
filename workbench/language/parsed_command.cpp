#include "workbench/language/parsed_command.h"

namespace workbench {

std::map<std::string, std::vector<std::string>> requestedLists(const ParsedCommand& command) {
  std::map<std::string, std::vector<std::string>> lists;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    for (const ParsedParameter& parameter : subcommand.parameters) {
      const std::vector<std::string>& items = parameter.variables.empty() ? parameter.texts : parameter.variables;
      if (!items.empty()) lists[subcommand.name + " " + parameter.name] = items;
    }
  }
  return lists;
}

std::map<std::string, double> requestedNumbers(const ParsedCommand& command) {
  std::map<std::string, double> numbers;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    for (const ParsedParameter& parameter : subcommand.parameters) {
      if (!parameter.numbers.empty()) numbers[subcommand.name + " " + parameter.name] = parameter.numbers.front();
    }
  }
  return numbers;
}

}  // namespace workbench
