#include "workbench/commands/varmodel/document_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/commands/varmodel/document_items.h"
#include "workbench/commands/varmodel/level_notes.h"
#include "workbench/commands/varmodel/selected_lag.h"
#include "workbench/commands/varmodel/small_units.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/dates/period.h"
#include "workbench/edge/texts.h"
#include "workbench/render/number_format.h"

namespace workbench::varmodel {

namespace {

using Json = rapidjson::Value;

constexpr double jarqueBeraFloor = 1e-6;  // shown as Sig. from the bound on
constexpr double jarqueBeraFloorStatistic = 10;

std::string fitted(const FinishedRun& run, const Json& table) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  if (!rows) return {};
  const std::int64_t freedom =
      rows->account.used - lagRange(run.record).most - static_cast<std::int64_t>(table["rows"].Size());
  return tr(
      "Sig. is taken from Student's t with ^1 degrees of freedom, the confidence limits from the normal "
      "distribution: limits from Student's t would be wider.",
      freedom);
}

std::string adjusted(const FinishedRun& run) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  if (!rows || !requested(run.record, modelFit, "ARSQUARE") || !requested(run.record, modelFit, "RSQUARE")) return {};
  const std::string counts = tr("Adjusted R Square counts all ^1 rows of the sample, not the ^2 that are regressed.",
                                rows->account.used, rows->account.used - lagRange(run.record).most);
  return run.record.requestedLists.contains("MODEL EXOGENOUS")
             ? counts + " " + tr("Exogenous variables are not among the regressors that it counts.")
             : counts;
}

std::string errorMeasures(const FinishedRun& run) {
  std::string list;
  for (const char* measure : {"MSE", "RMSE", "MAE", "MAPE"}) {
    if (requested(run.record, modelFit, measure)) list += (list.empty() ? "" : ", ") + std::string(measure);
  }
  const int most = lagRange(run.record).most;
  const int selected = selectedLag(run);
  if (list.empty() || selected == most) return {};
  return tr("0 stands for not computed in ^1: they are computed only when the selected lag (^2) is MAXLAG (^3).", list,
            selected, most);
}

// How many autocorrelations the Ljung-Box statistic sums: one cycle of the finest unit of the dates that has one.
int ljungBoxLags(const FinishedRun& run) {
  constexpr std::array<std::pair<Unit, int>, 8> cycles = {{{Unit::second, 60},
                                                           {Unit::minute, 60},
                                                           {Unit::hour, 24},
                                                           {Unit::day, 7},
                                                           {Unit::week, 52},
                                                           {Unit::month, 12},
                                                           {Unit::quarter, 4},
                                                           {Unit::year, 1}}};
  for (const auto& [unit, lags] : cycles) {
    for (const DateVariable& variable : run.input.trends.dateVariables) {
      if (variable.unitCode == static_cast<int>(unit)) return lags;
    }
  }
  return lagRange(run.record).most;
}

std::string ljungBox(const FinishedRun& run, const Json& cells) {
  if (!requested(run.record, modelFit, "TAUTO")) return {};
  const int lags = ljungBoxLags(run);
  for (const Json& row : cells.GetArray()) {
    const double shown = row[1].IsNumber() ? row[1].GetDouble() : 0.0;
    if (shown < 1.0 || shown >= lags) continue;
    return tr(
        "Sig. of the Ljung-Box test is taken with ^1 degrees of freedom, the number of autocorrelations in the "
        "statistic; df shows that number less the lag order, at least 1.",
        lags);
  }
  return {};
}

std::string jarqueBera(const FinishedRun& run, const Json& table) {
  if (!requested(run.record, modelFit, "TNORM")) return {};
  const rapidjson::SizeType column = requested(run.record, modelFit, "TAUTO") ? 3 : 0;
  std::string list;
  for (rapidjson::SizeType row = 0; row < table["cells"].Size(); ++row) {
    const Json& cell = table["cells"][row][column];
    if (!cell.IsNumber() || cell.GetDouble() < jarqueBeraFloorStatistic) continue;
    const double tail = std::exp(-cell.GetDouble() / 2.0);
    list += (list.empty() ? "" : ", ") + std::string(table["rows"][row].GetString()) + " " +
            formatNumber(tail, {.decimals = 4}, run.input.language).text;
  }
  if (list.empty()) return {};
  return tr(
      "Sig. of the Jarque-Bera test stands at ^1 wherever the statistic is ^2 or more. The tail of its distribution "
      "is: ^3.",
      formatNumber(jarqueBeraFloor, {.decimals = 3}, run.input.language).text,
      static_cast<int>(jarqueBeraFloorStatistic), list);
}

bool showsValues(const Json& chart) {
  for (const char* name : {"Time Series -", "Residuals", "Fit Values -", "Forecast -"}) {
    if (isItem(chart, "chart", name)) return true;
  }
  return false;
}

class Notes {
 public:
  // Once over all items.
  void addOnce(std::size_t item, const std::string& note) {
    for (const auto& [place, said] : notes_) {
      if (std::find(said.begin(), said.end(), note) != said.end()) return;
    }
    add(item, note);
  }
  void add(std::size_t item, const std::string& note) {
    if (!note.empty()) notes_[item].push_back(note);
  }
  std::map<std::size_t, std::vector<std::string>> take() { return std::move(notes_); }

 private:
  std::map<std::size_t, std::vector<std::string>> notes_;
};

void addTableNotes(const FinishedRun& run, const Json& table, std::size_t place, Notes& notes) {
  if (isItem(table, "table", "VAR Model Parameters")) notes.addOnce(place, fitted(run, table));
  if (isItem(table, "table", "Model Fit Statistics")) {
    notes.addOnce(place, adjusted(run));
    notes.addOnce(place, errorMeasures(run));
  }
  if (isItem(table, "table", "Test for Residuals")) {
    notes.addOnce(place, ljungBox(run, table["cells"]));
    notes.addOnce(place, jarqueBera(run, table));
  }
  if (isItem(table, "table", "Forecast")) {
    for (const std::string& note : levelNotes(run, table)) notes.addOnce(place, note);
  }
  if (isItem(table, "table", "Forecast") && run.record.requestedLists.contains("MODEL EXOGENOUS")) {
    notes.addOnce(place, run.input.language.translate(forecastsWithoutExogenous));
  }
}

}  // namespace

DocumentView viewOf(const FinishedRun& run) {
  DocumentView view;
  Notes notes;
  const Json* items = itemsOf(run.record);
  for (rapidjson::SizeType i = 0; items != nullptr && i < items->Size(); ++i) {
    const Json& item = (*items)[i];
    if (run.followed && !isItem(item, "table", "Goodness of Fit")) view.hidden.insert(i);
    if (!run.followed && isItem(item, "chart", "Forecast -")) view.leadingCharts.insert(i);
    addTableNotes(run, item, i, notes);
    if (run.scale != 1.0 && showsValues(item)) notes.add(i, tr("Values are multiplied by ^1.", scaleText(run.scale)));
  }
  view.notes = notes.take();
  return view;
}

}  // namespace workbench::varmodel
