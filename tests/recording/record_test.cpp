// What a whole run asks of the host, in order.

#include <gmock/gmock.h>

#include "procedures/varmodel/driver/varmodel_entry.h"
#include "procedures/varmodel/syntax/command_describer.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

std::string linesOf(const std::vector<std::string>& lines) {
  std::string text = "\n";
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

TEST(Record, TheSyntaxIsDescribedNumberByNumber) {
  Host host;
  CommandDescriptor descriptor("VARMODEL");
  varmodel::VARCommandDescriber describer(&descriptor);
  host.calls.clear();
  EXPECT_EQ(describer.describeCommand(), 0);
  EXPECT_EQ(linesOf(host.calls), R"(
/(1,false,false)
/MODEL(1,false,false)
  ENDOGENOUS(16,true,true,0) qualif(0)
  EXOGENOUS(16,false,true,0) qualif(0)
  LAG(5,true,true,3) qualif(0) AIC BIC HQIC
  MINLAG(7,false,true,0) qualif(0) lower(1,1)
  MAXLAG(7,true,true,0) qualif(0) lower(1,1) upper(25,2)
/METHOD(1,false,false) export(2,false)
  TYPE(5,true,true,3) qualif(0) OLS
/MODELSTATISTICS(1,false,false) export(2,false)
  MODELFIT(5,true,true,3) qualif(0) DESCRIPTIVES GOODFIT PARAMETERS RES RESIDACF MSE RMSE MAE MAPE RSQUARE ARSQUARE)"
                                 R"( CORRMATRIX EIGEN TNORM TAUTO FORECASTS
/SERIESPLOT(1,false,false) export(2,false)
  PLOT(5,false,true,3) qualif(0) TIMESERIES ACF RES RESCOMB RESACF RESACFCOMB FIT FORECAST
/SAVE(1,false,false)
  FILE(23,true,true,0)
  PREDICTED(4,false,true,0) qualif(0)
  NRESIDUAL(4,false,true,0) qualif(0)
/AUXILIARY(1,false,false) export(2,false)
  CILEVEL(7,false,true,0) qualif(0) lower(0,2) upper(100,2)
/MISSING(1,false,false) export(2,false)
  USERMISSING(3,false,true,0) qualif(0) EXCLUDE INCLUDE
)");
  testing::internal::CaptureStderr();
  EXPECT_EQ(describer.setSubCommandDescription(8), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Error: VARCommandDescriber::setSubCommandDescription - Unknown sub-command\n");
}

TEST(Record, ObjectsAreMadeInOrderAndReleasedInReverse) {
  Host host;
  giveQuarters(host, 1993, 2);
  giveModel(host);
  host.command["MODELSTATISTICS"]["MODELFIT"].words = {"PARAMETERS"};
  host.command["SAVE"] = {{"FILE", {{"out"}, {}, true}}, {"PREDICTED", {}}};
  traceOf(VARMODEL);
  std::erase_if(host.calls, [](const std::string& call) { return call.starts_with('/'); });  // the syntax, as above
  const std::string reporter = R"(
SetCommandName("VARMODEL")
SetProcedureTitle("Vector Autoregressive Models"))";
  const auto fetch = [](int first, int second) {
    const std::string rest = ",false,true,true,true)\n";
    return "ACAVarValidSpecs(true,true,true)\nAddVariable(" + std::to_string(first) + rest + "AddVariable(" +
           std::to_string(second) + rest +
           "ACAInputAdapter()\nACAProcDataSourceIter(true)\n~ACAProcDataSourceIter\n~ACAInputAdapter\n"
           "~ACAVarValidSpecs\n";
  };
  const auto saved = [](const char* name, const char* label) {
    return std::string("MakeVariable(0,\"") + name + "\")\nSetName(\"" + name +
           "\")\nSetFormat(5,8,3)\nSetWriteFormat(5,8,3)\nSetMeasurementLevel(3)\nSetLabel(\"" + label + "\")\n";
  };
  EXPECT_EQ(linesOf(host.calls), R"(
BpProcedure("Vector Autoregressive Models",10)
ProcedureDataSource()
CommandDescriptor("VARMODEL")
VEXA_TokenSequence(true)
ParserMessage())" + reporter + R"(
CommandSpec()
UniversalParser()
ParserMessage()
UserCaseFileSpec())" + reporter + '\n' +
                                     fetch(3, 4) + R"(TfoDateHandler(false,0)
~TfoDateHandler
TfoDateHandler(false,0)
SetIndexes(1993 2)
ClosestCaseOffset(false)
~TfoDateHandler
TfoDateHandler(false,0)
~TfoDateHandler
VarSpecObj("ENDOGENOUS","MODEL",true)
ValidateVariables(0)
~VarSpecObj
)" + fetch(0, 1) + R"(Init("out",true,true)
ParserMessage())" + reporter + R"(
ParserMessage()
ACAVarValidSpecs(true,true,true)
StatJSONGenerator("Vector Autoregressive Models",""))" +
                                     reporter + R"(
getPathInstance(3)
FacSTDictionary("texts")
SetProcedure("Vector Autoregressive Models")
OPSCommonOutput(false)
StatJSONConverter()
build("VAR Model Parameters - a")
build("VAR Model Parameters - b")
generateOutput(2)
~StatJSONConverter
~OPSCommonOutput
UserOutputCaseFile()
SetLabel("VAR Model Predicted Values and Residuals")
)" + saved("PRE_1", "Predicted: a") + saved("PRE_2", "Predicted: b") +
                                     R"(VEXA_Case()
~VEXA_Case
~UserOutputCaseFile
~StatJSONGenerator
~ACAVarValidSpecs
~FacSTDictionary
~ParserMessage
~ParserMessage
~UserCaseFileSpec
~ParserMessage
~UniversalParser
~CommandSpec
~ParserMessage
~VEXA_TokenSequence
~CommandDescriptor
~ProcedureDataSource
~BpProcedure
)");
  EXPECT_THAT(host.savedCases, testing::SizeIs(11));  // twelve quarters, one lag
}

}  // namespace
}  // namespace recording
