// The program on a terminal of its own, as a person runs it.

#pragma once

#include <string>
#include <vector>

// 80 columns wide; what is shown on it is read as it comes.
class Terminal {
 public:
  // Starts the program in the folder, with TMPDIR set to it too.
  Terminal(const std::string& folder, const std::vector<std::string>& arguments);
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal();  // kills a program that still runs

  // Reads until the text was shown; false when the program ended, or ten seconds passed, without it.
  bool shows(const std::string& text);
  void type(const std::string& keys);
  // Reads to the end; 128 + signal for a program that was killed by one.
  int exitCode();

  const std::string& shown() const { return shown_; }

 private:
  bool readMore(int milliseconds);

  int master_ = -1;
  int child_ = -1;
  std::string shown_;
};
