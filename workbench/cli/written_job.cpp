#include "workbench/cli/written_job.h"

#include <algorithm>

#include "workbench/base/standard_streams.h"
#include "workbench/base/toml_text.h"
#include "workbench/base/utf8_path.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

// A full stop ends each of several. Literal where it can be, so that nothing in it needs an escape.
std::string commandText(const std::vector<ToldRun>& runs) {
  std::string text;
  for (const ToldRun& told : runs) {
    std::string one = told.run.text;
    while (!one.empty() && one.back() == '\n') one.pop_back();
    text += one + (runs.size() > 1 ? ".\n" : "\n");
  }
  return text.find("'''") == std::string::npos ? "'''\n" + text + "'''" : tomlText(text);
}

std::string sourceFrom(const std::string& source, const fs::path& file) {
  if (source == kStandardStream || file == kStandardStream) return source;
  const fs::path folder = fs::absolute(file).parent_path();
  return fs::proximate(fs::absolute(pathFromUtf8(source)), folder).string();
}

double scaleOf(const std::vector<ToldRun>& runs) {
  double scale = 1.0;
  for (const ToldRun& told : runs) scale = told.run.scale == 1.0 ? scale : told.run.scale;
  return scale;
}

std::string outputKeys(const OutputNames& names, const fs::path& file) {
  std::string text;
  for (const auto& [key, path] : {std::pair{"html", &names.html},
                                  {"json", &names.json},
                                  {"trace", &names.trace},
                                  {"tables", &names.tables},
                                  {"charts", &names.charts}}) {
    if (!path->empty())
      text += std::string("output.") + key + " = " + tomlText(sourceFrom(path->string(), file)) + "\n";
  }
  for (const auto& [key, formats] :
       {std::pair{"table_format", &names.tableFormats}, {"chart_format", &names.chartFormats}}) {
    if (!formats->empty()) text += std::string("output.") + key + " = " + tomlTexts(*formats) + "\n";
  }
  for (const auto& [key, words] :
       {std::pair{"title", &names.title}, {"author", &names.author}, {"note", &names.note}}) {
    if (!words->empty()) text += std::string("output.") + key + " = " + tomlText(*words) + "\n";
  }
  return text;
}

}  // namespace

std::string writtenJob(const RunDescription& description, const std::vector<ToldRun>& runs, const fs::path& file) {
  const bool predicts = std::ranges::any_of(runs, [](const ToldRun& told) { return told.run.predicts; });
  std::string text = "command = " + commandText(runs) + "\n";
  if (!description.source.empty()) text += "data.source = " + tomlText(sourceFrom(description.source, file)) + "\n";
  if (!description.query.empty()) text += "data.query = " + tomlText(description.query) + "\n";
  if (scaleOf(runs) != 1.0) text += "data.scale = " + tomlNumber(scaleOf(runs)) + "\n";
  for (const auto& [key, value] : description.settings) {
    if (key == "data.scale" || (key == "predict.thru" && !predicts)) continue;
    text += key + " = " + value + "\n";
  }
  return text + outputKeys(description.outputs, file);
}

}  // namespace workbench
