#include "workbench/commands/varmodel/summary.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "workbench/commands/varmodel/document_items.h"
#include "workbench/commands/varmodel/selected_lag.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/edge/texts.h"

namespace workbench::varmodel {

namespace {

// The keyword of MODELFIT that fills columns of the summary, and those columns as they are headed there.
struct SummaryColumns {
  std::string_view keyword;
  std::string_view columns;
};
constexpr std::array summaryColumns = {
    SummaryColumns{"RSQUARE", "R²"},
    SummaryColumns{"ARSQUARE", "Adj.R²"},
    SummaryColumns{"TNORM", "JB Stat, JB p-val, Normality"},
    SummaryColumns{"MSE", "MSE"},
    SummaryColumns{"RMSE", "RMSE"},
    SummaryColumns{"MAE", "MAE"},
    SummaryColumns{"MAPE", "MAPE(%)"},
    SummaryColumns{"TAUTO", "LB Stat, LB p-val, AutoCorr"},
    SummaryColumns{"RESIDACF", "[5]"},
    SummaryColumns{"CORRMATRIX", "[6]"},
    SummaryColumns{"EIGEN", "[7]"},
};

std::string joined(const std::vector<std::string>& words, const char* separator) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
  return text;
}

// Autocorrelations are computed for the tests and their chart, too.
bool hasAutocorrelations(const CallRecord& record) {
  return requested(record, modelFit, "RESIDACF") || requested(record, modelFit, "TAUTO") ||
         requested(record, modelFit, "TNORM") || requested(record, seriesPlot, "RESACF");
}

// The whole list, so that it can stand in the command as it is printed.
std::string fillingSubcommand(const CallRecord& record, const std::vector<std::string>& missing) {
  std::vector<std::string> keywords = {"PARAMETERS"};
  const auto given = record.requestedLists.find(std::string(modelFit));
  if (given != record.requestedLists.end()) keywords = given->second;
  keywords.insert(keywords.end(), missing.begin(), missing.end());
  return "/MODELSTATISTICS MODELFIT=[" + joined(keywords, " ") + "]";
}

// Requested, but the residuals are those of another lag than MAXLAG.
Notice emptyErrorMeasures(const FinishedRun& run) {
  const int selected = selectedLag(run);
  const bool any = std::ranges::any_of(std::array{"MSE", "RMSE", "MAE", "MAPE"},
                                       [&](const char* one) { return requested(run.record, modelFit, one); });
  if (!any || selected == lagRange(run.record).most) return {};
  return Notice(
      "varmodel.summary-error-measures",
      "MSE, RMSE, MAE and MAPE(%) stay 0 in the summary unless MINLAG and MAXLAG are both the selected lag, ^1.",
      selected);
}

}  // namespace

std::string summaryText(const FinishedRun& run) {
  const std::string& out = run.streams.out;
  const std::string rule(120, '=');
  const auto begin = out.find(rule + "\nVAR MODEL RESULTS SUMMARY");
  if (begin == std::string::npos) return {};
  const std::string closing = "END OF VAR MODEL RESULTS\n" + rule + "\n";
  const auto end = out.find(closing, begin);
  if (end == std::string::npos) return {};
  return out.substr(begin, end + closing.size() - begin);
}

Notice summaryNote(const FinishedRun& run) {
  if (summaryText(run).empty()) return {};
  std::vector<std::string> columns;
  std::vector<std::string> keywords;
  for (const SummaryColumns& one : summaryColumns) {
    const bool computed =
        one.keyword == "RESIDACF" ? hasAutocorrelations(run.record) : requested(run.record, modelFit, one.keyword);
    if (computed) continue;
    keywords.emplace_back(one.keyword);
    columns.emplace_back(one.columns);
  }
  const Notice note = emptyErrorMeasures(run);
  if (columns.empty()) return note;
  return Notice("varmodel.summary-parts",
                "These parts of the summary were not computed, and 0, OK and No in them mean nothing: ^1.",
                joined(columns, ", ")) +
         note + phrase("This subcommand fills them:\n^1", fillingSubcommand(run.record, keywords));
}

}  // namespace workbench::varmodel
