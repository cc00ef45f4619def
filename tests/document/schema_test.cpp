// What is written keeps to the schema, and is read back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/document/schema_check.h"
#include "workbench/document/chart_writer.h"
#include "workbench/document/document_reader.h"
#include "workbench/document/document_writer.h"
#include "workbench/document/table_writer.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string breach(const Json& document) {
  return workbench::breach(document, "document.schema.json");
}

class DocumentForm : public testing::Test {
 protected:
  DocumentForm() {
    TableWriter table(document.GetAllocator(), "full");
    table.setTitle("Title");
    table.hideTitle(true);
    table.setMinColumnWidth(100);
    table.setMaxColumnWidth(300);
    table.setDefaultCellFormat(5, 10, 3);
    table.setColumnFormat(2, 5, 8, 0);
    table.setRowDimensionLabel("Variable", true);
    table.setColumnDimensionLabel("Statistics", false);
    table.addFootnote("first");
    table.addFootnote("second");
    table.addTitleFootnoteRef(1);
    table.addColumnCategories({"N", "Test"});
    table.addColumnSubcategories(1, {"Statistic", "df"});
    table.addRowCategories({"a", "b"});
    table.fillRow(0, {203, 7.5, 1});
    table.fillColumn(1, {0.1});
    appendItem(document, table.finish());
    appendItem(document, TableWriter(document.GetAllocator(), "bare").finish());
    ChartWriter chart(document.GetAllocator(), "chart");
    chart.addColumn("xdata", std::vector<std::string>{"Q1", "Q2"});
    chart.addColumn("ydata", std::vector<double>{1.5, std::nan("")});
    appendItem(document, chart.finish());
  }

  rapidjson::Document document = newDocument("Procedure", "");
};

TEST_F(DocumentForm, KeepsToTheSchema) {
  EXPECT_EQ(breach(document), "");
  for (const char* place :
       {"/subtitle", "/items/0/name", "/items/0/cells/1/2", "/items/0/columns/0/label",
        "/items/0/columnFormats/2/width", "/items/0/unknown", "/items/2/columns/ydata", "/items/1/type", "/unknown"}) {
    rapidjson::Document damaged;
    damaged.CopyFrom(document, damaged.GetAllocator());
    rapidjson::Pointer(place).Set(damaged, rapidjson::Value(rapidjson::kObjectType));
    EXPECT_NE(breach(damaged), "") << place;
  }
}

TEST_F(DocumentForm, TablesAreReadAsTheyWereWritten) {
  const Json& items = *itemsOf(document);
  const TableItem table = readTable(items[0]);
  EXPECT_EQ(table.title, "Title");
  EXPECT_FALSE(table.titleShown);
  EXPECT_THAT(table.footnotes, ElementsAre("first", "second"));
  EXPECT_THAT(table.titleFootnotes, ElementsAre(1));
  EXPECT_EQ(table.rowDimension.label, "Variable");
  EXPECT_TRUE(table.rowDimension.shown);
  EXPECT_FALSE(table.columnDimension.shown);
  EXPECT_THAT(table.columns.at(1).children, ElementsAre("Statistic", "df"));
  EXPECT_EQ(table.columnWidth.min, 100);
  EXPECT_EQ(table.columnWidth.max, 300);
  EXPECT_THAT(table.rows, ElementsAre("a", "b"));
  ASSERT_EQ(table.formats.size(), 3u);
  EXPECT_EQ(table.formats[1].decimals, 3);
  EXPECT_EQ(table.formats[2].width, 8);
  EXPECT_THAT(table.cells.at(0), ElementsAre(203, 0.1, 1));
  EXPECT_THAT(table.cells.at(1), testing::Each(testing::IsNan()));

  const TableItem bare = readTable(items[1]);
  EXPECT_EQ(bare.title, "bare");
  EXPECT_TRUE(bare.titleShown);
  EXPECT_THAT(bare.cells, IsEmpty());
  EXPECT_EQ(itemsOf(Json()), nullptr);
}

}  // namespace
}  // namespace workbench
