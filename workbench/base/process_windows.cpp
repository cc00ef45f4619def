#include "workbench/base/process.h"

#include <fcntl.h>
#include <io.h>
#include <stdlib.h>

#include <algorithm>
#include <cstdio>

#include "workbench/base/windows_api.h"

namespace workbench {

namespace {

// Empty where the stream is no file.
std::filesystem::path fileOf(DWORD stream) {
  const HANDLE handle = GetStdHandle(stream);
  if (GetFileType(handle) != FILE_TYPE_DISK) return {};
  std::wstring name(32768, L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(handle, name.data(), static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
  if (length == 0 || length >= name.size()) return {};
  name.resize(length);
  constexpr std::wstring_view kVerbatim = L"\\\\?\\";
  return name.starts_with(kVerbatim) ? name.substr(kVerbatim.size()) : name;
}

}  // namespace

void prepareProcess() {
  for (std::FILE* stream : {stdin, stdout, stderr}) {
    if (_fileno(stream) < 0) std::freopen("NUL", stream == stdin ? "w" : "r", stream);
    _setmode(_fileno(stream), _O_BINARY);
  }
}

void setEnvironment(const char* name, const char* value) {
  _putenv_s(name, value);
}

std::filesystem::path standardInputFile() {
  return fileOf(STD_INPUT_HANDLE);
}

std::filesystem::path standardOutputFile() {
  return fileOf(STD_OUTPUT_HANDLE);
}

bool isNullDevice(const std::filesystem::path& file) {
  std::wstring name = file.filename().wstring();
  std::transform(name.begin(), name.end(), name.begin(), [](wchar_t c) { return static_cast<wchar_t>(towlower(c)); });
  return name == L"nul";
}

}  // namespace workbench
