// The command's syntax as the host's parser receives it.

#include "syntax/command_describer.h"
#include "tests/procedure/procedure_fixture.h"
#include "workbench/language/command_description.h"

namespace varmodel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using workbench::ParameterKind;

using Keywords = std::vector<std::string>;

struct Parameter {
  std::string subcommand;
  std::string name;
  ParameterKind kind;
  bool brackets = false;
  Keywords keywords = {};
  std::optional<double> lower = {};
  std::optional<double> upper = {};

  bool operator==(const Parameter&) const = default;
};

void PrintTo(const Parameter& parameter, std::ostream* stream) {
  *stream << parameter.subcommand << ' ' << parameter.name << ' ' << static_cast<int>(parameter.kind);
}

// Every parameter that was described, in order.
std::vector<Parameter> parametersOf(const CommandDescriptor& description) {
  std::vector<Parameter> all;
  for (const SubComDescriptor& subcommand : description.state().subcommands) {
    for (const ParamDescriptor& parameter : subcommand.state().parameters) {
      const ParamDescriptor::State& state = parameter.state();
      all.push_back(
          {subcommand.state().name, state.name, state.kind, state.brackets, state.keywords, state.lower, state.upper});
    }
  }
  return all;
}

std::vector<std::string> subcommandsOf(const CommandDescriptor& description) {
  std::vector<std::string> names;
  for (const SubComDescriptor& subcommand : description.state().subcommands) names.push_back(subcommand.state().name);
  return names;
}

const std::vector<Parameter> kDescribed = {
    {"MODEL", "ENDOGENOUS", ParameterKind::variableList},
    {"MODEL", "EXOGENOUS", ParameterKind::variableList},
    {"MODEL", "LAG", ParameterKind::keywordList, true, {"AIC", "BIC", "HQIC"}},
    {"MODEL", "MINLAG", ParameterKind::number, false, {}, 1.0},
    {"MODEL", "MAXLAG", ParameterKind::number, false, {}, 1.0, 25.0},
    {"METHOD", "TYPE", ParameterKind::keywordList, true, {"OLS"}},
    {"MODELSTATISTICS",
     "MODELFIT",
     ParameterKind::keywordList,
     true,
     {"DESCRIPTIVES", "GOODFIT", "PARAMETERS", "RES", "RESIDACF", "MSE", "RMSE", "MAE", "MAPE", "RSQUARE", "ARSQUARE",
      "CORRMATRIX", "EIGEN", "TNORM", "TAUTO", "FORECASTS"}},
    {"SERIESPLOT",
     "PLOT",
     ParameterKind::keywordList,
     true,
     {"TIMESERIES", "ACF", "RES", "RESCOMB", "RESACF", "RESACFCOMB", "FIT", "FORECAST"}},
    {"SAVE", "FILE", ParameterKind::file},
    {"SAVE", "PREDICTED", ParameterKind::optionalName},
    {"SAVE", "NRESIDUAL", ParameterKind::optionalName},
    {"AUXILIARY", "CILEVEL", ParameterKind::number, false, {}, 0.0, 100.0},
    {"MISSING", "USERMISSING", ParameterKind::keyword, false, {"EXCLUDE", "INCLUDE"}},
};

class DescriptionTest : public ProcedureTest {
 protected:
  CommandDescriptor descriptor{"VARMODEL"};
  VARCommandDescriber describer{&descriptor};
};

TEST_F(DescriptionTest, EightSubcommandsInOrderWithTheirParameters) {
  EXPECT_EQ(describer.describeCommand(), 0);
  EXPECT_THAT(subcommandsOf(descriptor),
              ElementsAre("", "MODEL", "METHOD", "MODELSTATISTICS", "SERIESPLOT", "SAVE", "AUXILIARY", "MISSING"));
  EXPECT_EQ(parametersOf(descriptor), kDescribed);
  EXPECT_THAT(err.lines(), IsEmpty());
}

TEST_F(DescriptionTest, AnIndexBeyondTheTableIsRefused) {
  EXPECT_EQ(describer.setSubCommandDescription(1), 0);
  EXPECT_EQ(describer.setSubCommandDescription(8), 1);
  EXPECT_THAT(subcommandsOf(descriptor), ElementsAre("MISSING"));
  EXPECT_THAT(err.lines(), ElementsAre("Error: VARCommandDescriber::setSubCommandDescription - Unknown sub-command"));
}

TEST_F(DescriptionTest, TheParserHoldsTheCommandToItsBounds) {
  number("a", {1, 2});
  number("b", {1, 2});
  const std::pair<const char*, bool> commands[] = {
      {"MODEL ENDOGENOUS=a b MAXLAG=25", true}, {"MODEL ENDOGENOUS=a b MAXLAG=26", false},
      {"MODEL ENDOGENOUS=a b MINLAG=0", false}, {"AUXILIARY CILEVEL=0", true},
      {"AUXILIARY CILEVEL=100", true},          {"AUXILIARY CILEVEL=100.5", false},
      {"MISSING USERMISSING=BOTH", false},      {"METHOD TYPE=[GLS]", false},
      {"SAVE FILE='x.csv' PREDICTED", true}};
  for (const auto& [command, valid] : commands) {
    session.commandText = std::string("VARMODEL /") + command;
    int parserResult = -1;
    const ParsedCommand parsedCommand(parserResult);
    EXPECT_EQ(parserResult == 0, valid) << command;
  }
}

}  // namespace
}  // namespace varmodel
