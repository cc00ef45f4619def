#include <fmt/format.h>
#include <fmt/ranges.h>

#include "workbench/base/shell_word.h"
#include "workbench/manual/completion.h"

namespace workbench {

namespace {

// What follows an option: a file, words, or something that nobody can list.
std::string valueCase(const CommandEntry& command, const OptionEntry& option) {
  std::string patterns;
  for (const std::string& name : option.names) patterns += (patterns.empty() ? "" : "|") + command.name + ":" + name;
  const char* kind = option.file ? "file" : option.words.empty() ? "other" : "words";
  return fmt::format("    {}) kind={} words={} several={} ;;\n", patterns, kind,
                     shellWord(fmt::format("{}", fmt::join(option.words, " "))), option.several ? "1" : "");
}

std::string namesOf(const CommandEntry& command) {
  std::string names;
  for (const OptionEntry& option : command.options) {
    if (!option.argument) names += (names.empty() ? "" : " ") + fmt::format("{}", fmt::join(option.names, " "));
  }
  return names;
}

std::string commandCase(const CommandEntry& command, const std::string& name) {
  std::string extension;
  for (const OptionEntry& option : command.options) {
    if (option.argument) extension = option.extension;
  }
  return fmt::format("    {}) options={} extension={} ;;\n", name, shellWord(namesOf(command)), extension);
}

constexpr const char* kCompletion = R"(_varmodel() {
  local word=${COMP_WORDS[COMP_CWORD]} command= argument= kind= words= several= options= extension= commands= i
  [ "$word" != = ] || word=
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
      =) ;;
      -?*) _varmodel_value "$command:${COMP_WORDS[i]}" ;;
      *)
        if [ -z "$command" ]; then
          command=${COMP_WORDS[i]}
        elif [ -z "$kind" ]; then
          argument=1
        elif [ -z "$several" ]; then
          kind=
        fi
        ;;
    esac
  done
  _varmodel_command "$command"
  case $word in
    -*) kind=words words=$options ;;
    *)
      if [ -n "$kind" ]; then
        extension=
      elif [ -z "$command" ]; then
        kind=words words=$commands
      elif [ -n "$argument" ]; then
        kind=words words=$options
      else
        kind=file
      fi
      ;;
  esac
  COMPREPLY=()
  case $kind in
    words) mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word") ;;
    file)
      compopt -o filenames 2>/dev/null
      if [ -n "$extension" ]; then
        mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X "!*$extension" -- "$word")
      else
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
      fi
      ;;
  esac
}
complete -F _varmodel varmodel
)";

}  // namespace

std::string bashCompletion(const CommandEntry& program) {
  std::string values;
  std::string cases = commandCase(program, "''");
  std::string names;
  for (const CommandEntry& command : program.subcommands) {
    for (const OptionEntry& option : command.options) {
      if (!option.argument && !option.value.empty()) values += valueCase(command, option);
    }
    cases += commandCase(command, command.name);
    names += (names.empty() ? "" : " ") + command.name;
  }
  return "# Completion of varmodel for bash, made by 'varmodel --completion bash'.\n"
         "_varmodel_value() {\n  kind= words= several=\n  case $1 in\n" +
         values + "  esac\n}\n_varmodel_command() {\n  commands=" + shellWord(names) + "\n  case $1 in\n" + cases +
         "  esac\n}\n" + kCompletion;
}

}  // namespace workbench
