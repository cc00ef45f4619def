// Names that a variable may have and that a page must survive.

#pragma once

#include <string>
#include <vector>

inline const std::vector<std::string>& hostileNames() {
  using namespace std::string_literals;
  static const std::vector<std::string> names{
      "</script><script>alert(1)</script>",
      "<img src=x onerror=alert(1)>",
      "<!--<script>",
      "]]>",
      "a\"b",
      "it's",
      "\")",
      "\"))",
      "a\"), label(\"b",
      "a\", color.green), (\"b",
      "label(\"x\")",
      "{{name}}",
      "${name}",
      "](javascript:alert(1))",
      "&lt;b&gt; &amp;",
      "a\\nb\\u0041\\",
      "line\nbreak\r\n",
      "tab\there",
      "nul\0byte"s,
      "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d",  // right to left
      "\xe2\x80\xae"
      "evil",  // right-to-left override
      "\xe2\x80\xa8"
      "separator",                                                      // U+2028
      "\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x94\xac \xf0\x9f\x93\x88",  // emoji
      "bad \xff\xc3 bytes",
      "datum['constructor']",
      "__proto__",
      "constructor",
      "signal",
      "@hole@",
      "=1+1",
      "  blanks  ",
      " ",
      std::string(300, 'n'),
  };
  return names;
}
