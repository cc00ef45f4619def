#include "workbench/edge/stream_capture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "workbench/base/errors.h"

namespace workbench {

namespace {

int openUnnamedFile() {
  const char* folder = std::getenv("TMPDIR");
  std::string path = std::string(folder != nullptr && *folder != '\0' ? folder : "/tmp") + "/varmodel-trace-XXXXXX";
  const int file = mkstemp(path.data());
  if (file < 0) {
    throw OutputError("cannot make a temporary file in " + path.substr(0, path.rfind('/')) + ": " +
                      std::strerror(errno) + ". Set TMPDIR to a folder that can be written.");
  }
  unlink(path.c_str());
  return file;
}

void flushAll() {
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);
}

}  // namespace

StreamCapture::Redirection StreamCapture::redirect(int descriptor) {
  Redirection redirection;
  redirection.descriptor = descriptor;
  redirection.file = openUnnamedFile();
  redirection.saved = fcntl(descriptor, F_DUPFD_CLOEXEC, 3);
  dup2(redirection.file, descriptor);
  return redirection;
}

std::string StreamCapture::restore(Redirection& redirection) {
  if (redirection.file < 0) return {};
  if (redirection.saved >= 0) {
    dup2(redirection.saved, redirection.descriptor);
    close(redirection.saved);
  } else {
    close(redirection.descriptor);  // it was closed before, so it is closed again
  }
  std::string text;
  struct stat status {};
  if (fstat(redirection.file, &status) == 0) {
    text.resize(static_cast<std::size_t>(status.st_size));
    std::size_t filled = 0;
    while (filled < text.size()) {
      const ssize_t got =
          pread(redirection.file, text.data() + filled, text.size() - filled, static_cast<off_t>(filled));
      if (got <= 0) break;
      filled += static_cast<std::size_t>(got);
    }
    text.resize(filled);
  }
  close(redirection.file);
  redirection.file = -1;
  return text;
}

StreamCapture::StreamCapture() {
  flushAll();
  out_ = redirect(STDOUT_FILENO);
  try {
    err_ = redirect(STDERR_FILENO);
  } catch (...) {
    restore(out_);
    throw;
  }
}

StreamCapture::~StreamCapture() {
  finish();
}

CapturedStreams StreamCapture::finish() {
  flushAll();
  CapturedStreams captured;
  captured.out = restore(out_);
  captured.err = restore(err_);
  return captured;
}

}  // namespace workbench
