#include "host/original_scale.h"

#include <algorithm>

#include "workbench/edge/session.h"

namespace {

HostChange changeOf(workbench::Transformation::Kind kind) {
  using Kind = workbench::Transformation::Kind;
  switch (kind) {
    case Kind::log:
      return HostChange::logarithm;
    case Kind::dlog:
      return HostChange::logDifference;
    case Kind::pct:
      return HostChange::percentage;
    case Kind::diff:
    case Kind::sdiff:
      break;
  }
  return HostChange::difference;
}

}  // namespace

bool HostOriginalSeriesOf(int variable, HostOriginalSeries* series) {
  const workbench::Session* session = workbench::runningSession();
  if (session == nullptr) return false;
  const auto found = std::ranges::find(session->originals, variable, &workbench::OriginalSeries::column);
  if (found == session->originals.end()) return false;
  *series = {changeOf(found->kind), found->factor, static_cast<int>(found->lag),
             found->values.data() + session->casesBefore, static_cast<long>(session->dataset.rowCount)};
  return true;
}
