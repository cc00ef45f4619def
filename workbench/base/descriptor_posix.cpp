#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "workbench/base/descriptor.h"

namespace workbench {

namespace {

template <class Call>
std::ptrdiff_t untilUninterrupted(Call call) {
  while (true) {
    const ssize_t count = call();
    if (count >= 0 || errno != EINTR) return count;
  }
}

}  // namespace

int createFile(const std::filesystem::path& file) {
  return open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
}

int createUnnamedFile(const std::filesystem::path& folder) {
#ifdef MFD_CLOEXEC
  const int memory = memfd_create("varmodel-trace", MFD_CLOEXEC);
  if (memory >= 0 || errno != ENOSYS) return memory;
#endif
  std::string path = (folder / "varmodel-trace-XXXXXX").string();
  const int file = mkstemp(path.data());
  if (file >= 0) unlink(path.c_str());
  return file;
}

int closeDescriptor(int descriptor) {
  return close(descriptor);
}

std::ptrdiff_t writeSome(int descriptor, std::string_view bytes) {
  return untilUninterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
}

std::ptrdiff_t readSome(int descriptor, std::span<char> room) {
  return untilUninterrupted([&] { return read(descriptor, room.data(), room.size()); });
}

std::string contentsOf(int descriptor) {
  std::string text;
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return text;
  text.resize(static_cast<std::size_t>(status.st_size));
  std::size_t filled = 0;
  while (filled < text.size()) {
    const ssize_t got = pread(descriptor, text.data() + filled, text.size() - filled, static_cast<off_t>(filled));
    if (got <= 0) break;
    filled += static_cast<std::size_t>(got);
  }
  text.resize(filled);
  return text;
}

int duplicateDescriptor(int descriptor) {
  return fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

int redirectDescriptor(int descriptor, int target) {
  return dup2(descriptor, target);
}

}  // namespace workbench
