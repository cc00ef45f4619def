#include "procedures/varmodel/output/var_output_gen.h"

namespace varmodel {

namespace {

// The first marker only; a text without it stays as it is.
std::string replaceMarker(std::string text, const std::string& marker, const std::string& argument) {
  const std::size_t place = text.find(marker);
  if (place != std::string::npos) text.replace(place, marker.size(), argument);
  return text;
}

}  // namespace

std::string VAROutputGen::localize(const std::string& key) const {
  return dictionary_ ? dictionary_->LookUp(key) : key;
}

std::string VAROutputGen::localize(const std::string& key, const std::string& first) const {
  return replaceMarker(localize(key), "^1", first);
}

std::string VAROutputGen::localize(const std::string& key, const std::string& first, const std::string& second) const {
  return replaceMarker(localize(key, first), "^2", second);
}

VAROutputGen::Texts VAROutputGen::localizeAll(std::initializer_list<const char*> keys) const {
  Texts texts;
  for (const char* key : keys) texts.push_back(localize(key));
  return texts;
}

}  // namespace varmodel
