#include "host/dates.h"

#include <optional>
#include <span>
#include <stdexcept>

#include "host/codes.h"
#include "workbench/dates/case_label.h"
#include "workbench/dates/labels.h"
#include "workbench/edge/host_access.h"
#include "workbench/edge/session.h"

using workbench::CaseCalendar;
using workbench::Period;
using workbench::stateOf;
using workbench::Unit;

static_assert(static_cast<int>(Unit::year) == codes::kYear &&
              static_cast<int>(Unit::observation) == codes::kObservation);

// A specification without periods belongs to a dataset without dates.
struct TSXDateSpec::State {
  std::optional<CaseCalendar> calendar;
  std::optional<Period> origin;  // the dataset's first case, whatever SetFirstCaseIndex did to the calendar

  std::span<const Unit> units() const {
    return calendar ? workbench::unitsOf(calendar->first.unit()) : std::span<const Unit>{};
  }
  std::optional<Period> period(long caseOffset) const {
    if (!calendar) return std::nullopt;
    if (const auto found = calendar->period(caseOffset)) return found;
    throw std::out_of_range("case offset " + std::to_string(caseOffset) + " lies outside the calendar");
  }
};

struct TSXDateSpec::TSXIndexTuple::State {
  std::optional<CaseCalendar> calendar;
  std::optional<Period> period;
};

TSXDateSpec::TSXIndexTuple::TSXIndexTuple(const TSXDateSpec& specification)
    : state_(std::make_unique<State>(State{stateOf(specification).calendar, stateOf(specification).period(0)})) {}
TSXDateSpec::TSXIndexTuple::TSXIndexTuple(const TSXIndexTuple& other)
    : state_(std::make_unique<State>(*other.state_)) {}
TSXDateSpec::TSXIndexTuple& TSXDateSpec::TSXIndexTuple::operator=(const TSXIndexTuple& other) {
  *state_ = *other.state_;
  return *this;
}
TSXDateSpec::TSXIndexTuple::~TSXIndexTuple() = default;

bool TSXDateSpec::TSXIndexTuple::SetIndexes(const std::vector<unsigned>& components) {
  if (!state_->calendar) return false;
  const std::vector<std::int64_t> values(components.begin(), components.end());
  const std::optional<Period> period = Period::of(state_->calendar->first.unit(), values);
  if (period) state_->period = period;
  return period.has_value();
}

std::vector<unsigned> TSXDateSpec::TSXIndexTuple::GetIndexes() const {
  std::vector<unsigned> indexes;
  if (!state_->period) return indexes;
  for (const std::int64_t component : state_->period->components()) indexes.push_back(static_cast<unsigned>(component));
  return indexes;
}

std::int64_t TSXDateSpec::TSXIndexTuple::ClosestCaseOffset(bool later) const {
  return state_->calendar ? state_->calendar->caseOffset(*state_->period, later) : 0;
}

TSXDateSpec::TSXDateSpec() : state_(std::make_unique<State>()) {}
TSXDateSpec::TSXDateSpec(const TSXDateSpec& other) : state_(std::make_unique<State>(*other.state_)) {}
TSXDateSpec& TSXDateSpec::operator=(const TSXDateSpec& other) {
  *state_ = *other.state_;
  return *this;
}
TSXDateSpec::~TSXDateSpec() = default;

int TSXDateSpec::PeriodCount() const {
  return static_cast<int>(state_->units().size());
}

bool TSXDateSpec::GetPeriod(int i, PeriodType& unit) const {
  if (i < 0 || i >= PeriodCount()) return false;
  unit = PeriodType{static_cast<int>(state_->units()[static_cast<std::size_t>(i)])};
  return true;
}

bool TSXDateSpec::SetFirstCaseIndex(const TSXIndexTuple& first) {
  const std::optional<Period>& period = first.state_->period;
  if (!state_->calendar || !period || period->unit() != state_->calendar->first.unit()) return false;
  state_->calendar->first = *period;
  return true;
}

TSXDateSpec::TSXIndexTuple TSXDateSpec::IndexTuple(long caseOffset) const {
  TSXIndexTuple tuple(*this);
  tuple.state_->period = state_->period(caseOffset);
  return tuple;
}

std::int64_t TSXDateSpec::VirtualCaseOffset(long caseOffset) const {
  if (!state_->calendar) return caseOffset;
  return state_->calendar->from(*state_->origin).caseOffset(state_->calendar->first) + caseOffset;
}

struct TfoDateHandler::State {
  std::optional<CaseCalendar> calendar;
};

// The data source stands for the session's dataset; the session knows its dates.
TfoDateHandler::TfoDateHandler(ProcedureDataSource&, ProcDSIterator*, unsigned)
    : state_(std::make_unique<State>(
          State{workbench::caseCalendar(workbench::currentSession().dataset, workbench::currentSession().trends)})) {}
TfoDateHandler::~TfoDateHandler() = default;

TSXDateSpec TfoDateHandler::GetCurrDateSpec() const {
  TSXDateSpec specification;
  stateOf(specification).calendar = state_->calendar;
  if (state_->calendar) stateOf(specification).origin = state_->calendar->first;
  return specification;
}

std::string TfoDateHandler::GetDateLabel(long caseOffset, const TSXDateSpec& specification) const {
  const std::optional<Period> period = stateOf(specification).period(caseOffset);
  return period ? workbench::periodLabel(*period) : std::to_string(caseOffset + 1);
}

unsigned TfoDateHandler::VEXAIndexOrigin(PeriodType unit) {
  switch (static_cast<Unit>(static_cast<int>(unit))) {
    case Unit::hour:
    case Unit::minute:
    case Unit::second:
      return 0;
    default:
      return 1;
  }
}
