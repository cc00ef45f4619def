#include "workbench/render/display_text.h"

#include <algorithm>
#include <cassert>

#include "workbench/base/utf8.h"
#include "workbench/render/character_width.h"

namespace workbench {

namespace {

constexpr char32_t kZeroWidthJoiner = 0x200d;

// A character with the marks, selectors and joined characters that follow it: never broken.
struct Cluster {
  std::string_view text;
  int width = 0;
};

std::vector<Cluster> clusters(std::string_view text) {
  std::vector<Cluster> found;
  bool joined = false;
  for (std::size_t at = 0; at < text.size();) {
    const CodePoint next = firstCodePoint(text.substr(at));
    const int width = characterWidth(next.value);
    if (found.empty() || (width > 0 && !joined)) found.push_back({text.substr(at, 0), 0});
    Cluster& cluster = found.back();
    cluster.text = {cluster.text.data(), cluster.text.size() + next.bytes};
    cluster.width += width;
    joined = next.value == kZeroWidthJoiner;
    at += next.bytes;
  }
  return found;
}

// A blank run and the word after it.
struct Word {
  std::string_view blanks;
  std::string_view text;
};

std::vector<Word> words(std::string_view text) {
  std::vector<Word> found;
  while (!text.empty()) {
    const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t end = std::min(text.find(' ', start), text.size());
    found.push_back({text.substr(0, start), text.substr(start, end - start)});
    text.remove_prefix(end);
  }
  return found;
}

class Wrapper {
 public:
  explicit Wrapper(int width) : width_(width) {}

  void add(const Word& word) {
    const int blanks = static_cast<int>(word.blanks.size());
    if (used_ + blanks + displayWidth(word.text) <= width_) {
      append(word.blanks, blanks);
    } else if (!lines_.back().empty()) {
      startLine();
    }
    for (const Cluster& cluster : clusters(word.text)) {
      if (used_ > 0 && used_ + cluster.width > width_) startLine();
      append(cluster.text, cluster.width);
    }
  }

  std::vector<std::string> take() { return std::move(lines_); }

 private:
  void startLine() {
    lines_.emplace_back();
    used_ = 0;
  }

  void append(std::string_view text, int width) {
    lines_.back() += text;
    used_ += width;
  }

  int width_;
  int used_ = 0;
  std::vector<std::string> lines_{1};
};

std::string replaced(std::string text, std::string_view part, std::string_view by) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size()))
    text.replace(at, part.size(), by);
  return text;
}

}  // namespace

int displayWidth(std::string_view text) {
  int width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const CodePoint next = firstCodePoint(text.substr(at));
    width += characterWidth(next.value);
    at += next.bytes;
  }
  return width;
}

int longestWord(std::string_view text) {
  int longest = 0;
  for (const Word& word : words(text)) longest = std::max(longest, displayWidth(word.text));
  return longest;
}

std::string untied(std::string text) {
  return replaced(std::move(text), kTiedBlank, " ");
}

std::string tiedNumbers(std::string sentence) {
  const std::string blank(kTiedBlank);
  return replaced(replaced(std::move(sentence), " = ", blank + "=" + blank), " %", blank + "%");
}

std::vector<std::string> wrapText(std::string_view text, int width) {
  assert(width >= 2);
  Wrapper wrapper(width);
  for (const Word& word : words(text)) wrapper.add(word);
  return wrapper.take();
}

std::string shortenText(std::string_view text, int width, std::string_view ellipsis) {
  if (displayWidth(text) <= width) return std::string(text);
  const int room = width - displayWidth(ellipsis);
  if (room < 0) return ".";
  const std::vector<Cluster> parts = clusters(text);
  std::string head;
  std::string tail;
  int used = 0;
  for (auto part = parts.begin(); part != parts.end() && used + part->width <= (room + 1) / 2; ++part) {
    head += part->text;
    used += part->width;
  }
  for (auto part = parts.rbegin(); part != parts.rend() && used + part->width <= room; ++part) {
    tail.insert(0, part->text);
    used += part->width;
  }
  return head + std::string(ellipsis) + tail;
}

}  // namespace workbench
