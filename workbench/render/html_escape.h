// Texts of unknown origin inside an HTML page. What comes out is valid UTF-8 without control characters
// (display_text.h) and without "{{", so that no later filling-in of a page's places can meet one inside a text.

#pragma once

#include <string>
#include <string_view>

#include "workbench/base/json.h"

namespace workbench {

// Between tags and inside a quoted attribute value (either kind of quote).
std::string htmlText(std::string_view text);

// A JSON value inside a <script> element: parses to the same value, and neither ends the script nor opens a comment in
// it. Bytes that are no UTF-8 become U+FFFD. Throws std::runtime_error for a number that is not finite.
std::string scriptJson(const rapidjson::Value& value);

}  // namespace workbench
