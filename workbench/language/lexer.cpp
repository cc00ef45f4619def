#include "workbench/language/lexer.h"

#include <algorithm>
#include <utility>

namespace workbench {

namespace {

constexpr std::string_view kWordEnds = " \t\r\n\f\v/=,[]()";

class Lexer {
 public:
  Lexer(std::string_view source, bool dropsFinalStop) : source_(source), dropsFinalStop_(dropsFinalStop) {}

  std::vector<Token> run() {
    while (skipBlanks()) readToken();
    if (dropsFinalStop_) dropFinalStop();
    add(TokenKind::end, source_.size());
    return std::move(tokens_);
  }

 private:
  bool skipBlanks() {
    at_ = std::min(source_.find_first_not_of(kBlanks, at_), source_.size());
    return at_ < source_.size();
  }

  void readToken() {
    const char first = source_[at_];
    if (first == '#') {
      at_ = lineEnd();
    } else if (source_.substr(at_, 2) == "/*") {
      readComment();
    } else if (first == '\'' || first == '"') {
      readString(first);
    } else if (const std::size_t mark = kWordEnds.find(first); mark != std::string_view::npos) {
      add(kindOfMark(first), at_ + 1);
    } else {
      const std::size_t end = std::min(source_.find_first_of(kWordEnds, at_), source_.size());
      add(TokenKind::word, end, std::string(source_.substr(at_, end - at_)));
    }
  }

  static TokenKind kindOfMark(char mark) {
    switch (mark) {
      case '/':
        return TokenKind::slash;
      case '=':
        return TokenKind::equals;
      case ',':
        return TokenKind::comma;
      case '[':
        return TokenKind::openBracket;
      case ']':
        return TokenKind::closeBracket;
      default:
        return TokenKind::parenthesis;
    }
  }

  void readComment() {
    const std::size_t close = source_.find("*/", at_ + 2);
    if (close == std::string_view::npos) {
      add(TokenKind::unclosedComment, source_.size());
    } else {
      at_ = close + 2;
    }
  }

  void readString(char quote) {
    const std::size_t last = lineEnd();
    std::string text;
    for (std::size_t i = at_ + 1; i < last; ++i) {
      if (source_[i] == quote) {
        if (i + 1 == last || source_[i + 1] != quote) return add(TokenKind::string, i + 1, std::move(text));
        ++i;
      }
      text.push_back(source_[i]);
    }
    add(TokenKind::unclosedQuote, last);
  }

  // A word that ends in a full stop, with nothing after it.
  void dropFinalStop() {
    if (tokens_.empty() || tokens_.back().kind != TokenKind::word || tokens_.back().text.back() != '.') return;
    tokens_.back().text.pop_back();
    --tokens_.back().span.end;
    if (tokens_.back().text.empty()) tokens_.pop_back();
  }

  std::size_t lineEnd() const { return std::min(source_.find('\n', at_), source_.size()); }

  void add(TokenKind kind, std::size_t end, std::string text = {}) {
    tokens_.push_back({kind, {at_, end}, std::move(text)});
    at_ = end;
  }

  std::string_view source_;
  bool dropsFinalStop_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> lex(std::string_view source) {
  return Lexer(source, true).run();
}

std::vector<Token> lexWithStops(std::string_view source) {
  return Lexer(source, false).run();
}

}  // namespace workbench
