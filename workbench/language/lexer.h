// The words of a command.
//
// - Blanks and line ends separate; `/` `=` `,` `[` `]` `(` `)` stand for themselves, also without blanks around them.
// - 'text' and "text" are strings; the quote that encloses one is doubled to stand in it. A string ends on its line. A
//   quote starts a string only where a word would start: o'brien is a word.
// - Comments are /* ... */ anywhere and # to the end of the line where a word would start.
// - A full stop at the very end of the command ends it and is no token.
// - Everything else is part of a word: numbers, keywords, names, and any byte, also one that is not valid UTF-8.
//
// The lexer refuses nothing: what is not closed becomes a token of its own, for the parser to report in its context.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/text_excerpt.h"

namespace workbench {

enum class TokenKind {
  word,
  string,
  slash,
  equals,
  comma,
  openBracket,
  closeBracket,
  parenthesis,
  unclosedQuote,
  unclosedComment,
  end
};

struct Token {
  TokenKind kind = TokenKind::end;
  Span span;         // with the quotes of a string
  std::string text;  // a string without quotes; empty for the kinds that stand for themselves
};

// White space.
inline constexpr std::string_view kBlanks = " \t\r\n\f\v";

// The last token, and only that one, is `end`.
std::vector<Token> lex(std::string_view source);
// The same with the full stop at the end as part of its word.
std::vector<Token> lexWithStops(std::string_view source);

}  // namespace workbench
