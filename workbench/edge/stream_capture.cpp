#include "workbench/edge/stream_capture.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <utility>

#include "workbench/base/descriptor.h"
#include "workbench/base/errors.h"
#include "workbench/base/system_files.h"

namespace workbench {

namespace {

int openUnnamedFile() {
  const std::filesystem::path folder = temporaryFolder();
  const int file = createUnnamedFile(folder);
  if (file < 0) {
    throw OutputError("output.temporary-file",
                      "cannot make a temporary file in ^1: ^2. Set TMPDIR to a folder that can be written.", folder,
                      std::strerror(errno));
  }
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
  redirection.saved = duplicateDescriptor(descriptor);
  redirectDescriptor(redirection.file, descriptor);
  return redirection;
}

std::string StreamCapture::restore(Redirection& redirection) {
  if (redirection.file < 0) return {};
  if (redirection.saved >= 0) {
    redirectDescriptor(redirection.saved, redirection.descriptor);
    closeDescriptor(redirection.saved);
  } else {
    closeDescriptor(redirection.descriptor);  // it was closed before, so it is closed again
  }
  std::string text = contentsOf(redirection.file);
  closeDescriptor(std::exchange(redirection.file, -1));
  return text;
}

StreamCapture::StreamCapture() {
  flushAll();
  out_ = redirect(kStandardOutput);
  try {
    err_ = redirect(kStandardError);
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
