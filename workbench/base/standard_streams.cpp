#include "workbench/base/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"

namespace workbench {

namespace {

[[noreturn]] void failStandardOutput(const std::string& reason) {
  throw OutputError("standard output cannot be written" + reason +
                    ". Send it to a place with room, or write files with --html and --json.");
}

}  // namespace

void fillClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    // The lowest free descriptor is this one. The opposite direction makes every use of it an error.
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

int userErrorStream() {
  static const int stream = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return stream;
}

void writeStandardOutput(std::string_view bytes) {
  std::cout.flush();
  if (std::fflush(stdout) != 0) failStandardOutput(std::string(": ") + std::strerror(errno));
  while (!bytes.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      failStandardOutput(std::string(": ") + std::strerror(errno));
    }
  }
}

void requireStandardOutput() {
  std::cout.flush();
  errno = 0;
  if (std::fflush(stdout) != 0) failStandardOutput(std::string(": ") + std::strerror(errno));
  if (std::ferror(stdout) != 0 || !std::cout) failStandardOutput("");
}

void writeOutput(const std::filesystem::path& target, std::string_view bytes) {
  if (target == kStandardStream) {
    writeStandardOutput(bytes);
  } else {
    writeFileAtomically(target, bytes);
  }
}

}  // namespace workbench
