#include "procedures/vardynamics/output/impulse_style.h"

namespace vardynamics {

using engine::ShockType;

std::string shockTypeId(ShockType type) {
  switch (type) {
    case ShockType::orthogonal:
      return "Orthogonal";
    case ShockType::generalized:
      return "Generalized";
    case ShockType::reduced:
      return "Reduced";
    case ShockType::exogenous:
      break;
  }
  return "Exogenous";
}

std::string shockTitle(const Texts& texts, ShockType type) {
  switch (type) {
    case ShockType::orthogonal:
      return texts.localize("Responses to Orthogonal Shock");
    case ShockType::generalized:
      return texts.localize("Responses to Generalized Shock");
    case ShockType::reduced:
      return texts.localize("Responses to Reduced-Form Shock");
    case ShockType::exogenous:
      break;
  }
  return texts.localize("Responses to Exogenous Series");
}

std::string responsesTitle(const Texts& texts, ShockType type, bool unit) {
  switch (type) {
    case ShockType::orthogonal:
      return unit ? texts.localize("Responses to Orthogonal Shocks of One Unit")
                  : texts.localize("Responses to Orthogonal Shocks of One Standard Deviation");
    case ShockType::generalized:
      return unit ? texts.localize("Responses to Generalized Shocks of One Unit")
                  : texts.localize("Responses to Generalized Shocks of One Standard Deviation");
    case ShockType::reduced:
      return texts.localize("Responses to Reduced-Form Shocks of One Unit");
    case ShockType::exogenous:
      break;
  }
  return texts.localize("Responses to One Unit of an Exogenous Series");
}

bool isSummed(const ReportContext& context, std::size_t series) {
  const std::vector<bool>& cumulative = context.settings.impulse->cumulative;
  return !cumulative.empty() && cumulative[series];
}

std::string responseName(const ReportContext& context, std::size_t series) {
  const std::string& name = context.names()[series];
  return isSummed(context, series) ? context.texts.localize("^1, summed", {name}) : name;
}

const std::string& shockName(const ReportContext& context, ShockType type, std::size_t shock) {
  return type == ShockType::exogenous ? context.settings.model.exogenous.names[shock] : context.names()[shock];
}

std::vector<std::string> orderedNames(const ReportContext& context) {
  if (context.settings.order.empty()) return context.names();
  std::vector<std::string> names;
  for (const std::size_t i : context.settings.order) names.push_back(context.names()[i]);
  return names;
}

}  // namespace vardynamics
