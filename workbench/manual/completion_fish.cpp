#include <fmt/format.h>
#include <fmt/ranges.h>

#include "workbench/base/shell_word.h"
#include "workbench/manual/completion.h"

namespace workbench {

namespace {

std::string namesPart(const OptionEntry& option) {
  std::string text;
  for (const std::string& name : option.names)
    text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  return text;
}

std::string files(const std::string& extension) {
  return extension.empty() ? " -F" : fmt::format(" -k -xa '(__fish_complete_suffix {})'", extension);
}

std::string valuePart(const OptionEntry& option) {
  if (option.value.empty()) return "";
  if (option.file) return " -r" + files("");
  if (option.words.empty()) return " -x";
  return fmt::format(" -x -a {}", shellWord(fmt::format("{}", fmt::join(option.words, " "))));
}

std::string line(const std::string& condition, const std::string& rest) {
  return fmt::format("complete -c varmodel -n {}{}\n", shellWord(condition), rest);
}

std::string optionLines(const std::string& condition, const OptionEntry& option) {
  if (option.argument) return line(condition + "; and __varmodel_lacks_argument", files(option.extension));
  std::string text = line(condition, namesPart(option) + valuePart(option) + " -d " + shellWord(option.description));
  if (option.several && !option.words.empty()) {
    text += line(fmt::format("{}; and __varmodel_lists {}", condition, option.longName()),
                 " -a " + shellWord(fmt::format("{}", fmt::join(option.words, " "))));
  }
  return text;
}

constexpr const char* kFunctions = R"(# The last option before the cursor takes a list.
function __varmodel_lists --argument-names option
  set -l given (string match -- '-*' (commandline -opc))
  test "$given[-1]" = "$option"
end
function __varmodel_lacks_argument
  test (count (commandline -opc)) -eq 2
end
complete -c varmodel -f
)";

}  // namespace

std::string fishCompletion(const CommandEntry& program) {
  std::string text = "# Completion of varmodel for fish, made by 'varmodel --completion fish'.\n";
  text += kFunctions;
  for (const OptionEntry& option : program.options) text += optionLines("__fish_use_subcommand", option);
  for (const CommandEntry& command : program.subcommands) {
    text += line("__fish_use_subcommand", fmt::format(" -a {} -d {}", command.name, shellWord(command.description)));
    const std::string seen = "__fish_seen_subcommand_from " + command.name;
    for (const OptionEntry& option : command.options) text += optionLines(seen, option);
  }
  return text;
}

}  // namespace workbench
