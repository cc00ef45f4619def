#include <string>

#include "engine/dynamics/fit_parts.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

using OptionalF = std::vector<std::optional<engine::FTest>>;

// F, its first degrees of freedom and Sig. of every cause on one effect, all others jointly last.
std::vector<TableColumn> effectColumns(const ReportContext& context, std::size_t effect) {
  const engine::GrangerCausality& granger = *context.analysis.causality->granger;
  OptionalF tests;
  for (const auto& cause : granger.pairs) tests.push_back(cause[effect]);
  if (context.names().size() > 2) tests.push_back(granger.othersOnEach[effect]);
  std::vector<TableColumn> columns = fColumns(context.texts, tests);
  columns.erase(columns.begin() + 2);
  columns[1].label = context.texts.localize("df");
  return grouped(std::move(columns), context.names()[effect]);
}

// n - m of the regression that was tested.
std::string denominatorDegrees(const engine::GrangerCausality& granger) {
  for (const auto& test : granger.othersOnEach) {
    if (test) return procedures::shortestNumber(test->denominatorDegrees);
  }
  return "0";
}

DocumentTable grangerTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  DocumentTable table{.id = "Granger Causality",
                      .title = texts.localize("Granger Causality"),
                      .rowLabel = texts.localize("Cause"),
                      .rows = context.names(),
                      .notes = grangerSentences(context),
                      .columnLabel = texts.localize("Effect")};
  if (context.names().size() > 2) table.rows.push_back(texts.localize("All others jointly"));
  for (std::size_t effect = 0; effect < context.names().size(); ++effect) {
    append(table.columns, effectColumns(context, effect));
  }
  table.notes.push_back(texts.localize("F tests with df and ^1 degrees of freedom.",
                                       {denominatorDegrees(*context.analysis.causality->granger)}));
  return table;
}

DocumentTable jointTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  return {.id = "Granger Causality on All Others",
          .title = texts.localize("Granger Causality on All Others"),
          .rowLabel = texts.localize("Cause"),
          .rows = context.names(),
          .columns = fColumns(texts, context.analysis.causality->granger->eachOnOthers)};
}

DocumentTable instantaneousTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  return {.id = "Instantaneous Causality",
          .title = texts.localize("Instantaneous Causality"),
          .rowLabel = texts.localize("Series"),
          .rows = context.names(),
          .columns = chiSquaredColumns(texts, context.analysis.causality->instantaneous),
          .notes = instantaneousSentences(context)};
}

}  // namespace

Tables causalityTables(const ReportContext& context) {
  Tables tables;
  if (context.analysis.causality->granger) {
    tables.push_back(grangerTable(context));
    tables.push_back(jointTable(context));
  }
  if (!context.analysis.causality->instantaneous.empty()) tables.push_back(instantaneousTable(context));
  return tables;
}

}  // namespace vardynamics
