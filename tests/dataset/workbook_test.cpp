#include "workbench/dataset/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <minizip/zip.h>

#include "tests/dataset/fault.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/base/errors.h"
#include "workbench/dataset/load.h"
#include "workbench/dataset/sheet_cells.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::int64_t kDay = 86'400'000'000;

// A workbook of inline and shared texts, dates of a built-in and of an own format, and rows as given.
class Workbook : public testing::Test {
 protected:
  std::filesystem::path write(const std::vector<std::pair<std::string, std::string>>& sheets) {
    const std::filesystem::path file = folder.path() / "a.xlsx";
    zipFile zip = zipOpen64(file.string().c_str(), APPEND_STATUS_CREATE);
    std::string names;
    std::string relations;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
      const std::string id = std::to_string(i);
      names += "<sheet name=\"" + sheets[i].first + "\" r:id=\"r" + id + "\"/>";
      relations += "<Relationship Id=\"r" + id + "\" Target=\"worksheets/s" + id + ".xml\"/>";
      add(zip, "xl/worksheets/s" + id + ".xml",
          "<worksheet><sheetData>" + sheets[i].second + "</sheetData></worksheet>");
    }
    add(zip, "xl/workbook.xml", "<workbook><sheets>" + names + "</sheets></workbook>");
    add(zip, "xl/_rels/workbook.xml.rels", "<Relationships>" + relations + "</Relationships>");
    add(zip, "xl/sharedStrings.xml", "<sst><si><t>date</t></si><si><r><t>g</t></r><r><t>dp</t></r></si></sst>");
    add(zip, "xl/styles.xml",
        "<styleSheet><numFmts><numFmt numFmtId=\"170\" formatCode=\"yyyy\\-mm\"/></numFmts><cellXfs><xf "
        "numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"170\"/><xf numFmtId=\"10\"/></cellXfs></styleSheet>");
    zipClose(zip, nullptr);
    return file;
  }
  static void add(zipFile zip, const std::string& name, const std::string& text) {
    zipOpenNewFileInZip(zip, name.c_str(), nullptr, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, 6);
    zipWriteInFileInZip(zip, text.data(), static_cast<unsigned>(text.size()));
    zipCloseFileInZip(zip);
  }

  const std::string data =
      "<row><c r=\"A1\" t=\"inlineStr\"><is><t>A title, of one cell</t></is></c></row>"
      "<row><c r=\"A2\" t=\"s\"><v>0</v></c><c r=\"B2\" t=\"s\"><v>1</v></c>"
      "<c r=\"D2\" t=\"inlineStr\"><is><t>say \"x\", y</t></is></c></row>"
      "<row><c r=\"A3\" s=\"1\"><v>36526</v></c><c r=\"B3\"><v>1.25E-2</v></c><c r=\"D3\" "
      "s=\"3\"><v>0.035</v></c></row>"
      "<row><c r=\"A4\" s=\"2\"><v>36557</v></c><c r=\"B4\" t=\"e\"><v>#N/A</v></c><c r=\"D4\"><v>2</v></c></row>";
  const TempFolder folder;
};

TEST_F(Workbook, SheetsAreReadAsTables) {
  const auto file = write({{"Data", data}, {"More &amp; more", "<row><c><v>7</v></c></row>"}});
  EXPECT_EQ(sheetAsCsv(file, "Data", {}),
            "date,gdp,,\"say \"\"x\"\", y\"\n2000-01-01,1.25E-2,,0.035\n2000-02-01,,,2\n");
  EXPECT_EQ(sheetAsCsv(file, "Data", 3), "2000-02-01,,,2\n");
  const Dataset dataset = loadDataset({file, "", {}, {.numbers = {}, .sheet = "Data"}});
  EXPECT_THAT(dataset.columns[0].instants, ElementsAre(10957 * kDay, 10988 * kDay));
  EXPECT_THAT(dataset.columns[1].numbers, ElementsAre(0.0125, kSystemMissing));
  EXPECT_EQ(dataset.columns[3].name, "say \"x\", y");
  EXPECT_EQ(dataset.origin, file.string());
  EXPECT_THAT(loadDataset({file, "SELECT gdp * 2 AS x FROM source WHERE gdp > 0", {}, {.numbers = {}, .sheet = "Data"}})
                  .columns[0]
                  .numbers,
              ElementsAre(0.025));
}

TEST_F(Workbook, MistakesNameTheSheetsAndTheRemedy) {
  const auto file = write({{"Data", data}, {"Empty one", ""}});
  const auto failure = [&](const std::string& sheet) {
    return faultOf<DataError>([&] { loadDataset({file, "", {}, {.numbers = {}, .sheet = sheet}}); });
  };
  EXPECT_THAT(failure(""), testing::AllOf(HasSubstr("several sheets (Data, Empty one)"), HasSubstr("--sheet=Data"),
                                          HasSubstr("sheet = \"Data\"")));
  EXPECT_THAT(failure("Dat"), HasSubstr("Did you mean \"Data\"?"));
  EXPECT_THAT(failure("Empty one"), HasSubstr("no cases in its sheet \"Empty one\""));
  const std::string bytes = contents(file);
  for (const std::string& broken : {bytes.substr(0, bytes.size() / 2), std::string("PK\0\0", 4)}) {
    folder.write("a.xlsx", broken);
    EXPECT_THAT(failure("Data"), HasSubstr("or CSV"));
  }
  for (std::size_t i = 0; i < bytes.size(); i += 7) {  // no damage of one byte crashes
    std::string damaged = bytes;
    damaged[i] = static_cast<char>(~damaged[i]);
    folder.write("a.xlsx", damaged);
    faultOf<DataError>([&] { sheetAsCsv(file, "Data", {}); });
  }
}

TEST(SheetCells, DatesAreTakenFromTheFormatAndTheCount) {
  for (const char* code : {"yyyy\\-mm", "d/m", "[$-409]mmm yy", "DD.MM.YYYY;@"}) EXPECT_TRUE(showsDate(code)) << code;
  for (const char* code : {"0.00", "#,##0 \"days\"", "[Red]0", "0\\d", "h:mm:ss", "General"}) {
    EXPECT_FALSE(showsDate(code)) << code;
  }
  EXPECT_EQ(dateOfSerial(36526.0, false), "2000-01-01");
  EXPECT_EQ(dateOfSerial(36526.5 + 1.0 / 86400, false), "2000-01-01 12:00:01");
  EXPECT_EQ(dateOfSerial(35064.0, true), "2000-01-01");
  EXPECT_EQ(dateOfSerial(0.25, false), std::nullopt);
  EXPECT_EQ(dateOfSerial(1e9, false), std::nullopt);
  EXPECT_EQ(columnOf("AB12"), 27u);
  EXPECT_EQ(columnOf("12"), std::nullopt);
}

}  // namespace
}  // namespace workbench
