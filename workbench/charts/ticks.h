// Which categories of an axis get a label: places that are round in what the labels count.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace workbench {

// Equally spaced places from `first` on, or, where months and years differ in length, the places listed.
struct TickRung {
  std::size_t step = 1;  // places from one tick to the next, the fewest where they differ
  std::size_t first = 0;
  std::vector<std::size_t> places;
};

// The ways to label an axis, from every place on to ever wider steps. Labels that count a year and something in it
// ("1959Q1", "Q1 1959", "1959-01") have steps of that cycle's divisors and of 1, 2, 5, 10, ... years, on years that are
// multiples; days ("1959-01-31") begin on months and years; whole numbers in a row stand on multiples of 1, 2, 5, 10,
// ...
std::vector<TickRung> tickLadder(const std::vector<std::string>& labels);

// The first rung whose ticks are at least `apart` places from each other.
const TickRung& chooseRung(const std::vector<TickRung>& ladder, double apart);

// The ticks of a rung on the places from `begin` to below `end`. Where there would be fewer than two, every step from
// `begin` on gets one.
std::vector<std::size_t> ticksWithin(const TickRung& rung, std::size_t begin, std::size_t end);

}  // namespace workbench
