// The record of a run: its schema, and that a repetition differs in no byte.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document.h"
#include "program.h"
#include "tests/document/schema_check.h"

namespace {

using testing::HasSubstr;
using testing::Not;

std::string breach(const rapidjson::Document& record) {
  return workbench::breach(record, "varmodel-run.schema.json");
}

class Record : public testing::Test {
 protected:
  Record() { space.example("us_macro_quarterly.csv").example("us_macro.toml"); }

  ProgramRun run(std::vector<std::string> options) {
    options.insert(options.begin(), {"run", "us_macro.toml", "--json", "out.json", "--html", "out.html"});
    return space.run(options);
  }

  Workspace space;
};

TEST_F(Record, KeepsToItsSchema) {
  ASSERT_EQ(run({}).exitCode, 0);
  const OutputDocument output(space.read("out.json"));
  EXPECT_EQ(breach(output.record()), "");
  const auto& documents = output.record()["documents"];
  EXPECT_EQ(documents[0]["items"].Size(), documents[0]["document"]["items"].Size());
  std::set<std::string> ids;
  for (const auto& id : documents[0]["items"].GetArray()) ids.insert(id.GetString());
  EXPECT_EQ(ids.size(), documents[0]["items"].Size());
  EXPECT_THAT(ids, testing::IsSupersetOf({"lag-selection", "parameters:realinv", "combined-residual-chart"}));
  // The schema refuses what is missing, unknown or of another kind.
  for (const char* change : {"/schema", "/run/data/sha256", "/messages/0/kind", "/documents/0/items/0",
                             "/documents/0/document/items/0/name"}) {
    rapidjson::Document damaged;
    damaged.CopyFrom(output.record(), damaged.GetAllocator());
    rapidjson::Pointer(change).Set(damaged, 3);
    EXPECT_NE(breach(damaged), "") << change;
  }
}

TEST_F(Record, AndReportAreTheSameBytesAgainAndTellTheData) {
  ASSERT_EQ(run({}).exitCode, 0);
  const std::string json = space.read("out.json");
  const std::string page = space.read("out.html");
  const std::string sha = OutputDocument(json).record()["run"]["data"]["sha256"].GetString();
  ASSERT_EQ(run({}).exitCode, 0);
  EXPECT_EQ(space.read("out.json"), json);
  EXPECT_TRUE(space.read("out.html") == page);
  for (const std::string& fact :
       {sha, std::string("us_macro_quarterly.csv"), std::string("dates.variables"),
        std::string("varmodel run us_macro.toml --json"), std::string("203 rows, 14 variables")}) {
    EXPECT_THAT(page, HasSubstr(fact));
  }
  EXPECT_THAT(json, Not(HasSubstr("\"seconds\"")));
  ASSERT_EQ(run({"--timings"}).exitCode, 0);
  const OutputDocument timed(space.read("out.json"));
  EXPECT_EQ(breach(timed.record()), "");
  EXPECT_GT(timed.record()["run"]["seconds"]["estimate"].GetDouble(), 0);
  // Other values are other data.
  const std::string data = space.read("us_macro_quarterly.csv");
  space.file("us_macro_quarterly.csv", data.substr(0, data.rfind("\n", data.size() - 2) + 1));
  ASSERT_EQ(run({}).exitCode, 0);
  EXPECT_NE(OutputDocument(space.read("out.json")).record()["run"]["data"]["sha256"].GetString(), sha);
}

}  // namespace
