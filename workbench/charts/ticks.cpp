#include "workbench/charts/ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <optional>
#include <string_view>

namespace workbench {

namespace {

constexpr std::size_t kLongestCycle = 53;  // weeks of a year
constexpr std::size_t kLabelsChecked = 80;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// The first run of four digits; npos where there is none.
std::size_t yearAt(std::string_view label) {
  const auto found = std::search_n(label.begin(), label.end(), 4, true, [](char c, bool) { return isDigit(c); });
  return found == label.end() ? std::string_view::npos : static_cast<std::size_t>(found - label.begin());
}

std::optional<long> wholeNumber(std::string_view text) {
  long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// The label without its year: "1959Q1" is "Q1".
std::string withoutYear(std::string label) {
  return label.erase(yearAt(label), 4);
}

// Places from one label to its like in the next year, when the labels repeat so throughout; 1 for years alone, 0 where
// there is no such thing.
std::size_t cycleOf(const std::vector<std::string>& labels) {
  const std::size_t count = std::min(labels.size(), kLabelsChecked);
  std::vector<std::string> rests;
  for (std::size_t i = 0; i < count; ++i) {
    if (yearAt(labels[i]) == std::string::npos) return 0;
    rests.push_back(withoutYear(labels[i]));
  }
  const auto repeats = [&](std::size_t cycle) {
    return std::equal(rests.begin() + static_cast<std::ptrdiff_t>(cycle), rests.end(), rests.begin());
  };
  for (std::size_t cycle = 1; cycle <= kLongestCycle && cycle < count; ++cycle) {
    if (rests[cycle] == rests[0]) return repeats(cycle) ? cycle : 0;
  }
  return 0;
}

// 1, 2, 5, 10, ... times the unit, while an axis of `size` places has room for two.
void addDecimalSteps(std::size_t unit, std::size_t size, std::vector<std::size_t>& steps) {
  for (std::size_t power = unit; power < std::max<std::size_t>(size, 1); power *= 10) {
    for (const std::size_t factor : {1U, 2U, 5U}) steps.push_back(factor * power);
  }
}

std::vector<std::size_t> roundSteps(std::size_t cycle, std::size_t size) {
  std::vector<std::size_t> steps;
  for (std::size_t step = 1; step < cycle; ++step) {
    if (cycle % step == 0) steps.push_back(step);
  }
  addDecimalSteps(std::max<std::size_t>(cycle, 1), size, steps);
  if (steps.empty()) steps.push_back(1);
  return steps;
}

// Rungs that begin at the first place whose number is a multiple of the step, both counted in units.
std::vector<TickRung> anchoredRungs(const std::vector<std::size_t>& steps, std::size_t size, std::size_t unit,
                                    const std::function<std::optional<long>(std::size_t)>& numberOf) {
  std::vector<TickRung> rungs;
  for (const std::size_t step : steps) {
    TickRung rung{step, 0, {}};
    const long multiple = static_cast<long>(std::max<std::size_t>(step / unit, 1));
    for (std::size_t i = 0; i < std::min(size, step + unit); ++i) {
      const auto number = numberOf(i);
      if (!number || *number % multiple != 0) continue;
      rung.first = step < unit ? i % step : i;
      break;
    }
    rungs.push_back(rung);
  }
  return rungs;
}

// Number of the year that begins at a place; nothing inside a year. The first place is judged by the one a cycle later.
std::optional<long> yearBeginningAt(const std::vector<std::string>& labels, std::size_t place, std::size_t cycle) {
  const auto year = [&](std::size_t i) { return wholeNumber(labels[i].substr(yearAt(labels[i]), 4)); };
  const std::size_t judged = place == 0 ? cycle : place;
  if (judged >= labels.size() || year(judged) == year(judged - 1)) return std::nullopt;
  return year(place);
}

bool isCountedByOne(const std::vector<std::string>& labels) {
  for (std::size_t i = 1; i < std::min(labels.size(), kLabelsChecked); ++i) {
    const auto before = wholeNumber(labels[i - 1]);
    const auto number = wholeNumber(labels[i]);
    if (!before || !number || *number != *before + 1) return false;
  }
  return !labels.empty() && wholeNumber(labels[0]).has_value();
}

bool isDay(std::string_view label) {
  constexpr std::string_view kPattern = "dddd-dd-dd";
  return label.size() >= kPattern.size() &&
         std::equal(kPattern.begin(), kPattern.end(), label.begin(),
                    [](char wanted, char c) { return wanted == 'd' ? isDigit(c) : wanted == c; });
}

// A unit of the calendar: where the number in a label begins and ends, and what it counts from.
struct CalendarUnit {
  std::size_t begin;
  std::size_t end;
  long origin;
};
constexpr CalendarUnit kYear{0, 4, 0};
constexpr CalendarUnit kMonth{5, 7, 1};
constexpr CalendarUnit kDay{8, 10, 1};

// Places where a unit begins whose number is a multiple.
TickRung calendarRung(const std::vector<std::string>& labels, const CalendarUnit& unit, long multiple) {
  TickRung rung{labels.size(), 0, {}};
  for (std::size_t i = 1; i < labels.size(); ++i) {
    if (labels[i].compare(0, unit.end, labels[i - 1], 0, unit.end) == 0) continue;
    const auto number = wholeNumber(labels[i].substr(unit.begin, unit.end - unit.begin));
    if ((*number - unit.origin) % multiple == 0) rung.places.push_back(i);
  }
  for (std::size_t k = 1; k < rung.places.size(); ++k)
    rung.step = std::min(rung.step, rung.places[k] - rung.places[k - 1]);
  return rung;
}

std::vector<TickRung> calendarRungs(const std::vector<std::string>& labels) {
  std::vector<TickRung> rungs{calendarRung(labels, kMonth, 1), calendarRung(labels, kMonth, 3)};
  for (long power = 1; power <= 1000; power *= 10) {
    for (const long factor : {1L, 2L, 5L}) rungs.push_back(calendarRung(labels, kYear, factor * power));
  }
  TickRung days = calendarRung(labels, kDay, 1);
  if (days.step > 1) rungs.insert(rungs.begin(), std::move(days));  // of hours and less
  std::erase_if(rungs, [](const TickRung& rung) { return rung.places.size() < 2; });
  const std::size_t finest = rungs.empty() ? labels.size() : rungs.front().step;
  std::vector<TickRung> ladder;
  for (const std::size_t step : roundSteps(1, labels.size())) {
    if (step == 1 || 2 * step <= finest) ladder.push_back({step, 0, {}});
  }
  std::ranges::move(rungs, std::back_inserter(ladder));
  return ladder;
}

}  // namespace

std::vector<TickRung> tickLadder(const std::vector<std::string>& labels) {
  const std::size_t size = labels.size();
  if (const std::size_t cycle = cycleOf(labels); cycle > 0) {
    return anchoredRungs(roundSteps(cycle, size), size, cycle,
                         [&](std::size_t i) { return yearBeginningAt(labels, i, cycle); });
  }
  if (isCountedByOne(labels)) {
    return anchoredRungs(roundSteps(1, size), size, 1, [&](std::size_t i) { return wholeNumber(labels[i]); });
  }
  if (size > 1 && std::ranges::all_of(labels, isDay)) return calendarRungs(labels);
  std::vector<TickRung> rungs;
  for (const std::size_t step : roundSteps(1, size)) rungs.push_back({step, 0, {}});
  return rungs;
}

const TickRung& chooseRung(const std::vector<TickRung>& ladder, double apart) {
  const auto wide = [&](const TickRung& rung) { return static_cast<double>(rung.step) >= apart; };
  const auto found = std::ranges::find_if(ladder, wide);
  return found == ladder.end() ? ladder.back() : *found;
}

std::vector<std::size_t> ticksWithin(const TickRung& rung, std::size_t begin, std::size_t end) {
  std::vector<std::size_t> ticks;
  if (rung.places.empty()) {
    const std::size_t skipped = begin > rung.first ? (begin - rung.first + rung.step - 1) / rung.step : 0;
    for (std::size_t place = rung.first + skipped * rung.step; place < end; place += rung.step) ticks.push_back(place);
  } else {
    std::ranges::copy_if(rung.places, std::back_inserter(ticks),
                         [&](std::size_t place) { return place >= begin && place < end; });
  }
  if (ticks.size() > 1) return ticks;
  ticks.clear();
  for (std::size_t place = begin; place < end; place += rung.step) ticks.push_back(place);
  return ticks;
}

}  // namespace workbench
