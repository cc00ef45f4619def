#include "procedures/common/display_text.h"

#include <new>

#include "host/codes.h"

namespace procedures {

namespace {

// The first marker only; a text without it stays as it is.
std::string replaceMarker(std::string text, const std::string& marker, const std::string& argument) {
  const std::size_t place = text.find(marker);
  if (place != std::string::npos) text.replace(place, marker.size(), argument);
  return text;
}

}  // namespace

std::unique_ptr<FacSTDictionary> openDictionary(const std::string& procedureTitle) {
  const std::string path = PathFactory::getPathInstance(codes::kDisplayTextPath)->getPath();
  std::unique_ptr<FacSTDictionary> dictionary(new (std::nothrow) FacSTDictionary(path));
  if (dictionary) dictionary->SetProcedure(procedureTitle);
  return dictionary;
}

std::string displayText(const FacSTDictionary* dictionary, const std::string& key,
                        std::initializer_list<std::string> arguments) {
  std::string text = dictionary != nullptr ? dictionary->LookUp(key) : key;
  int number = 0;
  for (const std::string& argument : arguments) {
    text = replaceMarker(std::move(text), "^" + std::to_string(++number), argument);
  }
  return text;
}

std::vector<std::string> displayTexts(const FacSTDictionary* dictionary, std::initializer_list<const char*> keys) {
  std::vector<std::string> texts;
  for (const char* key : keys) texts.push_back(displayText(dictionary, key));
  return texts;
}

}  // namespace procedures
