// Commands that are valid: what the parse result hands out.

#include "parser_fixture.h"

namespace {

using testing::ElementsAre;

TEST_F(ParserTest, ReadsEveryKindOfParameter) {
  ASSERT_EQ(0,
            parse("varmodel Predict\n"
                  "  /model endogenous=RealGDP, realcons exogenous=\"net exports\" lag=[bic Aic,hqic] minlag=1.5\n"
                  "         maxlag=+25\n"
                  "  /Method Type=ols /SAVE FILE='it''s.csv' PREDICTED NRESIDUAL=err_ /MISSING USERMISSING=include."))
      << firstMessage();
  EXPECT_NE(nullptr, given("", "PREDICT"));
  EXPECT_THAT(variables("ENDOGENOUS"), ElementsAre("RealGDP", "realcons"));
  EXPECT_THAT(variables("EXOGENOUS"), ElementsAre("net exports"));
  EXPECT_THAT(texts("MODEL", "LAG"), ElementsAre("BIC", "AIC", "HQIC"));
  EXPECT_THAT(texts("MISSING", "USERMISSING"), ElementsAre("INCLUDE"));

  EXPECT_EQ(literal("SAVE", "FILE"), std::pair(std::string("it's.csv"), true));
  EXPECT_EQ(literal("SAVE", "NRESIDUAL"), std::pair(std::string("err_"), false));
  std::string text;
  bool quoted = false;
  EXPECT_FALSE(given("SAVE", "PREDICTED")->getStringOrLiteral(text, quoted));
  EXPECT_TRUE(given("METHOD", "TYPE")->getUpStringGeneric(text));
  EXPECT_EQ("OLS", text);

  int whole = -1;
  double number = 0.0;
  EXPECT_FALSE(given("MODEL", "MINLAG")->getIntegerValue(whole));
  EXPECT_EQ(-1, whole);
  EXPECT_TRUE(given("MODEL", "MINLAG")->getNumberValue(number));
  EXPECT_EQ(1.5, number);
  EXPECT_TRUE(given("MODEL", "MAXLAG")->getIntegerValue(whole));
  EXPECT_EQ(25, whole);
  using workbench::StageClock;
  EXPECT_EQ(0.0, session_.clock.between(StageClock::parseEnd, StageClock::validateEnd));  // a look marks no stage
}

TEST_F(ParserTest, NumberListsStandWithAndWithoutBrackets) {
  for (const std::string list : {"80, 97.5", "80 97.5", "[80 97.5]"}) {
    ASSERT_EQ(0, parse("VARMODEL /AUXILIARY CILEVEL=" + list + " /METHOD TYPE=OLS")) << firstMessage();
    std::vector<double> numbers;
    EXPECT_TRUE(given("AUXILIARY", "CILEVEL")->getNumberList(numbers));
    EXPECT_THAT(numbers, ElementsAre(80, 97.5));
    double one = 0.0;
    EXPECT_FALSE(given("AUXILIARY", "CILEVEL")->getNumberValue(one));
  }
}

TEST_F(ParserTest, RangesFollowTheDictionary) {
  ASSERT_EQ(0, parse("VARMODEL /MODEL ENDOGENOUS=REALGDP to realinv, 'net exports' TO größe EXOGENOUS='to'"))
      << firstMessage();
  EXPECT_THAT(variables("ENDOGENOUS"), ElementsAre("realgdp", "realcons", "realinv", "net exports", "Größe"));
  EXPECT_THAT(variables("EXOGENOUS"), ElementsAre("to"));
}

TEST_F(ParserTest, PathsNeedNoQuotes) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"FILE=/data/out.csv", "/data/out.csv"},
      {"FILE=out/pred.csv PREDICTED=p", "out/pred.csv"},
      {"FILE = ../a#b[1].csv", "../a#b[1].csv"},
      {"FILE=./out.csv.", "./out.csv"},
      {"FILE=C:\\out.csv /METHOD TYPE=[OLS]", "C:\\out.csv"},
      {"FILE=out.csv/* where */ PREDICTED", "out.csv"},
  };
  for (const auto& [command, path] : cases) {
    ASSERT_EQ(0, parse("VARMODEL /SAVE " + command)) << firstMessage();
    EXPECT_EQ(literal("SAVE", "FILE"), std::pair(path, false)) << command;
  }
}

TEST_F(ParserTest, CommentsAreBlanks) {
  ASSERT_EQ(0, parse("# first\nVARMODEL/* no\nblank */PREDICT # 'not a quote\n/METHOD/**/TYPE=[/* all */OLS] #.\n."))
      << firstMessage();
  EXPECT_NE(nullptr, given("", "PREDICT"));
  EXPECT_THAT(texts("METHOD", "TYPE"), ElementsAre("OLS"));
}

TEST_F(ParserTest, AbsentPartsAreNullAndListsAreLeftInTheSession) {
  ASSERT_EQ(0, parse("VARMODEL /MODEL ENDOGENOUS=realgdp TO realcons LAG=aic"));
  EXPECT_EQ(nullptr, given("", "PREDICT"));
  EXPECT_EQ(nullptr, given("METHOD", "TYPE"));
  EXPECT_THAT(session_.requestedLists["MODEL ENDOGENOUS"], ElementsAre("realgdp", "realcons"));
  EXPECT_THAT(session_.requestedLists["MODEL LAG"], ElementsAre("AIC"));
}

TEST_F(ParserTest, VariableCheckRefusesTextAndDates) {
  VarSpecObj check("ENDOGENOUS", "MODEL", description_, nullptr, true);
  EXPECT_TRUE(check.ValidateVariables({{"REALINV"}, {"realgdp"}}, 0));
  EXPECT_THAT(check.GetValidVarList(), ElementsAre(4, 2));
  EXPECT_TRUE(session_.messages.empty());

  EXPECT_FALSE(check.ValidateVariables({{"region"}, {"realcons"}, {"date"}, {"nothing"}}, 0));
  EXPECT_TRUE(check.GetValidVarList().empty());
  ASSERT_EQ(3u, session_.messages.size());
  EXPECT_THAT(firstMessage(), testing::HasSubstr("of the subcommand MODEL: the variable \"region\" holds text"));
  EXPECT_THAT(session_.messages[1].text, testing::HasSubstr("\"date\" holds dates"));
}

}  // namespace
