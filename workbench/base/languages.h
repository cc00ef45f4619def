// The languages that the program speaks: English, the language of the keys, and one per dictionary file CODE.json.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/base/language.h"

namespace workbench {

// Where the program's own dictionaries lie: ../share/varmodel/locale beside the folder of the running program.
std::filesystem::path installedDictionaries();

// The codes of all languages, sorted; a folder that cannot be read adds none to English.
std::vector<std::string> availableLanguages(const std::filesystem::path& dictionaryFolder);

// The dictionary file of a language; empty when it needs none.
std::filesystem::path dictionaryFile(const std::filesystem::path& dictionaryFolder, const std::string& code);

// Throws UsageError for a language that there is not, and for a damaged dictionary.
Language readLanguage(const std::filesystem::path& dictionaryFolder, const std::string& code);

}  // namespace workbench
