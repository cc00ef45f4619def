#include "workbench/language/token_cursor.h"

namespace workbench {

const Token& TokenCursor::peek() const {
  const Token& token = tokens_[next_];
  if (token.kind == TokenKind::unclosedQuote) {
    throw SyntaxError(token.span, "syntax.open-quote",
                      "this quote is not closed on its line. A quote within a text is doubled.");
  }
  if (token.kind == TokenKind::unclosedComment) {
    throw SyntaxError({token.span.begin, token.span.begin + 2}, "syntax.open-comment",
                      "this comment is not closed by */.");
  }
  return token;
}

const Token& TokenCursor::take() {
  const Token& token = peek();
  if (token.kind != TokenKind::end) ++next_;
  return token;
}

bool TokenCursor::atParameter() const {
  return atText() && second().kind == TokenKind::equals;
}

}  // namespace workbench
