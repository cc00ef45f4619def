// The workbench's own error roads: each class carries what is told (what, where, remedy) and decides the exit code.

#pragma once

#include <stdexcept>
#include <string_view>
#include <utility>

#include "workbench/base/notice.h"

namespace workbench {

class UserError : public std::runtime_error {  // what() is English
 public:
  explicit UserError(Notice notice) : std::runtime_error(notice.text()), notice_(std::move(notice)) {}
  template <class... Arguments>
  UserError(std::string_view id, std::string_view key, const Arguments&... arguments)
      : UserError(Notice(id, key, arguments...)) {}

  const Notice& notice() const { return notice_; }

 private:
  Notice notice_;
};

struct UsageError : UserError {  // exit 2: command line, job file, command syntax
  using UserError::UserError;
};
struct DataError : UserError {  // exit 3: data could not be read
  using UserError::UserError;
};
struct OutputError : UserError {  // exit 4: output could not be written
  using UserError::UserError;
};

}  // namespace workbench
