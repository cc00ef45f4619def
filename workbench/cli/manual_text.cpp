#include "workbench/cli/manual_text.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "workbench/base/errors.h"
#include "workbench/base/installation.h"
#include "workbench/base/languages.h"
#include "workbench/base/standard_streams.h"
#include "workbench/base/suggest.h"
#include "workbench/cli/version.h"
#include "workbench/manual/completion.h"
#include "workbench/manual/man_page.h"

namespace workbench {

namespace {

template <typename Named>
const Named& oneNamed(const std::vector<Named>& list, const std::string& name) {
  std::vector<std::string> names;
  for (const Named& one : list) {
    if (one.name == name) return one;
    names.emplace_back(one.name);
  }
  throw UsageError("option.no-text", "there is no \"^1\". Give one of: ^2.", name, listed(names));
}

std::string textOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw UsageError("program.missing-file", "^1 is missing. Install varmodel again.", file);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

std::string page(const CommandEntry& table, const std::string& command) {
  if (command.empty()) return programPage(table, programVersion());
  return subcommandPage(table, oneNamed(table.subcommands, command), programVersion());
}

std::string completion(const CommandEntry& table, const std::string& shell) {
  return oneNamed(shells(), shell).script(table);
}

std::string writeAll(const CommandEntry& table, const std::string& share) {
  const auto write = [&](const std::string& name, const std::string& text) {
    const std::filesystem::path file = std::filesystem::path(share) / name;
    std::filesystem::create_directories(file.parent_path());
    writeOutput(file, text);
  };
  write("man/man1/varmodel.1", page(table, ""));
  for (const CommandEntry& sub : table.subcommands)
    write("man/man1/varmodel-" + sub.name + ".1", page(table, sub.name));
  for (const Shell& shell : shells()) write(shell.file, shell.script(table));
  return "";
}

}  // namespace

std::optional<std::string> manualText(const CLI::App& program, const std::vector<std::string>& words) {
  const std::map<std::string, std::string (*)(const CommandEntry&, const std::string&)> answers = {
      {"--man", page}, {"--completion", completion}, {"--manual", writeAll}};
  const auto asked = words.empty() ? answers.end() : answers.find(words.front());
  if (asked == answers.end()) return std::nullopt;
  const CommandEntry table = optionTable(program, availableLanguages(installedDictionaries()));
  return asked->second(table, words.size() > 1 ? words[1] : std::string());
}

std::string licencesText() {
  const std::filesystem::path folder = installationFolder() / "share" / "varmodel";
  return textOf(folder / "LICENSE") + "\n" + textOf(folder / "THIRD_PARTY.md");
}

}  // namespace workbench
