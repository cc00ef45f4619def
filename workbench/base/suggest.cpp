#include "workbench/base/suggest.h"

#include <algorithm>
#include <array>

#include "workbench/base/text_excerpt.h"
#include "workbench/base/utf8.h"

namespace workbench {

namespace {

constexpr std::size_t kLongestName = 64;  // characters; longer text is not compared
constexpr std::size_t kListed = 20;

std::u32string folded(std::string_view text) {
  std::u32string characters = decodeUtf8(text);
  for (char32_t& character : characters) {
    if (character >= 'A' && character <= 'Z') character += 'a' - 'A';
  }
  return characters;
}

std::size_t nearDistance(std::size_t length) {
  return length < 2 ? 0 : std::clamp<std::size_t>(length / 3, 1, 3);
}

// Optimal string alignment distance (insertions, deletions, substitutions, swaps of neighbours), after Damerau (1964),
// "A technique for computer detection and correction of spelling errors", CACM 7(3). Both texts at most kLongestName.
std::size_t editDistance(const std::u32string& a, const std::u32string& b) {
  using Row = std::array<std::size_t, kLongestName + 1>;
  Row beforeLast{};
  Row last{};
  Row row{};
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    beforeLast = last;
    last = row;
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[b.size()];
}

std::optional<std::string> abbreviated(const std::u32string& text, const std::vector<std::string>& candidates) {
  std::optional<std::string> found;
  for (const std::string& candidate : candidates) {
    if (!folded(candidate).starts_with(text)) continue;
    if (found) return std::nullopt;
    found = candidate;
  }
  return found;
}

}  // namespace

std::optional<std::string> nearestName(std::string_view text, const std::vector<std::string>& candidates) {
  if (text.size() > 4 * kLongestName) return std::nullopt;
  const std::u32string typed = folded(text);
  if (typed.size() < 2 || typed.size() > kLongestName) return std::nullopt;
  if (auto whole = abbreviated(typed, candidates)) return whole;
  std::optional<std::string> nearest;
  std::size_t smallest = nearDistance(typed.size()) + 1;
  for (const std::string& candidate : candidates) {
    const std::u32string name = folded(candidate);
    if (name.size() > kLongestName) continue;
    const std::size_t distance = editDistance(typed, name);
    if (distance >= smallest) continue;
    smallest = distance;
    nearest = candidate;
  }
  return nearest;
}

Notice didYouMean(std::string_view text, const std::vector<std::string>& candidates) {
  const std::optional<std::string> nearest = nearestName(text, candidates);
  return nearest ? phrase("Did you mean ^1?", inQuotes(*nearest)) : Notice();
}

Notice didYouMeanWord(std::string_view text, const std::vector<std::string>& candidates) {
  const std::optional<std::string> nearest = nearestName(text, candidates);
  return nearest ? phrase("Did you mean ^1?", *nearest) : Notice();
}

Notice didYouMeanOrList(std::string_view text, const std::vector<std::string>& candidates, const Notice& what) {
  Notice nearest = didYouMean(text, candidates);
  if (!nearest.empty() || candidates.empty()) return nearest;
  return phrase("^1: ^2.", what, listed(candidates));
}

Notice listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), kListed); ++i) text += (i == 0 ? "" : ", ") + names[i];
  return names.size() <= kListed ? Notice(text) : phrase("^1 and ^2 more", text, names.size() - kListed);
}

}  // namespace workbench
