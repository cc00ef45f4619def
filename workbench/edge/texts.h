// Texts in the language of the running call, for those who speak about it.

#pragma once

#include <string>
#include <string_view>

#include "workbench/base/language.h"

namespace workbench {

// Outside of calls that of setLanguage, English unless told.
const Language& currentLanguage();

void setLanguage(Language language);

template <class... Arguments>
std::string tr(std::string_view key, const Arguments&... arguments) {
  return currentLanguage().tr(key, arguments...);
}

}  // namespace workbench
