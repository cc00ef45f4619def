#include "workbench/manual/option_table.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <sstream>

namespace workbench {

namespace {

std::vector<std::string> wordsIn(const std::string& placeholder) {
  std::vector<std::string> words;
  std::istringstream parts(placeholder);
  for (std::string word; std::getline(parts, word, '|');) {
    if (word.empty() || std::islower(static_cast<unsigned char>(word.front())) == 0) return {};
    words.push_back(word);
  }
  return words.size() > 1 ? words : std::vector<std::string>();
}

// Without what a check of the value adds ("N:INT in [1 - 9]").
std::string placeholderOf(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.substr(0, type.find(':'));
}

std::vector<std::string> namesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

OptionEntry entryOf(const CLI::Option& option, const std::vector<std::string>& languages) {
  OptionEntry entry;
  entry.names = namesOf(option);
  entry.argument = option.get_positional();
  if (entry.argument) entry.names = {option.get_name(true)};
  if (entry.argument) entry.value = entry.names.front();
  if (!entry.argument && option.get_items_expected_max() > 0) entry.value = placeholderOf(option);
  entry.description = option.get_description();
  entry.group = option.get_group();
  entry.required = option.get_required();
  entry.several = option.get_items_expected_max() > 1;
  const std::string placeholder = entry.argument ? placeholderOf(option) : entry.value;
  entry.file = entry.value == "FILE" || entry.value == "DATA" || entry.value == "JOB";
  entry.extension = std::filesystem::path(placeholder).extension().string();
  entry.words = entry.value == "CODE" ? languages : wordsIn(entry.value);
  return entry;
}

CommandEntry commandOf(const CLI::App& app, const std::vector<std::string>& languages) {
  CommandEntry entry{.name = app.get_name(), .description = app.get_description(), .options = {}, .subcommands = {}};
  for (const CLI::Option* option : app.get_options()) entry.options.push_back(entryOf(*option, languages));
  std::ranges::stable_partition(entry.options, [](const OptionEntry& option) { return option.argument; });
  for (const CLI::App* sub : app.get_subcommands({})) entry.subcommands.push_back(commandOf(*sub, languages));
  return entry;
}

}  // namespace

CommandEntry optionTable(const CLI::App& program, const std::vector<std::string>& languages) {
  return commandOf(program, languages);
}

}  // namespace workbench
