#include "workbench/dataset/spooled_input.h"

#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = 1 << 16;

fs::path newTemporaryFile() {
  std::string pattern = (fs::temp_directory_path() / "varmodel-input-XXXXXX").string();
  const int file = mkstemp(pattern.data());
  if (file < 0) {
    throw OutputError("cannot make a temporary file in " + fs::path(pattern).parent_path().string() + ": " +
                      std::strerror(errno) + ". Set TMPDIR to a folder that can be written.");
  }
  close(file);
  return pattern;
}

void copyStandardInput(const fs::path& target) {
  FileSink sink(target, target);
  std::array<char, kBlock> block{};
  while (true) {
    const ssize_t got = read(STDIN_FILENO, block.data(), block.size());
    if (got == 0) break;
    if (got > 0) {
      sink.write({block.data(), static_cast<std::size_t>(got)});
    } else if (errno != EINTR) {
      throw DataError("standard input cannot be read: " + std::string(std::strerror(errno)) +
                      ". Send data to it, or name a data file.");
    }
  }
  sink.close();
}

void removeFile(const fs::path& file) {
  std::error_code ignored;
  fs::remove(file, ignored);
}

}  // namespace

SpooledInput::SpooledInput() : path_(newTemporaryFile()), cleaning_([path = path_] { removeFile(path); }) {
  try {
    copyStandardInput(path_);
  } catch (...) {
    removeFile(path_);
    throw;
  }
}

SpooledInput::SpooledInput(std::string_view text)
    : path_(newTemporaryFile()), cleaning_([path = path_] { removeFile(path); }) {
  try {
    FileSink sink(path_, path_);
    sink.write(text);
    sink.close();
  } catch (...) {
    removeFile(path_);
    throw;
  }
}

SpooledInput::~SpooledInput() {
  removeFile(path_);
}

}  // namespace workbench
