#include "workbench/commands/varmodel/level_notes.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "engine/dynamics/level_forecast.h"
#include "workbench/commands/common/analysed_rows.h"
#include "workbench/document/document_reader.h"
#include "workbench/edge/texts.h"
#include "workbench/render/number_format.h"

namespace workbench::varmodel {

namespace {

constexpr std::size_t kShownPeriods = 12;

engine::Change changeOf(Transformation::Kind kind) {
  switch (kind) {
    case Transformation::Kind::log:
      return engine::Change::logarithm;
    case Transformation::Kind::dlog:
      return engine::Change::logDifference;
    case Transformation::Kind::pct:
      return engine::Change::percentage;
    case Transformation::Kind::diff:
    case Transformation::Kind::sdiff:
      break;
  }
  return engine::Change::difference;
}

const OriginalSeries* originalOf(const FinishedRun& run, const std::string& name) {
  const int column = run.input.dataset.find(name);
  const auto found = std::ranges::find(run.input.originals, column, &OriginalSeries::column);
  return found == run.input.originals.end() ? nullptr : &*found;
}

// The last values up to the last row that was used.
std::optional<engine::LevelScale> scaleOf(const FinishedRun& run, const OriginalSeries& original) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  if (!rows || rows->account.lastUsed < 0) return std::nullopt;
  const std::size_t known = run.input.casesBefore + static_cast<std::size_t>(rows->account.lastUsed) + 1;
  if (known < original.lag) return std::nullopt;
  const auto last = std::span(original.values).subspan(known - original.lag, original.lag);
  if (std::ranges::count(last, kSystemMissing) > 0) return std::nullopt;
  return engine::LevelScale{changeOf(original.kind), original.factor, original.lag, {last.begin(), last.end()}};
}

std::string numberText(double value, const Language& language) {
  constexpr int kDigits = 6;
  const double size = std::fabs(value);
  const int whole = size >= 1.0 && std::isfinite(size) ? static_cast<int>(std::floor(std::log10(size))) + 1 : 1;
  return formatNumber(value, {.decimals = std::max(kDigits + 1 - whole, 0)}, language).text;
}

std::string pathText(const TableItem& table, const std::vector<double>& path, const Language& language) {
  std::string text;
  for (std::size_t h = 0; h < path.size(); ++h) {
    if (h + 1 >= kShownPeriods && h + 1 < path.size()) continue;
    const bool skipped = h + 1 > kShownPeriods;
    text += (text.empty() ? ""
             : skipped    ? ", ..., "
                          : ", ") +
            table.columns[h].label + " " + numberText(path[h], language);
  }
  return text;
}

}  // namespace

std::vector<std::string> levelNotes(const FinishedRun& run, const rapidjson::Value& item) {
  std::vector<std::string> notes;
  if (run.input.originals.empty()) return notes;
  const TableItem table = readTable(item);
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    const OriginalSeries* original = originalOf(run, table.rows[row]);
    const auto scale = original == nullptr ? std::nullopt : scaleOf(run, *original);
    if (!scale) continue;
    std::vector<double> changes = table.cells[row];
    for (double& change : changes) change /= run.scale;
    notes.push_back(tr("Forecast of ^1 in levels: ^2.", table.rows[row],
                       pathText(table, engine::levelPath(changes, *scale), run.input.language)));
  }
  return notes;
}

}  // namespace workbench::varmodel
