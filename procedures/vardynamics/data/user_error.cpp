#include "procedures/vardynamics/data/user_error.h"

#include <cstddef>

namespace vardynamics {

std::string filled(std::string text, std::initializer_list<std::string> arguments) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool marker = text[at] == '^' && at + 1 < text.size() && text[at + 1] >= '1' && text[at + 1] <= '9';
    const auto number = marker ? static_cast<std::size_t>(text[at + 1] - '1') : arguments.size();
    if (number >= arguments.size()) {
      result += text[at];
      continue;
    }
    result += *(arguments.begin() + number);
    ++at;
  }
  return result;
}

void fail(const std::string& text, std::initializer_list<std::string> arguments) {
  throw UserError(filled(text, arguments));
}

}  // namespace vardynamics
