// Adding items to the document of a generator.

#pragma once

#include <utility>

#include "host/output.h"
#include "workbench/document/document_values.h"

namespace workbench {

inline JsonPool& poolOf(StatJSONGenerator& generator) {
  return generator.getProcedureStatJSON().GetAllocator();
}

// Moves a finished table or chart to the end of the generator's document.
inline void appendItem(StatJSONGenerator& generator, Json item) {
  rapidjson::Document& document = generator.getProcedureStatJSON();
  document["items"].PushBack(item, document.GetAllocator());
}

}  // namespace workbench
