#include "workbench/session/languages.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

#include "workbench/base/errors.h"
#include "workbench/session/installation.h"

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

std::filesystem::path dictionaryFile(const Session& session) {
  return session.language == kKeyLanguage ? std::filesystem::path()
                                          : session.dictionaryFolder / (session.language + ".json");
}

void setLanguage(Session& session, const std::string& code) {
  const std::vector<std::string> codes = availableLanguages(session.dictionaryFolder);
  if (std::find(codes.begin(), codes.end(), code) == codes.end()) {
    throw UsageError("there is no language '" + code + "'. Choose one of: " + listed(codes) + ".");
  }
  session.language = code;
  const std::filesystem::path file = dictionaryFile(session);
  if (file.empty()) return;
  try {
    session.texts = Texts::read(file);
  } catch (const std::runtime_error& error) {
    throw UsageError("the dictionary '" + file.string() + "' " + error.what() + ". Repair it, or choose en.");
  }
}

}  // namespace workbench
