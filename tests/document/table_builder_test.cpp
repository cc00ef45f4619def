#include "host/table_builder.h"

#include <functional>
#include <limits>
#include <stdexcept>

#include "tests/document/document_fixture.h"
#include "workbench/dataset/dataset.h"

namespace {

using tablestatjson::TableBuilder;
using testing::AllOf;
using testing::HasSubstr;
using testing::ThrowsMessage;

using TableBuilderTest = DocumentTest;

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
  table.setTitle(std::string("\"</t>\\\n\0", 8));
  table.addColumnCategories({"N"});
  table.addColumnCategories({"Test"});
  table.addColumnSubcategories(1, {"Ljung-Box Statistic", "df"});
  table.addRowCategories({"realgdp", "realcons"});
  table.fillRow(0, {203, 7221.17, 1});
  table.fillColumn(1, {0.1, 4825.29});
  EXPECT_EQ(items().Size(), 0u) << "a table joins the document when it is built";
  table.build();
  EXPECT_EQ(jsonOf(items()[0]),
            R"({"type":"table","name":"name","title":"\"</t>\\\n\u0000","titleShown":true,"titleFootnotes":[0],)"
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
  for (rapidjson::SizeType row = 0; row < 4; ++row) EXPECT_TRUE(read[row][0].IsNull()) << row;
  EXPECT_EQ(read[4][0].GetDouble(), Limits::max());
  EXPECT_EQ(read[5][0].GetDouble(), 0.1 + 0.2);
  EXPECT_EQ(read[6][0].GetDouble(), Limits::denorm_min());
}

TEST_F(TableBuilderTest, RefusesWhatDoesNotFitAndNamesTheTable) {
  using Misuse = std::function<void(TableBuilder&)>;
  const auto row = [](int index, std::size_t count) -> Misuse {
    return [=](TableBuilder& t) { t.fillRow(index, std::vector<double>(count)); };
  };
  const auto column = [](int index, std::size_t count) -> Misuse {
    return [=](TableBuilder& t) { t.fillColumn(index, std::vector<double>(count)); };
  };
  const std::pair<const char*, Misuse> cases[] = {
      {"row 2", row(2, 3)},
      {"row -1", row(-1, 3)},
      {"column 3", column(3, 2)},
      {"column -1", column(-1, 2)},
      {"2 values for 3 columns", row(0, 2)},
      {"4 values for 3 columns", row(0, 4)},
      {"3 values for 2 rows", column(0, 3)},
      {"category 2", [](TableBuilder& t) { t.addColumnSubcategories(2, {"x"}); }},
      {"column 3", [](TableBuilder& t) { t.setColumnFormat(3, 5, 8, 2), t.build(); }},
      {"footnote 0", [](TableBuilder& t) { t.addTitleFootnoteRef(0), t.build(); }},
      {"categories", [&](TableBuilder& t) { column(0, 2)(t), t.addRowCategories({"late"}); }},
      {"built", [](TableBuilder& t) { t.build(), t.build(); }},
  };
  for (const auto& [reason, misuse] : cases) {
    SCOPED_TRACE(reason);
    TableBuilder table(generator, "Forecast");
    table.addColumnCategories({"a", "b"});
    table.addColumnSubcategories(1, {"b1", "b2"});
    table.addRowCategories({"r0", "r1"});
    EXPECT_THAT([&] { misuse(table); },
                ThrowsMessage<std::logic_error>(AllOf(HasSubstr("Table 'Forecast'"), HasSubstr(reason))));
  }
}

}  // namespace
