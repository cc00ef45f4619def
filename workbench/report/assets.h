// The parts of the report that are the same in every report, built into the program.

#pragma once

#include <string_view>

namespace workbench {

// Everything a page needs to draw charts, with its licences in comments; none contains "</script".
std::string_view vegaScript();
std::string_view vegaLiteScript();
std::string_view interpreterScript();  // evaluates Vega's expressions without eval

// Our own, from page/.
std::string_view pageScript();
std::string_view pageStyle();

// The page's content security policy: allows exactly the scripts and the style sheet above.
std::string_view contentPolicy();

}  // namespace workbench
