#include "workbench/dataset/zip_archive.h"

#include <minizip/unzip.h>

#include <array>

#include "workbench/base/errors.h"
#include "workbench/dataset/data_file.h"

namespace workbench {

ZipArchive::ZipArchive(const std::filesystem::path& file) : file_(file), archive_(unzOpen64(file.string().c_str())) {
  if (archive_ == nullptr) {
    throw DataError("data.no-workbook", "^1: this is no workbook, or it is damaged. Save it as .xlsx or CSV.",
                    dataFile(file));
  }
}

ZipArchive::~ZipArchive() {
  unzClose(archive_);
}

std::optional<std::string> ZipArchive::member(const std::string& name) const {
  constexpr std::size_t kLargest = std::size_t{512} << 20;
  constexpr int kIgnoreCase = 2;
  if (unzLocateFile(archive_, name.c_str(), kIgnoreCase) != UNZ_OK) return std::nullopt;
  std::string bytes;
  std::array<char, 1 << 16> block{};
  int got = unzOpenCurrentFile(archive_) == UNZ_OK ? 1 : -1;
  while (got > 0 && bytes.size() <= kLargest) {
    got = unzReadCurrentFile(archive_, block.data(), static_cast<unsigned>(block.size()));
    if (got > 0) bytes.append(block.data(), static_cast<std::size_t>(got));
  }
  // Closing compares the checksum.
  if (unzCloseCurrentFile(archive_) != UNZ_OK || got != 0) {
    throw DataError("data.damaged-workbook",
                    "^1: its part ^2 cannot be read. Open it in a spreadsheet program and save it again, or save it as "
                    "CSV.",
                    dataFile(file_), name);
  }
  return bytes;
}

}  // namespace workbench
