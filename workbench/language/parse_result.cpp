#include "workbench/language/parse_result.h"

#include <cmath>
#include <limits>
#include <utility>

#include "workbench/session/host_access.h"

namespace {

std::string upperCase(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

}  // namespace

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
  text = upperCase(state_->parsed.texts.front());
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

namespace workbench {

StateOf<CommandSpec> parseResult(ParsedCommand&& command) {
  StateOf<CommandSpec> result;
  for (ParsedSubcommand& subcommand : command.subcommands) {
    SubComObj& object = result.subcommands[subcommand.name];
    for (ParsedParameter& parameter : subcommand.parameters) {
      const std::string name = parameter.name;
      stateOf(stateOf(object).parameters[name]).parsed = std::move(parameter);
    }
  }
  return result;
}

std::map<std::string, std::vector<std::string>> requestedLists(const ParsedCommand& command) {
  std::map<std::string, std::vector<std::string>> lists;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    for (const ParsedParameter& parameter : subcommand.parameters) {
      const std::vector<std::string>& items = parameter.variables.empty() ? parameter.texts : parameter.variables;
      if (!items.empty()) lists[subcommand.name + " " + parameter.name] = items;
    }
  }
  return lists;
}

std::map<std::string, double> requestedNumbers(const ParsedCommand& command) {
  std::map<std::string, double> numbers;
  for (const ParsedSubcommand& subcommand : command.subcommands) {
    for (const ParsedParameter& parameter : subcommand.parameters) {
      if (!parameter.numbers.empty()) numbers[subcommand.name + " " + parameter.name] = parameter.numbers.front();
    }
  }
  return numbers;
}

}  // namespace workbench
