#include <algorithm>
#include <cmath>
#include <string>

#include "procedures/vardynamics/output/impulse_sentences.h"
#include "procedures/vardynamics/output/impulse_style.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

std::vector<double> pathOf(const engine::Responses& responses, std::size_t series, std::size_t shock) {
  return columnOf(responses, [&](const engine::Matrix& one) { return one(series, shock); });
}

// Decimals with which the largest response of the path shows four digits.
int pathDecimals(const std::vector<double>& path) {
  double largest = 0.0;
  for (const double value : path) largest = std::max(largest, std::fabs(value));
  return decimalsFor(largest);
}

// A response with what is known of its error.
std::vector<TableColumn> responseColumns(const ReportContext& context, const ShockResponses& set, std::size_t series,
                                         std::size_t shock) {
  const Texts& texts = context.texts;
  const std::vector<double> path = pathOf(set.values, series, shock);
  const int decimals = pathDecimals(path);
  if (set.bands.empty()) return {{responseName(context, series), path, decimals}};
  std::vector<TableColumn> columns{{texts.localize("Response"), path, decimals}};
  if (set.errors) {
    columns.push_back({texts.localize("Std. Error"), pathOf(*set.errors, series, shock), decimals});
  }
  for (const engine::Band& band : set.bands) {
    append(columns, limitColumns(texts, band.level, pathOf(band.lower, series, shock),
                                 pathOf(band.upper, series, shock), decimals));
  }
  return grouped(std::move(columns), responseName(context, series));
}

DocumentTable shockTable(const ReportContext& context, const ShockResponses& set, std::size_t shock) {
  const Texts& texts = context.texts;
  const std::string suffix = " - " + shockName(context, set.type, shock);
  DocumentTable table{.id = shockTypeId(set.type) + " Responses" + suffix,
                      .title = shockTitle(texts, set.type) + suffix,
                      .rowLabel = texts.localize("Horizon"),
                      .notes = {shockSizeSentence(context, set, shock)},
                      .columnLabel = texts.localize("Response of")};
  for (std::size_t h = 0; h <= set.horizon(); ++h) table.rows.push_back(std::to_string(h));
  for (std::size_t i = 0; i < context.names().size(); ++i) {
    append(table.columns, responseColumns(context, set, i, shock));
  }
  append(table.notes, outsideSentences(context, set, shock));
  return table;
}

}  // namespace

Tables responseTables(const ReportContext& context, const ShockResponses& set) {
  Tables tables;
  for (const std::size_t shock : set.shown) tables.push_back(shockTable(context, set, shock));
  append(tables.front().notes, responseNotes(context, set));
  return tables;
}

}  // namespace vardynamics
