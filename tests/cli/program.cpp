#include "program.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

std::string slurp(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

}  // namespace

Workspace::Workspace() {
  std::string name = (fs::temp_directory_path() / "varmodel-test-XXXXXX").string();
  folder = mkdtemp(name.data());
}

Workspace::~Workspace() {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

Workspace& Workspace::file(const std::string& name, const std::string& content) {
  std::ofstream(folder / name, std::ios::binary) << content;
  return *this;
}

Workspace& Workspace::example(const std::string& name) {
  fs::copy_file(fs::path(VARMODEL_SOURCE_DIR) / "examples" / name, folder / name);
  return *this;
}

ProgramRun Workspace::run(const std::vector<std::string>& arguments, const std::string& environment) const {
  const fs::path streams = fs::temp_directory_path() / (folder.filename().string() + "-streams");
  std::string line = "cd " + quoted(folder.string()) + " && " + environment + " " +
                     quoted(std::string(VARMODEL_BINARY_DIR) + "/bin/varmodel");
  for (const std::string& argument : arguments) line += " " + quoted(argument);
  line += " >" + quoted(streams.string() + ".out") + " 2>" + quoted(streams.string() + ".err") + " </dev/null";
  const int status = std::system(line.c_str());
  ProgramRun result;
  result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  result.out = slurp(streams.string() + ".out");
  result.err = slurp(streams.string() + ".err");
  fs::remove(streams.string() + ".out");
  fs::remove(streams.string() + ".err");
  return result;
}

std::string Workspace::read(const std::string& name) const {
  return slurp(folder / name);
}

std::vector<std::string> Workspace::listing() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}
