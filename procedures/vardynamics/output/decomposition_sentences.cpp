// Sentences about shares and contributions of shocks.

#include <cmath>
#include <string>

#include "procedures/vardynamics/output/decomposition_parts.h"
#include "procedures/vardynamics/output/impulse_style.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

// "63 %", "4.2 %"
std::string shareText(const Texts& texts, double share) {
  constexpr double kPlain = 9.95;
  const double percent = kPercent * share;
  return texts.number(fixedText(percent, percent < kPlain ? 1 : 0)) + " %";
}

// The shock of another series that has the largest part, by `size`.
template <typename Size>
std::size_t largestOf(std::size_t count, std::size_t leftOut, Size size) {
  std::size_t largest = leftOut == 0 ? 1 : 0;
  for (std::size_t j = 0; j < count; ++j) {
    if (j != leftOut && size(j) > size(largest)) largest = j;
  }
  return largest;
}

std::string shareSentence(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const VarianceShares& shares = *context.analysis.decomposition->orthogonal;
  const engine::Matrix& last = shares.shares.back();
  const std::size_t other = largestOf(last.columns, series, [&](std::size_t j) { return last(series, j); });
  std::string largest = shareText(texts, last(series, other));
  if (!shares.bands.empty()) {
    const engine::Band& band = shares.bands.back();
    largest += " " + texts.localize("(^1 limits ^2 and ^3)",
                                    {texts.percent(band.level), shareText(texts, band.lower.back()(series, other)),
                                     shareText(texts, band.upper.back()(series, other))});
  }
  return texts.localize(
      "At ^1 periods ^2 of the forecast variance of ^3 comes from its own shocks and ^4 from shocks to ^5.",
      {std::to_string(shares.shares.size()), shareText(texts, last(series, series)), context.names()[series], largest,
       context.names()[other]});
}

std::string changeSentence(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const HistoricalChange change = historicalChange(context, series);
  const int decimals = historicalDecimals(context, series);
  const auto text = [&](double value) { return texts.number(fixedText(value, decimals)); };
  const std::size_t largest =
      largestOf(change.shocks.size(), change.shocks.size(), [&](std::size_t j) { return std::fabs(change.shocks[j]); });
  return texts.localize("^1 changed by ^2; of the shocks, those to ^3 had the largest part: ^4.",
                        {context.names()[series], text(change.last - change.first), context.names()[largest],
                         text(change.shocks[largest])});
}

}  // namespace

Sentences varianceSentences(const ReportContext& context) {
  Sentences sentences;
  for (std::size_t i = 0; i < context.names().size(); ++i) sentences.push_back(shareSentence(context, i));
  return sentences;
}

Sentences historicalSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const History& history = *context.analysis.decomposition->history;
  Sentences sentences;
  for (std::size_t i = 0; i < context.names().size(); ++i) sentences.push_back(changeSentence(context, i));
  if (history.initialRows == history.rows()) {
    sentences.push_back(
        texts.localize("The values before the first row still matter in the last one: read them and the deterministic "
                       "part together. The shocks' parts are not affected."));
  } else if (history.initialRows > 0) {
    sentences.push_back(
        texts.localize("The values before the first row matter until ^1: up to then their part of some series is more "
                       "than 5 % of what the shocks do (root mean square).",
                       {historicalLabel(context, history.initialRows - 1)}));
  }
  return sentences;
}

std::string orderSentence(const ReportContext& context) {
  return context.texts.localize(
      "Orthogonal shocks in the order ^1: a shock moves its own series and those after it at once, none before it.",
      {context.texts.list(orderedNames(context))});
}

}  // namespace vardynamics
