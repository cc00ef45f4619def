#include "workbench/casefile/case_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

#include "host/json_document.h"
#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"
#include "workbench/casefile/case_table.h"

namespace workbench {

namespace {

constexpr std::size_t kBlock = 1 << 16;

std::string csvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n ") == std::string::npos) return text;
  std::string field = "\"";
  for (const char c : text) field += c == '"' ? std::string("\"\"") : std::string(1, c);
  return field + '"';
}

// The shortest digits that read back as the same bits; nothing for a missing value.
void appendNumber(double value, std::string& line) {
  if (isMissingNumber(value)) return;
  std::array<char, 32> digits{};
  line.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

void appendCsvRow(const Dataset& dataset, std::size_t row, std::string& text) {
  const std::size_t start = text.size();
  for (std::size_t i = 0; i < dataset.columns.size(); ++i) {
    if (i > 0) text += ',';
    appendNumber(dataset.columns[i].numbers[row], text);
  }
  if (text.size() == start) text += "\"\"";  // one missing value alone: readers skip an empty line
  text += '\n';
}

void writeCsv(const Dataset& dataset, FileSink& sink) {
  std::string text;
  for (const Column& column : dataset.columns) text += (text.empty() ? "" : ",") + csvField(column.name);
  text += '\n';
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    appendCsvRow(dataset, row, text);
    if (text.size() < kBlock) continue;
    sink.write(text);
    text.clear();
  }
  sink.write(text);
  sink.close();
}

void writeCsvFile(const Dataset& dataset, const std::filesystem::path& target) {
  if (isSpecialFile(target)) {
    FileSink sink(target, target);
    writeCsv(dataset, sink);
    return;
  }
  StagedFile cases(target);
  StagedFile metadata(metadataFile(target));
  FileSink casesSink(cases.path(), target);
  writeCsv(dataset, casesSink);
  FileSink metadataSink(metadata.path(), metadataFile(target));
  metadataSink.write(metadataJson(dataset) + "\n");
  metadataSink.close();
  cases.makeDurable();
  metadata.makeDurable();
  metadata.publish();
  cases.publish();
}

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

void writeFormat(JsonWriter& writer, const char* key, const DisplayFormat& format) {
  writer.Key(key);
  writer.StartObject();
  writer.Key("type");
  writer.Int(format.type);
  writer.Key("width");
  writer.Int(format.width);
  writer.Key("decimals");
  writer.Int(format.decimals);
  writer.EndObject();
}

const char* levelName(MeasurementLevel level) {
  return level == MeasurementLevel::scale ? "scale" : level == MeasurementLevel::ordinal ? "ordinal" : "nominal";
}

void writeVariable(JsonWriter& writer, const Column& column) {
  writer.StartObject();
  writer.Key("name");
  writer.String(column.name);
  writer.Key("label");
  writer.String(column.label);
  writer.Key("level");
  writer.String(levelName(column.level));
  writeFormat(writer, "printFormat", column.printFormat);
  writeFormat(writer, "writeFormat", column.writeFormat);
  writer.EndObject();
}

}  // namespace

std::string metadataJson(const Dataset& dataset) {
  rapidjson::StringBuffer buffer;
  JsonWriter writer(buffer);
  writer.StartObject();
  writer.Key("label");
  writer.String(dataset.label);
  writer.Key("variables");
  writer.StartArray();
  for (const Column& column : dataset.columns) writeVariable(writer, column);
  writer.EndArray();
  writer.EndObject();
  return {buffer.GetString(), buffer.GetSize()};
}

std::filesystem::path metadataFile(const std::filesystem::path& csvFile) {
  std::filesystem::path file = csvFile;
  return file += ".meta.json";
}

void writeCases(const Dataset& dataset, CaseFileFormat format, const std::filesystem::path& target) {
  if (format == CaseFileFormat::csv) return writeCsvFile(dataset, target);
  StagedFile staged(target);
  try {
    if (format == CaseFileFormat::parquet) {
      writeParquet(dataset, metadataJson(dataset), staged.path());
    } else {
      writeDatabase(dataset, metadataJson(dataset), staged.path());
    }
  } catch (const DuckdbError& error) {
    throw OutputError(target.string() + " cannot be written: " + error.what() + ". Make room or choose another place.");
  }
  staged.publish();
}

}  // namespace workbench
