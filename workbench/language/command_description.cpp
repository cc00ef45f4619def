#include "workbench/language/command_description.h"

#include "workbench/dataset/dataset.h"

namespace workbench {

std::vector<std::string> parameterNames(const SubcommandDescription& subcommand) {
  std::vector<std::string> names;
  for (const ParameterDescription& parameter : subcommand.parameters) names.push_back(parameter.name);
  return names;
}

std::vector<std::string> subcommandNames(const CommandDescription& command) {
  std::vector<std::string> names;
  for (const SubcommandDescription& subcommand : command.subcommands) {
    if (!subcommand.name.empty()) names.push_back(subcommand.name);
  }
  return names;
}

const ParameterDescription* findParameter(const SubcommandDescription& subcommand, std::string_view name) {
  for (const ParameterDescription& parameter : subcommand.parameters) {
    if (sameName(parameter.name, name)) return &parameter;
  }
  return nullptr;
}

const SubcommandDescription* findSubcommand(const CommandDescription& command, std::string_view name) {
  for (const SubcommandDescription& subcommand : command.subcommands) {
    if (sameName(subcommand.name, name)) return &subcommand;
  }
  return nullptr;
}

}  // namespace workbench
