// Every dictionary holds every text of the sources, with its markers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <utility>
#include <vector>

#include "source_texts.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/base/json.h"

namespace {

using testing::AllOf;
using testing::Contains;

using Entries = std::vector<std::pair<std::string, std::string>>;

// Of every dictionary by its file name.
std::map<std::string, Entries> dictionaries() {
  std::map<std::string, Entries> found;
  for (const auto& file : std::filesystem::directory_iterator(VARMODEL_SOURCE_DIR "/locale")) {
    rapidjson::Document document;
    const std::string content = workbench::contents(file.path());
    document.Parse<rapidjson::kParseValidateEncodingFlag>(content.c_str(), content.size());
    Entries& entries = found[file.path().filename()];
    if (document.HasParseError() || !document.IsObject()) continue;
    for (const auto& entry : document.GetObject()) {
      entries.emplace_back(entry.name.GetString(), entry.value.IsString() ? entry.value.GetString() : "");
    }
  }
  return found;
}

std::set<std::string> markersOf(const std::string& text) {
  static const std::regex marker("\\^[1-9]");
  return {std::sregex_token_iterator(text.begin(), text.end(), marker), {}};
}

// What the reader of the sources must find: one text of each way to give one.
TEST(SourceTexts, AreFoundWhereverTheyAreGiven) {
  EXPECT_THAT(lookedUpKeys(), AllOf(Contains("Goodness of Fit"), Contains("Maximum"), Contains("HQIC"),
                                    Contains("Jarque-Bera Statistic"), Contains("ACF Residuals -"), Contains("MAPE"),
                                    Contains("warning"), Contains("Chart: ^1 (^2 points)"),
                                    Contains("To have everything for lag ^1, run this command:\n^2")));
  EXPECT_THAT(procedureMessages(),
              AllOf(Contains("Turn off split file"), Contains("Covariance matrix is singular"),
                    Contains("^1 must be an integer."),
                    Contains("Only variables with a valid measurement scale are allowed. ^1 does not meet this "
                             "requirement."),
                    Contains("The criteria disagree (^1): the largest log-likelihood decided for lag ^2."),
                    Contains("the PREDICT THRU date names no period of the active dataset"),
                    Contains("No ^1 ACF values for variable '^2"),
                    Contains("MINLAG=^1 is greater than MAXLAG=^2. Give MINLAG=^2 or less.")));
}

TEST(Dictionaries, HoldEveryTextOfTheSourcesWithItsMarkersAndOuterBlanks) {
  std::set<std::string> wanted = lookedUpKeys();
  wanted.merge(procedureMessages());
  // A message that begins with a value is held once for each value.
  wanted.erase("^1 must be an integer.");
  wanted.insert({"MINLAG must be an integer.", "MAXLAG must be an integer.", "AIC chose lag ^1", "BIC chose lag ^1",
                 "HQIC chose lag ^1"});
  // Put together from pieces, or looked up by a name that is not a literal.
  wanted.insert({"0.5", "Vector Autoregressive Models", "VAR Dynamics",
                 "The forecast table is not created because no forecasts could be calculated. PREDICT THRU date is "
                 "before the last observed date."});
  const std::map<std::string, Entries> all = dictionaries();
  ASSERT_FALSE(all.empty());
  for (const auto& [file, entries] : all) {
    std::set<std::string> held;
    for (const auto& [key, text] : entries) {
      EXPECT_TRUE(held.insert(key).second) << file << " holds a key twice: " << key;
      ASSERT_NE(text, "") << file << ": " << key;
      EXPECT_EQ(markersOf(text), markersOf(key)) << file << ": " << key;
      EXPECT_TRUE(key.back() != ' ' || text.back() == ' ') << file << ": " << key;
    }
    for (const std::string& key : wanted) EXPECT_EQ(held.count(key), 1u) << file << " lacks: " << key;
  }
}

}  // namespace
