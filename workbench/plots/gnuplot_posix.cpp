#include "workbench/plots/gnuplot.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace workbench {

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using TemporaryFile = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void fail() {
  throw std::system_error(errno, std::generic_category(), "temporary file for gnuplot");
}

TemporaryFile temporaryFile() {
  TemporaryFile file(std::tmpfile());
  if (!file) fail();
  return file;
}

TemporaryFile fileWith(std::string_view text) {
  TemporaryFile file = temporaryFile();
  if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size() || std::fflush(file.get()) != 0) fail();
  std::rewind(file.get());
  return file;
}

std::string contents(std::FILE* file) {
  std::string text;
  std::array<char, 1 << 14> part;
  std::rewind(file);
  while (const std::size_t size = std::fread(part.data(), 1, part.size(), file)) text.append(part.data(), size);
  return text;
}

class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  void redirect(int descriptor, std::FILE* file) {
    posix_spawn_file_actions_adddup2(&actions_, fileno(file), descriptor);
  }
  void discard(int descriptor) { posix_spawn_file_actions_addopen(&actions_, descriptor, "/dev/null", O_WRONLY, 0); }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

std::optional<std::string> runGnuplot(std::string_view commands) {
  const TemporaryFile input = fileWith(commands);
  const TemporaryFile output = temporaryFile();
  FileActions actions;
  actions.redirect(STDIN_FILENO, input.get());
  actions.redirect(STDOUT_FILENO, output.get());
  actions.discard(STDERR_FILENO);
  std::string program = "gnuplot";
  std::string noUserSettings = "-d";
  const std::array<char*, 3> arguments{program.data(), noUserSettings.data(), nullptr};
  pid_t child = 0;
  if (posix_spawnp(&child, program.c_str(), actions.get(), nullptr, arguments.data(), environ) != 0) {
    return std::nullopt;
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return contents(output.get());
}

}  // namespace workbench
