#include "workbench/render/pivot_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/render/render_fixture.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PivotTable, ReadsEveryPropertyOfATable) {
  const PivotTable table = tableFromJson(R"({ "type": "table", "name": "n", "title": "Title", "titleShown": false,
    "titleFootnotes": [1, 0, 7], "footnotes": ["first", "second"],
    "rowDimension": { "label": "Variable", "shown": true }, "columnDimension": { "label": "Statistics", "shown": false },
    "columns": [ { "label": "N" }, { "label": "Test", "children": ["df", "Sig."] } ],
    "rows": ["a", "b"], "cells": [[203, 7221.1719, null], [1]],
    "cellFormat": { "type": 5, "width": 10, "decimals": 3 },
    "columnFormats": { "0": { "type": 5, "width": 10, "decimals": 0 } }, "columnWidth": { "min": 100, "max": 300 } })");
  EXPECT_EQ(table.title, "Title");
  EXPECT_FALSE(table.titleShown);
  EXPECT_EQ(table.titleMarkers(), "b, a") << "a reference without footnote is dropped";
  EXPECT_EQ(table.footnotes[1].text, "second");
  EXPECT_TRUE(table.rowDimension.shown);
  EXPECT_EQ(table.rowDimension.label, "Variable");
  EXPECT_FALSE(table.columnDimension.shown);
  EXPECT_THAT(table.leafLabels(), ElementsAre("N", "df", "Sig."));
  EXPECT_THAT(table.flatHeaders(), ElementsAre("N", "Test: df", "Test: Sig."));
  EXPECT_EQ(table.cells[0][0].shown.text, "203");
  EXPECT_EQ(table.cells[0][1].shown.text, "7221.172");
  EXPECT_EQ(table.cells[0][1].value, 7221.1719);
  EXPECT_TRUE(table.cells[0][2].missing);
  EXPECT_THAT(table.cells[1], testing::SizeIs(3)) << "a short row is filled with missing cells";
}

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
  EXPECT_THAT(documentItems(parseJson("{}")), IsEmpty());
}

}  // namespace
}  // namespace workbench
