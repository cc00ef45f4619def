// The parts of the report that are the same in every report, built into the program.

#pragma once

#include <string_view>

namespace workbench {

// The chart library as base64 of gzip. One script when unpacked; it evaluates expressions without eval.
std::string_view packedLibrary();

// The licences of all that the chart library holds, as HTML text.
std::string_view libraryLicences();

// Our own, from page/; contains no "</script".
std::string_view pageScript();
std::string_view pageStyle();

// The page's content security policy: allows exactly the scripts and the style sheet above.
std::string_view contentPolicy();

}  // namespace workbench
