#include "workbench/casefile/case_writer.h"

#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"
#include "workbench/base/json.h"
#include "workbench/casefile/case_table.h"

namespace workbench {

namespace {

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

namespace {

using Writer = void (*)(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);

Writer writerOf(CaseFileFormat format) {
  switch (format) {
    case CaseFileFormat::parquet:
      return writeParquet;
    case CaseFileFormat::duckdb:
      return writeDatabase;
    case CaseFileFormat::csv:
      break;
  }
  return [](const Dataset& dataset, const std::string&, const std::filesystem::path& file) { writeCsv(dataset, file); };
}

// Beside a CSV file, which has no place for them, the metadata appear just before the cases.
void writeStaged(const Dataset& dataset, CaseFileFormat format, const std::filesystem::path& target) {
  StagedFile cases(target);
  writerOf(format)(dataset, metadataJson(dataset), cases.path());
  if (format == CaseFileFormat::csv) {
    StagedFile metadata(metadataFile(target));
    FileSink sink(metadata.path(), metadataFile(target));
    sink.write(metadataJson(dataset) + "\n");
    sink.close();
    cases.makeDurable();
    metadata.publish();
  }
  cases.publish();
}

}  // namespace

void writeCases(const Dataset& dataset, CaseFileFormat format, const std::filesystem::path& target) {
  try {
    if (format == CaseFileFormat::csv && isSpecialFile(target)) return writeCsv(dataset, target);
    writeStaged(dataset, format, target);
  } catch (const DuckdbError& error) {
    throw OutputError(target.string() + " cannot be written: " + error.what() + ". Make room or choose another place.");
  }
}

}  // namespace workbench
