#include "workbench/cli/progress_line.h"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>

#include "workbench/base/standard_streams.h"
#include "workbench/base/terminal.h"
#include "workbench/base/utf8.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

constexpr std::chrono::milliseconds kPause{200};  // before the first line, and between two

std::string durationText(double seconds) {
  const long whole = std::max(1L, std::lround(seconds));
  if (whole < 100) return tr("^1 s", whole);
  if (whole < 6000) return tr("^1 min", (whole + 30) / 60);
  return tr("^1 h", (whole + 1800) / 3600);
}

}  // namespace

std::string progressText(double share, double seconds) {
  const long percent = std::lround(std::floor(100.0 * share));
  return tr("^1 % done, about ^2 left", percent, durationText(seconds * (1.0 - share) / share));
}

ProgressLine::ProgressLine() : stream_(userErrorStream()), shows_(isTerminal(stream_)), cleaning_([this] { end(); }) {}

ProgressLine::~ProgressLine() {
  end();
}

void ProgressLine::end() {
  const std::lock_guard lock(mutex_);
  rewrite("");
  shows_ = false;
}

void ProgressLine::show(double share) {
  const std::lock_guard lock(mutex_);
  if (!shows_) return;
  const Clock::time_point now = Clock::now();
  if (share < share_) begin_ = now;
  share_ = share;
  if (now - shown_ < kPause || now - begin_ < kPause || share <= 0.0) return;
  shown_ = now;
  rewrite(progressText(share, std::chrono::duration<double>(now - begin_).count()));
}

// Blanks cover what a longer text left.
void ProgressLine::rewrite(const std::string& text) {
  const std::size_t width = decodeUtf8(text).size();
  if (!shows_ || (width == 0 && width_ == 0)) return;
  std::string line = "\r" + text;
  if (width < width_) line += std::string(width_ - width, ' ') + "\r" + text;
  putText(stream_, line);
  width_ = width;
}

}  // namespace workbench
