// Reading the members of a zip file.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace workbench {

class ZipArchive {
 public:
  // Throws DataError for a file that is no zip file.
  explicit ZipArchive(const std::filesystem::path& file);
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;
  ~ZipArchive();

  // The member's bytes; nothing when there is none of that name. Throws DataError when it is damaged, or larger than
  // 512 MiB.
  std::optional<std::string> member(const std::string& name) const;

 private:
  std::filesystem::path file_;
  void* archive_;
};

}  // namespace workbench
