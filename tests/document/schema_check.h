// Checking JSON against the schemas of docs/.

#pragma once

#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "workbench/base/json.h"
// After it, so that RapidJSON is set up alike everywhere.
#include <rapidjson/schema.h>

namespace workbench {

inline rapidjson::Document readSchema(const std::string& name) {
  std::ifstream file(VARMODEL_SOURCE_DIR "/docs/" + name, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  rapidjson::Document schema;
  schema.Parse(text.c_str());
  return schema;
}

// The one schema that others refer to.
class DocumentSchema final : public rapidjson::IRemoteSchemaDocumentProvider {
 public:
  const rapidjson::SchemaDocument* GetRemoteDocument(const char*, rapidjson::SizeType) override { return &schema_; }

 private:
  rapidjson::Document json_ = readSchema("document.schema.json");
  rapidjson::SchemaDocument schema_{json_};
};

// Where the JSON breaks the schema, and by what; "" where it does not.
inline std::string breach(const rapidjson::Value& json, const std::string& schemaName) {
  DocumentSchema referred;
  const rapidjson::Document schema = readSchema(schemaName);
  if (!schema.IsObject()) return "the schema is no JSON";
  const rapidjson::SchemaDocument compiled(schema, &referred);
  rapidjson::SchemaValidator validator(compiled);
  if (json.Accept(validator)) return "";
  rapidjson::StringBuffer place;
  validator.GetInvalidDocumentPointer().Stringify(place);
  return std::string(validator.GetInvalidSchemaKeyword()) + " at " + place.GetString();
}

}  // namespace workbench
