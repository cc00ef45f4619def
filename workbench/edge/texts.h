// Texts in the language of the running call, for those who speak about it.

#pragma once

#include <string>
#include <string_view>

#include "workbench/base/language.h"

namespace workbench {

// English when no call is running.
const Language& currentLanguage();

template <class... Arguments>
std::string tr(std::string_view key, const Arguments&... arguments) {
  return currentLanguage().tr(key, arguments...);
}

}  // namespace workbench
