// The progress of long work, on one line of the terminal that is rewritten and gone at the end.

#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <string>

#include "workbench/base/interruption.h"

namespace workbench {

class ProgressLine {
 public:
  // On standard error as it is now; nothing is ever shown where that is no terminal.
  ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

  // The share of a piece of work that is done; a smaller one than before begins the next piece. Never called by two
  // threads at once.
  void show(double share);

 private:
  using Clock = std::chrono::steady_clock;

  void rewrite(const std::string& text);
  void end();

  std::mutex mutex_;  // an interruption ends the line from a thread of its own
  int stream_;
  bool shows_;
  std::size_t width_ = 0;  // of what stands there
  double share_ = 0.0;
  Clock::time_point begin_ = Clock::now();  // of this piece
  Clock::time_point shown_ = Clock::now();
  DueCleaning cleaning_;
};

// " 43 % done, about 12 s left": by the pace so far.
std::string progressText(double share, double seconds);

}  // namespace workbench
