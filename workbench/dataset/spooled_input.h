// Standard input as a file: what comes is kept in a temporary file, so that it can be looked at before it is read.

#pragma once

#include <filesystem>

namespace workbench {

class SpooledInput {
 public:
  // Reads standard input to its end. Throws DataError when it cannot be read, OutputError when it cannot be kept.
  SpooledInput();
  SpooledInput(const SpooledInput&) = delete;
  SpooledInput& operator=(const SpooledInput&) = delete;
  ~SpooledInput();

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace workbench
