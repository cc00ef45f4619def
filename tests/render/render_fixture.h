// Tables and documents for the painters' tests, written as the output document writes them.

#pragma once

#include <string>
#include <vector>

#include "workbench/render/pivot_table.h"

namespace workbench {

rapidjson::Document parseJson(const std::string& json);
PivotTable tableFromJson(const std::string& json, const Locale& locale = {});

// Texts that attack a renderer, and texts of many scripts; any may be a variable name or a label.
const std::vector<std::string>& hostileTexts();

std::vector<std::string> linesOf(const std::string& text);

}  // namespace workbench
