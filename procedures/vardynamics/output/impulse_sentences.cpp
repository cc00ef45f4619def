// Sentences about responses, their bands and the draws behind them.

#include "procedures/vardynamics/output/impulse_sentences.h"

#include <cmath>
#include <string>

#include "procedures/vardynamics/output/impulse_style.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {
namespace {

using engine::ShockType;

std::string count(std::size_t number) {
  return std::to_string(number);
}

// The horizon at which a response is largest.
std::size_t peak(const ShockResponses& set, std::size_t series, std::size_t shock) {
  std::size_t best = 0;
  for (std::size_t h = 1; h < set.values.size(); ++h) {
    if (std::fabs(set.values[h](series, shock)) > std::fabs(set.values[best](series, shock))) best = h;
  }
  return best;
}

// Whether the widest band leaves out zero there.
bool moves(const ShockResponses& set, std::size_t series, std::size_t shock) {
  const std::size_t h = peak(set, series, shock);
  const engine::Band& band = set.bands.back();
  return band.lower[h](series, shock) > 0.0 || band.upper[h](series, shock) < 0.0;
}

std::string movesText(const ReportContext& context, const ShockResponses& set) {
  std::string text;
  for (const std::size_t shock : set.shown) {
    std::vector<std::string> moved;
    for (std::size_t i = 0; i < context.names().size(); ++i) {
      const bool own = set.type != ShockType::exogenous && i == shock;
      if (!own && moves(set, i, shock)) moved.push_back(context.names()[i]);
    }
    if (moved.empty()) continue;
    text += text.empty() ? "" : "; ";
    text += context.texts.localize("^1 moves ^2", {shockName(context, set.type, shock), context.texts.list(moved)});
  }
  return text;
}

std::string shocksText(const ReportContext& context, ShockType type) {
  const Texts& texts = context.texts;
  switch (type) {
    case ShockType::orthogonal:
      return texts.localize("Orthogonal shocks in the order ^1", {texts.list(orderedNames(context))});
    case ShockType::generalized:
      return texts.localize("Generalized shocks");
    case ShockType::reduced:
      return texts.localize("Reduced-form shocks");
    case ShockType::exogenous:
      break;
  }
  return texts.localize("Exogenous series");
}

Sentences typeNotes(const ReportContext& context, ShockType type) {
  const Texts& texts = context.texts;
  switch (type) {
    case ShockType::orthogonal:
      return {orderSentence(context)};
    case ShockType::generalized:
      return {
          texts.localize("Generalized shocks depend on no order: the other shocks take the values that are expected "
                         "beside this one (Pesaran & Shin 1998).")};
    case ShockType::reduced:
      return {
          texts.localize("Reduced-form shocks: the others stay at zero, though shocks of one period are correlated.")};
    case ShockType::exogenous:
      break;
  }
  return {texts.localize("The exogenous series is one unit higher in period 0 alone.")};
}

Sentences cumulativeNotes(const ReportContext& context) {
  std::vector<std::string> summed;
  for (std::size_t i = 0; i < context.names().size(); ++i) {
    if (isSummed(context, i)) summed.push_back(context.names()[i]);
  }
  if (summed.empty()) return {};
  return {context.texts.localize("Responses summed over the horizons up to each: ^1.", {context.texts.list(summed)})};
}

bool varianceChanges(const ReportContext& context) {
  const auto& tests = context.analysis.tests;
  return tests && tests->arch && tests->arch->joint.test && context.rejects(tests->arch->joint.test->pValue);
}

Sentences bandNotes(const ReportContext& context) {
  const Texts& texts = context.texts;
  const ImpulseSettings& impulse = *context.settings.impulse;
  if (impulse.bands == Bands::none) return {};
  Sentences notes;
  if (impulse.bands == Bands::analytic) {
    notes.push_back(texts.localize(
        "Limits by the delta method are too narrow beyond short horizons; BANDS=BOOTSTRAP gives better ones."));
  } else {
    notes = drawSentences(context);
    if (impulse.simultaneous) {
      notes.push_back(texts.localize("A band holds the whole path of a response at its level."));
    }
  }
  if (context.hasRootNearOne()) {
    notes.push_back(texts.localize("With a root near one, tests and limits are less reliable than they say."));
  }
  return notes;
}

// "0", "3, 4"; nothing when every response lies in its widest band.
std::string horizonsOutside(const ShockResponses& set, std::size_t series, std::size_t shock) {
  const engine::Band& band = set.bands.back();
  std::string text;
  for (std::size_t h = 0; h < set.values.size(); ++h) {
    const double value = set.values[h](series, shock);
    const bool inside = band.lower[h](series, shock) <= value && value <= band.upper[h](series, shock);
    if (!inside) text += (text.empty() ? "" : ", ") + count(h);
  }
  return text;
}

// Which shocks of a type move which series.
std::string verdict(const ReportContext& context, const ShockResponses& set) {
  const Texts& texts = context.texts;
  const std::string level = texts.percent(context.settings.level());
  const std::string shocks = shocksText(context, set.type);
  const std::string moved = movesText(context, set);
  return moved.empty()
             ? texts.localize("^1: none moves another series (where a response is largest, its ^2 band holds zero).",
                              {shocks, level})
             : texts.localize("^1: ^2 (where a response is largest, its ^3 band leaves out zero).",
                              {shocks, moved, level});
}

}  // namespace

Sentences drawSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const DrawCount& draws = *context.analysis.draws;
  const std::string all = count(draws.replications);
  const std::string seed = std::to_string(context.settings.bootstrap.seed);
  Sentences sentences{
      draws.corrected
          ? texts.localize(
                "Limits from ^1 bootstrap draws, corrected for the bias of the slopes (Kilian 1998); seed ^2.",
                {all, seed})
          : texts.localize(
                "Limits from ^1 bootstrap draws, not corrected for bias, since a root of the model lies on or "
                "outside the unit circle; seed ^2.",
                {all, seed})};
  if (draws.uncorrected > 0) {
    sentences.push_back(
        texts.localize("Draws with a root on or outside the unit circle, kept without correction: ^1 of ^2.",
                       {count(draws.uncorrected), all}));
  }
  const bool wild = context.settings.bootstrap.resampling == Resampling::wild;
  if (wild) sentences.push_back(texts.localize("RESAMPLE=WILD: the draws follow residuals whose variance changes."));
  if (!wild && varianceChanges(context)) {
    sentences.push_back(
        texts.localize("The variance of the residuals depends on past ones (ARCH test): RESAMPLE=WILD gives limits for "
                       "such residuals."));
  }
  return sentences;
}

Sentences impulseSentences(const ReportContext& context) {
  const Impulse& impulse = context.analysis.impulse;
  Sentences sentences;
  for (const ShockResponses& set : impulse) {
    const bool told = &set == &impulse.front() || set.type == ShockType::exogenous;
    if (told && !set.bands.empty()) sentences.push_back(verdict(context, set));
  }
  return sentences;
}

Sentences responseNotes(const ReportContext& context, const ShockResponses& set) {
  Sentences notes = typeNotes(context, set.type);
  append(notes, cumulativeNotes(context));
  append(notes, bandNotes(context));
  return notes;
}

std::string shockSizeSentence(const ReportContext& context, const ShockResponses& set, std::size_t shock) {
  const Texts& texts = context.texts;
  const std::string& name = shockName(context, set.type, shock);
  const bool unit =
      context.settings.impulse->unit || set.type == ShockType::reduced || set.type == ShockType::exogenous;
  if (unit) return texts.localize("Size of the shock: one unit of ^1.", {name});
  const double size = set.values.front()(shock, shock);
  return texts.localize("Size of the shock: one standard deviation, which moves ^1 by ^2 at once.",
                        {name, texts.number(fixedText(size, decimalsFor(size)))});
}

Sentences outsideSentences(const ReportContext& context, const ShockResponses& set, std::size_t shock) {
  if (set.bands.empty()) return {};
  const Texts& texts = context.texts;
  std::string outside;
  for (std::size_t i = 0; i < context.names().size(); ++i) {
    const std::string horizons = horizonsOutside(set, i, shock);
    if (horizons.empty()) continue;
    outside += outside.empty() ? "" : "; ";
    outside += texts.localize("^1 at ^2", {context.names()[i], horizons});
  }
  if (outside.empty()) return {};
  Sentences sentences{
      texts.localize("Responses outside their ^1 band: ^2.", {texts.percent(context.settings.level()), outside})};
  const auto& draws = context.analysis.draws;
  if (draws && draws->corrected) {
    sentences.front() += " " + texts.localize("The band is corrected for bias, the least-squares response is not.");
  }
  return sentences;
}

}  // namespace vardynamics
