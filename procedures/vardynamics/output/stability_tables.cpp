#include <string>

#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {

Tables stabilityTables(const ReportContext& context) {
  constexpr int kRootDecimals = 4;
  constexpr int kPeriodDecimals = 2;
  const Texts& texts = context.texts;
  const auto& roots = context.analysis.roots;
  DocumentTable table{.id = "Roots", .title = texts.localize("Roots"), .rowLabel = texts.localize("Root")};
  for (std::size_t i = 1; i <= roots.size(); ++i) table.rows.push_back(std::to_string(i));
  const auto column = [&](double engine::Root::*value) {
    return columnOf(roots, [value](const auto& root) { return root.*value; });
  };
  table.columns = {{texts.localize("Modulus"), column(&engine::Root::modulus), kRootDecimals},
                   {texts.localize("Real"), column(&engine::Root::real), kRootDecimals},
                   {texts.localize("Imaginary"), column(&engine::Root::imaginary), kRootDecimals},
                   {texts.localize("Period"), column(&engine::Root::period), kPeriodDecimals}};
  table.notes = stabilitySentences(context);
  table.notes.push_back(texts.localize(
      "Eigenvalues of the companion matrix. Period: length of the root's cycle in periods of the data."));
  return {table};
}

}  // namespace vardynamics
