#include "procedures/vardynamics/syntax/command_description.h"

#include <limits>
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

// Names of variables that may stand in other lists too.
Parameter namesOf(const char* name, std::vector<std::string> variables) {
  return {.name = name, .kind = codes::kKeywordList, .keywords = std::move(variables)};
}

Parameter flag(const char* name) {
  return {.name = name, .kind = codes::kOptionalName};
}

Subcommand model() {
  return {.name = "MODEL",
          .parameters = {variables("ENDOGENOUS", true), variables("EXOGENOUS"), atLeast("XLAGS", 0), atLeast("LAG", 1),
                         oneKeyword("SELECT", spellings(criteria())), atLeast("MINLAG", 1), atLeast("MAXLAG", 1),
                         oneKeyword("DETERMINISTIC", spellings(kDeterministics)), yesOrNo("SEASONAL")}};
}

Subcommand impulse(const std::vector<std::string>& variables) {
  std::vector<std::string> cumulative = variables;
  cumulative.emplace_back(kAllSeries);
  return {.name = "IMPULSE",
          .parameters = {within("HORIZON", 1, kLongestHorizon), keywordList("TYPE", false, keywordsOf(kShockTypes)),
                         oneKeyword("SIZE", {"SD", "UNIT"}), namesOf("CUMULATIVE", std::move(cumulative)),
                         namesOf("ORDER", variables), namesOf("SHOCKS", variables),
                         oneKeyword("BANDS", spellings(kResponseBands)), yesOrNo("SIMULTANEOUS"),
                         oneKeyword("RESAMPLE", spellings(kResamplings))}};
}

Subcommand decomposition(const std::vector<std::string>& variables) {
  return {.name = "DECOMPOSITION",
          .parameters = {keywordList("TYPE", false, keywordsOf(kDecompositions)), within("HORIZON", 1, kLongestHorizon),
                         oneKeyword("BANDS", spellings(kShareBands)), namesOf("ORDER", variables)}};
}

Subcommand backtest() {
  return {.name = "BACKTEST",
          .parameters = {atLeast("ORIGINS", 1), within("HORIZON", 1, kLongestHorizon),
                         oneKeyword("WINDOW", {"EXPANDING", "ROLLING"}), atLeast("STEP", 1)}};
}

std::vector<Subcommand> syntaxTable(const std::vector<std::string>& variables) {
  return {
      {.name = ""},
      model(),
      {.name = "STABILITY"},
      {.name = "TESTS", .parameters = {keywordList("TYPE", false, keywordsOf(kTests)), atLeast("LAGS", 1)}},
      {.name = "CAUSALITY",
       .parameters = {keywordList("TYPE", false, keywordsOf(kCausalities)), atLeast("AUGMENT", 0)}},
      {.name = "FORECAST",
       .parameters = {within("HORIZON", 1, kLongestHorizon), oneKeyword("INTERVAL", spellings(kIntervals)),
                      yesOrNo("CONDITIONAL"), yesOrNo("SIMULTANEOUS")}},
      impulse(variables),
      decomposition(variables),
      backtest(),
      {.name = "PLOT", .parameters = {keywordList("TYPE", false, keywordsOf(kPlots))}},
      {.name = "BOOTSTRAP",
       .parameters = {within("REPLICATIONS", kFewestReplications, kMostReplications),
                      within("SEED", 0, std::numeric_limits<std::int32_t>::max())}},
      {.name = "SAVE",
       .parameters = {{.name = "FILE", .kind = codes::kFileName, .required = true, .saysQualification = false},
                      flag("FORECASTS"),
                      flag("RESIDUALS"),
                      flag("SHOCKS"),
                      flag("BACKTEST")}},
      {.name = "AUXILIARY", .parameters = {percentages("CILEVEL")}},
      {.name = "MISSING", .parameters = {oneKeyword("USERMISSING", {"EXCLUDE", "INCLUDE"})}},
  };
}

}  // namespace

void describeCommand(CommandDescriptor& command, const std::vector<std::string>& variables) {
  for (const Subcommand& subcommand : syntaxTable(variables))
    command.addSubComDesc(procedures::descriptorOf(subcommand));
}

}  // namespace vardynamics
