#include "host/command_parser.h"

#include <cmath>
#include <limits>
#include <utility>

#include "workbench/base/letter_case.h"
#include "workbench/base/text_excerpt.h"
#include "workbench/edge/command_state.h"
#include "workbench/edge/session.h"
#include "workbench/language/command_grammar.h"

using workbench::ColumnKind;
using workbench::currentSession;
using workbench::Dataset;
using workbench::stateOf;
using workbench::StateOf;

namespace {

StateOf<CommandSpec> parseResult(workbench::ParsedCommand&& command) {
  StateOf<CommandSpec> result;
  for (workbench::ParsedSubcommand& subcommand : command.subcommands) {
    SubComObj& object = result.subcommands[subcommand.name];
    for (workbench::ParsedParameter& parameter : subcommand.parameters) {
      const std::string name = parameter.name;
      stateOf(stateOf(object).parameters[name]).parsed = std::move(parameter);
    }
  }
  return result;
}

bool isNumeric(const Dataset& dataset, int index) {
  return index >= 0 && dataset.columns[static_cast<std::size_t>(index)].kind == ColumnKind::number;
}

void refuse(const workbench::Notice& list, const std::string& name, const Dataset& dataset, int index) {
  using workbench::Notice;
  const std::string quoted = workbench::inQuotes(name);
  Notice text("variable.unknown", "^1: the variable ^2 is not in the data.", list, quoted);
  if (index >= 0) {
    const bool isText = dataset.columns[static_cast<std::size_t>(index)].kind == ColumnKind::text;
    text = Notice("variable.not-numeric",
                  "^1: the variable ^2 holds ^3 and cannot be analysed. Cast it to a number in the query, or choose a "
                  "numeric variable.",
                  list, quoted, isText ? workbench::phrase("text") : workbench::phrase("dates"));
  }
  currentSession().messages.push_back({workbench::Message::Kind::error, text});
}

}  // namespace

// TokenSequenceBase

TokenSequenceBase::TokenSequenceBase(std::unique_ptr<State> state) : state_(std::move(state)) {}
TokenSequenceBase::~TokenSequenceBase() = default;

VEXA_TokenSequence::VEXA_TokenSequence(bool)
    : TokenSequenceBase(
          std::make_unique<State>(State{currentSession().commandText, workbench::lex(currentSession().commandText)})) {}
VEXA_TokenSequence::~VEXA_TokenSequence() = default;

// ParamObj, SubComObj, CommandSpec

ParamObj::ParamObj() : state_(std::make_unique<State>()) {}
ParamObj::ParamObj(ParamObj&&) noexcept = default;
ParamObj& ParamObj::operator=(ParamObj&&) noexcept = default;
ParamObj::~ParamObj() = default;

bool ParamObj::getVarList(std::vector<VexaVarName>& names) const {
  if (state_->parsed.variables.empty()) return false;
  names.clear();
  for (const std::string& name : state_->parsed.variables) names.push_back({name});
  return true;
}

bool ParamObj::getStringList(std::vector<std::string>& texts) const {
  if (state_->parsed.texts.empty()) return false;
  texts = state_->parsed.texts;
  return true;
}

bool ParamObj::getIntegerValue(int& value) const {
  double number = 0.0;
  if (!getNumberValue(number) || number != std::trunc(number)) return false;
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) return false;
  value = static_cast<int>(number);
  return true;
}

bool ParamObj::getNumberValue(double& value) const {
  if (state_->parsed.numbers.size() != 1) return false;
  value = state_->parsed.numbers.front();
  return true;
}

bool ParamObj::getNumberList(std::vector<double>& values) const {
  if (state_->parsed.numbers.empty()) return false;
  values = state_->parsed.numbers;
  return true;
}

bool ParamObj::getUpStringGeneric(std::string& text) const {
  if (state_->parsed.texts.empty()) return false;
  text = workbench::upperCase(state_->parsed.texts.front());
  return true;
}

bool ParamObj::getStringOrLiteral(std::string& text, bool& isLiteral) const {
  if (state_->parsed.texts.empty()) return false;
  text = state_->parsed.texts.front();
  isLiteral = state_->parsed.quoted;
  return true;
}

SubComObj::SubComObj() : state_(std::make_unique<State>()) {}
SubComObj::SubComObj(SubComObj&&) noexcept = default;
SubComObj& SubComObj::operator=(SubComObj&&) noexcept = default;
SubComObj::~SubComObj() = default;

const ParamObj* SubComObj::getParamObj(const std::string& name) const {
  const auto found = state_->parameters.find(name);
  return found == state_->parameters.end() ? nullptr : &found->second;
}

CommandSpec::CommandSpec() : state_(std::make_unique<State>()) {}
CommandSpec::~CommandSpec() = default;

const SubComObj* CommandSpec::getSubComObj(const std::string& name) const {
  const auto found = state_->subcommands.find(name);
  return found == state_->subcommands.end() ? nullptr : &found->second;
}

// UniversalParser

struct UniversalParser::State {
  const StateOf<TokenSequenceBase>& tokens;
  CommandSpec& result;
  const CommandDescriptor& description;
};

UniversalParser::UniversalParser(TokenSequenceBase& tokens, CommandSpec& result, const CommandDescriptor& description)
    : state_(std::make_unique<State>(State{stateOf(tokens), result, description})) {}
UniversalParser::~UniversalParser() = default;

int UniversalParser::getCommandSpecifications() {
  workbench::Session& session = currentSession();
  const std::string& source = state_->tokens.source;
  workbench::ParsedCommand parsed =
      workbench::parseCommand(source, state_->tokens.tokens, stateOf(state_->description), session.dataset);
  for (const workbench::SyntaxError& error : parsed.errors) {
    session.messages.push_back(
        {workbench::Message::Kind::error, workbench::locatedMessage(source, error.span, error.notice)});
  }
  const bool valid = parsed.errors.empty();
  if (valid) {
    session.parsed = true;
    session.requestedLists = workbench::requestedLists(parsed);
    session.requestedNumbers = workbench::requestedNumbers(parsed);
    session.places = workbench::places(parsed);
    session.namedFiles = workbench::namedFiles(parsed, stateOf(state_->description));
    stateOf(state_->result) = parseResult(std::move(parsed));
  }
  session.clock.set(workbench::StageClock::parseEnd);
  return valid && !session.parseOnly ? 0 : 1;
}

// VarSpecObj

struct VarSpecObj::State {
  workbench::Notice list;  // "ENDOGENOUS of the subcommand MODEL", for messages
  std::vector<int> valid;
};

// The variables are those of the session's dataset, which is the one that every procedure is given.
VarSpecObj::VarSpecObj(const std::string& parameterName, const std::string& subcommandName, const CommandDescriptor&,
                       VEXA_DataSource*, bool)
    : state_(std::make_unique<State>(
          State{workbench::phrase("^1 of the subcommand ^2", parameterName, subcommandName), {}})) {}

VarSpecObj::~VarSpecObj() = default;

// A list with a variable that cannot be used has no valid variables: a model of the others is not what was asked for.
bool VarSpecObj::ValidateVariables(const std::vector<VexaVarName>& names, int) {
  const Dataset& dataset = currentSession().dataset;
  state_->valid.clear();
  bool usable = true;
  for (const VexaVarName& name : names) {
    const int index = dataset.find(name.name);
    usable = isNumeric(dataset, index) && usable;
    if (isNumeric(dataset, index)) {
      state_->valid.push_back(index);
    } else {
      refuse(state_->list, name.name, dataset, index);
    }
  }
  if (!usable) state_->valid.clear();
  return usable;
}

const std::vector<int>& VarSpecObj::GetValidVarList() const {
  return state_->valid;
}
