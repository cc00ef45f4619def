#include "host/case_input.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "workbench/dataset/case_value.h"
#include "workbench/edge/data_state.h"
#include "workbench/edge/session.h"

using workbench::caseValue;
using workbench::Column;
using workbench::currentSession;
using workbench::Dataset;
using workbench::stateOf;
using workbench::StateOf;

MCCommon_940::Record::~Record() = default;

namespace {

class CaseRecord final : public MCCommon_940::Record {
 public:
  explicit CaseRecord(std::size_t size) : values(size) {}
  int Size() const override { return static_cast<int>(values.size()); }
  const double* GetAll() const override { return values.data(); }

  std::vector<double> values;
};

}  // namespace

// ACAVarValidSpecs

ACAVarValidSpecs::ACAVarValidSpecs(bool, bool, bool) : state_(std::make_unique<State>()) {}
ACAVarValidSpecs::~ACAVarValidSpecs() = default;

bool ACAVarValidSpecs::AddVariable(int column, bool, bool, bool excludeUserMissing, bool) {
  if (column < 0 || static_cast<std::size_t>(column) >= currentSession().dataset.columns.size()) return false;
  state_->variables.push_back({static_cast<std::size_t>(column), excludeUserMissing});
  return true;
}

// ACAInputAdapter

struct ACAInputAdapter::State {
  const ACAVarValidSpecs* variables;
  const Dataset* dataset;
};

ACAInputAdapter::ACAInputAdapter(ACAVarValidSpecs* variables, ProcedureDataSource& dataSource) {
  if (variables == nullptr) throw std::invalid_argument("ACAInputAdapter needs the variables to read");
  state_ = std::make_unique<State>(State{variables, stateOf(*dataSource.GetDataSource()).dataset});
}
ACAInputAdapter::~ACAInputAdapter() = default;

// ACAProcDataSourceIter

struct ACAProcDataSourceIter::State {
  struct Source {
    const Column* column;
    bool excludeUserMissing;
  };

  explicit State(const StateOf<ACAInputAdapter>& input)
      : rowCount(input.dataset->rowCount), record(stateOf(*input.variables).variables.size()) {
    for (const auto& variable : stateOf(*input.variables).variables) {
      sources.push_back({&input.dataset->columns[variable.column], variable.excludeUserMissing});
    }
  }

  std::vector<Source> sources;
  std::size_t rowCount;
  std::size_t row = 0;
  CaseRecord record;
};

ACAProcDataSourceIter::ACAProcDataSourceIter(ACAInputAdapter& adapter, bool)
    : state_(std::make_unique<State>(stateOf(adapter))) {
  workbench::CasePass pass;
  const auto& variables = stateOf(*stateOf(adapter).variables).variables;
  for (const auto& variable : variables) pass.columns.push_back(static_cast<int>(variable.column));
  pass.excludeUserMissing =
      std::any_of(variables.begin(), variables.end(), [](const auto& variable) { return variable.excludeUserMissing; });
  currentSession().passes.push_back(std::move(pass));
}

// A procedure reads its data while it validates the command: the end of its last pass stands for the end of that.
ACAProcDataSourceIter::~ACAProcDataSourceIter() {
  currentSession().clock.set(workbench::StageClock::validateEnd);
}

bool ACAProcDataSourceIter::HasMore() {
  return state_->row < state_->rowCount;
}

const MCCommon_940::Record* ACAProcDataSourceIter::Next() {
  if (state_->row == state_->rowCount) return nullptr;
  double* value = state_->record.values.data();
  for (const auto& source : state_->sources)
    *value++ = caseValue(*source.column, state_->row, source.excludeUserMissing);
  ++state_->row;
  return &state_->record;
}

int ACAProcDataSourceIter::GetFailReason() {
  return 0;
}

bool ACAProcDataSourceIter::NewPass() {
  state_->row = 0;
  return true;
}

bool ACAProcDataSourceIter::PreprocessCase() {
  return true;
}
