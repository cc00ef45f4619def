#include "workbench/base/process.h"

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <csignal>

namespace workbench {

namespace {

void fillClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    // The lowest free descriptor is this one. The opposite direction makes every use of it an error.
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

}  // namespace

void prepareProcess() {
  fillClosedStreams();
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

void setEnvironment(const char* name, const char* value) {
  setenv(name, value, 1);
}

std::filesystem::path standardInputFile() {
  return "/dev/stdin";
}

std::filesystem::path standardOutputFile() {
  return "/dev/stdout";
}

bool isNullDevice(const std::filesystem::path& file) {
  return file == "/dev/null";
}

}  // namespace workbench
