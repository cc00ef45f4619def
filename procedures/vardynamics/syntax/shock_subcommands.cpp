#include "procedures/vardynamics/syntax/shock_subcommands.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/syntax/keywords.h"
#include "procedures/vardynamics/syntax/parameter_reader.h"

namespace vardynamics {
namespace {

using Names = std::vector<std::string>;

// The size of the list for a name that it does not hold.
std::size_t placeOf(const std::string& name, const Names& names) {
  return static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
}

std::string joined(const Names& names, const char* separator) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : separator) + name;
  return text;
}

std::vector<bool> readCumulative(const ParameterReader& reader, const Names& series) {
  if (!reader.has("CUMULATIVE")) return {};
  std::vector<bool> cumulative(series.size());
  for (const std::string& name : reader.keywords("CUMULATIVE")) {
    const std::size_t place = placeOf(name, series);
    if (place < series.size()) {
      cumulative[place] = true;
    } else if (name == kAllSeries) {
      cumulative.assign(series.size(), true);
    } else {
      fail("CUMULATIVE names ^1, which is no endogenous series. Give some of ^2, or CUMULATIVE=ALL.",
           {name, joined(series, ", ")});
    }
  }
  return cumulative;
}

std::vector<std::size_t> allOf(const Names& names) {
  std::vector<std::size_t> places(names.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  return places;
}

// The named shocks in the order of MODEL.
void readShocks(const ParameterReader& reader, const ModelSettings& model, ImpulseSettings& settings) {
  const Names& endogenous = model.endogenous.names;
  const Names& exogenous = model.exogenous.names;
  settings.shocks = allOf(endogenous);
  settings.exogenousShocks = allOf(exogenous);
  if (!reader.has("SHOCKS")) return;
  const Names given = reader.keywords("SHOCKS");
  for (const std::string& name : given) {
    if (placeOf(name, endogenous) < endogenous.size() || placeOf(name, exogenous) < exogenous.size()) continue;
    Names known = endogenous;
    known.insert(known.end(), exogenous.begin(), exogenous.end());
    fail("SHOCKS names ^1, which is no series of the model. Give some of ^2.", {name, joined(known, ", ")});
  }
  const auto isNamed = [&](const std::string& name) { return placeOf(name, given) < given.size(); };
  std::erase_if(settings.shocks, [&](std::size_t i) { return !isNamed(endogenous[i]); });
  std::erase_if(settings.exogenousShocks, [&](std::size_t i) { return !isNamed(exogenous[i]); });
}

void checkImpulse(const ImpulseSettings& settings) {
  const bool endogenous = settings.orthogonal || settings.generalized || settings.reduced;
  const bool any =
      (endogenous && !settings.shocks.empty()) || (settings.exogenous && !settings.exogenousShocks.empty());
  if (!any) fail("IMPULSE has no shock that both TYPE and SHOCKS allow. Leave out SHOCKS, or name others.");
  if (settings.simultaneous && settings.bands != Bands::bootstrap) {
    fail("IMPULSE with SIMULTANEOUS=YES takes its bands from draws. Give BANDS=BOOTSTRAP.");
  }
}

// As a command writes it: in quotes unless it is one plain word.
std::string inCommand(const std::string& name) {
  const auto isPlain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  if (std::ranges::all_of(name, isPlain)) return name;
  std::string quoted = "\"";
  for (const char c : name) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

// The named series first, each once, then the others.
[[noreturn]] void refuseOrder(const Names& given, const Names& series) {
  Names order;
  for (const Names& list : {given, series}) {
    for (const std::string& name : list) {
      const bool known = placeOf(name, series) < series.size();
      if (known && placeOf(name, order) == order.size()) order.push_back(name);
    }
  }
  for (std::string& name : order) name = inCommand(name);
  fail("ORDER names every endogenous series once. Give ORDER=^1, or these in another order.", {joined(order, " ")});
}

std::vector<std::size_t> readOrder(const SubComObj* subcommand, const ModelSettings& model) {
  if (subcommand == nullptr || !ParameterReader(*subcommand).has("ORDER")) return {};
  const Names& series = model.endogenous.names;
  const Names given = ParameterReader(*subcommand).keywords("ORDER");
  if (!std::ranges::is_permutation(given, series)) refuseOrder(given, series);
  std::vector<std::size_t> order;
  for (const std::string& name : given) order.push_back(placeOf(name, series));
  return order;
}

}  // namespace

ImpulseSettings readImpulse(const SubComObj& impulse, const ModelSettings& model) {
  const ParameterReader reader(impulse);
  ImpulseSettings settings;
  settings.exogenous = !model.exogenous.names.empty();
  reader.flags("TYPE", kShockTypes, settings);
  if (settings.exogenous && model.exogenous.names.empty()) {
    fail("IMPULSE asks for EXOGENOUS, and MODEL has no exogenous series. Leave out the keyword, or give EXOGENOUS=x.");
  }
  settings.horizon = reader.wholeNumber("HORIZON").value_or(settings.horizon);
  settings.unit = reader.keyword("SIZE", "SD") == "UNIT";
  settings.cumulative = readCumulative(reader, model.endogenous.names);
  settings.bands = valueOf(kResponseBands, reader.keyword("BANDS", "BOOTSTRAP"));
  settings.simultaneous = reader.yes("SIMULTANEOUS");
  readShocks(reader, model, settings);
  checkImpulse(settings);
  return settings;
}

DecompositionSettings readDecomposition(const SubComObj& decomposition) {
  const ParameterReader reader(decomposition);
  DecompositionSettings settings;
  reader.flags("TYPE", kDecompositions, settings);
  settings.horizon = reader.wholeNumber("HORIZON").value_or(settings.horizon);
  settings.bands = valueOf(kShareBands, reader.keyword("BANDS", "BOOTSTRAP"));
  return settings;
}

BacktestSettings readBacktest(const SubComObj& backtest) {
  const ParameterReader reader(backtest);
  BacktestSettings settings{.origins = reader.wholeNumber("ORIGINS")};
  settings.horizon = reader.wholeNumber("HORIZON").value_or(settings.horizon);
  settings.step = reader.wholeNumber("STEP").value_or(settings.step);
  settings.rolling = reader.keyword("WINDOW", "EXPANDING") == "ROLLING";
  return settings;
}

std::vector<std::size_t> readOrder(const SubComObj* impulse, const SubComObj* decomposition,
                                   const ModelSettings& model) {
  const std::vector<std::size_t> first = readOrder(impulse, model);
  const std::vector<std::size_t> second = readOrder(decomposition, model);
  if (!first.empty() && !second.empty() && first != second) {
    fail("IMPULSE and DECOMPOSITION give two different orders. Give ORDER in one of them: it holds for both.");
  }
  return first.empty() ? second : first;
}

BootstrapSettings readBootstrap(const SubComObj* bootstrap, const SubComObj* impulse) {
  BootstrapSettings settings;
  if (bootstrap != nullptr) {
    const ParameterReader reader(*bootstrap);
    settings.replications = reader.wholeNumber("REPLICATIONS").value_or(settings.replications);
    settings.seed = reader.wholeNumber("SEED").value_or(settings.seed);
  }
  if (impulse != nullptr) {
    settings.resampling = valueOf(kResamplings, ParameterReader(*impulse).keyword("RESAMPLE", "RESIDUAL"));
  }
  return settings;
}

}  // namespace vardynamics
