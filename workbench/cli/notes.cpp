#include "workbench/cli/notes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>
#include <string_view>

#include "workbench/cli/command_facts.h"
#include "workbench/dates/case_label.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

constexpr std::string_view modelFit = "MODELSTATISTICS MODELFIT";
constexpr std::string_view seriesPlot = "SERIESPLOT PLOT";

// Which item of the document a keyword asks for: the beginning of the item's name, in English.
struct KeywordItem {
  std::string_view list;
  std::string_view keyword;
  std::string_view type;
  std::string_view name;
};
constexpr std::array keywordItems = {
    KeywordItem{modelFit, "DESCRIPTIVES", "table", "Descriptive Statistics"},
    KeywordItem{modelFit, "GOODFIT", "table", "Goodness of Fit"},
    KeywordItem{modelFit, "PARAMETERS", "table", "VAR Model Parameters"},
    KeywordItem{modelFit, "RES", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "RESIDACF", "table", "Test for Residuals"},
    KeywordItem{modelFit, "MSE", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "RMSE", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "MAE", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "MAPE", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "RSQUARE", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "ARSQUARE", "table", "Model Fit Statistics"},
    KeywordItem{modelFit, "CORRMATRIX", "table", "Correlation Matrix of Residuals"},
    KeywordItem{modelFit, "EIGEN", "table", "Correlation Matrix of Residuals"},
    KeywordItem{modelFit, "TNORM", "table", "Test for Residuals"},
    KeywordItem{modelFit, "TAUTO", "table", "Test for Residuals"},
    KeywordItem{modelFit, "FORECASTS", "table", "Forecast"},
    KeywordItem{seriesPlot, "TIMESERIES", "chart", "Time Series -"},
    KeywordItem{seriesPlot, "ACF", "chart", "ACF -"},
    KeywordItem{seriesPlot, "RES", "chart", "Residuals -"},
    KeywordItem{seriesPlot, "RESCOMB", "chart", "Residuals"},
    KeywordItem{seriesPlot, "RESACF", "chart", "ACF Residuals -"},
    KeywordItem{seriesPlot, "RESACFCOMB", "chart", ""},
    KeywordItem{seriesPlot, "FIT", "chart", "Fit Values -"},
    KeywordItem{seriesPlot, "FORECAST", "chart", "Forecast -"},
};

class NoteList {
 public:
  void add(std::string text) {
    if (std::find(notes_.begin(), notes_.end(), text) == notes_.end()) notes_.push_back(std::move(text));
  }
  std::vector<std::string> take() { return std::move(notes_); }

 private:
  std::vector<std::string> notes_;
};

// The lines of a trace that begin with a prefix, without the prefix and without "Class::method - ".
std::vector<std::string> tracedTexts(const std::string& trace, std::string_view prefix) {
  std::vector<std::string> texts;
  std::istringstream lines(trace);
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, prefix.size(), prefix) != 0) continue;
    line.erase(0, prefix.size());
    const auto dash = line.find(" - ");
    if (dash != std::string::npos && line.substr(0, dash).find("::") < dash &&
        line.substr(0, dash).find(' ') == std::string::npos) {
      line.erase(0, dash + 3);
    }
    texts.push_back(std::move(line));
  }
  return texts;
}

const rapidjson::Value* itemsOf(const Session& session) {
  if (!session.document.IsObject() || !session.document.HasMember("items")) return nullptr;
  return &session.document["items"];
}

// Most items are named in the session's language, two tables in English in every language.
bool hasItem(const Session& session, std::string_view type, std::string_view name) {
  const rapidjson::Value* items = itemsOf(session);
  if (items == nullptr || name.empty()) return false;
  const std::string localName = tr(name);
  return std::any_of(items->Begin(), items->End(), [&](const rapidjson::Value& item) {
    const std::string_view itemName(item["name"].GetString(), item["name"].GetStringLength());
    return type == item["type"].GetString() && (itemName.starts_with(localName) || itemName.starts_with(name));
  });
}

void addRowNote(const Session& session, NoteList& notes) {
  const std::optional<AnalysedRows> rows = analysedRows(session);
  if (!rows || rows->account.dropped == 0) return;
  const RowAccount& account = rows->account;
  std::string why;
  for (std::size_t i = 0; i < account.missing.size(); ++i) {
    if (account.missing[i] == 0) continue;
    const Column& column = session.dataset.columns[static_cast<std::size_t>(rows->columns[i])];
    why += (why.empty() ? "" : ", ") + tr("^1 missing in ^2", column.name, account.missing[i]);
  }
  std::string cases;
  for (const std::int64_t offset : account.firstDropped)
    cases += (cases.empty() ? "" : ", ") + caseLabel(session, offset);
  notes.add(tr("Rows: ^1 read, ^2 used, ^3 dropped (^4; first dropped: ^5).", account.read, account.used,
               account.dropped, why, cases));
  if (account.gapInside) {
    notes.add(
        tr("Dropped cases lie inside the sample: the series are joined over the gap, so that the lags next to it span "
           "more than their number of periods."));
  }
}

void addKeywordNotes(const Session& session, NoteList& notes) {
  for (const KeywordItem& entry : keywordItems) {
    if (!requested(session, std::string(entry.list), std::string(entry.keyword))) continue;
    if (hasItem(session, entry.type, entry.name)) continue;
    std::string text = tr("^1 was requested but produced no output.", entry.keyword);
    if (entry.keyword == "RESIDACF") text += " " + tr("Its column is part of the residual tests: add TAUTO or TNORM.");
    if (entry.keyword == "FORECASTS" || entry.keyword == "FORECAST") {
      text += " " + tr("Forecasts need a [predict] target after the last case.");
    }
    notes.add(text);
  }
  if (requested(session, std::string(modelFit), "ARSQUARE") && !requested(session, std::string(modelFit), "RSQUARE")) {
    notes.add(
        tr("Adjusted R Square is computed from R Square, which was not requested and therefore counts as 0: request "
           "RSQUARE beside ARSQUARE."));
  }
}

// A failed residual test shows as statistic 0 with significance 1; a test that ran has a positive statistic.
void addTestNotes(const Session& session, NoteList& notes) {
  const rapidjson::Value* items = itemsOf(session);
  if (items == nullptr) return;
  for (const rapidjson::Value& item : items->GetArray()) {
    if (item["name"].GetString() != tr("Test for Residuals")) continue;
    const bool ljungBox = requested(session, std::string(modelFit), "TAUTO");
    const rapidjson::SizeType jarqueBera = ljungBox ? 3 : 0;
    for (rapidjson::SizeType row = 0; row < item["cells"].Size(); ++row) {
      const rapidjson::Value& cells = item["cells"][row];
      const std::string name = item["rows"][row].GetString();
      if (ljungBox && cells[1].IsNumber() && cells[1].GetDouble() == 0.0) {
        notes.add(
            tr("The Ljung-Box test of ^1 could not be computed: it needs at least one lag and more residuals than "
               "lags.",
               name));
      }
      if (requested(session, std::string(modelFit), "TNORM") && cells[jarqueBera].IsNumber() &&
          cells[jarqueBera].GetDouble() == 0.0 && cells[jarqueBera + 1].GetDouble() == 1.0) {
        notes.add(
            tr("The Jarque-Bera test of ^1 could not be computed: it needs at least four residuals with a variance of "
               "at least 1e-12.",
               name));
      }
    }
  }
}

// A selected lag below MAXLAG splits the output over two lags; the remedy is one more run.
void addLagRemedy(const Session& session, const CapturedStreams& streams, NoteList& notes) {
  for (const std::string& text : tracedTexts(streams.err, "Warning: ")) {
    int selected = 0;
    if (std::sscanf(text.c_str(), "The selected lag %d is below MAXLAG", &selected) != 1) continue;
    notes.add(session.composed ? tr("To have everything for lag ^1, give --minlag ^1 --maxlag ^1.", selected)
                               : tr("To have everything for lag ^1, run this command:\n^2", selected,
                                    withFixedLag(session.commandText, selected)));
  }
}

// What the size of the data allows.
struct UsableLag {
  std::int64_t rows = 0;
  std::int64_t endogenous = 0;
  std::int64_t exogenous = 0;
  std::int64_t lag = 0;
};

std::optional<UsableLag> usableLag(const Session& session) {
  const std::optional<AnalysedRows> rows = analysedRows(session);
  const auto endogenous = session.requestedLists.find("MODEL ENDOGENOUS");
  if (!rows || endogenous == session.requestedLists.end()) return std::nullopt;
  UsableLag usable{.rows = rows->account.used, .endogenous = std::ssize(endogenous->second)};
  usable.exogenous = std::ssize(rows->columns) - usable.endogenous;
  usable.lag = largestUsableLag(usable.rows, usable.endogenous, usable.exogenous);
  return usable;
}

std::string usableLagText(const UsableLag& usable) {
  if (usable.lag < 1) {
    return tr(
        "With ^1 rows, ^2 endogenous and ^3 exogenous variables no lag can be estimated: use fewer variables or more "
        "data.",
        usable.rows, usable.endogenous, usable.exogenous);
  }
  return tr("With ^1 rows, ^2 endogenous and ^3 exogenous variables the largest usable MAXLAG is ^4.", usable.rows,
            usable.endogenous, usable.exogenous, usable.lag);
}

// Few rows are the likelier cause where they bound the lag at all.
std::string singularCovarianceHint(const Session& session) {
  const std::string text =
      tr("The bound on the determinant, 1e-12, is absolute: series in small units (such as differences of logs) or few "
         "degrees of freedom fall below it. Rescale the series, for instance to percent, or lower MAXLAG.");
  const std::optional<UsableLag> usable = usableLag(session);
  return usable && usable->lag < 25 ? text + " " + usableLagText(*usable) : text;
}

}  // namespace

std::vector<std::string> collectNotes(const Session& session, const CapturedStreams& streams) {
  NoteList notes;
  addRowNote(session, notes);
  for (const std::string& text : tracedTexts(streams.err, "Warning: ")) notes.add(session.texts.translate(text));
  addLagRemedy(session, streams, notes);
  if (itemsOf(session) != nullptr) {
    if (itemsOf(session)->Empty())
      notes.add(tr("No output was requested: add keywords to MODELSTATISTICS or SERIESPLOT."));
    addKeywordNotes(session, notes);
    addTestNotes(session, notes);
  }
  return notes.take();
}

std::string hintFor(const std::string& message, const Session& session) {
  if (message == "Covariance matrix is singular") return singularCovarianceHint(session);
  if (message.starts_with("Insufficient observations")) {
    const std::optional<UsableLag> usable = usableLag(session);
    return usable ? usableLagText(*usable) : std::string();
  }
  if (message.starts_with("Regressor matrix is singular")) {
    return tr(
        "Some series is constant, or one is a linear combination of others (a total beside its parts). Drop one of "
        "them, or use differences.");
  }
  if (message == "CORRMATRIX is required when EIGEN is specified in MODELFIT.") {
    return tr("The run stops here. Add CORRMATRIX to MODELFIT, or remove EIGEN.");
  }
  if (message.starts_with("The forecast table is not created") && !session.trends.predictSet) {
    return tr(
        "This warning comes with TAUTO whenever no forecast was requested; it does not concern the test. For "
        "forecasts give ^1.",
        session.composed ? "--predict N" : tr("a [predict] target in the job file"));
  }
  if (message == "Turn off split file") return tr("Remove 'split' from the job file.");
  if (message == "Remove Weight Variable") return tr("Remove 'weight' from the job file.");
  return {};
}

std::string explainSilentStop(const Outcome& outcome, const CapturedStreams& streams) {
  struct SilentFailure {
    std::string_view handler;
    std::string cause;
  };
  const std::array silent = {
      SilentFailure{"get_SubCommand_Method", tr("the METHOD subcommand is missing: add /METHOD TYPE=[OLS]")},
      SilentFailure{"get_SubCommand_ModelStatistics", tr("MODELSTATISTICS has no MODELFIT list")},
      SilentFailure{"get_SubCommand_Auxiliary", tr("AUXILIARY has no CILEVEL")},
  };
  const std::string text =
      tr("the run stopped at ^1, without a message of the procedure.", stepName(outcome.failedStep));
  for (const SilentFailure& failure : silent) {
    const auto at = streams.out.rfind("VARSubCommands::" + std::string(failure.handler) + " - Completed with status");
    if (at == std::string::npos) continue;
    if (streams.out.substr(at, streams.out.find('\n', at) - at).find("FAILURE") != std::string::npos) {
      return text + "\n" + tr("The likely cause: ^1.", failure.cause);
    }
  }
  return text + "\n" + tr("The last lines of its trace:") + "\n" + lastLines(streams.err, 5);
}

}  // namespace workbench
