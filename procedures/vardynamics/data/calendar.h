// What the dataset's dates say of its cases and of the periods after them.
//
// Case offsets count from 0 at the first case of the dataset; the number that users see is the offset plus 1.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/data_source.h"
#include "procedures/common/time_axis.h"
#include "procedures/vardynamics/data/sample.h"
#include "procedures/vardynamics/data/seasons.h"

namespace vardynamics {

class Calendar {
 public:
  // Reads the session's PREDICT setting and the date variables; the data source must outlive the calendar. Throws
  // UserError when the host cannot tell them.
  explicit Calendar(ProcedureDataSource& dataSource);

  bool hasDates() const { return axis_.hasDateVariables; }
  // The PREDICT target's case offset, wherever it lies; nothing without one. Host exceptions pass through.
  std::optional<std::int64_t> predictOffset() const;
  // Labels of `count` periods from a case on: their dates, or case numbers without dates.
  std::vector<std::string> labels(std::size_t firstOffset, std::size_t count) const;
  std::string label(std::size_t offset) const { return labels(offset, 1).front(); }

  // Seasons in a cycle of the finest date variable, in cases (monthly dates of every third month have 4); 0: none.
  std::size_t cycle() const;
  Seasons seasons(std::size_t firstOffset, std::size_t count) const;

  const std::vector<std::string>& dateVariableNames() const { return axis_.dateVariableNames; }
  // One column a date variable: its component in each of `count` periods from a case on.
  SeriesList components(std::size_t firstOffset, std::size_t count) const;

 private:
  struct Finest {
    int unitCode = 0;
    int periodicity = 0;
    std::size_t advance = 1;  // by how much the component grows from case to case
  };
  Finest readFinest() const;

  ProcedureDataSource& dataSource_;
  procedures::TimeAxis axis_;
  Finest finest_;
};

}  // namespace vardynamics
