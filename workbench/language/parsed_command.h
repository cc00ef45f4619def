// A command as parsed, before the host classes hand it out.

#pragma once

#include <map>
#include <string>
#include <vector>

#include "workbench/base/text_excerpt.h"
#include "workbench/language/command_description.h"
#include "workbench/language/syntax_error.h"

namespace workbench {

// The form of a value depends on the parameter's kind; a parameter given without a value has none.
struct ParsedParameter {
  std::string name;                         // in the descriptor's spelling
  std::vector<std::string> variables = {};  // as written; ranges expanded in dictionary order
  std::vector<std::string> texts = {};      // keywords in the descriptor's spelling; or one file or name
  bool quoted = false;                      // the one text stood in quotes
  std::vector<double> numbers = {};         // one, or those of a list
  Span value = {};                          // where they stand; empty without a value
};

struct ParsedSubcommand {
  std::string name;  // in the descriptor's spelling; empty for the global part
  std::vector<ParsedParameter> parameters;
  Span place = {};  // of its name
};

// With errors, subcommands that hold one are left out.
struct ParsedCommand {
  std::vector<ParsedSubcommand> subcommands;  // the global part first
  std::vector<SyntaxError> errors;            // in the order of the text
};

// "SUBCOMMAND PARAMETER" leads to the variables, keywords or text given.
std::map<std::string, std::vector<std::string>> requestedLists(const ParsedCommand& command);
// The files that the command names, in its parameters that are files.
std::vector<std::string> namedFiles(const ParsedCommand& command, const CommandDescription& description);
// "SUBCOMMAND" leads to the place of its name, "SUBCOMMAND PARAMETER" to that of the value given.
std::map<std::string, Span> places(const ParsedCommand& command);
// The same as requestedLists for numbers, of a list the greatest.
std::map<std::string, double> requestedNumbers(const ParsedCommand& command);

}  // namespace workbench
