// What the host's classes of a command hide from the procedure.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/command_parser.h"
#include "host/command_syntax.h"
#include "workbench/edge/host_access.h"
#include "workbench/language/command_description.h"
#include "workbench/language/lexer.h"
#include "workbench/language/parsed_command.h"

struct ParamDescriptor::State : workbench::ParameterDescription {};
struct SubComDescriptor::State : workbench::SubcommandDescription {};
struct CommandDescriptor::State : workbench::CommandDescription {};

struct TokenSequenceBase::State {
  std::string source;
  std::vector<workbench::Token> tokens;  // of that source
};

struct ParamObj::State {
  workbench::ParsedParameter parsed;
};

struct SubComObj::State {
  std::map<std::string, ParamObj> parameters;
};

struct CommandSpec::State {
  std::map<std::string, SubComObj> subcommands;
};
