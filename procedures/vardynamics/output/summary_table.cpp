#include "engine/dynamics/fit_parts.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {

DocumentTable summaryTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Sample& sample = context.observations.sample;
  const engine::FittedVar& fit = context.analysis.model.fit;
  const auto count = [](std::size_t number) { return static_cast<double>(number); };
  DocumentTable table{
      .id = "Model Summary", .title = texts.localize("Model Summary"), .rowLabel = texts.localize("Model")};
  TableColumn values{.label = texts.localize("Value"), .decimals = 0};
  const auto add = [&](const std::string& label, double value) {
    table.rows.push_back(label);
    values.values.push_back(value);
  };
  add(texts.localize("Rows of the sample"), count(sample.rows()));
  add(texts.localize("Incomplete rows left out"), count(sample.leftOutBefore + sample.leftOutAfter));
  add(texts.localize("Rows of the regressions"), count(engine::rowCount(fit)));
  add(texts.localize("Lag order"), count(fit.lag));
  add(texts.localize("Endogenous series"), count(engine::seriesCount(fit)));
  add(texts.localize("Regressors per equation"), count(engine::regressorCount(fit)));
  add(texts.localize("Residual degrees of freedom"), engine::residualDegrees(fit));
  table.columns.push_back(values);
  table.notes = headline(context);
  return table;
}

}  // namespace vardynamics
