#include "workbench/dataset/workbook.h"

#include <algorithm>
#include <pugixml.hpp>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/letter_case.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/data_file.h"
#include "workbench/dataset/file_format.h"
#include "workbench/dataset/sheet_cells.h"
#include "workbench/dataset/zip_archive.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

struct Sheet {
  std::string name;
  std::string member;
};

pugi::xml_document xmlOf(const ZipArchive& archive, const std::string& member) {
  pugi::xml_document document;
  const std::optional<std::string> bytes = archive.member(member);
  if (bytes) document.load_buffer(bytes->data(), bytes->size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
  return document;
}

// Where a relation leads, as a member's name: "worksheets/sheet1.xml" and "/xl/worksheets/sheet1.xml" are the same.
std::string memberOf(const pugi::xml_document& relations, const std::string& id) {
  const pugi::xml_node relation = relations.child("Relationships").find_child_by_attribute("Id", id.c_str());
  const std::string target = relation.attribute("Target").value();
  return target.starts_with('/') ? target.substr(1) : "xl/" + target;
}

std::vector<Sheet> sheetsOf(const ZipArchive& archive, const pugi::xml_document& workbook) {
  const pugi::xml_document relations = xmlOf(archive, "xl/_rels/workbook.xml.rels");
  std::vector<Sheet> sheets;
  for (const pugi::xml_node node : workbook.child("workbook").child("sheets").children("sheet")) {
    sheets.push_back({node.attribute("name").value(), memberOf(relations, node.attribute("r:id").value())});
  }
  return sheets;
}

std::vector<std::string> namesOf(const std::vector<Sheet>& sheets) {
  std::vector<std::string> names;
  for (const Sheet& sheet : sheets) names.push_back(sheet.name);
  return names;
}

const Sheet& chosenSheet(const std::vector<Sheet>& sheets, const std::string& name, const Notice& what) {
  if (sheets.empty()) throw DataError("data.no-sheet", "^1: it has no sheet. Save it as .xlsx again, or as CSV.", what);
  if (name.empty() && sheets.size() == 1) return sheets.front();
  const std::vector<std::string> names = namesOf(sheets);
  if (name.empty()) {
    throw DataError("data.several-sheets", "^1: it has several sheets (^2). Name one: ^3.", what, listed(names),
                    inWords({"sheet", {names.front()}}));
  }
  const auto found = std::ranges::find(sheets, name, &Sheet::name);
  if (found != sheets.end()) return *found;
  throw DataError(Notice("data.unknown-sheet", "^1: there is no sheet \"^2\".", what, name) +
                  didYouMeanOrList(name, names, phrase("Its sheets")));
}

std::vector<std::string> sharedTexts(const pugi::xml_document& document) {
  std::vector<std::string> texts;
  for (const pugi::xml_node item : document.child("sst").children("si")) texts.push_back(plainText(item));
  return texts;
}

std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string result = "\"";
  for (const char c : text) result += c == '"' ? std::string("\"\"") : std::string(1, c);
  return result + "\"";
}

using Row = std::vector<std::string>;

std::vector<Row> rowsOf(const pugi::xml_document& sheet, const CellReader& reader) {
  std::vector<Row> rows;
  for (const pugi::xml_node node : sheet.child("worksheet").child("sheetData").children("row")) {
    Row row;
    for (const pugi::xml_node cell : node.children("c")) {
      const std::size_t column = columnOf(cell.attribute("r").value()).value_or(row.size());
      if (column >= kMostColumns) continue;
      row.resize(std::max(row.size(), column + 1));
      row[column] = reader.text(cell);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

bool isTitle(const Row& row) {
  return std::ranges::count_if(row, [](const std::string& cell) { return !cell.empty(); }) < 2;
}

bool isBlank(const Row& row) {
  return std::ranges::all_of(row, [](const std::string& cell) { return cell.empty(); });
}

std::string csvOf(std::vector<Row> rows, std::optional<long> skip) {
  const auto first =
      skip ? rows.begin() + std::min<std::ptrdiff_t>(*skip, std::ssize(rows)) : std::ranges::find_if_not(rows, isTitle);
  rows.erase(rows.begin(), first);
  while (!rows.empty() && isBlank(rows.back())) rows.pop_back();
  std::size_t width = 0;
  for (const Row& row : rows) width = std::max(width, row.size());
  std::string csv;
  for (Row& row : rows) {
    row.resize(width);
    for (std::size_t i = 0; i < width; ++i) csv += (i == 0 ? "" : ",") + csvField(row[i]);
    csv += '\n';
  }
  return csv;
}

}  // namespace

bool isWorkbook(const fs::path& source) {
  const std::string extension = lowerCase(source.extension().string());
  return extension == ".xlsx" || extension == ".xlsm";
}

std::string sheetAsCsv(const fs::path& workbook, const std::string& sheet, std::optional<long> skip) {
  const Notice what = dataFile(workbook);
  const ZipArchive archive(workbook);
  const pugi::xml_document book = xmlOf(archive, "xl/workbook.xml");
  const std::vector<Sheet> sheets = sheetsOf(archive, book);
  const Sheet& chosen = chosenSheet(sheets, sheet, what);
  const CellReader reader(sharedTexts(xmlOf(archive, "xl/sharedStrings.xml")), xmlOf(archive, "xl/styles.xml"),
                          book.child("workbook").child("workbookPr").attribute("date1904").as_bool());
  const pugi::xml_document cells = xmlOf(archive, chosen.member);
  if (!cells.child("worksheet")) {
    throw DataError("data.damaged-sheet",
                    "^1: its sheet \"^2\" cannot be read. Save the workbook again, or the sheet as CSV.", what,
                    chosen.name);
  }
  std::string csv = csvOf(rowsOf(cells, reader), skip);
  if (csv.empty()) {
    throw DataError("data.empty-sheet",
                    "^1: there are no cases in its sheet \"^2\". Name another with --sheet, or fill it.", what,
                    chosen.name);
  }
  return csv;
}

}  // namespace workbench
