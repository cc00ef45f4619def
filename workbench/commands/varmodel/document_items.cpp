#include "workbench/commands/varmodel/document_items.h"

#include <algorithm>
#include <array>

#include "workbench/edge/texts.h"

namespace workbench::varmodel {

namespace {

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

// What an item is called in documents, without its variable, and the lasting name that records give it.
struct ItemName {
  std::string_view type;
  std::string_view name;    // in English; documents hold it in the session's language
  std::string_view before;  // what stands between that and the variable's name
  bool perVariable;
  std::string_view id;
};
constexpr std::array itemNames = {
    ItemName{"table", "Descriptive Statistics", "", false, "descriptive-statistics"},
    ItemName{"table", "VAR Model Parameters", " - ", true, "parameters"},
    ItemName{"table", "Goodness of Fit", "", false, "lag-selection"},
    ItemName{"table", "Correlation Matrix of Residuals", "", false, "residual-correlations"},
    ItemName{"table", "Covariance Matrix of Residuals", "", false, "residual-covariances"},
    ItemName{"table", "Model Fit Statistics", "", false, "model-fit"},
    ItemName{"table", "Test for Residuals", "", false, "residual-tests"},
    ItemName{"table", "Forecast", "", false, "forecasts"},
    ItemName{"chart", "Time Series -", "", true, "series-chart"},
    ItemName{"chart", "ACF -", "", true, "autocorrelation-chart"},
    ItemName{"chart", "ACF Residuals -", "", true, "residual-autocorrelation-chart"},
    ItemName{"chart", "Residuals", "", false, "combined-residual-chart"},
    ItemName{"chart", "Residuals -", "", true, "residual-chart"},
    ItemName{"chart", "Fit Values -", "", true, "fit-chart"},
    ItemName{"chart", "Forecast -", "", true, "forecast-chart"},
};

}  // namespace

bool requested(const CallRecord& record, std::string_view list, std::string_view keyword) {
  const auto found = record.requestedLists.find(std::string(list));
  return found != record.requestedLists.end() &&
         std::find(found->second.begin(), found->second.end(), keyword) != found->second.end();
}

const rapidjson::Value* itemsOf(const CallRecord& record) {
  if (!record.document.IsObject() || !record.document.HasMember("items")) return nullptr;
  return &record.document["items"];
}

// Most items are named in the session's language, two tables in English in every language.
bool isItem(const rapidjson::Value& item, std::string_view type, std::string_view name) {
  const std::string_view itemName(item["name"].GetString(), item["name"].GetStringLength());
  return type == item["type"].GetString() && (itemName.starts_with(tr(name)) || itemName.starts_with(name));
}

const rapidjson::Value* findItem(const CallRecord& record, std::string_view type, std::string_view name) {
  const rapidjson::Value* items = itemsOf(record);
  if (items == nullptr || name.empty()) return nullptr;
  const auto found = std::find_if(items->Begin(), items->End(),
                                  [&](const rapidjson::Value& item) { return isItem(item, type, name); });
  return found == items->End() ? nullptr : found;
}

std::string itemId(const rapidjson::Value& item) {
  const std::string_view name(item["name"].GetString(), item["name"].GetStringLength());
  for (const ItemName& known : itemNames) {
    if (known.type != item["type"].GetString()) continue;
    for (std::string begin : {tr(known.name), std::string(known.name)}) {
      begin += known.before;
      if (!known.perVariable && name == begin) return std::string(known.id);
      if (known.perVariable && name.starts_with(begin)) {
        return std::string(known.id) + ":" + std::string(name.substr(begin.size()));
      }
    }
  }
  return {};
}

std::vector<Notice> keywordNotes(const CallRecord& record) {
  std::vector<Notice> notes;
  for (const KeywordItem& entry : keywordItems) {
    if (!requested(record, entry.list, entry.keyword)) continue;
    if (findItem(record, entry.type, entry.name) != nullptr) continue;
    Notice text("varmodel.no-item", "^1 was requested but produced no output.", entry.keyword);
    if (entry.keyword == "RESIDACF") text += phrase("Its column is part of the residual tests: add TAUTO or TNORM.");
    if (entry.keyword == "FORECASTS" || entry.keyword == "FORECAST") {
      text += phrase("Forecasts need a [predict] target after the last case.");
    }
    notes.push_back(text);
  }
  if (requested(record, modelFit, "ARSQUARE") && !requested(record, modelFit, "RSQUARE")) {
    notes.emplace_back(
        "varmodel.adjusted-alone",
        "Adjusted R Square is computed from R Square, which was not requested and therefore counts as 0: request "
        "RSQUARE beside ARSQUARE.");
  }
  return notes;
}

}  // namespace workbench::varmodel
