// How a call of a procedure ended: the last line of its stream, and what it left.

#pragma once

#include <string>
#include <string_view>

#include "workbench/base/notice.h"
#include "workbench/edge/session.h"
#include "workbench/edge/stream_capture.h"

namespace workbench {

struct Outcome {
  int failedStep = 0;  // 1..6; 0 when none was named
  bool succeeded = false;
  int lostItems = 0;  // tables and charts that could not be made

  // 0 success; 2 when the command could not be parsed; 4 when the saved file could not be written; 1 otherwise.
  int exitCode() const;
};

// The last line of a stream, without its end. A procedure's entry function writes it after everything else, so that it
// is its own; lines before it may hold anybody's text.
std::string_view lastLine(std::string_view stream);

// N where the last line of the error stream begins with "ENTRY: StepN"; 0 where it does not.
int failedStep(const CapturedStreams& streams, const std::string& entry);

// A success that left less than was asked for is none: every table and chart that was begun is in the document, and
// every file that the command names was saved.
Outcome withWhatWasLeft(Outcome outcome, const CallRecord& record);

// What step 1..6 does, for messages ("reading the command").
Notice stepName(int step);

// The last lines of a text, each indented by two blanks.
std::string lastLines(const std::string& text, int count);

}  // namespace workbench
