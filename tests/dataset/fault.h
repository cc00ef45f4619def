// The text of an error.

#pragma once

#include <functional>
#include <string>

namespace workbench {

// Of the error of class E that the call throws; "" when it throws none.
template <typename E>
std::string faultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const E& error) {
    return error.what();
  }
  return "";
}

}  // namespace workbench
