#include "workbench/base/languages.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

#include "workbench/base/errors.h"
#include "workbench/base/installation.h"
#include "workbench/base/suggest.h"
#include "workbench/base/utf8_path.h"

namespace workbench {

namespace {

// The language of the keys; it needs no dictionary.
constexpr const char* kKeyLanguage = "en";

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

std::filesystem::path dictionaryFile(const std::filesystem::path& dictionaryFolder, const std::string& code) {
  return code == kKeyLanguage ? std::filesystem::path() : dictionaryFolder / pathFromUtf8(code + ".json");
}

Language readLanguage(const std::filesystem::path& dictionaryFolder, const std::string& code) {
  const std::vector<std::string> codes = availableLanguages(dictionaryFolder);
  if (std::find(codes.begin(), codes.end(), code) == codes.end()) {
    throw UsageError("option.no-language", "there is no language '^1'. Choose one of: ^2.", code, listed(codes));
  }
  const std::filesystem::path file = dictionaryFile(dictionaryFolder, code);
  if (file.empty()) return {};
  try {
    return {code, MessageCatalogue::read(file)};
  } catch (const std::runtime_error& error) {
    throw UsageError("option.bad-dictionary", "the dictionary '^1' ^2. Repair it, or choose en.", file,
                     phrase(error.what()));
  }
}

}  // namespace workbench
