#include <string>

#include "engine/linear_algebra/matrix.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/decomposition_parts.h"
#include "procedures/vardynamics/output/impulse_sentences.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

constexpr int kShareDecimals = 1;

// One kind of shares with its name.
struct ShareTable {
  const VarianceShares& shares;
  std::string id;
  std::string title;
};

std::vector<double> percentages(const std::vector<engine::Matrix>& matrices, std::size_t i, std::size_t j,
                                const std::vector<std::size_t>& horizons) {
  return columnOf(horizons, [&](std::size_t h) { return kPercent * matrices[h - 1](i, j); });
}

// The share of one shock with its limits; the level is said in the notes where there is only one.
std::vector<TableColumn> shockColumns(const ReportContext& context, const VarianceShares& shares, std::size_t series,
                                      std::size_t shock, const std::vector<std::size_t>& horizons) {
  const Texts& texts = context.texts;
  const std::string& name = context.names()[shock];
  const auto column = [&](const std::string& label, const std::vector<engine::Matrix>& matrices) {
    return TableColumn{label, percentages(matrices, series, shock, horizons), kShareDecimals};
  };
  if (shares.bands.empty()) return {column(name, shares.shares)};
  std::vector<TableColumn> columns{column(texts.localize("Share"), shares.shares)};
  for (const engine::Band& band : shares.bands) {
    const std::string percent = procedures::confidenceLevelText(band.level);
    const bool only = shares.bands.size() == 1;
    columns.push_back(column(only ? texts.localize("Lower") : texts.localize("^1 Lower", {percent}), band.lower));
    columns.push_back(column(only ? texts.localize("Upper") : texts.localize("^1 Upper", {percent}), band.upper));
  }
  return grouped(std::move(columns), name);
}

DocumentTable shareTable(const ReportContext& context, const ShareTable& kind, std::size_t series) {
  const Texts& texts = context.texts;
  const std::vector<std::size_t> horizons = printedHorizons(kind.shares.shares.size());
  DocumentTable table{.id = kind.id + " - " + context.names()[series],
                      .title = kind.title + " - " + context.names()[series],
                      .rowLabel = texts.localize("Horizon"),
                      .columnLabel = texts.localize("Percent from Shocks to")};
  for (const std::size_t h : horizons) table.rows.push_back(std::to_string(h));
  const engine::Matrix& errors = context.analysis.decomposition->standardErrors;
  std::vector<double> spread = columnOf(horizons, [&](std::size_t h) { return errors(h - 1, series); });
  const int decimals = decimalsForErrors(spread);
  table.columns = {{texts.localize("Std. Error"), std::move(spread), decimals}};
  for (std::size_t j = 0; j < context.names().size(); ++j) {
    append(table.columns, shockColumns(context, kind.shares, series, j, horizons));
  }
  return table;
}

Sentences bandNotes(const ReportContext& context, const VarianceShares& shares) {
  if (shares.bands.empty()) return {};
  Sentences notes = drawSentences(context);
  if (shares.bands.size() == 1) {
    notes.insert(notes.begin(), context.texts.localize("Lower and Upper: limits at ^1.",
                                                       {context.texts.percent(shares.bands.front().level)}));
  }
  return notes;
}

// The notes of all tables of a kind stand under its first.
Tables shareTables(const ReportContext& context, const ShareTable& kind, Sentences notes) {
  Tables tables;
  for (std::size_t i = 0; i < context.names().size(); ++i) tables.push_back(shareTable(context, kind, i));
  append(notes, bandNotes(context, kind.shares));
  notes.push_back(context.texts.localize(
      "Std. Error: of the forecast at known coefficients, whose square is what the shocks share."));
  tables.front().notes = std::move(notes);
  return tables;
}

}  // namespace

Tables varianceTables(const ReportContext& context) {
  const Texts& texts = context.texts;
  Sentences notes = varianceSentences(context);
  notes.push_back(orderSentence(context));
  return shareTables(
      context,
      {*context.analysis.decomposition->orthogonal, "Variance Decomposition", texts.localize("Variance Decomposition")},
      std::move(notes));
}

Tables generalizedTables(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Decomposition& parts = *context.analysis.decomposition;
  Tables tables = shareTables(
      context,
      {*parts.generalized, "Generalized Variance Decomposition", texts.localize("Generalized Variance Decomposition")},
      {texts.localize("No order of the series plays a part. The shocks are correlated, so that shares do not "
                      "add up to 100 %.")});
  for (DocumentTable& table :
       shareTables(context,
                   {*parts.normalised, "Normalised Generalized Decomposition",
                    texts.localize("Normalised Generalized Decomposition")},
                   {texts.localize("The generalized shares of each row divided by their sum.")})) {
    tables.push_back(std::move(table));
  }
  return tables;
}

DocumentTable historicalTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const std::string& first = historicalLabel(context, 0);
  const std::string& last = context.observations.lastLabel();
  DocumentTable table{.id = "Historical Decomposition",
                      .title = texts.localize("Historical Decomposition, ^1 to ^2", {first, last}),
                      .rowLabel = texts.localize("Part"),
                      .rows = {texts.localize("Data, ^1", {first}), texts.localize("Data, ^1", {last}),
                               texts.localize("Change"), texts.localize("Deterministic part")},
                      .notes = historicalSentences(context)};
  append(table.rows, context.settings.model.exogenous.names);
  table.rows.push_back(texts.localize("Initial conditions"));
  for (const std::string& name : context.names()) table.rows.push_back(texts.localize("Shocks to ^1", {name}));
  for (std::size_t i = 0; i < context.names().size(); ++i) {
    const HistoricalChange change = historicalChange(context, i);
    std::vector<double> values{change.first, change.last, change.last - change.first, change.deterministic};
    values.insert(values.end(), change.exogenous.begin(), change.exogenous.end());
    values.push_back(change.initial);
    values.insert(values.end(), change.shocks.begin(), change.shocks.end());
    table.columns.push_back({context.names()[i], std::move(values), historicalDecimals(context, i)});
  }
  append(table.notes, {texts.localize("Each part is how much it changed; together they are the change of the data. "
                                      "Deterministic: constant, trend and seasons."),
                       orderSentence(context)});
  return table;
}

}  // namespace vardynamics
