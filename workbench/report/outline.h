// The list of a report's sections, each a link.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/base/language.h"

namespace workbench {

class Outline {
 public:
  // `kind` is the section's class; `title` is HTML already.
  void add(std::string_view kind, std::string id, std::string title);

  // Items of a list. A table and a chart of one title say what they are.
  std::string html(const Language& language) const;

 private:
  struct Entry {
    std::string kind;
    std::string id;
    std::string title;
  };

  bool isShared(const Entry& entry) const;

  std::vector<Entry> entries_;
};

}  // namespace workbench
