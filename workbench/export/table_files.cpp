#include "workbench/export/table_files.h"

#include <algorithm>
#include <functional>

#include "workbench/export/item_names.h"
#include "workbench/render/table_formats.h"

namespace workbench {

namespace {

constexpr const char* kTidy = "tidy";

// With the workbench's notes, and sentences as the view says them.
PivotTable shownTable(const ExportedDocument& one, std::size_t place, const Language& language) {
  PivotTable table = readPivotTable((*itemsOf(*one.document))[static_cast<rapidjson::SizeType>(place)], language);
  for (Footnote& note : table.footnotes) {
    for (const auto& [said, instead] : one.view.saidOtherwise) {
      if (note.text == said) note.text = instead;
    }
  }
  const auto notes = one.view.notes.find(place);
  if (notes == one.view.notes.end()) return table;
  for (const std::string& note : notes->second) table.footnotes.push_back({"", note});
  return table;
}

using UseTable = std::function<void(const ExportedDocument&, const std::string& id, PivotTable)>;

void forTables(const std::vector<ExportedDocument>& documents, const Language& language, const UseTable& use) {
  for (const ExportedDocument& one : documents) {
    const Json* items = itemsOf(*one.document);
    for (rapidjson::SizeType i = 0; items != nullptr && i < items->Size(); ++i) {
      if (one.view.hidden.contains(i) || textProperty((*items)[i], "type") != "table") continue;
      use(one, one.ids.at(i), shownTable(one, i, language));
    }
  }
}

}  // namespace

std::vector<std::string> tableFormatWords() {
  std::vector<std::string> words;
  for (const TableFormat& format : tableFormats()) words.emplace_back(format.word);
  words.emplace_back(kTidy);
  return words;
}

std::vector<FileText> tableFiles(const std::vector<ExportedDocument>& documents,
                                 const std::vector<std::string>& formats, const Language& language) {
  std::vector<FileText> files;
  ItemNames names;
  TidyFiles tidy(language);
  const auto wanted = [&](std::string_view word) { return std::ranges::count(formats, word) > 0; };
  forTables(documents, language, [&](const ExportedDocument& one, const std::string& id, PivotTable table) {
    table.name = names.take(id, one.procedure, one.command);
    for (const TableFormat& format : tableFormats()) {
      if (wanted(format.word)) files.push_back({table.name + std::string(format.extension), format.paint(table)});
    }
    tidy.add(id, table, one.shapes, one.procedure, one.command);
  });
  if (!wanted(kTidy)) return files;
  for (auto& [name, text] : tidy.texts()) files.push_back({"tidy-" + name + ".csv", std::move(text)});
  return files;
}

}  // namespace workbench
