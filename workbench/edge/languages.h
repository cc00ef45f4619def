// The languages that the program speaks: English, the language of the keys, and one per dictionary file CODE.json.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/edge/session.h"

namespace workbench {

// Where the program's own dictionaries lie: ../share/varmodel/locale beside the folder of the running program.
std::filesystem::path installedDictionaries();

// The codes of all languages, sorted; a folder that cannot be read adds none to English.
std::vector<std::string> availableLanguages(const std::filesystem::path& dictionaryFolder);

// The dictionary file of the session's language; empty when it needs none.
std::filesystem::path dictionaryFile(const CallInput& input);

// Sets the session's language and reads its texts from the session's dictionary folder. Throws UsageError for a
// language that there is not, and for a damaged dictionary.
void setLanguage(CallInput& input, const std::string& code);

}  // namespace workbench
