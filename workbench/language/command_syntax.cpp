#include "host/command_syntax.h"

#include <array>
#include <stdexcept>
#include <utility>

#include "workbench/dataset/dataset.h"
#include "workbench/language/command_description.h"

namespace {

workbench::ParameterKind kindOf(const std::string& name, UPSpecTypes::ParamSpec spec) {
  using enum workbench::ParameterKind;
  for (const auto kind : std::array{keyword, optionalName, keywordList, number, numberList, variableList, file}) {
    if (static_cast<int>(kind) == static_cast<int>(spec)) return kind;
  }
  throw std::invalid_argument("parameter " + name + " has the unknown kind " + std::to_string(static_cast<int>(spec)));
}

}  // namespace

ParamDescriptor::ParamDescriptor(std::string name, UPSpecTypes::ParamSpec spec, bool, bool,
                                 UPSpecTypes::BracketOptions brackets) {
  const workbench::ParameterKind kind = kindOf(name, spec);
  const bool bracketed = brackets == codes::kSquareBrackets;
  state_ = std::make_unique<State>(State{std::move(name), kind, bracketed, {}, {}, {}});
}

ParamDescriptor::ParamDescriptor(const ParamDescriptor& other) : state_(std::make_unique<State>(*other.state_)) {}

ParamDescriptor& ParamDescriptor::operator=(const ParamDescriptor& other) {
  *state_ = State(*other.state_);
  return *this;
}

ParamDescriptor::~ParamDescriptor() = default;

// Qualified names are no part of this host's command language.
void ParamDescriptor::setQualifOption(UPSpecTypes::QualifOptions) {}

void ParamDescriptor::addStringValue(const std::string& keyword) {
  state_->keywords.push_back(keyword);
}

void ParamDescriptor::setLowerBoundary(double bound, UPSpecTypes::LowerBdryOptions) {
  state_->lower = bound;
}

void ParamDescriptor::setUpperBoundary(double bound, UPSpecTypes::UpperBdryOptions) {
  state_->upper = bound;
}

SubComDescriptor::SubComDescriptor(std::string name, UPSpecTypes::SubComSpec, bool, bool)
    : state_(std::make_unique<State>(State{std::move(name), {}})) {}

SubComDescriptor::SubComDescriptor(const SubComDescriptor& other) : state_(std::make_unique<State>(*other.state_)) {}

SubComDescriptor& SubComDescriptor::operator=(const SubComDescriptor& other) {
  *state_ = State(*other.state_);
  return *this;
}

SubComDescriptor::~SubComDescriptor() = default;

// Parameters are always named in this host's command language, so none is exported to its subcommand.
void SubComDescriptor::setExportParamDesc(UPSpecTypes::ParamSpec, bool) {}

void SubComDescriptor::addParamDesc(const ParamDescriptor& parameter) {
  state_->parameters.push_back(parameter);
}

CommandDescriptor::CommandDescriptor(const std::string& commandName)
    : state_(std::make_unique<State>(State{commandName, {}})) {}

CommandDescriptor::~CommandDescriptor() = default;

void CommandDescriptor::addSubComDesc(const SubComDescriptor& subcommand) {
  state_->subcommands.push_back(subcommand);
}

namespace workbench {

std::vector<std::string> parameterNames(const SubcommandDescription& subcommand) {
  std::vector<std::string> names;
  for (const ParamDescriptor& parameter : subcommand.parameters) names.push_back(stateOf(parameter).name);
  return names;
}

std::vector<std::string> subcommandNames(const CommandDescription& command) {
  std::vector<std::string> names;
  for (const SubComDescriptor& subcommand : command.subcommands) {
    if (!stateOf(subcommand).name.empty()) names.push_back(stateOf(subcommand).name);
  }
  return names;
}

const ParameterDescription* findParameter(const SubcommandDescription& subcommand, std::string_view name) {
  for (const ParamDescriptor& parameter : subcommand.parameters) {
    if (sameName(stateOf(parameter).name, name)) return &stateOf(parameter);
  }
  return nullptr;
}

const SubcommandDescription* findSubcommand(const CommandDescription& command, std::string_view name) {
  for (const SubComDescriptor& subcommand : command.subcommands) {
    if (sameName(stateOf(subcommand).name, name)) return &stateOf(subcommand);
  }
  return nullptr;
}

}  // namespace workbench
