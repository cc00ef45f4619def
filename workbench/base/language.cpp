#include "workbench/base/language.h"

#include <utility>

namespace workbench {

Language::Language(std::string code, MessageCatalogue texts) : code_(std::move(code)), texts_(std::move(texts)) {
  const std::string half = texts_.lookUp("0.5");
  if (half.size() > 2 && half.front() == '0' && half.back() == '5') decimalSeparator_ = half.substr(1, half.size() - 2);
}

}  // namespace workbench
