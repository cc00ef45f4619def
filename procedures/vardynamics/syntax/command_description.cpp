#include "procedures/vardynamics/syntax/command_description.h"

#include <utility>
#include <vector>

#include "procedures/common/command_table.h"
#include "procedures/vardynamics/data/horizon.h"
#include "procedures/vardynamics/syntax/keywords.h"

namespace vardynamics {
namespace {

using procedures::keywordList;
using procedures::keywordsOf;
using procedures::Parameter;
using procedures::Subcommand;

Parameter oneKeyword(const char* name, std::vector<std::string> keywords) {
  return {.name = name, .kind = codes::kKeyword, .keywords = std::move(keywords)};
}

Parameter yesOrNo(const char* name) {
  return oneKeyword(name, {"NO", "YES"});
}

Parameter atLeast(const char* name, double least) {
  return {.name = name, .kind = codes::kNumber, .lower = {{least, codes::kLowerBoundOfFirstKind}}};
}

Parameter within(const char* name, double least, double most) {
  Parameter parameter = atLeast(name, least);
  parameter.upper = {{most, codes::kUpperBoundOfSecondKind}};
  return parameter;
}

Parameter percentages(const char* name) {
  Parameter parameter = within(name, 0, 100);
  parameter.kind = codes::kNumberList;
  return parameter;
}

Parameter variables(const char* name, bool required = false) {
  return {.name = name, .kind = codes::kVariableList, .required = required};
}

Parameter flag(const char* name) {
  return {.name = name, .kind = codes::kOptionalName};
}

Subcommand model() {
  return {.name = "MODEL",
          .parameters = {variables("ENDOGENOUS", true), variables("EXOGENOUS"), atLeast("XLAGS", 0), atLeast("LAG", 1),
                         oneKeyword("SELECT", spellings(kCriteria)), atLeast("MINLAG", 1), atLeast("MAXLAG", 1),
                         oneKeyword("DETERMINISTIC", spellings(kDeterministics)), yesOrNo("SEASONAL")}};
}

std::vector<Subcommand> syntaxTable() {
  return {
      {.name = ""},
      model(),
      {.name = "STABILITY"},
      {.name = "TESTS", .parameters = {keywordList("TYPE", false, keywordsOf(kTests)), atLeast("LAGS", 1)}},
      {.name = "CAUSALITY",
       .parameters = {keywordList("TYPE", false, keywordsOf(kCausalities)), atLeast("AUGMENT", 0)}},
      {.name = "FORECAST",
       .parameters = {within("HORIZON", 1, kLongestHorizon), oneKeyword("INTERVAL", spellings(kIntervals)),
                      yesOrNo("CONDITIONAL")}},
      {.name = "PLOT", .parameters = {keywordList("TYPE", false, keywordsOf(kPlots))}},
      {.name = "SAVE",
       .parameters = {{.name = "FILE", .kind = codes::kFileName, .required = true, .saysQualification = false},
                      flag("FORECASTS"),
                      flag("RESIDUALS")}},
      {.name = "AUXILIARY", .parameters = {percentages("CILEVEL")}},
      {.name = "MISSING", .parameters = {oneKeyword("USERMISSING", {"EXCLUDE", "INCLUDE"})}},
  };
}

}  // namespace

void describeCommand(CommandDescriptor& command) {
  for (const Subcommand& subcommand : syntaxTable()) command.addSubComDesc(procedures::descriptorOf(subcommand));
}

}  // namespace vardynamics
