#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>

#include "workbench/base/descriptor.h"
#include "workbench/base/standard_streams.h"
#include "workbench/base/terminal.h"

namespace workbench {

bool isTerminal(int descriptor) {
  return isatty(descriptor) != 0;
}

std::optional<int> terminalWidth(int descriptor) {
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

bool takesColours(int descriptor) {
  const char* terminal = std::getenv("TERM");
  return isTerminal(descriptor) && terminal != nullptr && std::string_view(terminal) != "dumb";
}

void putText(std::FILE* stream, std::string_view text) {
  const bool lost = std::fwrite(text.data(), 1, text.size(), stream) < text.size();
  if (lost && errno == EPIPE && stream == stdout) endWithReader();
}

void putText(int descriptor, std::string_view text) {
  writeSome(descriptor, text);
}

}  // namespace workbench
