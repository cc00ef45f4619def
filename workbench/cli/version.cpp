#include "workbench/cli/version.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "generated/build_facts.h"
#include "workbench/base/errors.h"
#include "workbench/base/languages.h"
#include "workbench/commands/registry.h"
#include "workbench/dataset/duckdb_connection.h"
#include "workbench/edge/procedure_module.h"

namespace workbench {

namespace {

std::string fact(const std::string& name, const std::string& value) {
  return fmt::format("{:<13}{}\n", name, value);
}

std::string whereFound(const Command& command) {
  const std::filesystem::path library = installedProcedures() / command.library();
  try {
    const ProcedureModule loaded(library, command.entry());
    return library.string();
  } catch (const UsageError& error) {
    const std::string reason = error.what();
    return "not usable: " + reason.substr(0, reason.find('\n'));
  }
}

}  // namespace

std::string programVersion() {
  return kVersion;
}

std::string versionText() {
  std::string text = "varmodel " + programVersion() + "\n";
  text += fact("commit", kCommit);
  text += fact("compiler", fmt::format("{}, {}", kCompiler, kBuildType));
  text += fact("platform", kPlatform);
  text += fact("DuckDB", duckdb_library_version());
  for (const auto& command : commands()) text += fact(command->name(), whereFound(*command));
  const std::filesystem::path dictionaries = installedDictionaries();
  text += fact("languages",
               fmt::format("{} ({})", fmt::join(availableLanguages(dictionaries), ", "), dictionaries.string()));
  text.pop_back();
  return text;
}

}  // namespace workbench
