#include "workbench/language/value_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "workbench/base/suggest.h"

namespace workbench {

namespace {

using Items = std::vector<const Token*>;

std::string shortest(double number) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return std::string(digits.data(), end);
}

std::string firstKeywords(const ParameterDescription& parameter) {
  const std::size_t count = std::min<std::size_t>(2, parameter.keywords.size());
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += (i == 0 ? "" : " ") + parameter.keywords[i];
  return parameter.brackets ? "[" + text + "]" : text;
}

Notice boundsText(const ParameterDescription& parameter) {
  if (parameter.lower && parameter.upper) {
    return phrase("a number from ^1 to ^2", shortest(*parameter.lower), shortest(*parameter.upper));
  }
  if (parameter.lower) return phrase("a number of at least ^1", shortest(*parameter.lower));
  return parameter.upper ? phrase("a number of at most ^1", shortest(*parameter.upper)) : phrase("a number");
}

Notice expectation(const ParameterDescription& parameter) {
  switch (parameter.kind) {
    case ParameterKind::keyword:
      return phrase("one keyword of ^1", listed(parameter.keywords));
    case ParameterKind::keywordList:
      return phrase("keywords of ^1", listed(parameter.keywords));
    case ParameterKind::number:
      return boundsText(parameter);
    case ParameterKind::numberList:
      return phrase("^1 or several", boundsText(parameter));
    case ParameterKind::variableList:
      return phrase("a list of variables");
    case ParameterKind::file:
      return phrase("a path, in quotes or right after the equals sign");
    case ParameterKind::optionalName:
      return phrase("a name");
  }
  return phrase("a value");
}

class ValueReader {
 public:
  ValueReader(TokenCursor& cursor, const ParameterDescription& parameter, const Token& name)
      : cursor_(cursor), parameter_(parameter), name_(name) {}

  Items items();
  const Token& single();
  std::string file(std::string_view source, bool& quoted);

 private:
  bool continuesPath() const;
  bool isKeyword(const std::string& text) const;
  void refuseParenthesis() const;
  [[noreturn]] void failMissing() const;
  Items bracketed();
  Items run();

  TokenCursor& cursor_;
  const ParameterDescription& parameter_;
  const Token& name_;
};

void ValueReader::failMissing() const {
  throw SyntaxError(name_.span, "syntax.no-value", "^1 has no value; it takes ^2.", parameter_.name,
                    expectation(parameter_));
}

bool ValueReader::isKeyword(const std::string& text) const {
  return std::any_of(parameter_.keywords.begin(), parameter_.keywords.end(),
                     [&](const std::string& keyword) { return sameName(keyword, text); });
}

void ValueReader::refuseParenthesis() const {
  if (!cursor_.at(TokenKind::parenthesis)) return;
  const Notice remedy = parameter_.brackets
                            ? phrase("Write square brackets: ^1=^2.", parameter_.name, firstKeywords(parameter_))
                            : phrase("Leave them out: ^1 takes ^2.", parameter_.name, expectation(parameter_));
  throw SyntaxError(cursor_.peek().span,
                    Notice("syntax.parenthesis", "parentheses are not part of the command language.") + remedy);
}

// The items of a list, commas left out; at least one.
Items ValueReader::items() {
  refuseParenthesis();
  const bool bracketsAllowed = parameter_.brackets || parameter_.kind == ParameterKind::numberList;
  if (cursor_.at(TokenKind::openBracket) && bracketsAllowed) return bracketed();
  if (!parameter_.brackets) return run();
  Items one{&single()};
  if (cursor_.at(TokenKind::comma) || (cursor_.atText() && !cursor_.atParameter() && isKeyword(cursor_.peek().text))) {
    throw SyntaxError(cursor_.peek().span, "syntax.brackets", "several keywords stand in square brackets: ^1=^2.",
                      parameter_.name, firstKeywords(parameter_));
  }
  return one;
}

Items ValueReader::bracketed() {
  const Token& open = cursor_.take();
  Items found;
  while (!cursor_.at(TokenKind::closeBracket)) {
    refuseParenthesis();
    const bool item = cursor_.atText() && !cursor_.atParameter();
    if (!item && !cursor_.at(TokenKind::comma)) {
      if (!cursor_.at(TokenKind::openBracket))
        throw SyntaxError(open.span, "syntax.open-bracket", "this bracket is not closed by ].");
      throw SyntaxError(cursor_.peek().span, "syntax.nested-brackets", "brackets do not stand within brackets.");
    }
    const Token& token = cursor_.take();
    if (item) found.push_back(&token);
  }
  cursor_.take();
  if (found.empty()) failMissing();
  return found;
}

Items ValueReader::run() {
  Items found{&single()};
  while (!cursor_.atParameter() && (cursor_.atText() || cursor_.at(TokenKind::comma))) {
    const Token& token = cursor_.take();
    if (token.kind != TokenKind::comma) found.push_back(&token);
  }
  return found;
}

const Token& ValueReader::single() {
  refuseParenthesis();
  if (cursor_.at(TokenKind::openBracket)) {
    throw SyntaxError(cursor_.peek().span, "syntax.no-brackets", "^1 takes ^2, without brackets.", parameter_.name,
                      expectation(parameter_));
  }
  if (!cursor_.atText() || cursor_.atParameter()) failMissing();
  return cursor_.take();
}

// A path without quotes runs to the next blank, comma, equals sign or quote; its slashes start no subcommand.
std::string ValueReader::file(std::string_view source, bool& quoted) {
  quoted = cursor_.at(TokenKind::string);
  if (quoted) return single().text;
  const bool rooted = cursor_.at(TokenKind::slash) && cursor_.atGlued();
  Span path = rooted ? cursor_.take().span : single().span;
  while (continuesPath()) path.end = cursor_.take().span.end;
  return std::string(source.substr(path.begin, path.end - path.begin));
}

bool ValueReader::continuesPath() const {
  if (!cursor_.atGlued() || cursor_.atEnd()) return false;
  const TokenKind kind = cursor_.peek().kind;
  return kind != TokenKind::comma && kind != TokenKind::equals && kind != TokenKind::string;
}

double readNumber(const Token& token, const ParameterDescription& parameter) {
  std::string_view digits = token.text;
  if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
  double number = 0.0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = end == digits.data() + digits.size();
  if (token.kind == TokenKind::string || error == std::errc::invalid_argument || !whole ||
      (error == std::errc() && !std::isfinite(number))) {
    throw SyntaxError(token.span, "syntax.no-number", "^1 takes ^2; ^3 is no number.", parameter.name,
                      boundsText(parameter), inQuotes(token.text));
  }
  if (error != std::errc() || (parameter.lower && number < *parameter.lower) ||
      (parameter.upper && number > *parameter.upper)) {
    throw SyntaxError(token.span, "syntax.out-of-bounds", "^1 takes ^2; ^3 is out of bounds.", parameter.name,
                      boundsText(parameter), inQuotes(token.text));
  }
  return number;
}

std::string readKeyword(const Token& token, const ParameterDescription& parameter) {
  for (const std::string& keyword : parameter.keywords) {
    if (sameName(keyword, token.text)) return keyword;
  }
  throw SyntaxError(token.span,
                    Notice("syntax.no-keyword", "^1 has no keyword ^2.", parameter.name, inQuotes(token.text)) +
                        didYouMeanOrList(token.text, parameter.keywords, phrase("Its keywords")));
}

}  // namespace

ParsedParameter readValue(TokenCursor& cursor, const ParameterDescription& parameter, const Token& name,
                          std::string_view source, VariableLists& variables) {
  ParsedParameter parsed;
  parsed.name = parameter.name;
  ValueReader reader(cursor, parameter, name);
  switch (parameter.kind) {
    case ParameterKind::variableList:
      parsed.variables = variables.read(parameter.name, reader.items());
      break;
    case ParameterKind::keywordList:
      for (const Token* item : reader.items()) parsed.texts.push_back(readKeyword(*item, parameter));
      break;
    case ParameterKind::keyword:
      parsed.texts.push_back(readKeyword(reader.single(), parameter));
      break;
    case ParameterKind::number:
      parsed.numbers.push_back(readNumber(reader.single(), parameter));
      break;
    case ParameterKind::numberList:
      for (const Token* item : reader.items()) parsed.numbers.push_back(readNumber(*item, parameter));
      break;
    case ParameterKind::file:
      parsed.texts.push_back(reader.file(source, parsed.quoted));
      break;
    case ParameterKind::optionalName: {
      const Token& token = reader.single();
      parsed.quoted = token.kind == TokenKind::string;
      parsed.texts.push_back(token.text);
      break;
    }
  }
  return parsed;
}

}  // namespace workbench
