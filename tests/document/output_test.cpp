#include "host/output.h"

#include <optional>
#include <stdexcept>

#include "host/localization.h"
#include "host/table_builder.h"
#include "host/vizl_graph.h"
#include "tests/document/document_fixture.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::ThrowsMessage;

using OutputTest = DocumentTest;

class MarkedChart : public StatVizlGraph {
 public:
  using StatVizlGraph::StatVizlGraph;
  void writeSpecification(rapidjson::Value& chart, rapidjson::Document::AllocatorType& allocator) override {
    chart.AddMember("vizl", rapidjson::Value(getName() + " of " + getProcedureName(), allocator), allocator);
  }
};

TEST_F(OutputTest, ChartHoldsItsColumnsAndWhatTheHookWrites) {
  MarkedChart chart(generator, "Time Series -\"x\"");
  chart.addStringDataVariable("xdata", {"Q1 1959", "Q2 1959"});
  chart.setDataVector({1.5, std::numeric_limits<double>::infinity()}, false);
  chart.addStringDataVariable("seriesname", {"a", "b"});
  StatVizlGraph(generator, "never added");
  chart.addVizlGraphToProcedureJSON();
  StatVizlGraph plain(generator, "plain");
  plain.addDoubleDataVariable("ydata", {});
  plain.addVizlGraphToProcedureJSON();
  EXPECT_EQ(jsonOf(items()), R"([{"type":"chart","name":"Time Series -\"x\"","columns":{"xdata":["Q1 1959","Q2 1959"],)"
                             R"("ydata":[1.5,null],"seriesname":["a","b"]},)"
                             R"("vizl":"Time Series -\"x\" of Vector Autoregressive Models"},)"
                             R"({"type":"chart","name":"plain","columns":{"ydata":[]}}])");
}

TEST_F(OutputTest, ChartColumnsAreDistinctAndEquallyLong) {
  StatVizlGraph chart(generator, "ACF -y");
  chart.addStringDataVariable("xdata", {"1", "2"});
  EXPECT_THROW(chart.addStringDataVariable("xdata", {"1", "2"}), std::logic_error);
  EXPECT_THAT([&] { chart.setDataVector({1.0}, false); },
              ThrowsMessage<std::logic_error>(AllOf(HasSubstr("'ACF -y'"), HasSubstr("'ydata'"))));
  chart.addVizlGraphToProcedureJSON();
  EXPECT_THROW(chart.addVizlGraphToProcedureJSON(), std::logic_error);
}

TEST_F(OutputTest, TheDocumentOutlivesItsGenerator) {
  std::optional<StatJSONGenerator> brief(std::in_place, "Procedure", "sub");
  for (int i = 0; i < 100; ++i) {
    tablestatjson::TableBuilder table(*brief, "a table with a name longer than a short string");
    table.addColumnCategories({"c"});
    table.addRowCategories(std::vector<std::string>(500, "row"));
    table.fillColumn(0, std::vector<double>(500, i));
    table.build();
  }
  const rapidjson::Value* cells = &brief->getProcedureStatJSON()["items"][99]["cells"];
  BpProcedure procedure("Procedure", 10);
  EXPECT_TRUE(StatJSONConverter(procedure).generateOutput(brief->getProcedureStatJSON()));
  EXPECT_TRUE(brief->getProcedureStatJSON().IsNull());
  brief.reset();
  EXPECT_EQ(&session.document["items"][99]["cells"], cells) << "handed over, not copied";
  EXPECT_EQ(session.document["items"][99]["cells"][499][0].GetDouble(), 99.0);
  EXPECT_EQ(session.document["subtitle"], "sub");
  EXPECT_GT(session.clock.between(workbench::StageClock::outputStart, workbench::StageClock::outputEnd), 0.0);
}

class DisplayTextTest : public SessionTest {
 protected:
  std::string path(const std::string& language) {
    session.language = workbench::Language(language, {});
    return PathFactory::getPathInstance(3)->getPath();
  }
};

TEST_F(DisplayTextTest, FallsBackToTheKeysAndSaysWhyOnce) {
  EXPECT_EQ(FacSTDictionary(path("en")).LookUp("Lag "), "Lag ");
  EXPECT_TRUE(session.messages.empty()) << "the keys are English: no dictionary is needed";
  const FacSTDictionary missing(path("fr"));
  EXPECT_EQ(missing.LookUp("Mean"), "Mean");
  EXPECT_EQ(missing.LookUp("Mean"), "Mean");
  ASSERT_EQ(session.messages.size(), 1u);
  EXPECT_THAT(session.messages[0].text, HasSubstr("fr.json"));
  for (const char* damaged : {"", "{\"Mean\": \"Mittel", "[\"Mean\"]", "{\"Mean\": \"\xFF\"}"}) {
    session.messages.clear();
    write(damaged);
    EXPECT_EQ(FacSTDictionary(path("de")).LookUp("Mean"), "Mean") << damaged;
    EXPECT_EQ(session.messages.size(), 1u) << damaged;
  }
}

}  // namespace
