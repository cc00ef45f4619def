// What a procedure said about its command's syntax.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/codes.h"
#include "host/command_syntax.h"
#include "workbench/session/host_access.h"

namespace workbench {

// The parameter kinds that this host knows, by their codes.
enum class ParameterKind {
  keyword = codes::kKeyword,
  optionalName = codes::kOptionalName,
  keywordList = codes::kKeywordList,
  number = codes::kNumber,
  numberList = codes::kNumberList,
  variableList = codes::kVariableList,
  file = codes::kFileName
};

}  // namespace workbench

struct ParamDescriptor::State {
  std::string name;
  workbench::ParameterKind kind;
  bool brackets;  // several items stand in square brackets (kSquareBrackets); else a list is written without
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

using ParameterDescription = StateOf<ParamDescriptor>;
using SubcommandDescription = StateOf<SubComDescriptor>;
using CommandDescription = StateOf<CommandDescriptor>;

// Names in the order described; the global part, whose name is empty, is left out.
std::vector<std::string> parameterNames(const SubcommandDescription& subcommand);
std::vector<std::string> subcommandNames(const CommandDescription& command);

// By name, letters of either case; null when there is none.
const ParameterDescription* findParameter(const SubcommandDescription& subcommand, std::string_view name);
const SubcommandDescription* findSubcommand(const CommandDescription& command, std::string_view name);

}  // namespace workbench
