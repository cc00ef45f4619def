// Man pages and completion scripts on request, for the build and for who unpacked an archive.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace workbench {

// The answer to the words after the program's name where they ask for such a text: `--man`, `--man COMMAND`,
// `--completion SHELL`; `--manual FOLDER` writes all of them below a folder share/, and has nothing to show. Throws
// UsageError for a command or a shell that there is not.
std::optional<std::string> manualText(const CLI::App& program, const std::vector<std::string>& words);

// What `--licenses` shows. Throws UsageError where the installation lacks the text.
std::string licencesText();

}  // namespace workbench
