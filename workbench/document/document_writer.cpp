#include "workbench/document/document_writer.h"

namespace workbench {

rapidjson::Document newDocument(const std::string& procedure, const std::string& subtitle) {
  rapidjson::Document document(rapidjson::kObjectType);
  JsonPool& pool = document.GetAllocator();
  document.AddMember("procedure", jsonText(procedure, pool), pool);
  document.AddMember("subtitle", jsonText(subtitle, pool), pool);
  document.AddMember("items", Json(rapidjson::kArrayType), pool);
  return document;
}

void appendItem(rapidjson::Document& document, Json item) {
  document["items"].PushBack(item, document.GetAllocator());
}

}  // namespace workbench
