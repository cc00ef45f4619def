// The options of the program as plain data, read from its parser: what man pages and completions are made of.

#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace workbench {

struct OptionEntry {
  std::vector<std::string> names;  // "-q", "--quiet"; of an argument its placeholder alone
  std::string value;               // placeholder ("FILE", "aic|bic"); empty for a flag
  std::string description;
  std::string group;
  bool argument = false;  // found by its place, not by a name
  bool required = false;
  bool several = false;            // takes a list of values
  bool file = false;               // the value is a file that may be there already
  std::string extension;           // of such a file (".toml"); empty for any
  std::vector<std::string> words;  // the values that there are; empty where they cannot be listed

  const std::string& longName() const { return names.back(); }
};

struct CommandEntry {
  std::string name;
  std::string description;
  std::vector<OptionEntry> options;  // arguments first
  std::vector<CommandEntry> subcommands;
};

// The program with its subcommands. Placeholders in lower case with bars between are the values themselves; `languages`
// are those of the placeholder CODE.
CommandEntry optionTable(const CLI::App& program, const std::vector<std::string>& languages);

}  // namespace workbench
