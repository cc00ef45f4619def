// What is no file, as a temporary one that can be looked at before it is read.

#pragma once

#include <filesystem>
#include <string_view>

#include "workbench/base/interruption.h"

namespace workbench {

class SpooledInput {
 public:
  // Reads standard input to its end. Throws DataError when it cannot be read, OutputError when it cannot be kept.
  SpooledInput();
  // Keeps a text. Throws OutputError.
  explicit SpooledInput(std::string_view text);
  SpooledInput(const SpooledInput&) = delete;
  SpooledInput& operator=(const SpooledInput&) = delete;
  ~SpooledInput();

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
  DueCleaning cleaning_;
};

}  // namespace workbench
