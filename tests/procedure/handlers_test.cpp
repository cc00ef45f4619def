// The subcommand handlers: what they accept, what they set, what they say.

#include "procedures/varmodel/syntax/subcommands.h"

#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kModel = "VARMODEL /MODEL ENDOGENOUS=a b LAG=[AIC] MINLAG=1 MAXLAG=2 ";
const std::string kModelMethod = kModel + "/METHOD TYPE=[OLS] ";

class HandlersTest : public ProcedureTest {
 protected:
  void SetUp() override {
    number("a", {1, 2, 3, 4, 5, 6});
    number("b", {2, 1, 4, 3, 6, 5});
    number("c", {0, 0, 1, 0, 1, 1}).level = workbench::MeasurementLevel::ordinal;
    number("d", {1, 1, 0, 0, 1, 0});
    text("name", {"x", "x", "x", "x", "x", "x"}, 1);
    session.baseFolder = testing::TempDir();
  }
};

TEST_F(HandlersTest, DefaultsHoldWhereNothingIsSaid) {
  const VARInputSettings& settings = validate("VARMODEL /MODEL ENDOGENOUS=b a /METHOD TYPE=[OLS]");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(settings.minLag, 1);
  EXPECT_EQ(settings.maxLag, 10);
  EXPECT_EQ(settings.ciLevel, 95.0);
  EXPECT_FALSE(settings.saveFile || settings.savePredicted || settings.saveResiduals);
  EXPECT_THAT(settings.endogenousNames, ElementsAre("b", "a"));
  EXPECT_THAT(settings.endogenousIndexes, ElementsAre(1, 0));
  EXPECT_THAT(settings.endogenousSeries, ElementsAre(ElementsAre(2, 1, 4, 3, 6, 5), ElementsAre(1, 2, 3, 4, 5, 6)));
}

TEST_F(HandlersTest, EverythingSaidIsRecorded) {
  const VARInputSettings& settings = validate(
      "VARMODEL /MODEL ENDOGENOUS=a b EXOGENOUS=c d LAG=[BIC HQIC] MINLAG=2 MAXLAG=3 /METHOD TYPE=[OLS] "
      "/SAVE FILE='r.csv' PREDICTED=P NRESIDUAL /AUXILIARY CILEVEL=97.5 /MISSING USERMISSING=INCLUDE "
      "/MODELSTATISTICS MODELFIT=[PARAMETERS EIGEN CORRMATRIX] /SERIESPLOT PLOT=[ACF ACF]");
  EXPECT_EQ(status, 0) << testing::PrintToString(errors());
  EXPECT_THAT(settings.exogenousNames, ElementsAre("c", "d"));
  EXPECT_THAT(settings.exogenousIndexes, ElementsAre(2, 3));
  EXPECT_THAT(settings.exogenousSeries, testing::SizeIs(2));
  EXPECT_TRUE(!settings.useAic && settings.useBic && settings.useHqic);
  EXPECT_EQ(settings.minLag, 2);
  EXPECT_EQ(settings.maxLag, 3);
  EXPECT_TRUE(settings.saveFile && settings.savePredicted && settings.saveResiduals);
  EXPECT_EQ(settings.saveFilePath, "r.csv");
  EXPECT_TRUE(settings.saveFileSpec.IsInit());
  EXPECT_EQ(settings.predictedPrefix, "P");
  EXPECT_EQ(settings.residualPrefix, "RES_");
  EXPECT_EQ(settings.ciLevel, 97.5);
  EXPECT_EQ(settings.userMissing, "INCLUDE");
  EXPECT_TRUE(settings.showParameters && settings.showEigen && settings.showCorrMatrix && settings.plotAcf);
}

TEST_F(HandlersTest, EveryFailureHasItsTextAndItsPlace) {
  struct Failure {
    std::string command;
    int index;                        // of the handler that fails
    std::vector<std::string> errors;  // empty: it fails without a message
    std::vector<std::string> warnings = {};
  };
  const Failure failures[] = {
      {"VARMODEL /METHOD TYPE=[OLS]", 2, {"MODEL subcommand is required"}},
      {"VARMODEL /MODEL MAXLAG=2 /METHOD", 2, {"ENDOGENOUS parameter is required in MODEL subcommand"}},
      {"VARMODEL /MODEL ENDOGENOUS=a", 2, {"At least 2 endogenous variables are required for VAR model estimation"}},
      {"VARMODEL /MODEL ENDOGENOUS=a c",
       2,
       {"Only variables with a valid measurement scale are allowed. c does not meet this requirement."}},
      {"VARMODEL /MODEL ENDOGENOUS=a b MINLAG=1.5", 2, {"MINLAG must be an integer."}},
      {"VARMODEL /MODEL ENDOGENOUS=a b MAXLAG=2.5", 2, {"MAXLAG must be an integer."}},
      {"VARMODEL /MODEL ENDOGENOUS=a b MINLAG=11", 2, {"MINLAG must not be greater than MAXLAG."}},
      {"VARMODEL /MISSING", 1, {"USERMISSING must be either EXCLUDE or INCLUDE."}},
      {kModel, 3, {}},
      {kModelMethod + "/MODELSTATISTICS", 4, {}},
      {kModelMethod + "/MODELSTATISTICS MODELFIT=[RES]", 4, {"PARAMETERS is required in MODELFIT."}},
      {kModelMethod + "/MODELSTATISTICS MODELFIT=[PARAMETERS EIGEN]",
       4,
       {},
       {"CORRMATRIX is required when EIGEN is specified in MODELFIT."}},
      {kModelMethod + "/SAVE PREDICTED", 6, {"Subcommand SAVE: FILE parameter is required."}},
      {kModelMethod + "/SAVE FILE=''", 6, {"Subcommand SAVE: FILE has a missing or invalid value."}},
      {kModelMethod + "/AUXILIARY", 7, {}},
  };
  for (const Failure& failure : failures) {
    SCOPED_TRACE(failure.command);
    session.messages.clear();
    validate(failure.command);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(errors(), failure.errors);
    EXPECT_EQ(warnings(), failure.warnings);
    EXPECT_EQ(err.lines().at(err.lines().size() - 3),
              "VARInputSettings::start - ERROR: Failed at subcommand index: " + std::to_string(failure.index));
  }
  validate("VARMODEL /MODEL ENDOGENOUS=a b EXOGENOUS=name MAXLAG=2 /METHOD TYPE=[OLS]");
  EXPECT_EQ(status, 1);
  EXPECT_THAT(errors(), Contains("At least one exogenous variable is required when EXOGENOUS parameter is specified."));
}

TEST_F(HandlersTest, BoundsBelongToTheirRange) {
  const auto parses = [&](const std::string& parameters) {
    session.commandText = "VARMODEL /METHOD TYPE=[OLS] " + parameters;
    ParsedCommand command;
    VARCommandDescriber(&command.descriptor).describeCommand();
    VEXA_TokenSequence tokens(true);
    return UniversalParser(tokens, command.spec, command.descriptor).getCommandSpecifications() == 0;
  };
  for (const char* within :
       {"/MODEL MINLAG=1", "/MODEL MAXLAG=1", "/MODEL MAXLAG=25", "/AUXILIARY CILEVEL=0", "/AUXILIARY CILEVEL=100"}) {
    EXPECT_TRUE(parses(within)) << within;
  }
  for (const char* beyond : {"/MODEL MINLAG=0", "/MODEL MAXLAG=0", "/MODEL MAXLAG=26", "/AUXILIARY CILEVEL=-0.001",
                             "/AUXILIARY CILEVEL=100.001"}) {
    EXPECT_FALSE(parses(beyond)) << beyond;
  }
}

TEST_F(HandlersTest, WhatIsRefusedFirstLeavesTheDataUnread) {
  session.splitVariables = {"d"};
  session.weightColumn = 3;
  validate("VARMODEL /MISSING");
  EXPECT_THAT(errors(), ElementsAre("Turn off split file"));
  session.splitVariables.clear();
  validate("VARMODEL /MISSING");
  EXPECT_THAT(errors(), ElementsAre("Turn off split file", "Remove Weight Variable"));
  session.weightColumn = -1;
  validate(kModelMethod + "/MISSING");
  EXPECT_THAT(session.passes, IsEmpty());
}

TEST_F(HandlersTest, ADatasetThatCannotBeReadIsReported) {
  for (workbench::Column& column : session.dataset.columns) column.numbers.clear();
  session.dataset.rowCount = 0;
  validate(kModelMethod);
  EXPECT_THAT(errors(), ElementsAre("The variables could not be read from the active dataset."));
}

TEST_F(HandlersTest, UserMissingValuesFollowTheSetting) {
  session.dataset.columns[0].userMissing = {3.0};
  EXPECT_EQ(validate(kModelMethod).endogenousSeries.front().size(), 5U);
  EXPECT_EQ(validate(kModelMethod + "/MISSING USERMISSING=INCLUDE").endogenousSeries.front().size(), 6U);
}

// Rows in which a series is missing, by column; the case number decides, not the count.
TEST_F(HandlersTest, BothListsMustKeepTheSameCases) {
  const struct {
    int endogenousRow;
    int exogenousRow;  // -1: none missing
    bool accepted;
  } cases[] = {{2, 2, true}, {-1, -1, true}, {2, -1, false}, {-1, 2, false}, {2, 3, false}};
  const workbench::Dataset complete = session.dataset;
  for (const auto& missing : cases) {
    session.dataset = complete;
    session.messages.clear();
    if (missing.endogenousRow >= 0) session.dataset.columns[0].numbers[2] = kSystemMissing;
    if (missing.exogenousRow >= 0) {
      session.dataset.columns[3].numbers[static_cast<std::size_t>(missing.exogenousRow)] = kSystemMissing;
    }
    validate("VARMODEL /MODEL ENDOGENOUS=a b EXOGENOUS=d MAXLAG=2 /METHOD TYPE=[OLS]");
    EXPECT_EQ(status, missing.accepted ? 0 : 1) << missing.endogenousRow << ' ' << missing.exogenousRow;
    if (missing.accepted) continue;
    EXPECT_THAT(errors(), ElementsAre("Endogenous and exogenous variables are missing in different cases. Keep only "
                                      "the cases that are complete in both."));
  }
}

}  // namespace
}  // namespace varmodel
