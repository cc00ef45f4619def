// What is known of a command's syntax.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

enum class ParameterKind { keyword, optionalName, keywordList, number, numberList, variableList, file };

struct ParameterDescription {
  std::string name;
  ParameterKind kind;
  bool brackets = false;  // several items stand in square brackets; else a list is written without
  std::vector<std::string> keywords = {};
  std::optional<double> lower = {};  // both inclusive
  std::optional<double> upper = {};
};

struct SubcommandDescription {
  std::string name;  // empty for the global part
  std::vector<ParameterDescription> parameters = {};
};

struct CommandDescription {
  std::string name;
  std::vector<SubcommandDescription> subcommands = {};
};

// Names in the order described; the global part is left out.
std::vector<std::string> parameterNames(const SubcommandDescription& subcommand);
std::vector<std::string> subcommandNames(const CommandDescription& command);

// By name, letters of either case; null when there is none.
const ParameterDescription* findParameter(const SubcommandDescription& subcommand, std::string_view name);
const SubcommandDescription* findSubcommand(const CommandDescription& command, std::string_view name);

}  // namespace workbench
