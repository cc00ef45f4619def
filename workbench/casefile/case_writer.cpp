#include "workbench/casefile/case_writer.h"

#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"
#include "workbench/base/json.h"
#include "workbench/base/system_files.h"
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

std::filesystem::path metadataFile(const std::filesystem::path& dataFile) {
  std::filesystem::path file = dataFile;
  return file += ".meta.json";
}

namespace {

// The folder that a file will stand in, also where a link names it.
std::filesystem::path folderOf(const std::filesystem::path& target) {
  std::error_code ignored;
  return finalTarget(target, ignored).parent_path();
}

// Cases and metadata beside them, in this order: the old metadata go, the cases come, the new metadata come. Whoever is
// stopped in between leaves cases without metadata, never with those of another run; runs that save at the same time do
// it one after the other.
void publishBoth(StagedFile& cases, StagedFile& metadata, const std::filesystem::path& target) {
  cases.makeDurable();
  metadata.makeDurable();
  FolderLock turn;
  turn.acquire(folderOf(target));
  metadata.setAside();
  cases.replaceTarget();
  metadata.publish();
}

void writeStaged(const Dataset& dataset, const CaseFileFormat& format, const std::filesystem::path& target) {
  StagedFile cases(target);
  const std::string described = metadataJson(dataset);
  format.write(dataset, described, cases.path());
  if (!format.metadataBeside) return cases.publish();
  StagedFile metadata(metadataFile(target));
  FileSink sink(metadata.path(), metadataFile(target));
  sink.write(described + "\n");
  sink.close();
  publishBoth(cases, metadata, target);
}

}  // namespace

void writeCases(const Dataset& dataset, const CaseFileFormat& format, const std::filesystem::path& target) {
  try {
    if (format.metadataBeside && isSpecialFile(target)) return format.write(dataset, "", target);
    writeStaged(dataset, format, target);
  } catch (const DuckdbError& error) {
    throw OutputError("output.cases", "^1 cannot be written: ^2. Make room or choose another place.", target,
                      error.what());
  }
}

}  // namespace workbench
