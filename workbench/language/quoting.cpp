#include "workbench/language/quoting.h"

#include "workbench/dataset/dataset.h"
#include "workbench/language/lexer.h"

namespace workbench {

std::string quoteText(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

std::string quoteName(std::string_view name) {
  const std::vector<Token> tokens = lex(name);
  const bool plain = tokens.front().kind == TokenKind::word && tokens.front().text == name;
  return plain && !sameName(name, "TO") ? std::string(name) : quoteText(name);
}

}  // namespace workbench
