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

[[noreturn]] void fail(int code) {
  throw OutputError("output.not-kept", "what the procedure says cannot be kept: ^1. ^2", std::strerror(code),
                    code == EMFILE || code == ENFILE ? phrase("Let the program open more files (ulimit -n).")
                                                     : phrase("Set TMPDIR to a folder that can be written."));
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
  redirection.file = createUnnamedFile(temporaryFolder());
  if (redirection.file < 0) fail(errno);
  redirection.saved = duplicateDescriptor(descriptor);
  if (redirection.saved >= 0 && redirectDescriptor(redirection.file, descriptor) >= 0) return redirection;
  const int code = errno;
  closeDescriptor(redirection.file);
  if (redirection.saved >= 0) closeDescriptor(redirection.saved);
  fail(code);
}

void StreamCapture::restore(Redirection& redirection) noexcept {
  if (redirection.saved < 0) return;
  redirectDescriptor(redirection.saved, redirection.descriptor);
  closeDescriptor(std::exchange(redirection.saved, -1));
}

void StreamCapture::drop(Redirection& redirection) noexcept {
  restore(redirection);
  if (redirection.file >= 0) closeDescriptor(std::exchange(redirection.file, -1));
}

StreamCapture::StreamCapture() {
  flushAll();
  out_ = redirect(kStandardOutput);
  try {
    err_ = redirect(kStandardError);
  } catch (...) {
    drop(out_);
    throw;
  }
}

StreamCapture::~StreamCapture() {
  if (out_.saved >= 0) flushAll();
  drop(out_);
  drop(err_);
}

CapturedStreams StreamCapture::finish() {
  flushAll();
  restore(out_);
  restore(err_);
  return {contentsOf(out_.file), contentsOf(err_.file)};
}

}  // namespace workbench
