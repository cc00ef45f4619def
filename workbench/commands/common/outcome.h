// How a call of a procedure ended, read off its trace.

#pragma once

#include <string>

#include "workbench/edge/stream_capture.h"

namespace workbench {

struct Outcome {
  int failedStep = 0;  // 1..6; 0 when none was named
  bool succeeded = false;

  // 0 success; 2 when the command could not be parsed; 4 when the saved file could not be written; 1 otherwise.
  int exitCode() const;
};

// N of the last trace line "ENTRY: StepN" of a procedure's entry function; 0 when there is none.
int failedStep(const CapturedStreams& streams, const std::string& entry);

// What step 1..6 does, for messages ("reading the command").
std::string stepName(int step);

// The last lines of a text, each indented by two blanks.
std::string lastLines(const std::string& text, int count);

}  // namespace workbench
