// A language that differs from English in its numbers alone.

#pragma once

#include <map>
#include <string>
#include <utility>

#include "workbench/base/language.h"

namespace workbench {

inline Language commaLanguage() {
  std::map<std::string, std::string, std::less<>> texts{{"0.5", "0,5"}};
  return {"de", MessageCatalogue(std::move(texts))};
}

}  // namespace workbench
