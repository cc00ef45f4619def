#include "procedures/varmodel/syntax/command_describer.h"

#include <array>
#include <exception>
#include <iostream>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "procedures/varmodel/syntax/command_identity.h"
#include "procedures/varmodel/syntax/keyword_flags.h"

namespace varmodel {
namespace {

// Values of the host's enumerations: the kinds of parameter that the command has, and the two kinds of bound.
constexpr int kKeyword = 3;
constexpr int kOptionalName = 4;
constexpr int kKeywordList = 5;
constexpr int kNumber = 7;
constexpr int kVariableList = 16;
constexpr int kFileName = 23;
constexpr int kInBrackets = 3;

struct Bound {
  double value;
  int option;
};

struct Parameter {
  const char* name;
  int kind;
  bool required = false;
  int brackets = 0;
  std::vector<std::string> keywords = {};
  std::optional<Bound> lower = {};
  std::optional<Bound> upper = {};
  bool qualified = true;
};

struct Subcommand {
  const char* name;
  bool exported = false;
  std::vector<Parameter> parameters = {};
};

std::vector<std::string> keywordsOf(std::span<const KeywordFlag> table) {
  std::vector<std::string> keywords;
  for (const KeywordFlag& row : table) keywords.emplace_back(row.keyword);
  return keywords;
}

Parameter keywordList(const char* name, bool required, std::vector<std::string> keywords) {
  return {.name = name,
          .kind = kKeywordList,
          .required = required,
          .brackets = kInBrackets,
          .keywords = std::move(keywords)};
}

std::array<Subcommand, 8> syntaxTable() {
  return {{
      {.name = ""},
      {.name = "MISSING",
       .exported = true,
       .parameters = {{.name = "USERMISSING", .kind = kKeyword, .keywords = {"EXCLUDE", "INCLUDE"}}}},
      {.name = "MODEL",
       .parameters =
           {{.name = "ENDOGENOUS", .kind = kVariableList, .required = true},
            {.name = "EXOGENOUS", .kind = kVariableList},
            keywordList("LAG", true, keywordsOf(kLagFlags)),
            {.name = "MINLAG", .kind = kNumber, .lower = Bound{1.0, 1}},
            {.name = "MAXLAG", .kind = kNumber, .required = true, .lower = Bound{1.0, 1}, .upper = Bound{25.0, 2}}}},
      {.name = "METHOD", .exported = true, .parameters = {keywordList("TYPE", true, {"OLS"})}},
      {.name = "MODELSTATISTICS",
       .exported = true,
       .parameters = {keywordList("MODELFIT", true, keywordsOf(kModelFitFlags))}},
      {.name = "SERIESPLOT", .exported = true, .parameters = {keywordList("PLOT", false, keywordsOf(kPlotFlags))}},
      {.name = "SAVE",
       .parameters = {{.name = "FILE", .kind = kFileName, .required = true, .qualified = false},
                      {.name = "PREDICTED", .kind = kOptionalName},
                      {.name = "NRESIDUAL", .kind = kOptionalName}}},
      {.name = "AUXILIARY",
       .exported = true,
       .parameters = {{.name = "CILEVEL", .kind = kNumber, .lower = Bound{0.0, 2}, .upper = Bound{100.0, 2}}}},
  }};
}

constexpr std::array<unsigned, 8> kRegistrationOrder = {0, 2, 3, 4, 5, 6, 7, 1};

ParamDescriptor descriptorOf(const Parameter& parameter) {
  ParamDescriptor descriptor(parameter.name, static_cast<UPSpecTypes::ParamSpec>(parameter.kind), parameter.required,
                             true, static_cast<UPSpecTypes::BracketOptions>(parameter.brackets));
  if (parameter.qualified) descriptor.setQualifOption(static_cast<UPSpecTypes::QualifOptions>(0));
  for (const std::string& keyword : parameter.keywords) descriptor.addStringValue(keyword);
  if (const auto& bound = parameter.lower) {
    descriptor.setLowerBoundary(bound->value, static_cast<UPSpecTypes::LowerBdryOptions>(bound->option));
  }
  if (const auto& bound = parameter.upper) {
    descriptor.setUpperBoundary(bound->value, static_cast<UPSpecTypes::UpperBdryOptions>(bound->option));
  }
  return descriptor;
}

SubComDescriptor descriptorOf(const Subcommand& subcommand) {
  SubComDescriptor descriptor(subcommand.name, static_cast<UPSpecTypes::SubComSpec>(1), false, false);
  if (subcommand.exported) descriptor.setExportParamDesc(static_cast<UPSpecTypes::ParamSpec>(2), false);
  for (const Parameter& parameter : subcommand.parameters) descriptor.addParamDesc(descriptorOf(parameter));
  return descriptor;
}

}  // namespace

VARCommandDescriber::VARCommandDescriber(CommandDescriptor* commandDescriptor) : commandDescriptor_(commandDescriptor) {
  identify(parserMessage_);
}

std::int32_t VARCommandDescriber::describeCommand() {
  try {
    for (const unsigned index : kRegistrationOrder) {
      if (const std::int32_t result = setSubCommandDescription(index); result != 0) return result;
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "VARCommandDescriber: Standard exception: " << error.what() << '\n';
  } catch (...) {
    std::cerr << "VARCommandDescriber: Unknown exception occurred.\n";
  }
  return 1;
}

std::int32_t VARCommandDescriber::setSubCommandDescription(unsigned index) {
  static const std::array<Subcommand, 8> table = syntaxTable();
  if (index >= table.size()) {
    std::cerr << "Error: VARCommandDescriber::setSubCommandDescription - Unknown sub-command\n";
    return 1;
  }
  commandDescriptor_->addSubComDesc(descriptorOf(table[index]));
  return 0;
}

}  // namespace varmodel
