// An output document: what procedure made it, and its tables and charts in order.

#pragma once

#include <string>

#include "workbench/document/json_values.h"

namespace workbench {

// A document without items.
rapidjson::Document newDocument(const std::string& procedure, const std::string& subtitle);

// Moves a finished table or chart, whose values live in the document's pool, to the end of the document.
void appendItem(rapidjson::Document& document, Json item);

}  // namespace workbench
