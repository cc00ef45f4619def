#include <string>

#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

using OptionalChiSquared = std::vector<std::optional<engine::ChiSquaredTest>>;

DocumentTable portmanteauTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const LaggedChiSquared& test = *context.analysis.tests->portmanteau;
  return {.id = "Portmanteau Test",
          .title = texts.localize("Portmanteau Test"),
          .rowLabel = texts.localize("Lags"),
          .rows = {"1 - " + std::to_string(test.lags)},
          .columns = chiSquaredColumns(texts, {test.test}),
          .notes = portmanteauSentences(context)};
}

DocumentTable lagrangeTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  DocumentTable table{.id = "LM Test",
                      .title = texts.localize("LM Test for Autocorrelation"),
                      .rowLabel = texts.localize("Lags"),
                      .notes = lagrangeSentences(context)};
  OptionalChiSquared lagrange;
  std::vector<std::optional<engine::FTest>> rao;
  for (const engine::BreuschGodfrey& test : context.analysis.tests->lagrange->lags) {
    table.rows.push_back(test.lags == 1 ? "1" : "1 - " + std::to_string(test.lags));
    lagrange.emplace_back(test.lagrange);
    rao.emplace_back(test.rao);
  }
  table.columns = grouped(chiSquaredColumns(texts, lagrange), texts.localize("LM"));
  append(table.columns, grouped(fColumns(texts, rao), texts.localize("F form (Rao)")));
  return table;
}

DocumentTable archTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const ArchTests& tests = *context.analysis.tests->arch;
  OptionalChiSquared column{tests.joint.test};
  for (const LaggedChiSquared& equation : tests.equations) column.push_back(equation.test);
  DocumentTable table{.id = "ARCH Test",
                      .title = texts.localize("ARCH Test, Lags 1 - ^1", {std::to_string(tests.joint.lags)}),
                      .rowLabel = texts.localize("Equation"),
                      .rows = {texts.localize("All jointly")},
                      .columns = chiSquaredColumns(texts, column),
                      .notes = archSentences(context)};
  append(table.rows, context.names());
  return table;
}

DocumentTable normalityTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const NormalityTests& tests = *context.analysis.tests->normality;
  OptionalChiSquared column{tests.doornikHansen, {}, {}, {}};
  if (tests.cholesky)
    column = {tests.doornikHansen, tests.cholesky->skewness, tests.cholesky->kurtosis, tests.cholesky->joint};
  Sentences notes = normalitySentences(context);
  notes.push_back(
      texts.localize("The verdict is by Doornik-Hansen; the tests on residuals standardised by the Cholesky factor "
                     "depend on the order "
                     "of the series."));
  return {.id = "Normality Tests",
          .title = texts.localize("Normality Tests"),
          .rowLabel = texts.localize("Test"),
          .rows = {texts.localize("Doornik-Hansen"), texts.localize("Cholesky: skewness"),
                   texts.localize("Cholesky: kurtosis"), texts.localize("Cholesky: joint")},
          .columns = chiSquaredColumns(texts, column),
          .notes = notes};
}

DocumentTable shapeTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const auto& equations = context.analysis.tests->normality->equations;
  OptionalChiSquared jarqueBera;
  OptionalChiSquared ljungBox;
  for (const EquationShape& equation : equations) {
    jarqueBera.push_back(equation.jarqueBera);
    ljungBox.push_back(equation.ljungBox.test);
  }
  const auto jarqueBeraColumns = chiSquaredColumns(texts, jarqueBera);
  DocumentTable table{.id = "Residuals by Equation",
                      .title = texts.localize("Residuals by Equation"),
                      .rowLabel = texts.localize("Equation"),
                      .rows = context.names()};
  table.columns = {
      {texts.localize("Skewness"), columnOf(equations, [](const auto& one) { return one.shape.skewness; })},
      {texts.localize("Kurtosis"), columnOf(equations, [](const auto& one) { return one.shape.kurtosis; })}};
  append(table.columns, grouped({jarqueBeraColumns[0], jarqueBeraColumns[2]}, texts.localize("Jarque-Bera")));
  append(table.columns, grouped(chiSquaredColumns(texts, ljungBox), texts.localize("Ljung-Box")));
  table.notes = {texts.localize("Customary, each equation alone; no verdict rests on them. Ljung-Box up to lag ^1.",
                                {std::to_string(equations.front().ljungBox.lags)})};
  return table;
}

DocumentTable unitRootTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  DocumentTable table{.id = "Unit Root Tests",
                      .title = texts.localize("Unit Root Tests"),
                      .rowLabel = texts.localize("Series"),
                      .notes = unitRootSentences(context)};
  std::vector<UnitRootTests> rows;
  const auto& series = context.analysis.tests->unitRoots;
  for (std::size_t i = 0; i < series.size(); ++i) {
    for (const UnitRootTests& tests : series[i]) {
      const bool trend = tests.terms == engine::UnitRootTerms::constantAndTrend;
      const std::string terms = trend ? texts.localize("trend") : texts.localize("constant");
      table.rows.push_back(context.names()[i] + ", " + terms);
      rows.push_back(tests);
    }
  }
  const auto ofDickeyFuller = [&](auto value) {
    return columnOf(rows, [value](const auto& row) { return row.dickeyFuller ? value(*row.dickeyFuller) : kNoValue; });
  };
  const auto ofKpss = [&](auto value) {
    return columnOf(rows, [value](const auto& row) { return row.kpss ? value(*row.kpss) : kNoValue; });
  };
  const auto statistic = [](const auto& test) { return test.statistic; };
  const auto lags = [](const auto& test) { return static_cast<double>(test.lags); };
  const auto probability = [](const auto& test) { return test.pValue; };
  table.columns = grouped({{texts.localize("t"), ofDickeyFuller(statistic)},
                           {texts.localize("Lags"), ofDickeyFuller(lags), 0},
                           probabilityColumn(texts, ofDickeyFuller(probability))},
                          texts.localize("ADF (H0: unit root)"));
  append(table.columns, grouped({{texts.localize("Statistic"), ofKpss(statistic)},
                                 {texts.localize("Lags"), ofKpss(lags), 0},
                                 probabilityColumn(texts, ofKpss(probability))},
                                texts.localize("KPSS (H0: stationary)")));
  return table;
}

}  // namespace

Tables testTables(const ReportContext& context) {
  const ResidualTests& tests = *context.analysis.tests;
  Tables tables;
  if (tests.portmanteau) tables.push_back(portmanteauTable(context));
  if (tests.lagrange) tables.push_back(lagrangeTable(context));
  if (tests.arch) tables.push_back(archTable(context));
  if (tests.normality) {
    tables.push_back(normalityTable(context));
    tables.push_back(shapeTable(context));
  }
  if (!tests.unitRoots.empty()) tables.push_back(unitRootTable(context));
  return tables;
}

}  // namespace vardynamics
