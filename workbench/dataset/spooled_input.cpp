#include "workbench/dataset/spooled_input.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "workbench/base/atomic_file.h"
#include "workbench/base/descriptor.h"
#include "workbench/base/errors.h"
#include "workbench/base/system_files.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = 1 << 16;

fs::path newTemporaryFile() {
  const fs::path folder = temporaryFolder();
  const auto file = makeUniqueFile(folder, "varmodel-input-");
  if (file) return *file;
  throw OutputError("output.temporary-file",
                    "cannot make a temporary file in ^1: ^2. Set TMPDIR to a folder that can be written.", folder,
                    std::strerror(errno));
}

void copyStandardInput(const fs::path& target) {
  FileSink sink(target, target);
  std::array<char, kBlock> block{};
  while (const std::ptrdiff_t got = readSome(kStandardInput, block)) {
    if (got < 0) {
      throw DataError("data.standard-input", "standard input cannot be read: ^1. Send data to it, or name a data file.",
                      std::strerror(errno));
    }
    sink.write({block.data(), static_cast<std::size_t>(got)});
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
