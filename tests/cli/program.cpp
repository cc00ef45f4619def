#include "program.h"

#include <sys/wait.h>

#include <cstdlib>
#include <regex>

namespace {

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

// Another one may stand for it, which does more with every run.
std::string program() {
  const char* other = std::getenv("VARMODEL_PROGRAM");
  return other != nullptr ? other : VARMODEL_BINARY_DIR "/bin/varmodel";
}

std::string programLine(const std::vector<std::string>& arguments) {
  std::string line = quoted(program());
  for (const std::string& argument : arguments) line += " " + quoted(argument);
  return line;
}

ProgramRun execute(const std::string& line, const std::string& redirections = "") {
  const workbench::TempFolder streams;
  const std::string whole =
      line + " >" + quoted(streams / "out") + " 2>" + quoted(streams / "err") + " </dev/null " + redirections;
  const int status = std::system(whole.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), workbench::contents(streams / "out"),
          workbench::contents(streams / "err")};
}

}  // namespace

std::vector<std::string> shellWords(const std::string& text) {
  std::vector<std::string> words;
  bool inQuotes = false;
  bool open = false;
  for (const char c : text) {
    if (c == ' ' && !inQuotes) {
      open = false;
      continue;
    }
    if (!open) words.emplace_back();
    open = true;
    if (c == '\'') {
      inQuotes = !inQuotes;
    } else {
      words.back() += c;
    }
  }
  return words;
}

std::string after(const std::string& text, const std::string& what) {
  const auto at = text.find(what);
  return at == std::string::npos ? "" : text.substr(at + what.size(), text.find('\n', at) - at - what.size());
}

std::string unwrapped(const std::string& text) {
  return std::regex_replace(text, std::regex("\n +"), " ");
}

Workspace& Workspace::file(const std::string& name, const std::string& content) {
  folder_.write(name, content);
  return *this;
}

Workspace& Workspace::link(const std::string& target, const std::string& name) {
  std::filesystem::create_symlink(target, folder_ / name);
  return *this;
}

Workspace& Workspace::hardLink(const std::string& target, const std::string& name) {
  std::filesystem::create_hard_link(folder_ / target, folder_ / name);
  return *this;
}

void Workspace::remove(const std::string& name) {
  std::filesystem::remove(folder_ / name);
}

Workspace& Workspace::example(const std::string& name) {
  std::filesystem::copy_file(std::filesystem::path(VARMODEL_SOURCE_DIR) / "examples" / name, folder_ / name);
  return *this;
}

ProgramRun Workspace::run(const std::vector<std::string>& arguments, const std::string& redirections,
                          const std::string& before) const {
  return execute("cd " + quoted(folder_.path()) + " && " + before + " && " + programLine(arguments), redirections);
}

ProgramRun Workspace::runUnattended(const std::vector<std::string>& arguments) const {
  return execute("cd / && env -i HOME=/ PATH=/usr/bin:/bin " + programLine(arguments));
}

bool Workspace::runAtOnce(const std::vector<std::vector<std::string>>& programs) const {
  std::string start;
  std::string wait;
  for (std::size_t i = 0; i < programs.size(); ++i) {
    start += programLine(programs[i]) + " & p" + std::to_string(i) + "=$!; ";
    wait += "wait $p" + std::to_string(i) + " && ";
  }
  return execute("cd " + quoted(folder_.path()) + " && { " + start + wait + "true; }").exitCode == 0;
}
