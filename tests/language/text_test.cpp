// Words, places and names, apart from any command.

#include <gmock/gmock.h>

#include <random>

#include "workbench/base/suggest.h"
#include "workbench/base/text_excerpt.h"
#include "workbench/base/utf8.h"
#include "workbench/language/command_list.h"
#include "workbench/language/lexer.h"
#include "workbench/language/quoting.h"

namespace workbench {
namespace {

TEST(Utf8, InvalidBytesCountOneEach) {
  const std::vector<std::pair<std::string, std::size_t>> cases = {
      {"aé€😀", 4}, {"\x80", 1}, {"\xC0\xAF", 2}, {"\xE2\x82", 2}, {"\xED\xA0\x80", 3}, {"\xF4\x90\x80\x80", 4}};
  for (const auto& [bytes, characters] : cases) {
    EXPECT_EQ(characters, countCharacters(bytes));
    EXPECT_EQ(characters, decodeUtf8(bytes).size());
  }
  EXPECT_EQ("aé€😀", encodeUtf8(decodeUtf8("aé€😀")));
}

TEST(TextExcerpt, CountsCharactersAndSkipsCarriageReturns) {
  const std::string source = "first\r\n\tGröße x\r\n";
  const std::size_t x = source.find('x');
  EXPECT_EQ(2u, positionOf(source, x).line);
  EXPECT_EQ(8u, positionOf(source, x).column);
  EXPECT_EQ("   Größe x\n         ^", excerpt(source, {x, x + 1}));
  EXPECT_EQ("", excerpt(source, {source.size(), source.size()}));
  EXPECT_EQ("  \xEF\xBF\xBD\xEF\xBF\xBDx\n    ^", excerpt("\x01\xFFx", {2, 3}));
}

TEST(TextExcerpt, CutsLongLines) {
  const std::string source = std::string(500, 'a') + "BAD" + std::string(500, 'c');
  const std::string expected =
      "  ..." + std::string(40, 'a') + "BAD" + std::string(57, 'c') + "...\n" + std::string(45, ' ') + "^~~";
  EXPECT_EQ(expected, excerpt(source, {500, 503}));
}

TEST(Suggest, OffersOnlyWhatIsNear) {
  const std::vector<std::string> names = {"AIC", "BIC", "HQIC", "DESCRIPTIVES", "realcons", "realcost", "Größe"};
  const std::vector<std::pair<std::string, std::string>> cases = {{"aci", "AIC"},
                                                                  {"desc", "DESCRIPTIVES"},
                                                                  {"realcns", "realcons"},
                                                                  {"raelcost", "realcost"},
                                                                  {"DISCRIPTVIES", "DESCRIPTIVES"},
                                                                  {"grösse", "Größe"},
                                                                  {"b", ""},
                                                                  {"zzz", ""},
                                                                  {"real", ""},
                                                                  {"completely else", ""}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(expected, nearestName(text, names).value_or("")) << text;
  EXPECT_EQ("Known: a, b.", didYouMeanOrList("zzzz", {"a", "b"}, "Known").text());
}

TEST(CommandList, ACommandEndsAtAFullStopThatEndsAWord) {
  const std::string text = "A /B C=1.5 'x. y'. # no. end\nGröße. B /* x. */ D=a.b,c\t.\n .\tLAST E=\"f.csv\" /F\n";
  const std::vector<std::string> commands = splitCommands(text);
  ASSERT_EQ(4u, commands.size());
  EXPECT_EQ("A /B C=1.5 'x. y'.", commands[0]);
  for (std::size_t i = 0; i < commands.size(); ++i) {
    // Every character stands at its line and column.
    const std::string first = lex(commands[i]).front().text;
    const TextPosition seen = positionOf(commands[i], commands[i].find(first));
    const TextPosition wanted = positionOf(text, text.find(i == 2 ? "B /*" : first));
    EXPECT_EQ(wanted.line, seen.line) << first;
    EXPECT_EQ(wanted.column, seen.column) << first;
  }
  EXPECT_EQ(std::vector<std::string>{"A /B"}, splitCommands("A /B"));
  EXPECT_EQ(std::vector<std::string>{" . "}, splitCommands(" . "));
}

TEST(Quoting, AQuotedNameReadsBack) {
  std::vector<std::string> names = {"gdp", "TO", "to", "x.", "#x", "a/b", "o'brien", "net exports", "", "/*", "Größe"};
  const std::string alphabet = std::string("ab \t'\"/=,[]()#*.\0\xC3\xFF", 19);
  std::mt19937 random(7);
  for (int i = 0; i < 2000; ++i) {
    std::string name;
    for (auto length = random() % 6; length > 0; --length) name += alphabet[random() % alphabet.size()];
    names.push_back(name);
  }
  for (const std::string& name : names) {
    for (const char* after : {"", " .", "/METHOD"}) {
      const std::vector<Token> tokens = lex("N=" + quoteName(name) + after);
      ASSERT_GE(tokens.size(), 4u) << name;
      EXPECT_EQ(name, tokens[2].text);
      EXPECT_NE(*after == '/', tokens[3].kind == TokenKind::end) << name;
    }
  }
  EXPECT_EQ("gdp", quoteName("gdp"));
  EXPECT_EQ("\"TO\"", quoteName("TO"));
}

}  // namespace
}  // namespace workbench
