// What a procedure said about its command's syntax.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/command_syntax.h"

namespace workbench {

// The parameter kinds that this host knows, by their codes.
enum class ParameterKind {
  keyword = 3,
  optionalName = 4,
  keywordList = 5,
  number = 7,
  numberList = 8,
  variableList = 16,
  file = 23
};

}  // namespace workbench

struct ParamDescriptor::State {
  std::string name;
  workbench::ParameterKind kind;
  bool brackets;  // several items stand in square brackets (option 3); else a list is written without
  std::vector<std::string> keywords;
  std::optional<double> lower;  // both inclusive
  std::optional<double> upper;
};

struct SubComDescriptor::State {
  std::string name;
  std::vector<ParamDescriptor> parameters;
};

struct CommandDescriptor::State {
  std::string name;
  std::vector<SubComDescriptor> subcommands;
};

namespace workbench {

using ParameterDescription = ParamDescriptor::State;
using SubcommandDescription = SubComDescriptor::State;
using CommandDescription = CommandDescriptor::State;

// Names in the order described; the global part, whose name is empty, is left out.
std::vector<std::string> parameterNames(const SubcommandDescription& subcommand);
std::vector<std::string> subcommandNames(const CommandDescription& command);

// By name, letters of either case; null when there is none.
const ParameterDescription* findParameter(const SubcommandDescription& subcommand, std::string_view name);
const SubcommandDescription* findSubcommand(const CommandDescription& command, std::string_view name);

}  // namespace workbench
