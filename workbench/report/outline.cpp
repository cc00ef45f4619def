#include "workbench/report/outline.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "workbench/render/html_escape.h"

namespace workbench {

void Outline::add(std::string_view kind, std::string id, std::string title) {
  entries_.push_back({std::string(kind), std::move(id), std::move(title)});
}

bool Outline::isShared(const Entry& entry) const {
  return std::ranges::any_of(
      entries_, [&](const Entry& other) { return other.title == entry.title && other.kind != entry.kind; });
}

std::string Outline::html(const Language& language) const {
  std::string out;
  for (const Entry& entry : entries_) {
    std::string kind;
    if (isShared(entry))
      kind = fmt::format(" <small>{}</small>", htmlText(language.tr(entry.kind == "chart" ? "Chart" : "Table")));
    out += fmt::format("<li class=\"{}\"><a href=\"#{}\"><bdi>{}</bdi>{}</a></li>\n", entry.kind, entry.id, entry.title,
                       kind);
  }
  return out;
}

}  // namespace workbench
