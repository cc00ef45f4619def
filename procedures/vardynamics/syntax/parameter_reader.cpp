#include "procedures/vardynamics/syntax/parameter_reader.h"

#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {

std::optional<std::int32_t> ParameterReader::wholeNumber(const char* name) const {
  const ParamObj* parameter = find(name);
  if (parameter == nullptr) return std::nullopt;
  int value = 0;
  if (!parameter->getIntegerValue(value)) fail("Give ^1 a whole number.", {name});
  return value;
}

std::string ParameterReader::keyword(const char* name, const char* byDefault) const {
  const ParamObj* parameter = find(name);
  std::string text;
  return parameter != nullptr && parameter->getUpStringGeneric(text) ? text : byDefault;
}

std::vector<std::string> ParameterReader::keywords(const char* name) const {
  const ParamObj* parameter = find(name);
  std::vector<std::string> texts;
  if (parameter == nullptr || !parameter->getStringList(texts)) texts.clear();
  return texts;
}

}  // namespace vardynamics
