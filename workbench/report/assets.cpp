#include "workbench/report/assets.h"

// REPORT_ASSETS is the folder that assets.cmake fills. The argument is the name of a symbol and can have no
// parentheses.
//
// NOLINTBEGIN(bugprone-macro-parentheses)
#define EMBED(symbol, file)                                                                  \
  __asm__(".section .rodata\n" #symbol ":\n.incbin \"" REPORT_ASSETS "/" file "\"\n" #symbol \
          "_end:\n"                                                                          \
          ".byte 0\n.previous\n");                                                           \
  extern "C" __attribute__((visibility("hidden"))) const char symbol[];                      \
  extern "C" __attribute__((visibility("hidden"))) const char symbol##_end[]
// NOLINTEND(bugprone-macro-parentheses)

EMBED(report_library, "library.txt");
EMBED(report_page_script, "page.js");
EMBED(report_page_style, "page.css");
EMBED(report_policy, "policy.txt");

namespace workbench {

namespace {

std::string_view between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

}  // namespace

std::string_view packedLibrary() {
  return between(report_library, report_library_end);
}

std::string_view pageScript() {
  return between(report_page_script, report_page_script_end);
}

std::string_view pageStyle() {
  return between(report_page_style, report_page_style_end);
}

std::string_view contentPolicy() {
  return between(report_policy, report_policy_end);
}

}  // namespace workbench
