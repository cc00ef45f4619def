// Values of the output document. All live in the document's own memory pool.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/json.h"

namespace workbench {

using Json = rapidjson::Value;
using JsonPool = rapidjson::Document::AllocatorType;

// Null when the value is system-missing or not finite: JSON has no other word for it.
Json jsonNumber(double value);
Json jsonText(const std::string& text, JsonPool& pool);
Json jsonTexts(const std::vector<std::string>& texts, JsonPool& pool);

}  // namespace workbench
