// The submitted command: the parse result is what the test gave.

#include "host/command_parser.h"

#include <algorithm>
#include <cctype>

#include "tests/recording/operation.h"

using recording::counted;
using recording::current;
using recording::found;
using recording::noted;

struct TokenSequenceBase::State : recording::Object {
  using Object::Object;
};
TokenSequenceBase::~TokenSequenceBase() = default;
TokenSequenceBase::TokenSequenceBase(std::unique_ptr<State> state) : state_(std::move(state)) {}
VEXA_TokenSequence::VEXA_TokenSequence(bool flag)
    : TokenSequenceBase(std::make_unique<State>("VEXA_TokenSequence", flag)) {}
VEXA_TokenSequence::~VEXA_TokenSequence() = default;

struct ParamObj::State {
  recording::Value value;
};
ParamObj::ParamObj() : state_(new State) {}
ParamObj::ParamObj(ParamObj&&) noexcept = default;
ParamObj::~ParamObj() = default;
bool ParamObj::getVarList(std::vector<VexaVarName>& names) const {
  counted("getVarList");
  for (const std::string& word : state_->value.words) names.push_back({word});
  return !names.empty();
}
bool ParamObj::getStringList(std::vector<std::string>& texts) const {
  counted("getStringList");
  texts = state_->value.words;
  return !texts.empty();
}
bool ParamObj::getIntegerValue(int& value) const {
  counted("getIntegerValue");
  const std::optional<double>& number = state_->value.number;
  const bool isInteger = number && *number == static_cast<int>(*number);
  if (isInteger) value = static_cast<int>(*number);
  return isInteger;
}
bool ParamObj::getNumberValue(double& value) const {
  counted("getNumberValue");
  value = state_->value.number.value_or(value);
  return state_->value.number.has_value();
}
bool ParamObj::getNumberList(std::vector<double>& values) const {
  counted("getNumberList");
  if (state_->value.number) values.push_back(*state_->value.number);
  return !values.empty();
}
bool ParamObj::getUpStringGeneric(std::string& text) const {
  counted("getUpStringGeneric");
  if (state_->value.words.empty()) return false;
  text = state_->value.words.front();
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
  return true;
}
bool ParamObj::getStringOrLiteral(std::string& text, bool& isLiteral) const {
  counted("getStringOrLiteral");
  if (state_->value.words.empty()) return false;
  text = state_->value.words.front();
  isLiteral = state_->value.isLiteral;
  return true;
}

struct SubComObj::State {
  std::map<std::string, ParamObj> parameters;
};
SubComObj::SubComObj() : state_(new State) {}
SubComObj::SubComObj(SubComObj&&) noexcept = default;
SubComObj::~SubComObj() = default;
const ParamObj* SubComObj::getParamObj(const std::string& name) const {
  counted("getParamObj");
  return found(state_->parameters, name);
}

struct CommandSpec::State : recording::Object {
  State() : Object("CommandSpec") {
    for (const auto& [name, parameters] : current().command) {
      for (const auto& [parameter, value] : parameters) {
        HostAccess::state(HostAccess::state(subcommands[name]).parameters[parameter]).value = value;
      }
      subcommands[name];
    }
  }
  std::map<std::string, SubComObj> subcommands;
};
CommandSpec::CommandSpec() : state_(new State) {}
CommandSpec::~CommandSpec() = default;
const SubComObj* CommandSpec::getSubComObj(const std::string& name) const {
  counted("getSubComObj");
  return found(state_->subcommands, name);
}

OBJECT(UniversalParser)
UniversalParser::UniversalParser(TokenSequenceBase&, CommandSpec&, const CommandDescriptor&)
    : state_(new State("UniversalParser")) {}
ANSWERS(int, UniversalParser, getCommandSpecifications(), current().parserStatus)

struct VarSpecObj::State : recording::Object {
  using Object::Object;
  std::vector<int> valid;
};
VarSpecObj::VarSpecObj(const std::string& parameterName, const std::string& subcommandName, const CommandDescriptor&,
                       VEXA_DataSource*, bool flag)
    : state_(new State("VarSpecObj", parameterName, subcommandName, flag)) {}
VarSpecObj::~VarSpecObj() = default;
bool VarSpecObj::ValidateVariables(const std::vector<VexaVarName>& names, int option) {
  noted("ValidateVariables", option);
  for (const VexaVarName& name : names) {
    const auto is = [&](const recording::Column& column) { return column.name == name.name && column.width == 0; };
    const auto place = std::find_if(current().columns.begin(), current().columns.end(), is);
    if (place != current().columns.end()) state_->valid.push_back(static_cast<int>(place - current().columns.begin()));
  }
  return state_->valid.size() == names.size();
}
ANSWERS(const std::vector<int>&, VarSpecObj, GetValidVarList() const, state_->valid)
