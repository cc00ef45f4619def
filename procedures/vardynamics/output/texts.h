// Display texts of the run's language, and what sentences are put together from.

#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "host/localization.h"

namespace vardynamics {

class Texts {
 public:
  // Opens the session's dictionary for this procedure.
  Texts();

  // The text of an English key, each marker (^1, ^2, ...) replaced by its argument.
  std::string localize(const std::string& key, std::initializer_list<std::string> arguments = {}) const;

  // "a", "a and b", "a, b and c".
  std::string list(const std::vector<std::string>& names) const;
  // A number's text with the language's decimal separator.
  std::string number(const std::string& english) const;
  // "p = 0.14", told from the level of a test
  std::string probability(double p, double level) const;
  // "95 %"
  std::string percent(double value) const;

 private:
  std::unique_ptr<FacSTDictionary> dictionary_;
  std::string separator_;
};

}  // namespace vardynamics
