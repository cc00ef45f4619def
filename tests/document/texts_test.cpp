// Texts of the session's language: markers, filled-in messages, the languages of a folder.

#include "workbench/edge/texts.h"

#include "tests/document/document_fixture.h"
#include "workbench/base/errors.h"
#include "workbench/base/languages.h"

namespace workbench {
namespace {

class TextsTest : public SessionTest {
 protected:
  void use(const std::string& content) {
    write(content);
    session.language = readLanguage(session.dictionaryFolder, "de");
  }
};

TEST_F(TextsTest, ArgumentsFillTheMarkersOfTheTranslation) {
  EXPECT_EQ(tr("^1 of ^2", 3, "x"), "3 of x") << "English needs no dictionary";
  use(R"({"^1 of ^2": "von ^2: ^1"})");
  EXPECT_EQ(tr("^1 of ^2", std::size_t{3}, "x"), "von x: 3");
  EXPECT_EQ(tr("^1 of ^2", "^2", "^1"), "von ^1: ^2") << "markers inside arguments are text";
  EXPECT_EQ(tr("^1 and ^1 and ^2 ^", "a"), "a and a and ^2 ^");
}

TEST_F(TextsTest, FinishedMessagesAreFoundByTheirPattern) {
  use(R"({"whole": "ganz", "lag ^1 below ^2: ^2, ^1.": "^1 unter ^2", "The ^1 must be whole.": "^1 muss ganz sein.",
          "The MAXLAG must ^1 whole.": "genauer: ^1", "^1 whole.": "zu weit: ^1",
          "they disagree (^1).": "uneins (^1).", "A chose ^1": "A nahm ^1", "B chose ^1": "B nahm ^1",
          "name": "Name", "number": 7})");
  const std::pair<const char*, const char*> cases[] = {
      {"whole", "ganz"},
      {"number", "number"},
      {"lag 2 below 20: 20, 2.", "2 unter 20"},
      {"lag 2 below 20: 20, 3.", "lag 2 below 20: 20, 3."},  // ^1 cannot be 2 and 3
      {"The x must be whole.", "x muss ganz sein."},
      {"The MAXLAG must be whole.", "genauer: be"},         // the longer key
      {"It is whole.", "It is whole."},                     // no key that begins with a marker
      {"The name must be whole.", "name muss ganz sein."},  // arguments are data
      {"they disagree (A chose 1, B chose 2).", "uneins (A nahm 1, B nahm 2)."},
  };
  for (const auto& [english, german] : cases) EXPECT_EQ(session.language.translate(english), german) << english;
}

TEST_F(TextsTest, LanguagesAreTheFilesOfTheFolderAndDamagedOnesAreRefused) {
  use("{}");
  std::ofstream(session.dictionaryFolder / "notes.txt") << "{}";
  EXPECT_THAT(availableLanguages(session.dictionaryFolder), testing::ElementsAre("de", "en"));
  EXPECT_THAT(availableLanguages("no such folder"), testing::ElementsAre("en"));
  EXPECT_THROW(readLanguage(session.dictionaryFolder, "fr"), UsageError);
  EXPECT_THROW(use("[1"), UsageError);
}

}  // namespace
}  // namespace workbench
