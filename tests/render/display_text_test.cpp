#include "workbench/render/display_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace workbench {
namespace {

using testing::ElementsAre;

TEST(DisplayText, MakesControlsVisibleAndKeepsEveryScript) {
  const std::pair<std::string, std::string> cases[] = {
      {"\x1b[31mred\x07\x7f", "^[[31mred^G^?"},
      {std::string("a\0b\r\nc\td", 8), "a^@b^M^Jc^Id"},
      {"\xc2\x9b[ \x9b[", "�[ �["},                         // CSI as one C1 character, and as a bare byte
      {"\xe2\x80\xae|\xe2\x81\xa6|\xe2\x80\xa8", "�|�|�"},  // override, isolate, line separator
      {"\xc0\xaf|\xed\xa0\x80|\xf5\x80\x80\x80|\xe2\x82", "��|���|����|��"},
      {"a\xe2\x80\x8b\xe2\x80\x8f\xef\xbb\xbf\xd8\x9c\xf3\xa0\x81\x81"
       "b\xc2\xad",
       "a�����b�"},                                        // without width
      {"a\u200db|ن\u200cم|ن\u200cx", "a�b|ن\u200cم|ن�x"},  // joiners
      {"مبيعات 日本 e\xcc\x81 👩‍💻", "مبيعات 日本 e\xcc\x81 👩‍💻"},
  };
  for (const auto& [text, visible] : cases) EXPECT_EQ(visibleText(text), visible);
  EXPECT_EQ(visibleLines("a\x1b\n\nb\r\n"), "a^[\n\nb^M\n");
}

TEST(DisplayText, CountsCellsNotBytes) {
  EXPECT_EQ(displayWidth("naïve Größe"), 11);
  EXPECT_EQ(displayWidth("e\xcc\x81te\xcc\x81"), 3);
  EXPECT_EQ(displayWidth("日本の輸出"), 10);
  EXPECT_EQ(displayWidth("한국"), 4);
  EXPECT_EQ(displayWidth("\u1112\u1161\u11ab"), 2) << "the same syllable from its letters";
  EXPECT_EQ(displayWidth("ｆｕｌｌ"), 8);
  EXPECT_EQ(displayWidth("ｶﾅ"), 2);
  EXPECT_EQ(displayWidth("🎉"), 2);
  EXPECT_EQ(displayWidth("…─"), 2);
  EXPECT_EQ(displayWidth("مبيعات"), 6);
  EXPECT_EQ(displayWidth("|\xe2\x80\x8b|"), 2) << "a zero-width space";
}

TEST(DisplayText, WrapsAtBlanksAndKeepsThoseInsideALine) {
  EXPECT_THAT(wrapText("Optimal lag:  2 .AIC : Lag 2 ", 40), ElementsAre("Optimal lag:  2 .AIC : Lag 2 "));
  EXPECT_THAT(wrapText("Optimal lag:  2 .AIC", 12), ElementsAre("Optimal lag:", "2 .AIC"));
  EXPECT_THAT(wrapText("ab abcdefgh c", 3), ElementsAre("ab", "abc", "def", "gh", "c"));
  EXPECT_THAT(wrapText("日本の輸出", 5), ElementsAre("日本", "の輸", "出"));
  EXPECT_THAT(wrapText("xe\xcc\x81y\xcc\x81z", 2), ElementsAre("xe\xcc\x81", "y\xcc\x81z"));
  EXPECT_THAT(wrapText("", 10), ElementsAre(""));
}

TEST(DisplayText, ShortensInTheMiddleSoThatLagsStayApart) {
  EXPECT_EQ(shortenText("consumption(t-1)", 16, "…"), "consumption(t-1)");
  EXPECT_EQ(shortenText("consumption(t-1)", 12, "…"), "consum…(t-1)");
  EXPECT_EQ(shortenText("consumption(t-1)", 12, "..."), "consu...t-1)");
  EXPECT_EQ(shortenText("日本の輸出高", 7, "…"), "日…出高");
  EXPECT_EQ(shortenText("consumption", 1, "..."), ".");
}

}  // namespace
}  // namespace workbench
