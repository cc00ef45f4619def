#include "terminal.h"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <utility>

Terminal::Terminal(const std::string& folder, const std::vector<std::string>& arguments) {
  winsize size{};
  size.ws_col = 80;
  size.ws_row = 24;
  child_ = forkpty(&master_, nullptr, nullptr, &size);
  if (child_ != 0) return;
  termios modes{};
  tcgetattr(STDIN_FILENO, &modes);
  modes.c_lflag &= ~static_cast<tcflag_t>(ECHO);  // the echo of a key comes at any time between the program's texts
  tcsetattr(STDIN_FILENO, TCSANOW, &modes);
  setenv("TMPDIR", folder.c_str(), 1);
  setenv("TERM", "dumb", 1);
  std::vector<std::string> words = {VARMODEL_BINARY_DIR "/bin/varmodel"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  if (chdir(folder.c_str()) == 0) execv(pointers[0], pointers.data());
  _exit(127);
}

Terminal::~Terminal() {
  if (child_ > 0) {
    kill(child_, SIGKILL);
    waitpid(child_, nullptr, 0);
  }
  close(master_);
}

// A terminal that nobody holds any more gives an error.
bool Terminal::readMore(int milliseconds) {
  pollfd waiting{master_, POLLIN, 0};
  if (poll(&waiting, 1, milliseconds) <= 0) return false;
  std::array<char, 4096> block;
  const ssize_t got = read(master_, block.data(), block.size());
  if (got > 0) shown_.append(block.data(), static_cast<std::size_t>(got));
  return got > 0;
}

bool Terminal::shows(const std::string& text) {
  constexpr int patience = 10'000;
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(patience);
  while (shown_.find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > end || !readMore(patience)) return false;
  }
  return true;
}

void Terminal::type(const std::string& keys) {
  [[maybe_unused]] const ssize_t written = write(master_, keys.data(), keys.size());
}

int Terminal::exitCode() {
  while (readMore(60'000)) {
  }
  int status = 0;
  waitpid(std::exchange(child_, -1), &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
