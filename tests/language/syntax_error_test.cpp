// Commands that are not valid: what the user is told, and that no byte sequence does harm.

#include <chrono>
#include <random>

#include "parser_fixture.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST_F(ParserTest, ErrorShowsThePlace) {
  EXPECT_NE(0, parse("VARMODEL\n  /MODEL ENDOGENOUS=realgdp realcns\n         MAXLAG=4"));
  EXPECT_EQ(
      "line 2, column 29: there is no variable \"realcns\" in the data. Did you mean \"realcons\"?\n"
      "    /MODEL ENDOGENOUS=realgdp realcns\n"
      "                              ^~~~~~~",
      firstMessage());
  ASSERT_EQ(1u, session_.messages.size());
  EXPECT_EQ(workbench::Message::Kind::error, session_.messages[0].kind);
  EXPECT_EQ(nullptr, result_->getSubComObj("MODEL"));
}

TEST_F(ParserTest, EveryMistakeIsNamedWithItsRemedy) {
  struct Case {
    const char* command;
    std::size_t column;
    const char* text;
  };
  const Case cases[] = {
      {"", 1, "the command begins with its name, VARMODEL."},
      {"VARMODL /METHOD TYPE=OLS", 1, "there is no command \"VARMODL\". Did you mean \"VARMODEL\"?"},
      {"VARMODEL PREDCIT", 10, "VARMODEL has no global keyword \"PREDCIT\". Did you mean \"PREDICT\"?"},
      {"VARMODEL PREDICT=3", 17, "PREDICT takes no value."},
      {"VARMODEL METHOD TYPE=OLS", 10, "\"METHOD\" is a subcommand; it begins with a slash: /METHOD."},
      {"VARMODEL TYPE=OLS", 10, "\"TYPE\" is a parameter of the subcommand METHOD."},
      {"VARMODEL /", 10, "a slash begins a subcommand, but no name follows."},
      {"VARMODEL /METHOD=OLS", 17, "\"=\" does not belong here; what may follow is PARAM=value or /SUBCOMMAND."},
      {"VARMODEL /METHOD TYPE OLS", 18, "TYPE lacks its equals sign and value"},
      {"VARMODEL /METHOD TYPE=OLS type=OLS", 27, "TYPE is given twice."},
      {"VARMODEL /METHOD TYPE=", 18, "TYPE has no value; it takes keywords of OLS."},
      {"VARMODEL /MODEL LAG=(AIC)", 21,
       "parentheses are not part of the command language. Write square brackets: LAG=[AIC BIC]."},
      {"VARMODEL /MODEL LAG=AIC BIC", 25, "several keywords stand in square brackets: LAG=[AIC BIC]."},
      {"VARMODEL /MODEL LAG=[XYZW]", 22, "LAG has no keyword \"XYZW\". Its keywords: AIC, BIC, HQIC."},
      {"VARMODEL /MODEL LAG=[AIC MAXLAG=3", 21, "this bracket is not closed by ]."},
      {"VARMODEL /MODEL LAG=[AIC [BIC]]", 26, "brackets do not stand within brackets."},
      {"VARMODEL /MODEL MINLAG=0.5", 24, "MINLAG takes a number of at least 1; \"0.5\" is out of bounds."},
      {"VARMODEL /MODEL MINLAG=inf", 24, "\"inf\" is no number."},
      {"VARMODEL /MODEL MAXLAG=3,5", 25, "\",\" does not belong here"},
      {"VARMODEL /MODEL MAXLAG=[3]", 24, "MAXLAG takes a number from 1 to 25, without brackets."},
      {"VARMODEL /AUXILIARY CILEVEL=[80 x]", 33, "CILEVEL takes a number of at most 100; \"x\" is no number."},
      {"VARMODEL /MODEL ENDOGENOUS=realgdp MAXLAG 3", 36, "If the parameter is meant, write MAXLAG=value."},
      {"VARMODEL /MODEL ENDOGENOUS=realgdp METHOD TYPE=OLS", 36, "If the subcommand is meant, write /METHOD."},
      {"VARMODEL /MODEL ENDOGENOUS=Größe xxxxxx", 34,
       "there is no variable \"xxxxxx\" in the data. Its variables: date, region, realgdp, realcons, realinv, net "
       "exports, Größe, to."},
      {"VARMODEL /MODEL ENDOGENOUS=realgdp EXOGENOUS=region TO realinv", 46,
       "\"realgdp\" is listed in ENDOGENOUS already."},
      {"VARMODEL /MODEL ENDOGENOUS=realinv TO realgdp", 28,
       "this range is reversed: \"realgdp\" stands before \"realinv\" in the data."},
      {"VARMODEL /MODEL ENDOGENOUS=TO realinv", 28, "a range needs a variable before TO"},
      {"VARMODEL /MODEL ENDOGENOUS=realgdp TO", 36, "a range needs a variable after TO"},
      {"VARMODEL /MODEL ENDOGENOUS=realgdp/cap", 36, "A name or path that holds a slash stands in quotes."},
      {"VARMODEL /SAVE FILE= /tmp/x.csv", 16, "FILE has no value; it takes a path, in quotes or right after"},
      {"VARMODEL /SAVE FILE='out.csv", 21, "this quote is not closed on its line."},
      {"VARMODEL /* open", 10, "this comment is not closed by */."},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.command);
    EXPECT_NE(0, parse(each.command));
    EXPECT_THAT(firstMessage(), StartsWith("line 1, column " + std::to_string(each.column) + ": "));
    EXPECT_THAT(firstMessage(), HasSubstr(each.text));
  }
}

TEST_F(ParserTest, OneErrorASubcommand) {
  EXPECT_NE(0, parse("VARMODEL /MODEL ENDOGENOUS=nothing LAG=zzz\n/METHOD TYPE='OLS\n/MISSING USERMISSING=[INCLUDE]"));
  ASSERT_EQ(3u, session_.messages.size());
  EXPECT_THAT(session_.messages[0].text, HasSubstr("nothing"));
  EXPECT_THAT(session_.messages[1].text, StartsWith("line 2, column 14: this quote"));
  EXPECT_THAT(session_.messages[2].text, HasSubstr("USERMISSING takes one keyword of EXCLUDE, INCLUDE, without"));
}

class Robustness : public ParserTest {
 protected:
  // A refusal comes with messages, of bounded number and size.
  int parseBounded(const std::string& command) {
    const int status = parse(command);
    EXPECT_EQ(status == 0, session_.messages.empty());
    EXPECT_LE(session_.messages.size(), 20u);
    for (const workbench::Message& message : session_.messages) EXPECT_LT(message.text.size(), 4000u);
    return status;
  }
};

TEST_F(Robustness, MutatedCommandsGiveAParseOrAnError) {
  const std::string valid =
      "VARMODEL PREDICT\n /MODEL ENDOGENOUS=realgdp TO realinv EXOGENOUS='net exports' \"Größe\" LAG=[AIC BIC] "
      "MAXLAG=4\n"
      " /SAVE FILE=out/x.csv PREDICTED=p NRESIDUAL /METHOD TYPE=[OLS] # end\n /MISSING /* c */ USERMISSING=INCLUDE.";
  ASSERT_EQ(0, parse(valid)) << firstMessage();
  const std::string alphabet = std::string("\0\n\r\t '\"/=,[]()#*.-+eT0\x80\xC3\xE2\xF4\xFF", 27);
  std::mt19937 random(20240611);
  const auto below = [&](std::size_t bound) { return static_cast<std::size_t>(random()) % bound; };
  const auto start = std::chrono::steady_clock::now();
  std::size_t refused = 0;
  constexpr int kRounds = 20000;
  for (int round = 0; round < kRounds; ++round) {
    std::string command = valid;
    for (std::size_t change = 0; change <= below(4); ++change) {
      const std::size_t at = below(command.size());
      const std::size_t length = below(3) == 0 ? below(30) : 1;
      const std::string inserted = below(2) == 0 ? std::string(1, alphabet[below(alphabet.size())])
                                                 : valid.substr(below(valid.size()), below(20));
      command.replace(at, below(2) == 0 ? length : 0, inserted);
    }
    if (parseBounded(command) != 0) ++refused;
  }
  EXPECT_GT(refused, kRounds / 4u);
  EXPECT_LT(refused, kRounds * 99u / 100u);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(Robustness, LongTextIsReadInBoundedTime) {
  constexpr std::size_t kBytes = 1 << 20;
  const auto repeated = [](const std::string& unit) {
    std::string text;
    while (text.size() < kBytes) text += unit;
    return text;
  };
  const auto start = std::chrono::steady_clock::now();
  for (const char* unit :
       {"x", "/", " / ", "[", "'", "''", "#", "/*", "\n", "\xFF", "ö", ",", "realgdp ", "a=", "to "}) {
    for (const char* lead : {"", "VARMODEL /MODEL ENDOGENOUS=", "VARMODEL /MODEL LAG=[", "VARMODEL /SAVE FILE="}) {
      parseBounded(lead + repeated(unit));
    }
  }
  EXPECT_NE(0, parse("VARMODEL /MODEL MAXLAG=" + repeated("9")));
  EXPECT_NE(0, parse("VARMODEL /MODEL MAXLAG=0." + repeated("0") + "1"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
