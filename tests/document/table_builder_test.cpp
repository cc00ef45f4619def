#include "host/table_builder.h"

#include <functional>
#include <limits>
#include <stdexcept>

#include "tests/document/document_fixture.h"
#include "workbench/dataset/dataset.h"

namespace {

using tablestatjson::TableBuilder;
using testing::HasSubstr;

class TableBuilderTest : public DocumentTest {};

TEST_F(TableBuilderTest, WritesEveryKeyInDocumentOrder) {
  TableBuilder table(generator, "name");
  table.addTitleFootnoteRef(0);
  table.addFootnote("note");
  table.setMinColumnWidth(100);
  table.setMaxColumnWidth(300);
  table.setColumnFormat(0, 5, 10, 0);
  table.setDefaultCellFormat(5, 10, 3);
  table.setColumnDimensionLabel("Statistics", false);
  table.setRowDimensionLabel("Variable", true);
  table.hideTitle(false);
  table.setTitle("title");
  table.addColumnCategories({"N"});
  table.addColumnCategories({"Test"});
  table.addColumnSubcategories(1, {"Ljung-Box Statistic", "df"});
  table.addRowCategories({"realgdp", "realcons"});
  table.fillRow(0, {203, 7221.17, 1});
  table.fillColumn(1, {0.1, 4825.29});
  EXPECT_EQ(items().Size(), 0u) << "a table joins the document when it is built";
  table.build();
  EXPECT_EQ(jsonOf(items()[0]),
            R"({"type":"table","name":"name","title":"title","titleShown":true,"titleFootnotes":[0],)"
            R"("footnotes":["note"],"rowDimension":{"label":"Variable","shown":true},)"
            R"("columnDimension":{"label":"Statistics","shown":false},)"
            R"("columns":[{"label":"N"},{"label":"Test","children":["Ljung-Box Statistic","df"]}],)"
            R"("rows":["realgdp","realcons"],"cells":[[203.0,0.1,1.0],[null,4825.29,null]],)"
            R"("cellFormat":{"type":5,"width":10,"decimals":3},)"
            R"("columnFormats":{"0":{"type":5,"width":10,"decimals":0}},"columnWidth":{"min":100,"max":300}})");
}

TEST_F(TableBuilderTest, LeavesOutWhatWasNeverSet) {
  TableBuilder bare(generator, "bare");
  bare.build();
  TableBuilder unfilled(generator, "unfilled");
  unfilled.addColumnCategories({"a", "b"});
  unfilled.addRowCategories({"r"});
  unfilled.hideTitle(true);
  unfilled.setMaxColumnWidth(9);
  unfilled.build();
  EXPECT_EQ(jsonOf(items()),
            R"([{"type":"table","name":"bare"},{"type":"table","name":"unfilled","titleShown":false,)"
            R"("columns":[{"label":"a"},{"label":"b"}],"rows":["r"],"cells":[[null,null]],"columnWidth":{"max":9}}])");
}

TEST_F(TableBuilderTest, NumbersRoundTripOrAreNull) {
  using Limits = std::numeric_limits<double>;
  TableBuilder table(generator, "t");
  table.addColumnCategories({"v"});
  table.addRowCategories({"1", "2", "3", "4", "5", "6", "7"});
  table.fillColumn(0, {workbench::kSystemMissing, Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                       Limits::max(), 0.1 + 0.2, Limits::denorm_min()});
  table.build();
  rapidjson::Document read;
  read.Parse<rapidjson::kParseFullPrecisionFlag>(jsonOf(items()[0]["cells"]).c_str());
  ASSERT_FALSE(read.HasParseError());
  for (rapidjson::SizeType row = 0; row < 4; ++row) EXPECT_TRUE(read[row][0].IsNull()) << row;
  EXPECT_EQ(read[4][0].GetDouble(), Limits::max());
  EXPECT_EQ(read[5][0].GetDouble(), 0.1 + 0.2);
  EXPECT_EQ(read[6][0].GetDouble(), Limits::denorm_min());
}

TEST_F(TableBuilderTest, KeepsHostileTextsWhole) {
  const std::string hostile = std::string("\"</script>\\\n\t^1\x01\0end", 21) + "\xC3\xA9\xF0\x9F\x98\x80";
  TableBuilder table(generator, hostile);
  table.setTitle(hostile);
  table.addFootnote(hostile);
  table.addColumnCategories({hostile});
  table.addColumnSubcategories(0, {hostile});
  table.addRowCategories({hostile});
  table.build();
  rapidjson::Document read;
  read.Parse(jsonOf(items()).c_str());
  ASSERT_FALSE(read.HasParseError());
  const rapidjson::Value& item = read[0];
  for (const rapidjson::Value* text : {&item["name"], &item["title"], &item["footnotes"][0], &item["rows"][0],
                                       &item["columns"][0]["label"], &item["columns"][0]["children"][0]}) {
    EXPECT_EQ(std::string(text->GetString(), text->GetStringLength()), hostile);
  }
}

TEST_F(TableBuilderTest, RefusesWhatDoesNotFitAndNamesTheTable) {
  struct Case {
    const char* what;
    const char* reason;
    std::function<void(TableBuilder&)> misuse;
  };
  const Case cases[] = {
      {"row past the end", "row 2",
       [](TableBuilder& t) {
         t.fillRow(2, {1, 2, 3});
       }},
      {"negative row", "row -1",
       [](TableBuilder& t) {
         t.fillRow(-1, {1, 2, 3});
       }},
      {"leaf column past the end", "column 3",
       [](TableBuilder& t) {
         t.fillColumn(3, {1, 2});
       }},
      {"negative column", "column -1",
       [](TableBuilder& t) {
         t.fillColumn(-1, {1, 2});
       }},
      {"row too short", "2 values for 3 columns",
       [](TableBuilder& t) {
         t.fillRow(0, {1, 2});
       }},
      {"row too long", "4 values for 3 columns",
       [](TableBuilder& t) {
         t.fillRow(0, {1, 2, 3, 4});
       }},
      {"column too long", "3 values for 2 rows",
       [](TableBuilder& t) {
         t.fillColumn(0, {1, 2, 3});
       }},
      {"no such category", "category 2", [](TableBuilder& t) { t.addColumnSubcategories(2, {"x"}); }},
      {"format of no column", "column 3", [](TableBuilder& t) { t.setColumnFormat(3, 5, 8, 2), t.build(); }},
      {"no such footnote", "footnote 0", [](TableBuilder& t) { t.addTitleFootnoteRef(0), t.build(); }},
      {"category after a value", "categories",
       [](TableBuilder& t) {
         t.fillColumn(0, {1, 2}), t.addRowCategories({"late"});
       }},
      {"built twice", "built", [](TableBuilder& t) { t.build(), t.build(); }},
  };
  for (const Case& c : cases) {
    TableBuilder table(generator, "Forecast");
    table.addColumnCategories({"a", "b"});
    table.addColumnSubcategories(1, {"b1", "b2"});
    table.addRowCategories({"r0", "r1"});
    try {
      c.misuse(table);
      ADD_FAILURE() << c.what << " was accepted";
    } catch (const std::logic_error& error) {
      EXPECT_THAT(error.what(), testing::AllOf(HasSubstr("Table 'Forecast'"), HasSubstr(c.reason))) << c.what;
    }
  }
}

}  // namespace
