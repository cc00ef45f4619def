// The command language:
//
//   command    = NAME { global-keyword } { "/" SUBCOMMAND { parameter } } [ "." ]
//   parameter  = PARAM "=" value | PARAM               (without a value only where the description says so)
//   value      = number | keyword | name | path | list | "[" list "]"
//   list       = item { [ "," ] item }                  (in a variable list also: item TO item)
//
// Names and keywords are read in either case. Words, strings and comments: lexer.h. Square brackets enclose keyword
// lists and may be left out around one keyword; parentheses and abbreviations are not accepted.

#pragma once

#include <span>
#include <string_view>

#include "workbench/dataset/dataset.h"
#include "workbench/language/command_description.h"
#include "workbench/language/lexer.h"
#include "workbench/language/parsed_command.h"

namespace workbench {

// Checks the tokens of `source` against the description and the variables of the dataset: names, kinds, keywords and
// bounds, but not whether what is required is there. Reports the first error of every subcommand, at most twenty.
ParsedCommand parseCommand(std::string_view source, std::span<const Token> tokens,
                           const CommandDescription& description, const Dataset& dataset);

}  // namespace workbench
