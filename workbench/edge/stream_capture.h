// Captures what a plug-in writes to the process's standard streams.

#pragma once

#include <string>

namespace workbench {

struct CapturedStreams {
  std::string out;
  std::string err;
};

// While it lives, file descriptors 1 and 2 lead to two unnamed files (never to a pipe, which can fill). The
// streams are restored by finish() or, when an exception passes, by the destructor. Throws OutputError when the
// files cannot be made.
class StreamCapture {
 public:
  StreamCapture();
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;
  ~StreamCapture();

  // Restores the streams and returns what was written.
  CapturedStreams finish();

 private:
  struct Redirection {
    int descriptor = -1;  // 1 or 2
    int saved = -1;       // duplicate of the original
    int file = -1;        // where it leads now
  };

  static Redirection redirect(int descriptor);
  static void restore(Redirection& redirection) noexcept;
  static void drop(Redirection& redirection) noexcept;

  Redirection out_;
  Redirection err_;
};

}  // namespace workbench
