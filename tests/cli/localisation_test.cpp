// Runs in German beside the same runs in English.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "program.h"
#include "workbench/base/json.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using Json = rapidjson::Value;

rapidjson::Document parse(const std::string& text) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str(), text.size());
  return document;
}

// Walks two documents of one shape: numbers must be the same, texts that are the same are collected.
void compare(const Json& english, const Json& german, std::set<std::string>& sameTexts) {
  ASSERT_EQ(english.GetType(), german.GetType());
  if (english.IsNumber()) {
    EXPECT_EQ(english.GetDouble(), german.GetDouble());
  }
  if (english.IsString() && english == german) sameTexts.insert(english.GetString());
  if (english.IsArray()) {
    ASSERT_EQ(english.Size(), german.Size());
    for (rapidjson::SizeType i = 0; i < english.Size(); ++i) compare(english[i], german[i], sameTexts);
  }
  if (english.IsObject()) {
    ASSERT_EQ(english.MemberCount(), german.MemberCount());
    for (const auto& member : english.GetObject()) {
      ASSERT_TRUE(german.HasMember(member.name));
      const std::string name = member.name.GetString();
      // Names of kinds, chart programs, and the names of series, which colours refer to.
      if (name == "type" || name == "vizl" || name == "seriesname") continue;
      compare(member.value, german[member.name], sameTexts);
    }
  }
}

TEST(German, ShowsGermanTextsAndCommasWhileTheNumbersOfTheDocumentAreTheSame) {
  Workspace space;
  space.example("us_macro_quarterly.csv").example("us_macro.toml");
  const ProgramRun english = space.run({"run", "us_macro.toml", "--json", "en.json", "--lang", "en"});
  const ProgramRun german = space.run({"run", "us_macro.toml", "--json", "de.json", "--lang", "de"});
  ASSERT_EQ(german.exitCode, 0) << german.err;
  EXPECT_EQ(german.err, "");
  EXPECT_THAT(german.out, AllOf(HasSubstr("Vektorautoregressive Modelle\n"), HasSubstr("\nDeskriptive Statistik\n"),
                                HasSubstr("7221,172"), Not(HasSubstr("7221.172")), HasSubstr("3,8e-08"),
                                HasSubstr("Diagramm: Prognose - realgdp (398 Punkte)"),
                                HasSubstr("gespeichert: us_macro"), HasSubstr("Verzögerung 2 liegt unter MAXLAG 8"),
                                HasSubstr("MINLAG=2 MAXLAG=2"), Not(HasSubstr("keine Ausgabe"))));

  std::set<std::string> sameTexts;
  const rapidjson::Document en = parse(space.read("en.json"));
  const rapidjson::Document de = parse(space.read("de.json"));
  compare(en["documents"][0]["document"], de["documents"][0]["document"], sameTexts);
  EXPECT_TRUE(en["documents"][0]["items"] == de["documents"][0]["items"]);
  const std::regex data("real\\w+(\\(t-\\d\\))?|\\d{4}Q\\d|\\d+|");
  std::erase_if(sameTexts, [&](const std::string& text) { return std::regex_match(text, data); });
  EXPECT_THAT(sameTexts, testing::UnorderedElementsAre("Vector Autoregressive Models", " ", "Variable", "N", "Minimum",
                                                       "Maximum", "AIC", "BIC", "HQIC", "MSE", "RMSE", "MAE", "MAPE",
                                                       "Descriptive Statistics", "Correlation Matrix of Residuals",
                                                       "Sig.", "df", "t"));
}

TEST(German, ItemsKeepTheirLastingNames) {
  Workspace space;
  space.example("us_macro_quarterly.csv").example("us_macro_analyze.toml");
  std::vector<rapidjson::Document> records;
  for (const std::string code : {"en", "de"}) {
    ASSERT_EQ(space.run({"run", "us_macro_analyze.toml", "--json", "out.json", "--lang", code}).exitCode, 0);
    records.push_back(parse(space.read("out.json")));
  }
  const Json& english = records[0]["documents"][0]["items"];
  EXPECT_TRUE(english == records[1]["documents"][0]["items"]);
  std::set<std::string> ids;
  for (const Json& id : english.GetArray()) {
    ids.insert(id.GetString());
    EXPECT_TRUE(std::regex_match(id.GetString(), std::regex("[a-z-]+(:.+)?"))) << id.GetString();
  }
  EXPECT_EQ(ids.size(), english.Size());
  EXPECT_THAT(ids, testing::IsSupersetOf({"model-summary", "granger-causality", "roots-chart"}));
}

TEST(German, MessagesNotesAndHintsAreGerman) {
  struct Case {
    std::string command;  // after its endogenous variables
    std::string toml;
    std::vector<std::string> wanted;
  };
  const std::string method = "MAXLAG=2\n/METHOD TYPE=[OLS]";
  const std::string query =
      "query = \"SELECT * REPLACE (CASE WHEN year = 1980 AND quarter = 1 THEN NULL ELSE realgdp END AS realgdp) FROM "
      "source\"";
  const std::vector<Case> cases = {
      {method + "\n/MODELSTATISTICS MODELFIT=[PARAMETERS EIGEN]",
       "",
       {"Warnung: Wenn EIGEN in MODELFIT", "Hinweis: Der Lauf endet hier."}},
      {"MAXLAG=2", "", {"Schritt 3, der Prüfung", "Die wahrscheinliche Ursache: Der Unterbefehl METHOD fehlt"}},
      {"MAXLAG=9\n/METHOD TYPE=[OLS]",
       "query = \"SELECT * FROM source LIMIT 20\"",
       {"Fehler: Zu wenige Beobachtungen", "Mit 20 Zeilen, 2 endogenen und 0 exogenen Variablen ist 5 das größte"}},
      {method,
       "[variables.realcons]\nlevel = \"ordinal\"",
       {"Fehler: Nur Variablen mit gültigem Messniveau sind zulässig. realcons erfüllt"}},
      {method, query, {"Zeilen: 203 gelesen, 202 verwendet, 1 ausgeschlossen (realgdp fehlt in 1; die ersten davon: "}},
      {"realinv LAG=[AIC BIC] MAXLAG=8\n/METHOD TYPE=[OLS]",
       "",
       {"(AIC wählte die Verzögerung 4, BIC wählte die Verzögerung 2)"}},
  };
  Workspace space;
  space.example("us_macro_quarterly.csv");
  for (const Case& one : cases) {
    space.file("job.toml", "command = '''\nVARMODEL\n/MODEL ENDOGENOUS=realgdp realcons " + one.command +
                               "\n'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n" + one.toml);
    const ProgramRun run = space.run({"run", "job.toml", "--lang", "de"});
    const std::string seen = unwrapped(run.out + run.err);
    for (const std::string& text : one.wanted) EXPECT_THAT(seen, HasSubstr(text)) << one.command;
  }
}

TEST(Language, UnknownCodesAreRefusedWithTheLanguagesThereAre) {
  Workspace space;
  space.example("us_macro_quarterly.csv").example("us_macro.toml");
  for (const std::string code : {"xx", "DE", "../locale/de", ""}) {
    const ProgramRun run = space.run({"run", "us_macro.toml", "--lang", code});
    EXPECT_EQ(run.exitCode, 2) << code;
    EXPECT_EQ(run.out, "") << code;
    EXPECT_THAT(run.err, HasSubstr("Choose one of: de, en."));
  }
}

}  // namespace
