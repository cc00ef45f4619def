#include "workbench/manual/man_page.h"

#include <fmt/format.h>

#include <algorithm>

namespace workbench {

namespace {

// A line that begins with a point or a quote would be a request of the language.
std::string plain(const std::string& text) {
  std::string out;
  for (const char c : text) {
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else {
      out += c;
    }
  }
  return out.starts_with('.') || out.starts_with('\'') ? "\\&" + out : out;
}

// A page of this manual; its name is never divided.
std::string reference(const std::string& page) {
  return "\\%\\fB" + plain(page) + "\\fR(1)";
}

std::string bold(const std::string& text) {
  return "\\fB" + plain(text) + "\\fR";
}

// Words that are typed as they stand are bold, placeholders italic.
std::string valueText(const OptionEntry& option) {
  std::string text = option.words.empty() || option.value == "CODE" ? "\\fI" + plain(option.value) + "\\fR" : "";
  if (text.empty()) {
    for (const std::string& word : option.words) text += (text.empty() ? "" : "|") + bold(word);
  }
  return option.several && !option.argument ? text + " ..." : text;
}

std::string pageHead(const std::string& name, const std::string& version, const std::string& description) {
  std::string title = name;
  std::ranges::transform(title, title.begin(), [](char c) { return c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c; });
  return fmt::format(".TH \"{}\" \"1\" \"\" \"varmodel {}\" \"varmodel\"\n.SH NAME\n{} \\- {}\n", plain(title), version,
                     plain(name), plain(description));
}

std::string entryText(const OptionEntry& option) {
  std::string names;
  for (const std::string& name : option.names) {
    names += (names.empty() ? "" : ", ") + (option.argument ? valueText(option) : bold(name));
  }
  if (!option.argument && !option.value.empty()) names += " " + valueText(option);
  const char* required = option.required && !option.argument ? " Required." : "";
  const char* stop = option.description.ends_with('.') ? "" : ".";
  return fmt::format(".TP\n{}\n{}{}{}\n", names, plain(option.description), stop, required);
}

std::vector<std::string> groupsOf(const CommandEntry& command) {
  std::vector<std::string> groups;
  for (const OptionEntry& option : command.options) {
    if (!option.argument && std::ranges::count(groups, option.group) == 0) groups.push_back(option.group);
  }
  return groups;
}

std::string groupText(const CommandEntry& command, const std::string& group) {
  std::string text = group == "Options" ? "" : ".SS " + plain(group) + "\n";
  for (const OptionEntry& option : command.options) {
    if (!option.argument && option.group == group) text += entryText(option);
  }
  return text;
}

std::string optionsText(const CommandEntry& command) {
  std::string text = ".SH OPTIONS\n";
  for (const std::string& group : groupsOf(command)) text += groupText(command, group);
  return text;
}

// What must be given, then that there is more.
std::string synopsis(const CommandEntry& program, const CommandEntry& command) {
  std::string text = ".SH SYNOPSIS\n" + bold(program.name + " " + command.name);
  for (const OptionEntry& option : command.options) {
    if (option.argument) text += " " + valueText(option);
  }
  for (const OptionEntry& option : command.options) {
    if (option.required && !option.argument) text += " " + bold(option.longName()) + " " + valueText(option);
  }
  return text + " [\\fIOPTION\\fR ...]\n";
}

constexpr const char* kExitCodes =
    ".SH EXIT STATUS\n"
    ".TP\n0\nSuccess.\n"
    ".TP\n1\nThe procedure reported an error.\n"
    ".TP\n2\nThe command line, the job file or the syntax of the command is wrong.\n"
    ".TP\n3\nThe data could not be read.\n"
    ".TP\n4\nOutput could not be written.\n"
    ".TP\n130\nEnded by Ctrl\\-C; no file is half written.\n";

std::string seeAlso(const CommandEntry& program, const std::string& except) {
  std::string text;
  if (!except.empty()) text = reference(program.name);
  for (const CommandEntry& sub : program.subcommands) {
    if (sub.name == except) continue;
    text += (text.empty() ? "" : ", ") + reference(program.name + "-" + sub.name);
  }
  return ".SH SEE ALSO\n" + text + "\n";
}

}  // namespace

std::string programPage(const CommandEntry& program, const std::string& version) {
  std::string text = pageHead(program.name, version, "vector autoregression from a data file to a finished report");
  text += ".SH SYNOPSIS\n" + bold(program.name) + " \\fICOMMAND\\fR [\\fIARGUMENT\\fR ...]\n.SH DESCRIPTION\n" +
          plain(program.description) + "\n.SH COMMANDS\n";
  for (const CommandEntry& sub : program.subcommands) {
    text += fmt::format(".TP\n{}\n{}. See {}.\n", bold(sub.name), plain(sub.description),
                        reference(program.name + "-" + sub.name));
  }
  text += optionsText(program);
  text += ".SH EXAMPLES\n.nf\n" + plain("varmodel fit data.csv --endogenous gdp cons \\") + "\n    " +
          plain("--start year=1959 quarter=1 --predict 4") + "\n" + plain("varmodel run job.toml --html report.html") +
          "\n.fi\n";
  return text + kExitCodes + seeAlso(program, "");
}

std::string subcommandPage(const CommandEntry& program, const CommandEntry& subcommand, const std::string& version) {
  std::string text = pageHead(program.name + "-" + subcommand.name, version, subcommand.description);
  text += synopsis(program, subcommand) + ".SH ARGUMENTS\n";
  for (const OptionEntry& option : subcommand.options) {
    if (option.argument) text += entryText(option);
  }
  return text + optionsText(subcommand) + kExitCodes + seeAlso(program, subcommand.name);
}

}  // namespace workbench
