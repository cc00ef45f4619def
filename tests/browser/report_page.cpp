// Makes a report from any document: report_page INPUT.json OUTPUT.html, the input being
// {"document": {...}, "command": "", "facts": [[label, value]], "messages": [[kind, text]], "savedFiles": [""]} and,
// where they are wanted, the places "headline": 0 and "leadingCharts": [1].

#include "workbench/report/report.h"

#include <fstream>
#include <iterator>

namespace {

std::string text(const rapidjson::Value& value) {
  return {value.GetString(), value.GetStringLength()};
}

workbench::ReportInput readInput(const rapidjson::Document& json) {
  using Kind = workbench::ReportMessage::Kind;
  workbench::ReportInput input;
  workbench::ReportOutput& output = input.outputs.emplace_back();
  output.document = &json["document"];
  output.commandText = text(json["command"]);
  for (const auto& fact : json["facts"].GetArray()) input.facts.push_back({text(fact[0]), text(fact[1])});
  for (const auto& message : json["messages"].GetArray())
    input.messages.push_back({static_cast<Kind>(message[0].GetInt()), text(message[1])});
  if (json.HasMember("headline")) output.view.headline = json["headline"].GetUint();
  if (json.HasMember("leadingCharts"))
    for (const auto& place : json["leadingCharts"].GetArray()) output.view.leadingCharts.insert(place.GetUint());
  for (const auto& file : json["savedFiles"].GetArray()) output.savedFiles.push_back(text(file));
  return input;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::ifstream in(argv[1], std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), {});
  rapidjson::Document json;
  json.Parse(bytes.data(), bytes.size());
  std::ofstream out(argv[2], std::ios::binary);
  out << workbench::renderReport(readInput(json));
  return out.flush() ? 0 : 1;
}
