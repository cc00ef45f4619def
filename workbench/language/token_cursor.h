// Reading position in the tokens of a command.

#pragma once

#include <span>

#include "workbench/language/lexer.h"
#include "workbench/language/syntax_error.h"

namespace workbench {

class TokenCursor {
 public:
  explicit TokenCursor(std::span<const Token> tokens) : tokens_(tokens) {}

  // The next token. Throws SyntaxError at a quote or comment that is not closed, so that no reader takes one for text.
  const Token& peek() const;
  const Token& take();
  bool at(TokenKind expected) const { return peek().kind == expected; }
  // Kind of the next token, also where peek would throw.
  TokenKind kind() const { return tokens_[next_].kind; }
  bool atEnd() const { return kind() == TokenKind::end; }
  // A word or string, which may be an item of a list or a value.
  bool atText() const { return at(TokenKind::word) || at(TokenKind::string); }
  // A word or string and an equals sign: where the next parameter starts, whatever was being read.
  bool atParameter() const;
  // The next token touches the one before it.
  bool atGlued() const { return next_ > 0 && tokens_[next_ - 1].span.end == tokens_[next_].span.begin; }
  // Where the last token that was taken ends.
  std::size_t takenTo() const { return next_ == 0 ? 0 : tokens_[next_ - 1].span.end; }
  // The token after the next one; `end` at the end.
  const Token& second() const { return tokens_[atEnd() ? next_ : next_ + 1]; }

  // Passes over one token, whatever it is; not at the end.
  void skip() { ++next_; }

 private:
  std::span<const Token> tokens_;  // the last is `end`
  std::size_t next_ = 0;
};

}  // namespace workbench
