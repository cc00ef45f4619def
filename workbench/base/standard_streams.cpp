#include "workbench/base/standard_streams.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>

#include "workbench/base/atomic_file.h"
#include "workbench/base/descriptor.h"
#include "workbench/base/errors.h"
#include "workbench/base/terminal.h"

namespace workbench {

namespace {

[[noreturn]] void failStandardOutput(const std::string& reason) {
  if (errno == EPIPE) endWithReader();
  throw OutputError("output.standard-output",
                    "standard output cannot be written^1. Send it to a place with room, or write files with --html "
                    "and --json.",
                    reason);
}

}  // namespace

void endWithReader() {
#ifdef SIGPIPE
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
#endif
}

int userErrorStream() {
  static const int stream = duplicateDescriptor(kStandardError);
  return stream;
}

void writeStandardOutput(std::string_view bytes) {
  std::cout.flush();
  if (std::fflush(stdout) != 0) failStandardOutput(std::string(": ") + std::strerror(errno));
  if (isTerminal(kStandardOutput)) return putText(stdout, bytes);
  while (!bytes.empty()) {
    const std::ptrdiff_t written = writeSome(kStandardOutput, bytes);
    if (written < 0) failStandardOutput(std::string(": ") + std::strerror(errno));
    bytes.remove_prefix(static_cast<std::size_t>(written));
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
