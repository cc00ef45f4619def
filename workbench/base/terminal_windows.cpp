#include "workbench/base/terminal.h"

#include <io.h>

#include <cstdlib>
#include <string>

#include "workbench/base/descriptor.h"
#include "workbench/base/windows_api.h"

namespace workbench {

namespace {

HANDLE handleOf(int descriptor) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
}

std::wstring wideText(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // never more units than bytes
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

// The console takes bytes for its own code page, but wide characters for what they are.
void writeToConsole(HANDLE console, std::string_view text) {
  constexpr std::size_t kPart = 8192;  // a console takes no more than 64 KiB at once
  const std::wstring wide = wideText(text);
  for (std::size_t done = 0; done < wide.size(); done += kPart) {
    const std::wstring_view part = std::wstring_view(wide).substr(done, kPart);
    DWORD written = 0;
    if (WriteConsoleW(console, part.data(), static_cast<DWORD>(part.size()), &written, nullptr) == 0) return;
  }
}

}  // namespace

bool isTerminal(int descriptor) {
  DWORD mode = 0;
  return GetConsoleMode(handleOf(descriptor), &mode) != 0;
}

std::optional<int> terminalWidth(int descriptor) {
  CONSOLE_SCREEN_BUFFER_INFO screen{};
  if (GetConsoleScreenBufferInfo(handleOf(descriptor), &screen) == 0) return std::nullopt;
  return screen.srWindow.Right - screen.srWindow.Left + 1;
}

// Consoles since Windows 10 do when they are asked to.
bool takesColours(int descriptor) {
  DWORD mode = 0;
  const HANDLE console = handleOf(descriptor);
  return GetConsoleMode(console, &mode) != 0 &&
         SetConsoleMode(console, mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void putText(std::FILE* stream, std::string_view text) {
  if (!isTerminal(_fileno(stream))) {
    std::fwrite(text.data(), 1, text.size(), stream);
    return;
  }
  std::fflush(stream);
  writeToConsole(handleOf(_fileno(stream)), text);
}

void putText(int descriptor, std::string_view text) {
  if (isTerminal(descriptor)) {
    writeToConsole(handleOf(descriptor), text);
  } else {
    writeSome(descriptor, text);
  }
}

}  // namespace workbench
