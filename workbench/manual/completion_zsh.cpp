#include <fmt/format.h>
#include <fmt/ranges.h>

#include "workbench/base/shell_word.h"
#include "workbench/manual/completion.h"

namespace workbench {

namespace {

std::string escaped(const std::string& text, std::string_view special) {
  std::string out;
  for (const char c : text)
    out += special.find(c) == std::string_view::npos ? std::string(1, c) : std::string("\\") + c;
  return out;
}

std::string action(const OptionEntry& option) {
  if (!option.words.empty()) return fmt::format("({})", fmt::join(option.words, " "));
  if (!option.file) return " ";
  return option.extension.empty() ? "_files" : fmt::format("_files -g \"*{}\"", option.extension);
}

// A list ends at the next word that begins with a minus.
std::string valuePart(const OptionEntry& option) {
  if (option.value.empty()) return "";
  return fmt::format(":{}{}:{}", option.several ? "*-*:" : "", escaped(option.value, ":[]\\"), action(option));
}

std::string optionSpec(const OptionEntry& option) {
  const std::string description = fmt::format("[{}]", escaped(option.description, "[]:\\"));
  const std::string value = valuePart(option);
  if (option.argument) return shellWord("1:" + option.value + ":" + action(option));
  if (option.names.size() == 1) return shellWord(option.names.front() + description + value);
  return fmt::format("{}{{{}}}{}", shellWord(fmt::format("({})", fmt::join(option.names, " "))),
                     fmt::join(option.names, ","), shellWord(description + value));
}

std::string specsOf(const CommandEntry& command, const char* indent) {
  std::string text;
  for (const OptionEntry& option : command.options) text += fmt::format(" \\\n{}{}", indent, optionSpec(option));
  return text;
}

}  // namespace

std::string zshCompletion(const CommandEntry& program) {
  std::string names;
  std::string cases;
  for (const CommandEntry& command : program.subcommands) {
    names += "        " + shellWord(escaped(command.name, ":") + ":" + command.description) + "\n";
    cases += fmt::format("        {})\n          _arguments{}\n          ;;\n", command.name,
                         specsOf(command, "            "));
  }
  return "#compdef varmodel\n# Completion of varmodel for zsh, made by 'varmodel --completion zsh'.\n_varmodel() {\n"
         "  local curcontext=$curcontext state line\n  typeset -A opt_args\n  _arguments -C" +
         specsOf(program, "    ") + " \\\n    '1:command:->command' '*::argument:->argument'\n  case $state in\n" +
         "    command)\n      local -a commands=(\n" + names +
         "      )\n      _describe command commands\n      ;;\n    argument)\n      case $words[1] in\n" + cases +
         "      esac\n      ;;\n  esac\n}\n"
         "if [ \"$funcstack[1]\" = _varmodel ]; then _varmodel \"$@\"; else compdef _varmodel varmodel; fi\n";
}

}  // namespace workbench
