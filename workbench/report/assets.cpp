#include "workbench/report/assets.h"

// Sections have other names in the object files of Windows, whose symbols are hidden unless they are exported.
#if defined(_WIN32)
#define CONSTANTS ".section .rdata,\"dr\"\n"
#define CODE ".text\n"
#define ASSET extern "C" const char
#else
#define CONSTANTS ".section .rodata\n"
#define CODE ".previous\n"
#define ASSET extern "C" __attribute__((visibility("hidden"))) const char
#endif

// REPORT_ASSETS is the folder that assets.cmake fills. The argument is the name of a symbol and can have no
// parentheses.
//
// NOLINTBEGIN(bugprone-macro-parentheses)
#define EMBED(symbol, file)                                                                                 \
  __asm__(CONSTANTS #symbol ":\n.incbin \"" REPORT_ASSETS "/" file "\"\n" #symbol "_end:\n.byte 0\n" CODE); \
  ASSET symbol[];                                                                                           \
  ASSET symbol##_end[]
// NOLINTEND(bugprone-macro-parentheses)

EMBED(report_library, "library.txt");
EMBED(report_page_script, "page.js");
EMBED(report_page_style, "page.css");
EMBED(report_policy, "policy.txt");
EMBED(report_licences, "licences.txt");

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

std::string_view libraryLicences() {
  return between(report_licences, report_licences_end);
}

std::string_view contentPolicy() {
  return between(report_policy, report_policy_end);
}

}  // namespace workbench
