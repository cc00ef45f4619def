// Texts in the language of the session.

#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "workbench/base/message_catalogue.h"

namespace workbench {

// The texts of the running session; English ones when no session is running.
const MessageCatalogue& currentTexts();

inline std::string argumentText(std::string_view text) {
  return std::string(text);
}
template <std::integral Number>
std::string argumentText(Number number) {
  return std::to_string(number);
}

// The text for a key in the running session's language, with its arguments.
template <class... Arguments>
std::string tr(std::string_view key, const Arguments&... arguments) {
  return fillMarkers(currentTexts().lookUp(key), {argumentText(arguments)...});
}

}  // namespace workbench
