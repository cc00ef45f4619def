#include "workbench/dataset/transformation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/case_value.h"
#include "workbench/dataset/number_text.h"

namespace workbench {

namespace {

using Kind = Transformation::Kind;

constexpr std::array<std::pair<std::string_view, Kind>, 5> kKinds{
    {{"log", Kind::log}, {"diff", Kind::diff}, {"dlog", Kind::dlog}, {"sdiff", Kind::sdiff}, {"pct", Kind::pct}}};

std::string_view nameOf(Kind kind) {
  return std::ranges::find(kKinds, kind, &std::pair<std::string_view, Kind>::second)->first;
}

[[noreturn]] void refuse(const std::string& variable, const std::string& text) {
  throw UsageError("transform.unknown",
                   "transform: \"^1\" is no transformation of ^2. There are log, diff, dlog, sdiff and pct, each with "
                   "a factor if you like: dlog*100.",
                   text, variable);
}

bool takesLogarithm(Kind kind) {
  return kind == Kind::log || kind == Kind::dlog;
}

std::size_t lagOf(Kind kind, int season) {
  if (kind == Kind::log) return 0;
  return kind == Kind::sdiff ? static_cast<std::size_t>(season) : 1;
}

// What keeps a value from being transformed; empty when nothing does.
Notice faultOf(Kind kind, double value) {
  if (takesLogarithm(kind) && !(value > 0.0)) return phrase("a logarithm needs positive values");
  if (kind == Kind::pct && value == 0.0) return phrase("growth from zero is not defined");
  return {};
}

double transformed(const Transformation& how, double before, double value) {
  switch (how.kind) {
    case Kind::log:
      return how.factor * std::log(value);
    case Kind::dlog:
      return how.factor * (std::log(value) - std::log(before));
    case Kind::pct:
      return how.factor * 100.0 * (value / before - 1.0);
    case Kind::diff:
    case Kind::sdiff:
      break;
  }
  return how.factor * (value - before);
}

std::vector<double> transformedValues(const Column& column, std::size_t rows, const Transformation& how, int season) {
  std::vector<double> values;
  const std::size_t lag = lagOf(how.kind, season);
  for (std::size_t row = 0; row < rows; ++row) {
    const double value = caseValue(column, row, true);
    const double before = row >= lag ? caseValue(column, row - lag, true) : kSystemMissing;
    const Notice fault = value == kSystemMissing ? Notice() : faultOf(how.kind, value);
    if (!fault.empty()) {
      throw DataError("transform.value",
                      "transform: ^1 is ^2 in row ^3, and ^4. Leave such rows out, or choose another transformation, "
                      "such as diff.",
                      column.name, numberText(value), row + 1, fault);
    }
    const bool known = value != kSystemMissing && before != kSystemMissing;
    values.push_back(known ? transformed(how, before, value) : kSystemMissing);
  }
  return values;
}

std::vector<double> validValues(const Column& column, std::size_t rows) {
  std::vector<double> values;
  for (std::size_t row = 0; row < rows; ++row) values.push_back(caseValue(column, row, true));
  return values;
}

int columnOf(const Dataset& dataset, const std::string& variable) {
  std::vector<std::string> names;
  for (const Column& column : dataset.columns) names.push_back(column.name);
  const int index = dataset.find(variable);
  if (index < 0) {
    throw UsageError(Notice("transform.no-variable", "transform: there is no variable ^1 in the data.", variable) +
                     didYouMean(variable, names));
  }
  if (dataset.columns[static_cast<std::size_t>(index)].kind != ColumnKind::number) {
    throw UsageError("transform.text", "transform: ^1 is not numeric. Name a variable of numbers.", variable);
  }
  return index;
}

}  // namespace

std::string Transformation::text() const {
  return std::string(nameOf(kind)) + (factor == 1.0 ? "" : "*" + numberText(factor));
}

Transformation transformationOf(const std::string& variable, const std::string& text) {
  const std::size_t star = text.find('*');
  const std::string_view word = withoutBlanks(std::string_view(text).substr(0, star));
  const auto* kind = std::ranges::find(kKinds, word, &std::pair<std::string_view, Kind>::first);
  const std::optional<double> factor =
      star == std::string::npos ? std::optional(1.0) : readNumber(std::string_view(text).substr(star + 1), {});
  if (kind == kKinds.end() || !factor || *factor == 0.0 || !std::isfinite(*factor)) refuse(variable, text);
  return {variable, kind->second, *factor};
}

std::vector<OriginalSeries> transformVariables(Dataset& dataset, std::span<const Transformation> transformations,
                                               int season) {
  std::vector<std::pair<int, std::vector<double>>> results;
  for (const Transformation& how : transformations) {
    const int index = columnOf(dataset, how.variable);
    if (std::ranges::find(results, index, &std::pair<int, std::vector<double>>::first) != results.end()) {
      throw UsageError("transform.twice", "transform: ^1 is transformed twice. Name it once.", how.variable);
    }
    if (how.kind == Kind::sdiff && season < 2) {
      throw UsageError("transform.season",
                       "transform: sdiff of ^1 needs cases whose dates have seasons, such as quarters or months. Date "
                       "them, for instance with --start year=1959 quarter=1.",
                       how.variable);
    }
    results.emplace_back(
        index, transformedValues(dataset.columns[static_cast<std::size_t>(index)], dataset.rowCount, how, season));
  }
  std::vector<OriginalSeries> originals;
  for (std::size_t i = 0; i < results.size(); ++i) {
    auto& [index, values] = results[i];
    Column& column = dataset.columns[static_cast<std::size_t>(index)];
    originals.push_back({.column = index,
                         .kind = transformations[i].kind,
                         .factor = transformations[i].factor,
                         .lag = lagOf(transformations[i].kind, season),
                         .values = validValues(column, dataset.rowCount)});
    column.numbers = std::move(values);
    column.userMissing.clear();
  }
  return originals;
}

}  // namespace workbench
