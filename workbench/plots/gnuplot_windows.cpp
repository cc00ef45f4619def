#include <array>
#include <cerrno>
#include <system_error>

#include "workbench/base/descriptor.h"
#include "workbench/base/system_files.h"
#include "workbench/base/windows_api.h"
#include "workbench/plots/gnuplot.h"

namespace workbench {

namespace {

[[noreturn]] void fail() {
  throw std::system_error(errno, std::generic_category(), "temporary file for gnuplot");
}

// A temporary file that another program may inherit; gone when its handle is closed everywhere.
class TemporaryFile {
 public:
  TemporaryFile() {
    const auto path = makeUniqueFile(temporaryFolder(), "varmodel-plot-");
    if (!path) fail();
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    handle_ = CreateFileW(path->c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited, OPEN_EXISTING,
                          FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle_ != INVALID_HANDLE_VALUE) return;
    errno = errnoOfLastError();
    fail();
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { CloseHandle(handle_); }

  HANDLE handle() const { return handle_; }
  void rewind() const { SetFilePointer(handle_, 0, nullptr, FILE_BEGIN); }

  void write(std::string_view text) const {
    DWORD written = 0;
    if (WriteFile(handle_, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0) return;
    errno = errnoOfLastError();
    fail();
  }

  std::string contents() const {
    rewind();
    std::string text;
    std::array<char, 1 << 14> part;
    DWORD got = 0;
    while (ReadFile(handle_, part.data(), static_cast<DWORD>(part.size()), &got, nullptr) != 0 && got > 0) {
      text.append(part.data(), got);
    }
    return text;
  }

 private:
  HANDLE handle_;
};

}  // namespace

std::optional<std::string> runGnuplot(std::string_view commands) {
  const TemporaryFile input;
  const TemporaryFile output;
  input.write(commands);
  input.rewind();
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = input.handle();
  start.hStdOutput = output.handle();
  PROCESS_INFORMATION child{};
  std::wstring command = L"gnuplot -d";  // reads no settings of the user's
  if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr, &start,
                     &child) == 0) {
    return std::nullopt;
  }
  WaitForSingleObject(child.hProcess, INFINITE);
  CloseHandle(child.hThread);
  CloseHandle(child.hProcess);
  return output.contents();
}

}  // namespace workbench
