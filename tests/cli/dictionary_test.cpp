// Every dictionary holds every text of the sources, with its markers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
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
using testing::Key;

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
                                    Contains("warning"), Contains("Chart: ^1 (^2 points)")));
  EXPECT_THAT(notices(), testing::IsSupersetOf({Key("varmodel.run-again"), Key("dates.gap"), Key("syntax.no-value")}));
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
  for (const auto& [id, told] : notices()) {
    for (const SourceNotice& notice : told) wanted.insert({notice.text, notice.remedy});
  }
  wanted.erase("");
  for (const char* unit : {"year", "quarter", "month", "week", "day", "hour", "minute", "second", "observation"}) {
    wanted.insert({unit, std::string(unit) + "s"});
  }
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

// The list of docs/messages.md: the first sentence is what a message means, the rest what to do.
std::string messageList() {
  std::string list;
  for (const auto& [id, told] : notices()) {
    const SourceNotice& notice = *told.begin();
    std::string text = std::regex_replace(notice.text, std::regex("\\^([1-9])"), "<$1>");
    text = std::regex_replace(text, std::regex("\\|"), "\\|");
    text = std::regex_replace(text, std::regex("\n\\s*"), " ");
    const std::size_t end = std::min(text.find(". "), text.size());
    const std::string rest = end == text.size() ? "" : text.substr(end + 2);
    const std::string more = std::regex_replace(notice.remedy, std::regex("\\|"), "\\|");
    list += "| `" + id + "` | " + text.substr(0, end + 1) + " | " + rest + (rest.empty() ? "" : " ") + more + " |\n";
  }
  return std::regex_replace(list, std::regex(" +\\|"), " |");
}

TEST(Messages, AreListedByTheirIdsWhichEachNameOne) {
  for (const auto& [id, told] : notices()) EXPECT_EQ(told.size(), 1u) << id << " names several texts";
  EXPECT_THAT(notices(), testing::SizeIs(testing::Gt(250u)));
  const std::string page = workbench::contents(VARMODEL_SOURCE_DIR "/docs/messages.md");
  const std::string rule = "|---|---|---|\n";
  const std::string listed = page.substr(page.find(rule) + rule.size());
  if (listed == messageList()) return;
  std::ofstream("messages.md") << page.substr(0, page.find(rule) + rule.size()) << messageList();
  ADD_FAILURE() << "docs/messages.md is behind the sources; what it should hold was written to "
                << std::filesystem::current_path() / "messages.md";
}

// Every text of a procedure that the sources hold is known by an id.
TEST(Messages, OfProceduresHaveIds) {
  std::set<std::string> known;
  for (const auto& [id, told] : notices()) {
    for (const SourceNotice& notice : told) known.insert(notice.text);
  }
  for (const std::string& text : procedureMessages()) EXPECT_TRUE(known.contains(text)) << "no id for: " << text;
}

}  // namespace
