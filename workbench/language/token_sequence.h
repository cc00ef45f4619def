// What a token sequence holds.

#pragma once

#include <string>
#include <vector>

#include "host/command_parser.h"
#include "workbench/language/lexer.h"

struct TokenSequenceBase::State {
  std::string source;
  std::vector<workbench::Token> tokens;  // of that source
};
