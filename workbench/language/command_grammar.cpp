#include "workbench/language/command_grammar.h"

#include <algorithm>
#include <array>
#include <utility>

#include "workbench/base/suggest.h"
#include "workbench/language/token_cursor.h"
#include "workbench/language/value_reader.h"

namespace workbench {

namespace {

constexpr std::size_t kMostErrors = 20;

// Keywords of the session that every command takes in its global part.
constexpr std::array<std::string_view, 1> kGlobalKeywords{"PREDICT"};

class CommandReader {
 public:
  CommandReader(std::string_view source, std::span<const Token> tokens, const CommandDescription& description,
                const Dataset& dataset)
      : source_(source), cursor_(tokens), description_(description), dataset_(dataset) {}

  ParsedCommand read();

 private:
  template <typename Read>
  void readUntilError(Read read);
  void skipToSubcommand();

  void readHead();
  void readSubcommand();
  const SubcommandDescription& readSubcommandName();
  void readParameters(const SubcommandDescription& subcommand, ParsedSubcommand& parsed);
  ParsedParameter readParameter(const SubcommandDescription& subcommand, const Token& name, VariableLists& variables);

  const ParameterDescription& described(const SubcommandDescription& subcommand, const Token& name) const;
  void refuseOtherTokens(const SubcommandDescription& subcommand) const;

  std::string_view source_;
  TokenCursor cursor_;
  const CommandDescription& description_;
  const Dataset& dataset_;
  ParsedCommand result_;
  std::vector<std::string> seen_;  // subcommands, also those with an error
};

ParsedCommand CommandReader::read() {
  readUntilError([&] { readHead(); });
  while (!cursor_.atEnd() && result_.errors.size() < kMostErrors) readUntilError([&] { readSubcommand(); });
  return std::move(result_);
}

// Leaves the cursor at the slash of the next subcommand or at the end.
template <typename Read>
void CommandReader::readUntilError(Read read) {
  try {
    read();
  } catch (const SyntaxError& error) {
    result_.errors.push_back(error);
    skipToSubcommand();
  }
}

// A slash within a path or a name does not count, unless the name of a subcommand follows.
void CommandReader::skipToSubcommand() {
  const auto atSubcommand = [&] {
    if (cursor_.kind() != TokenKind::slash) return false;
    const Token& name = cursor_.second();
    return !cursor_.atGlued() || (name.kind == TokenKind::word && findSubcommand(description_, name.text) != nullptr);
  };
  while (!cursor_.atEnd() && !atSubcommand()) cursor_.skip();
}

void CommandReader::readHead() {
  const Token& name = cursor_.peek();
  if (!cursor_.at(TokenKind::word)) {
    throw SyntaxError(name.span, "syntax.no-name", "the command begins with its name, ^1.", description_.name);
  }
  if (!sameName(name.text, description_.name)) {
    throw SyntaxError(name.span, Notice("syntax.no-command", "there is no command ^1.", inQuotes(name.text)) +
                                     didYouMeanOrList(name.text, {description_.name}, phrase("The command here")));
  }
  cursor_.take();
  const SubcommandDescription* global = findSubcommand(description_, "");
  ParsedSubcommand parsed;
  readParameters(global != nullptr ? *global : SubcommandDescription{}, parsed);
  result_.subcommands.push_back(std::move(parsed));
}

void CommandReader::readSubcommand() {
  const SubcommandDescription& subcommand = readSubcommandName();
  ParsedSubcommand parsed;
  parsed.name = subcommand.name;
  parsed.place = {cursor_.takenTo() - subcommand.name.size(), cursor_.takenTo()};
  readParameters(subcommand, parsed);
  result_.subcommands.push_back(std::move(parsed));
}

const SubcommandDescription& CommandReader::readSubcommandName() {
  const bool glued = cursor_.atGlued();
  const Token& slash = cursor_.take();
  const std::vector<std::string> known = subcommandNames(description_);
  if (!cursor_.at(TokenKind::word)) {
    throw SyntaxError(slash.span, "syntax.slash", "a slash begins a subcommand, but no name follows. Subcommands: ^1.",
                      listed(known));
  }
  const Token& name = cursor_.take();
  const SubcommandDescription* subcommand = findSubcommand(description_, name.text);
  if (subcommand == nullptr) {
    const Notice remedy = glued ? phrase("A name or path that holds a slash stands in quotes.")
                                : didYouMeanOrList(name.text, known, phrase("Subcommands"));
    throw SyntaxError(
        name.span,
        Notice("syntax.no-subcommand", "^1 has no subcommand ^2.", description_.name, inQuotes(name.text)) + remedy);
  }
  if (std::find(seen_.begin(), seen_.end(), subcommand->name) != seen_.end()) {
    throw SyntaxError(name.span, "syntax.subcommand-twice", "the subcommand ^1 is given twice. Put all in one.",
                      subcommand->name);
  }
  seen_.push_back(subcommand->name);
  return *subcommand;
}

// To the next slash or the end.
void CommandReader::readParameters(const SubcommandDescription& subcommand, ParsedSubcommand& parsed) {
  VariableLists variables(dataset_, parameterNames(subcommand), subcommandNames(description_));
  while (!cursor_.at(TokenKind::slash) && !cursor_.atEnd()) {
    refuseOtherTokens(subcommand);
    const Token& name = cursor_.take();
    for (const ParsedParameter& given : parsed.parameters) {
      if (sameName(given.name, name.text)) {
        throw SyntaxError(name.span, "syntax.parameter-twice", "^1 is given twice. Keep one of the two.", given.name);
      }
    }
    parsed.parameters.push_back(readParameter(subcommand, name, variables));
  }
}

ParsedParameter CommandReader::readParameter(const SubcommandDescription& subcommand, const Token& name,
                                             VariableLists& variables) {
  const bool equals = cursor_.at(TokenKind::equals);
  for (const std::string_view keyword : kGlobalKeywords) {
    if (!subcommand.name.empty() || !sameName(name.text, keyword)) continue;
    if (equals) {
      throw SyntaxError(cursor_.peek().span, "syntax.needless-value", "^1 takes no value. Leave it out.", keyword);
    }
    return {.name = std::string(keyword)};
  }
  const ParameterDescription& parameter = described(subcommand, name);
  if (equals) {
    cursor_.take();
    const std::size_t begin = cursor_.peek().span.begin;
    ParsedParameter given = readValue(cursor_, parameter, name, source_, variables);
    given.value = {begin, cursor_.takenTo()};
    return given;
  }
  if (parameter.kind == ParameterKind::optionalName) return {.name = parameter.name};
  throw SyntaxError(name.span, "syntax.no-equals", "^1 lacks its equals sign and value: ^1=...", parameter.name);
}

const ParameterDescription& CommandReader::described(const SubcommandDescription& subcommand, const Token& name) const {
  if (const ParameterDescription* found = findParameter(subcommand, name.text)) return *found;
  const bool global = subcommand.name.empty();
  const std::string quoted = inQuotes(name.text);
  if (findSubcommand(description_, name.text) != nullptr) {
    throw SyntaxError(name.span, "syntax.no-slash", "^1 is a subcommand; it begins with a slash: /^2.", quoted,
                      name.text);
  }
  for (const SubcommandDescription& other : description_.subcommands) {
    if (findParameter(other, name.text) != nullptr) {
      throw SyntaxError(name.span, "syntax.elsewhere", "^1 is a parameter of the subcommand ^2. Write it there.",
                        quoted, other.name);
    }
  }
  std::vector<std::string> known = parameterNames(subcommand);
  if (global) known.insert(known.end(), kGlobalKeywords.begin(), kGlobalKeywords.end());
  if (global) {
    throw SyntaxError(name.span, Notice("syntax.no-global", "^1 has no global keyword ^2.", description_.name, quoted) +
                                     didYouMeanOrList(name.text, known, phrase("Global keywords")));
  }
  throw SyntaxError(name.span, Notice("syntax.no-parameter", "^1 has no parameter ^2.", subcommand.name, quoted) +
                                   didYouMeanOrList(name.text, known, phrase("Its parameters")));
}

// Where a parameter starts, only a word makes sense.
void CommandReader::refuseOtherTokens(const SubcommandDescription& subcommand) const {
  if (cursor_.at(TokenKind::word)) return;
  const Span span = cursor_.peek().span;
  const std::string found = inQuotes(source_.substr(span.begin, span.end - span.begin));
  const Notice expected =
      subcommand.name.empty() ? phrase("a global keyword or /SUBCOMMAND") : phrase("PARAM=value or /SUBCOMMAND");
  throw SyntaxError(span, "syntax.misplaced", "^1 does not belong here; what may follow is ^2.", found, expected);
}

}  // namespace

ParsedCommand parseCommand(std::string_view source, std::span<const Token> tokens,
                           const CommandDescription& description, const Dataset& dataset) {
  return CommandReader(source, tokens, description, dataset).read();
}

}  // namespace workbench
