#include "workbench/report/vizl.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace workbench {

namespace {

using Captures = std::vector<std::string>;

constexpr char kHole = '@';

std::string_view trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

// Whether the line is the pattern with a text in each hole. The first and last piece of the pattern are tied to the
// line's ends, the pieces between to their first occurrence, so that the last hole takes whatever is left.
std::optional<Captures> match(std::string_view line, std::string_view pattern) {
  std::size_t hole = pattern.find(kHole);
  if (!line.starts_with(pattern.substr(0, hole))) return std::nullopt;
  if (hole == std::string_view::npos) return line == pattern ? std::optional<Captures>{Captures{}} : std::nullopt;
  line.remove_prefix(hole);
  Captures captures;
  while (hole != std::string_view::npos) {
    pattern.remove_prefix(hole + 1);
    hole = pattern.find(kHole);
    const std::string_view piece = pattern.substr(0, hole);
    const bool last = hole == std::string_view::npos;
    if (last && !line.ends_with(piece)) return std::nullopt;
    const std::size_t end = last ? line.size() - piece.size() : line.find(piece);
    if (end == std::string_view::npos) return std::nullopt;
    captures.emplace_back(line.substr(0, end));
    line.remove_prefix(end + piece.size());
  }
  return captures;
}

std::optional<double> numberIn(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// "red" of "color.red"; nothing for what is no known colour.
std::optional<std::string> colorIn(std::string_view text) {
  constexpr std::string_view kPrefix = "color.";
  if (!text.starts_with(kPrefix)) return std::nullopt;
  text.remove_prefix(kPrefix.size());
  if (text != "red" && text != "green" && text != "blue") return std::nullopt;
  return std::string(text);
}

// Arguments at the top level of a call without free texts: "a(b,c), d" is "a(b,c)" and "d".
std::vector<std::string_view> splitArguments(std::string_view text) {
  std::vector<std::string_view> arguments;
  int depth = 0;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= text.size(); ++i) {
    if (i == text.size() || (text[i] == ',' && depth == 0)) {
      arguments.push_back(trimmed(text.substr(start, i - start)));
      start = i + 1;
    } else {
      depth += (text[i] == '(') - (text[i] == ')');
    }
  }
  return arguments;
}

class Reader {
 public:
  explicit Reader(const std::set<std::string>& seriesNames) : seriesNames_(seriesNames) {}

  void read(const std::string& line) {
    if (!readFrame(line) && !readScale(line) && !readGuide(line) && !readElement(line)) {
      spec_.notUnderstood.push_back(line);
    }
  }

  ChartSpec result() && { return std::move(spec_); }

 private:
  bool readFrame(std::string_view line) {
    if (line == "GRAPH: begin()" || line == "GRAPH: end()" || match(line, "SOURCE: @ = userSource(id(\"@\"))")) {
      return true;
    }
    auto data = match(line, "DATA: @ = col(source(@), name(\"@\"), unit.category())");
    if (!data) data = match(line, "DATA: @ = col(source(@), name(\"@\"))");
    if (data) columns_[std::string(trimmed((*data)[0]))] = (*data)[2];
    return data.has_value();
  }

  bool readScale(std::string_view line) {
    if (line == "SCALE: cat(dim(1), sort.data())") return spec_.dataOrder = true;
    if (const auto map = match(line, "SCALE: cat(aesthetic(aesthetic.color), map(@))")) {
      auto colors = parseColorMap((*map)[0], seriesNames_);
      if (colors) spec_.seriesColors = std::move(*colors);
      return colors.has_value();
    }
    const auto linear = match(line, "SCALE: linear(dim(2), min(@), max(@))");
    if (!linear) return false;
    const auto min = numberIn((*linear)[0]);
    const auto max = numberIn((*linear)[1]);
    if (!min || !max || !(*min < *max)) return false;
    spec_.yRange = ChartSpec::Range{*min, *max};
    return true;
  }

  bool readGuide(std::string_view line) {
    struct Guide {
      std::string_view pattern;
      std::string ChartSpec::*text;
    };
    constexpr std::array<Guide, 5> kGuides{
        Guide{"GUIDE: axis(dim(1),label(\"@\"))", &ChartSpec::xLabel},
        Guide{"GUIDE: axis(dim(2),label(\"@\"))", &ChartSpec::yLabel},
        Guide{"GUIDE: text.title(label(\"@\"))", &ChartSpec::title},
        Guide{"GUIDE: legend(aesthetic(aesthetic.color), label(\"@\"))", &ChartSpec::legendTitle},
        Guide{"GUIDE: legend(aesthetic(aesthetic.color.interior), label(\"@\"))", &ChartSpec::legendTitle},
    };
    for (const Guide& guide : kGuides) {
      if (auto label = match(line, guide.pattern)) {
        spec_.*guide.text = std::move(label->front());
        return true;
      }
    }
    return false;
  }

  bool readElement(std::string_view line) {
    const auto call = match(line, "ELEMENT: @(@)");
    if (!call || spec_.element != ChartSpec::Element::none) return false;
    const std::string& kind = (*call)[0];
    if (kind != "line" && kind != "area" && kind != "interval") return false;
    spec_.element = kind == "line"   ? ChartSpec::Element::line
                    : kind == "area" ? ChartSpec::Element::area
                                     : ChartSpec::Element::interval;
    bool understood = true;
    for (const std::string_view argument : splitArguments((*call)[1])) understood &= readArgument(argument);
    return understood;
  }

  bool readArgument(std::string_view argument) {
    if (argument == "shape.interior(shape.square)") return true;  // bars are rectangles anyway
    if (const auto position = match(argument, "position(@*@)")) return readPosition((*position)[0], (*position)[1]);
    if (const auto size = match(argument, "size(size.\"@\")")) {
      const auto pixels = numberIn((*size)[0]);
      if (pixels) spec_.size = *pixels;
      return pixels.has_value();
    }
    if (const auto outline = match(argument, "color.exterior(@)")) return readColor((*outline)[0], spec_.outline);
    if (const auto fill = match(argument, "color.interior(@)")) return readColor((*fill)[0], spec_.color);
    const auto color = match(argument, "color(@)");
    if (!color) return false;
    if (const auto series = columns_.find((*color)[0]); series != columns_.end()) {
      spec_.seriesColumn = series->second;
      return true;
    }
    return readColor((*color)[0], spec_.color);
  }

  bool readPosition(const std::string& x, const std::string& y) {
    if (!columns_.contains(x) || !columns_.contains(y)) return false;
    spec_.xColumn = columns_[x];
    spec_.yColumn = columns_[y];
    return true;
  }

  static bool readColor(std::string_view text, std::string& color) {
    const auto known = colorIn(text);
    if (known) color = *known;
    return known.has_value();
  }

  const std::set<std::string>& seriesNames_;
  std::map<std::string, std::string> columns_;  // name within the chart lines -> data column
  ChartSpec spec_;
};

struct MapEntry {
  std::string name;
  std::string color;
  std::size_t length = 0;  // of the whole entry, the separator before the next one included
};

// The entry that ends a name at `quote`, if one can.
std::optional<MapEntry> entryEndingAt(std::string_view text, std::size_t quote) {
  constexpr std::string_view kOpen = "(\"";
  constexpr std::string_view kMiddle = "\", ";
  const std::size_t close = text.find(')', quote);
  if (close == std::string_view::npos) return std::nullopt;
  const auto color = colorIn(text.substr(quote + kMiddle.size(), close - quote - kMiddle.size()));
  const std::string_view rest = text.substr(close + 1);
  if (!color || (!rest.empty() && !rest.starts_with(", (\""))) return std::nullopt;
  const std::size_t separator = rest.empty() ? 0 : 2;
  return MapEntry{std::string(text.substr(kOpen.size(), quote - kOpen.size())), *color, close + 1 + separator};
}

// The longest name that the data knows, else the shortest possible one.
std::optional<MapEntry> firstEntry(std::string_view text, const std::set<std::string>& seriesNames) {
  std::optional<MapEntry> best;
  if (!text.starts_with("(\"")) return best;
  for (std::size_t at = text.find("\", color.", 2); at != std::string_view::npos;
       at = text.find("\", color.", at + 1)) {
    auto entry = entryEndingAt(text, at);
    if (!entry) continue;
    const bool isKnown = seriesNames.contains(entry->name);
    if (isKnown || !best) best = std::move(entry);
  }
  return best;
}

}  // namespace

std::optional<std::map<std::string, std::string>> parseColorMap(std::string_view entries,
                                                                const std::set<std::string>& seriesNames) {
  std::map<std::string, std::string> colors;
  while (!entries.empty()) {
    const auto entry = firstEntry(entries, seriesNames);
    if (!entry) return std::nullopt;
    colors[entry->name] = entry->color;
    entries.remove_prefix(entry->length);
  }
  return colors;
}

ChartSpec parseVizl(const std::vector<std::string>& lines, const std::set<std::string>& seriesNames) {
  Reader reader(seriesNames);
  for (const std::string& line : lines) reader.read(line);
  return std::move(reader).result();
}

}  // namespace workbench
