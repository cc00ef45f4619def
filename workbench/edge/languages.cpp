#include "workbench/edge/languages.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

#include "workbench/base/errors.h"
#include "workbench/base/installation.h"

namespace workbench {

namespace {

// The language of the keys; it needs no dictionary.
constexpr const char* kKeyLanguage = "en";

std::string listed(const std::vector<std::string>& codes) {
  std::string text;
  for (const std::string& code : codes) text += (text.empty() ? "" : ", ") + code;
  return text;
}

}  // namespace

std::filesystem::path installedDictionaries() {
  return installationFolder() / "share" / "varmodel" / "locale";
}

std::vector<std::string> availableLanguages(const std::filesystem::path& dictionaryFolder) {
  std::vector<std::string> codes{kKeyLanguage};
  std::error_code unreadable;
  for (const auto& entry : std::filesystem::directory_iterator(dictionaryFolder, unreadable)) {
    if (entry.path().extension() == ".json") codes.push_back(entry.path().stem().string());
  }
  std::sort(codes.begin(), codes.end());
  codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
  return codes;
}

std::filesystem::path dictionaryFile(const CallInput& input) {
  return input.language == kKeyLanguage ? std::filesystem::path() : input.dictionaryFolder / (input.language + ".json");
}

void setLanguage(CallInput& input, const std::string& code) {
  const std::vector<std::string> codes = availableLanguages(input.dictionaryFolder);
  if (std::find(codes.begin(), codes.end(), code) == codes.end()) {
    throw UsageError("there is no language '" + code + "'. Choose one of: " + listed(codes) + ".");
  }
  input.language = code;
  const std::filesystem::path file = dictionaryFile(input);
  if (file.empty()) return;
  try {
    input.texts = MessageCatalogue::read(file);
  } catch (const std::runtime_error& error) {
    throw UsageError("the dictionary '" + file.string() + "' " + error.what() + ". Repair it, or choose en.");
  }
}

}  // namespace workbench
