#include "host/command_parser.h"

#include <utility>

#include "workbench/language/command_grammar.h"
#include "workbench/language/parse_result.h"
#include "workbench/language/token_sequence.h"
#include "workbench/session/host_access.h"
#include "workbench/session/session.h"

using workbench::currentSession;

TokenSequenceBase::TokenSequenceBase(std::unique_ptr<State> state) : state_(std::move(state)) {}
TokenSequenceBase::~TokenSequenceBase() = default;

VEXA_TokenSequence::VEXA_TokenSequence(bool)
    : TokenSequenceBase(
          std::make_unique<State>(State{currentSession().commandText, workbench::lex(currentSession().commandText)})) {}
VEXA_TokenSequence::~VEXA_TokenSequence() = default;

struct UniversalParser::State {
  const workbench::StateOf<TokenSequenceBase>& tokens;
  CommandSpec& result;
  const CommandDescriptor& description;
};

UniversalParser::UniversalParser(TokenSequenceBase& tokens, CommandSpec& result, const CommandDescriptor& description)
    : state_(std::make_unique<State>(State{workbench::stateOf(tokens), result, description})) {}
UniversalParser::~UniversalParser() = default;

int UniversalParser::getCommandSpecifications() {
  workbench::Session& session = currentSession();
  const std::string& source = state_->tokens.source;
  workbench::ParsedCommand parsed =
      workbench::parseCommand(source, state_->tokens.tokens, workbench::stateOf(state_->description), session.dataset);
  for (const workbench::SyntaxError& error : parsed.errors) {
    session.messages.push_back(
        {workbench::Message::Kind::error, workbench::locatedMessage(source, error.span, error.what())});
  }
  const bool valid = parsed.errors.empty();
  if (valid) {
    session.parsed = true;
    session.requestedLists = workbench::requestedLists(parsed);
    session.requestedNumbers = workbench::requestedNumbers(parsed);
    workbench::stateOf(state_->result) = workbench::parseResult(std::move(parsed));
  }
  session.clock.set(workbench::StageClock::parseEnd);
  return valid && !session.parseOnly ? 0 : 1;
}
