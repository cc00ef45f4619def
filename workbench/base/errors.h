// The workbench's own error roads: each class carries a finished text (what, where, remedy) and decides the exit code.

#pragma once

#include <stdexcept>

namespace workbench {

struct UsageError : std::runtime_error {  // exit 2: command line, job file, command syntax
  using std::runtime_error::runtime_error;
};
struct DataError : std::runtime_error {  // exit 3: data could not be read
  using std::runtime_error::runtime_error;
};
struct OutputError : std::runtime_error {  // exit 4: output could not be written
  using std::runtime_error::runtime_error;
};

}  // namespace workbench
