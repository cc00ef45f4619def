#include "workbench/commands/varmodel/notes.h"

#include <functional>
#include <iterator>
#include <map>
#include <utility>

#include "workbench/commands/varmodel/document_items.h"
#include "workbench/commands/varmodel/selected_lag.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/edge/texts.h"

namespace workbench::varmodel {

namespace {

// A failed residual test shows as statistic 0 with significance 1; a test that ran has a positive statistic.
void addTestNotes(const CallRecord& record, std::vector<Notice>& notes) {
  const rapidjson::Value* items = itemsOf(record);
  if (items == nullptr) return;
  for (const rapidjson::Value& item : items->GetArray()) {
    if (item["name"].GetString() != tr("Test for Residuals")) continue;
    const bool ljungBox = requested(record, modelFit, "TAUTO");
    const rapidjson::SizeType jarqueBera = ljungBox ? 3 : 0;
    for (rapidjson::SizeType row = 0; row < item["cells"].Size(); ++row) {
      const rapidjson::Value& cells = item["cells"][row];
      const std::string name = item["rows"][row].GetString();
      if (ljungBox && cells[1].IsNumber() && cells[1].GetDouble() == 0.0) {
        notes.emplace_back(
            "varmodel.no-ljung-box",
            "The Ljung-Box test of ^1 could not be computed: it needs at least one lag and more residuals than lags.",
            name);
      }
      if (requested(record, modelFit, "TNORM") && cells[jarqueBera].IsNumber() &&
          cells[jarqueBera].GetDouble() == 0.0 && cells[jarqueBera + 1].GetDouble() == 1.0) {
        notes.emplace_back("varmodel.no-jarque-bera",
                           "The Jarque-Bera test of ^1 could not be computed: it needs at least four residuals with a "
                           "variance of at least 1e-12.",
                           name);
      }
    }
  }
}

// The command with MINLAG and MAXLAG both set to one lag.
std::string withFixedLag(const FinishedRun& run, int lag) {
  const std::map<std::string, Span>& places = run.record.places;
  std::map<std::size_t, std::pair<std::size_t, std::string>, std::greater<>>
      changes;  // from the last place to the first
  const std::size_t behindName = places.at("MODEL").end;
  for (const std::string name : {"MINLAG", "MAXLAG"}) {
    const auto given = places.find("MODEL " + name);
    if (given == places.end()) {
      auto& [size, text] = changes[behindName];
      text += " " + name + "=" + std::to_string(lag);
    } else {
      changes[given->second.begin] = {given->second.end - given->second.begin, std::to_string(lag)};
    }
  }
  std::string text = run.text;
  for (const auto& [begin, change] : changes) text.replace(begin, change.first, change.second);
  return text;
}

// A selected lag below MAXLAG splits the output over two lags; the remedy is one more run.
Notice lagRemedy(const FinishedRun& run) {
  const int selected = selectedLag(run);
  if (selected == lagRange(run.record).most) return {};
  return Notice("varmodel.run-again", "To have everything for lag ^1, run this command:\n^2", selected,
                withFixedLag(run, selected));
}

// The warnings of the trace, but for those that another note says or that the next run settles.
std::vector<Notice> warningNotes(const FinishedRun& run) {
  std::vector<Notice> notes;
  const bool tabled = findItem(run.record, "table", "Forecast") != nullptr;
  for (const std::string& text : tracedWarnings(run)) {
    const bool settled = run.followed && text.starts_with("The selected lag ");
    if (settled || (tabled && text == forecastsWithoutExogenous)) continue;
    notes.push_back(Notice::quoted(run.command.messageId(text), run.input.language.translate(text)));
  }
  return notes;
}

}  // namespace

std::vector<Notice> collectNotes(const FinishedRun& run) {
  std::vector<Notice> notes = warningNotes(run);
  if (run.followed) return notes;
  if (const Notice remedy = lagRemedy(run); !remedy.empty()) notes.push_back(remedy);
  if (const rapidjson::Value* items = itemsOf(run.record)) {
    if (items->Empty()) {
      notes.emplace_back("varmodel.no-output",
                         "No output was requested: add keywords to MODELSTATISTICS or SERIESPLOT.");
    }
    std::vector<Notice> missing = keywordNotes(run.record);
    std::move(missing.begin(), missing.end(), std::back_inserter(notes));
    addTestNotes(run.record, notes);
  }
  return notes;
}

}  // namespace workbench::varmodel
