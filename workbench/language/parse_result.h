// What the classes of a parse result hold.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/command_parser.h"
#include "workbench/language/parsed_command.h"
#include "workbench/session/host_access.h"

struct ParamObj::State {
  workbench::ParsedParameter parsed;
};

struct SubComObj::State {
  std::map<std::string, ParamObj> parameters;
};

struct CommandSpec::State {
  std::map<std::string, SubComObj> subcommands;
};

namespace workbench {

StateOf<CommandSpec> parseResult(ParsedCommand&& command);

// "SUBCOMMAND PARAMETER" leads to the variables, keywords or text given.
std::map<std::string, std::vector<std::string>> requestedLists(const ParsedCommand& command);
// The same for numbers, of a list the first.
std::map<std::string, double> requestedNumbers(const ParsedCommand& command);

}  // namespace workbench
