#include "workbench/language/parsed_command.h"

#include <algorithm>

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

std::vector<std::string> namedFiles(const ParsedCommand& command, const CommandDescription& description) {
  std::vector<std::string> files;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    const SubcommandDescription* described = findSubcommand(description, subcommand.name);
    for (const ParsedParameter& given : subcommand.parameters) {
      const ParameterDescription* parameter = described == nullptr ? nullptr : findParameter(*described, given.name);
      if (parameter == nullptr || parameter->kind != ParameterKind::file) continue;
      files.insert(files.end(), given.texts.begin(), given.texts.end());
    }
  }
  return files;
}

std::map<std::string, Span> places(const ParsedCommand& command) {
  std::map<std::string, Span> found;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    found[subcommand.name] = subcommand.place;
    for (const ParsedParameter& parameter : subcommand.parameters) {
      found[subcommand.name + " " + parameter.name] = parameter.value;
    }
  }
  return found;
}

std::map<std::string, double> requestedNumbers(const ParsedCommand& command) {
  std::map<std::string, double> numbers;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    for (const ParsedParameter& parameter : subcommand.parameters) {
      if (!parameter.numbers.empty())
        numbers[subcommand.name + " " + parameter.name] = std::ranges::max(parameter.numbers);
    }
  }
  return numbers;
}

}  // namespace workbench
