// The host's calendar of the active dataset. Conventions: edge.h.
//
// A date specification numbers the cases of a dataset whose periods are named by up to nine date variables. An index
// tuple names one period: one unsigned component for each of its periods, coarsest first, as the date
// variables hold them (year 1959, quarter 1). Case offset 0 is the first case; offsets may lie after the last case.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/data_source.h"
#include "host/edge.h"

class ProcDSIterator;  // a host's own case iterator; a procedure passes null

// Codes of time units, as VEXA_TrendsInfo::GetDateVar gives them (2 year .. 10 observation).
enum PeriodType : int {};

class HOST_API TSXDateSpec {
 public:
  class HOST_API TSXIndexTuple {
   public:
    explicit TSXIndexTuple(const TSXDateSpec& specification);
    TSXIndexTuple(const TSXIndexTuple& other);
    TSXIndexTuple& operator=(const TSXIndexTuple& other);
    ~TSXIndexTuple();

    // False, and nothing changed, when the tuple names no period of the date specification (wrong count, month 13,
    // ...).
    bool SetIndexes(const std::vector<unsigned>& components);
    std::vector<unsigned> GetIndexes() const;
    // Offset of the period; of the nearest earlier one (or, with true, later one) when no period has that name.
    std::int64_t ClosestCaseOffset(bool later) const;

   private:
    friend class TSXDateSpec;
    friend struct HostAccess;
    struct State;
    std::unique_ptr<State> state_;
  };

  TSXDateSpec();
  TSXDateSpec(const TSXDateSpec& other);
  TSXDateSpec& operator=(const TSXDateSpec& other);
  ~TSXDateSpec();

  int PeriodCount() const;
  // Period i, coarsest first: its unit code; false when there is no such period.
  bool GetPeriod(int i, PeriodType& unit) const;
  bool SetFirstCaseIndex(const TSXIndexTuple& first);
  TSXIndexTuple IndexTuple(long caseOffset) const;
  std::int64_t VirtualCaseOffset(long caseOffset) const;  // distance from the origin, in cases

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

class HOST_API TfoDateHandler {
 public:
  TfoDateHandler(ProcedureDataSource& dataSource, ProcDSIterator* iterator, unsigned option);
  TfoDateHandler(const TfoDateHandler&) = delete;
  TfoDateHandler& operator=(const TfoDateHandler&) = delete;
  ~TfoDateHandler();

  TSXDateSpec GetCurrDateSpec() const;
  std::string GetDateLabel(long caseOffset, const TSXDateSpec& specification) const;
  // The first value that a component of this unit takes (month 1, hour 0, ...).
  static unsigned VEXAIndexOrigin(PeriodType unit);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
