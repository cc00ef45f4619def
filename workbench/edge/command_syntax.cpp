#include "host/command_syntax.h"

#include <stdexcept>
#include <utility>

#include "host/codes.h"
#include "workbench/edge/command_state.h"

namespace {

using workbench::ParameterKind;

ParameterKind kindOf(const std::string& name, UPSpecTypes::ParamSpec spec) {
  static constexpr std::pair<UPSpecTypes::ParamSpec, ParameterKind> kKinds[] = {
      {codes::kKeyword, ParameterKind::keyword},
      {codes::kOptionalName, ParameterKind::optionalName},
      {codes::kKeywordList, ParameterKind::keywordList},
      {codes::kNumber, ParameterKind::number},
      {codes::kNumberList, ParameterKind::numberList},
      {codes::kVariableList, ParameterKind::variableList},
      {codes::kFileName, ParameterKind::file}};
  for (const auto& [code, kind] : kKinds) {
    if (code == spec) return kind;
  }
  throw std::invalid_argument("parameter " + name + " has the unknown kind " + std::to_string(static_cast<int>(spec)));
}

}  // namespace

ParamDescriptor::ParamDescriptor(std::string name, UPSpecTypes::ParamSpec spec, bool, bool,
                                 UPSpecTypes::BracketOptions brackets) {
  const ParameterKind kind = kindOf(name, spec);
  const bool bracketed = brackets == codes::kSquareBrackets;
  state_ = std::make_unique<State>(State{{std::move(name), kind, bracketed}});
}

ParamDescriptor::ParamDescriptor(const ParamDescriptor& other) : state_(std::make_unique<State>(*other.state_)) {}

ParamDescriptor& ParamDescriptor::operator=(const ParamDescriptor& other) {
  *state_ = *other.state_;
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
    : state_(std::make_unique<State>(State{{std::move(name)}})) {}

SubComDescriptor::SubComDescriptor(const SubComDescriptor& other) : state_(std::make_unique<State>(*other.state_)) {}

SubComDescriptor& SubComDescriptor::operator=(const SubComDescriptor& other) {
  *state_ = *other.state_;
  return *this;
}

SubComDescriptor::~SubComDescriptor() = default;

// Parameters are always named in this host's command language, so none is exported to its subcommand.
void SubComDescriptor::setExportParamDesc(UPSpecTypes::ParamSpec, bool) {}

void SubComDescriptor::addParamDesc(const ParamDescriptor& parameter) {
  state_->parameters.push_back(workbench::stateOf(parameter));
}

CommandDescriptor::CommandDescriptor(const std::string& commandName)
    : state_(std::make_unique<State>(State{{commandName}})) {}

CommandDescriptor::~CommandDescriptor() = default;

void CommandDescriptor::addSubComDesc(const SubComDescriptor& subcommand) {
  state_->subcommands.push_back(workbench::stateOf(subcommand));
}
