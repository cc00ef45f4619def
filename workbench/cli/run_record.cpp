#include "workbench/cli/run_record.h"

#include <algorithm>

#include "workbench/base/json.h"

namespace workbench {

namespace {

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

// The number of a command in the record, where the only one is 1.
int numberOf(int number) {
  return std::max(number, 1);
}

class Record {
 public:
  std::string write(const RunDescription& description, const std::vector<ToldRun>& runs) {
    writer_.StartObject();
    member("schema", std::string("varmodel-run/1"));
    writer_.Key("run");
    writeRun(description, runs);
    list("messages", runs, [&](const ToldRun& told) {
      for (const RunMessage& message : told.messages) writeMessage(message);
    });
    list("documents", runs, [&](const ToldRun& told) {
      if (told.hasOutput()) writeDocument(told);
    });
    writer_.EndObject();
    buffer_.Put('\n');
    return {buffer_.GetString(), buffer_.GetSize()};
  }

 private:
  void value(const std::string& text) { writer_.String(text.data(), static_cast<rapidjson::SizeType>(text.size())); }
  void value(std::int64_t number) { writer_.Int64(number); }
  void value(double number) { writer_.Double(number); }

  template <typename Value>
  void member(const std::string& key, const Value& content) {
    writer_.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
    value(content);
  }
  void count(const char* key, std::size_t number) { member(key, static_cast<std::int64_t>(number)); }

  template <typename Items, typename Write>
  void list(const char* key, const Items& items, Write write) {
    writer_.Key(key);
    writer_.StartArray();
    for (const auto& item : items) write(item);
    writer_.EndArray();
  }
  template <typename Pairs>
  void object(const char* key, const Pairs& pairs) {
    writer_.Key(key);
    writer_.StartObject();
    for (const auto& [name, content] : pairs) member(name, content);
    writer_.EndObject();
  }
  void texts(const char* key, const std::vector<std::string>& items) {
    list(key, items, [&](const std::string& item) { value(item); });
  }

  void writeRun(const RunDescription& description, const std::vector<ToldRun>& runs) {
    writer_.StartObject();
    member("program", description.program);
    member("version", description.version);
    texts("commandLine", description.commandLine);
    writer_.Key("data");
    writeData(description);
    member("language", description.language);
    object("settings", description.settings);
    writeOutputs(description);
    member("exitCode", static_cast<std::int64_t>(exitCodeOf(runs)));
    if (!description.seconds.empty()) object("seconds", description.seconds);
    list("commands", runs, [&](const ToldRun& told) { writeCommand(told); });
    writer_.EndObject();
  }

  void writeData(const RunDescription& description) {
    writer_.StartObject();
    member("source", description.source);
    member("query", description.query);
    member("sha256", description.fingerprint);
    count("rows", description.rows);
    count("variables", description.variables);
    writer_.EndObject();
  }

  void writeOutputs(const RunDescription& description) {
    const OutputNames& names = description.outputs;
    writer_.Key("outputs");
    writer_.StartObject();
    for (const auto& [key, file] : {std::pair{"html", &names.html},
                                    {"json", &names.json},
                                    {"trace", &names.trace},
                                    {"writtenJob", &description.writtenJob}}) {
      if (!file->empty()) member(key, file->string());
    }
    if (!description.exports.tables.empty()) texts("tables", description.exports.tables);
    if (!description.exports.charts.empty()) texts("charts", description.exports.charts);
    writer_.EndObject();
    for (const auto& [key, text] :
         {std::pair{"title", &names.title}, {"author", &names.author}, {"note", &names.note}}) {
      if (!text->empty()) member(key, *text);
    }
  }

  void writeCommand(const ToldRun& told) {
    const FinishedRun& run = told.run;
    writer_.StartObject();
    count("number", static_cast<std::size_t>(numberOf(told.number)));
    member("name", run.command.name());
    member("text", run.text);
    member("exitCode", static_cast<std::int64_t>(run.outcome.exitCode()));
    writer_.Key("lists");
    writer_.StartObject();
    for (const auto& [name, items] : run.record.requestedLists) texts(name.c_str(), items);
    writer_.EndObject();
    object("numbers", run.record.requestedNumbers);
    member("scale", run.scale);
    if (const auto rows = describeRows(run)) writeRows(*rows);
    list("savedFiles", run.record.savedFiles, [&](const std::filesystem::path& file) { value(file.string()); });
    writer_.EndObject();
  }

  void writeRows(const RowDescription& rows) {
    writer_.Key("rows");
    writer_.StartObject();
    member("read", rows.read);
    member("used", rows.used);
    member("dropped", rows.dropped);
    object("missing", rows.missing);
    writer_.EndObject();
    if (rows.used > 0) texts("sample", {rows.first, rows.last});
  }

  void writeMessage(const RunMessage& message) {
    writer_.StartObject();
    member("kind", std::string(labelOf(message.kind)));
    count("command", static_cast<std::size_t>(numberOf(message.command)));
    member("id", message.id);
    member("text", message.text);
    writer_.EndObject();
  }

  void writeDocument(const ToldRun& told) {
    const rapidjson::Document& document = told.run.record.document;
    writer_.StartObject();
    count("command", static_cast<std::size_t>(numberOf(told.number)));
    texts("items", itemIds(told.run));
    writer_.Key("document");
    document.Accept(writer_);
    writer_.EndObject();
  }

  rapidjson::StringBuffer buffer_;
  Writer writer_{buffer_};
};

}  // namespace

std::string runRecord(const RunDescription& description, const std::vector<ToldRun>& runs) {
  return Record().write(description, runs);
}

}  // namespace workbench
