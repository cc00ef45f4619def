#include "workbench/dates/labels.h"

#include <vector>

namespace workbench {

namespace {

std::string padded(std::int64_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string dayLabel(const std::vector<std::int64_t>& parts) {
  return padded(parts[0], 4) + "-" + padded(parts[1], 2) + "-" + padded(parts[2], 2);
}

}  // namespace

std::string periodLabel(const Period& period) {
  const std::vector<std::int64_t> parts = period.components();
  switch (period.unit()) {
    case Unit::year:
      return padded(parts[0], 4);
    case Unit::quarter:
      return padded(parts[0], 4) + "Q" + padded(parts[1], 1);
    case Unit::month:
      return padded(parts[0], 4) + "M" + padded(parts[1], 2);
    case Unit::week:
      return padded(parts[0], 4) + "W" + padded(parts[1], 2);
    case Unit::day:
      return dayLabel(parts);
    case Unit::hour:
      return dayLabel(parts) + " " + padded(parts[3], 2) + ":00";
    case Unit::minute:
      return dayLabel(parts) + " " + padded(parts[3], 2) + ":" + padded(parts[4], 2);
    case Unit::second:
      return dayLabel(parts) + " " + padded(parts[3], 2) + ":" + padded(parts[4], 2) + ":" + padded(parts[5], 2);
    case Unit::observation:
      break;
  }
  return std::to_string(parts[0]);
}

Notice instantText(std::int64_t microseconds) {
  const Instant instant{std::chrono::microseconds{microseconds}};
  constexpr std::int64_t kDay = std::int64_t{24} * 60 * 60 * 1'000'000;
  const std::int64_t timeOfDay = (microseconds % kDay + kDay) % kDay;
  const std::optional<Period> period = Period::containing(timeOfDay == 0 ? Unit::day : Unit::second, instant);
  if (!period) return phrase("outside the years 1 to 9999");
  const std::int64_t fraction = timeOfDay % 1'000'000;
  return periodLabel(*period) + (fraction == 0 ? "" : "." + padded(fraction, 6));
}

Notice unitPhrase(Unit unit) {
  return phrase(unitName(unit));
}

Notice countOf(std::int64_t count, Unit unit) {
  return phrase("^1 ^2", count, count == 1 ? unitPhrase(unit) : phrase(std::string(unitName(unit)) + "s"));
}

}  // namespace workbench
