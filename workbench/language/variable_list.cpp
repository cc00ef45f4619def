#include "workbench/language/variable_list.h"

#include <algorithm>

#include "workbench/base/suggest.h"
#include "workbench/language/syntax_error.h"

namespace workbench {

namespace {

bool isRangeMark(const Token& item) {
  return item.kind == TokenKind::word && sameName(item.text, "TO");
}

[[noreturn]] void failRange(const Token& mark, const Notice& side) {
  throw SyntaxError(mark.span, "syntax.range",
                    "a range needs a variable ^1 TO, as in: a TO c. A variable of the name TO stands in quotes.", side);
}

}  // namespace

std::vector<std::string> VariableLists::read(const std::string& parameter, std::span<const Token* const> items) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Token& item = *items[i];
    if (isRangeMark(item)) failRange(item, phrase("before"));
    if (i + 1 < items.size() && isRangeMark(*items[i + 1])) {
      if (i + 2 == items.size()) failRange(*items[i + 1], phrase("after"));
      addRange(parameter, item, *items[i + 2], names);
      i += 2;
    } else {
      claim(parameter, resolve(item), item.span);
      names.push_back(item.text);
    }
  }
  return names;
}

int VariableLists::resolve(const Token& item) const {
  const int column = dataset_.find(item.text);
  if (column >= 0) return column;
  const Notice text("syntax.no-variable", "there is no variable ^1 in the data.", inQuotes(item.text));
  const auto isItem = [&](const std::string& name) { return sameName(name, item.text); };
  if (std::any_of(parameterNames_.begin(), parameterNames_.end(), isItem)) {
    throw SyntaxError(item.span, text + phrase("If the parameter is meant, write ^1=value.", item.text));
  }
  if (std::any_of(subcommandNames_.begin(), subcommandNames_.end(), isItem)) {
    throw SyntaxError(item.span, text + phrase("If the subcommand is meant, write /^1.", item.text));
  }
  std::vector<std::string> known;
  for (const Column& candidate : dataset_.columns) known.push_back(candidate.name);
  throw SyntaxError(item.span, text + didYouMeanOrList(item.text, known, phrase("Its variables")));
}

void VariableLists::addRange(const std::string& parameter, const Token& from, const Token& to,
                             std::vector<std::string>& names) {
  if (isRangeMark(to)) failRange(to, phrase("after"));
  const int first = resolve(from);
  const int last = resolve(to);
  const Span span{from.span.begin, to.span.end};
  if (first > last) {
    throw SyntaxError(span, "syntax.reversed-range",
                      "this range is reversed: ^1 stands before ^2 in the data. Write it the other way round.",
                      inQuotes(to.text), inQuotes(from.text));
  }
  for (int column = first; column <= last; ++column) {
    claim(parameter, column, span);
    names.push_back(dataset_.columns[static_cast<std::size_t>(column)].name);
  }
}

void VariableLists::claim(const std::string& parameter, int column, Span span) {
  const auto [place, fresh] = listedIn_.emplace(column, parameter);
  if (fresh) return;
  const std::string name = inQuotes(dataset_.columns[static_cast<std::size_t>(column)].name);
  if (place->second == parameter) {
    throw SyntaxError(span, "syntax.variable-twice", "the variable ^1 is listed twice in ^2. Keep one of the two.",
                      name, parameter);
  }
  throw SyntaxError(span, "syntax.variable-elsewhere", "the variable ^1 is listed in ^2 already. Keep one of the two.",
                    name, place->second);
}

}  // namespace workbench
