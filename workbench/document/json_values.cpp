#include "workbench/document/json_values.h"

#include <cmath>

#include "workbench/dataset/dataset.h"

namespace workbench {

Json jsonNumber(double value) {
  return std::isfinite(value) && value != kSystemMissing ? Json(value) : Json();
}

Json jsonText(const std::string& text, JsonPool& pool) {
  return Json(text, pool);
}

Json jsonTexts(const std::vector<std::string>& texts, JsonPool& pool) {
  Json array(rapidjson::kArrayType);
  array.Reserve(static_cast<rapidjson::SizeType>(texts.size()), pool);
  for (const std::string& text : texts) array.PushBack(jsonText(text, pool), pool);
  return array;
}

}  // namespace workbench
