#include "workbench/render/pivot_table.h"

#include <gtest/gtest.h>

#include "tests/render/render_fixture.h"

namespace workbench {
namespace {

TEST(PivotTable, AbsentPropertiesTakeDefaults) {
  const PivotTable bare = tableFromJson(R"({ "type": "table", "name": "bare" })");
  EXPECT_EQ(bare.title, "bare");
  EXPECT_TRUE(bare.titleShown);
  EXPECT_FALSE(bare.rowDimension.shown);
  const PivotTable unfilled = tableFromJson(R"({ "type": "table", "rows": ["r"], "columns": [{ "label": "c" }] })");
  EXPECT_EQ(unfilled.cells[0][0].shown.text, ".");
  EXPECT_THROW(tableFromJson(R"({ "type": "table", "rows": "r" })"), std::runtime_error);
}

TEST(PivotTable, ADocumentListsItsItemsInOrder) {
  const rapidjson::Document document = parseJson(R"({ "procedure": "P", "items": [
    { "type": "chart", "name": "ACF -a", "columns": { "xdata": ["1", "2"], "ydata": [0.5, null] } },
    { "type": "note" }, { "type": "table", "name": "t" }, { "type": "chart", "name": "empty" } ] })");
  const std::vector<DocumentItem> items = documentItems(document);
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(std::get<ChartItem>(items[0]).name, "ACF -a");
  EXPECT_EQ(std::get<ChartItem>(items[0]).points, 2U);
  EXPECT_EQ(std::get<ChartItem>(items[0]).json, &document["items"][0]);
  EXPECT_EQ(std::get<PivotTable>(items[1]).title, "t");
  EXPECT_EQ(std::get<ChartItem>(items[2]).points, 0U);
}

}  // namespace
}  // namespace workbench
