#include "procedures/vardynamics/output/texts.h"

#include <cstddef>

#include "procedures/common/display_text.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/syntax/command_identity.h"

namespace vardynamics {
namespace {

// A dictionary shows how its language writes one half.
std::string separatorOf(const std::string& half) {
  const bool usable = half.size() > 2 && half.front() == '0' && half.back() == '5';
  return usable ? half.substr(1, half.size() - 2) : ".";
}

}  // namespace

Texts::Texts() : dictionary_(procedures::openDictionary(kIdentity.title)), separator_(separatorOf(localize("0.5"))) {}

std::string Texts::localize(const std::string& key, std::initializer_list<std::string> arguments) const {
  return filled(procedures::displayText(dictionary_.get(), key), arguments);
}

std::string Texts::list(const std::vector<std::string>& names) const {
  if (names.empty()) return {};
  std::string text = names.front();
  for (std::size_t i = 1; i + 1 < names.size(); ++i) text += ", " + names[i];
  return names.size() == 1 ? text : localize("^1 and ^2", {text, names.back()});
}

std::string Texts::number(const std::string& english) const {
  std::string text = english;
  if (const auto point = text.find('.'); point != std::string::npos) text.replace(point, 1, separator_);
  return text;
}

std::string Texts::probability(double p, double level) const {
  return "p " + number(probabilityText(p, level));
}

std::string Texts::percent(double value) const {
  return number(procedures::shortestNumber(value)) + " %";
}

}  // namespace vardynamics
