#include "workbench/base/descriptor.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>

#include "workbench/base/system_files.h"

namespace workbench {

int createFile(const std::filesystem::path& file) {
  return _wopen(file.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

int createUnnamedFile(const std::filesystem::path& folder) {
  const auto file = makeUniqueFile(folder, "varmodel-trace-");
  if (!file) return -1;
  return _wopen(file->c_str(), _O_RDWR | _O_TEMPORARY | _O_SHORT_LIVED | _O_BINARY | _O_NOINHERIT);
}

int closeDescriptor(int descriptor) {
  return _close(descriptor);
}

std::ptrdiff_t writeSome(int descriptor, std::string_view bytes) {
  return _write(descriptor, bytes.data(), static_cast<unsigned>(std::min<std::size_t>(bytes.size(), INT_MAX)));
}

std::ptrdiff_t readSome(int descriptor, std::span<char> room) {
  return _read(descriptor, room.data(), static_cast<unsigned>(std::min<std::size_t>(room.size(), INT_MAX)));
}

std::string contentsOf(int descriptor) {
  std::string text;
  const std::int64_t size = _lseeki64(descriptor, 0, SEEK_END);
  if (size <= 0 || _lseeki64(descriptor, 0, SEEK_SET) != 0) return text;
  text.resize(static_cast<std::size_t>(size));
  std::size_t filled = 0;
  while (filled < text.size()) {
    const std::ptrdiff_t got = readSome(descriptor, std::span(text).subspan(filled));
    if (got <= 0) break;
    filled += static_cast<std::size_t>(got);
  }
  text.resize(filled);
  return text;
}

int duplicateDescriptor(int descriptor) {
  return _dup(descriptor);
}

int redirectDescriptor(int descriptor, int target) {
  return _dup2(descriptor, target);
}

}  // namespace workbench
