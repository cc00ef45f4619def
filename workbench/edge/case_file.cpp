#include "host/case_file.h"

#include <exception>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/utf8_path.h"
#include "workbench/casefile/case_file_format.h"
#include "workbench/casefile/case_writer.h"
#include "workbench/edge/data_state.h"
#include "workbench/edge/host_access.h"
#include "workbench/edge/saved_cases.h"
#include "workbench/edge/session.h"

using workbench::currentSession;
using workbench::kSystemMissing;
using workbench::stateOf;
using workbench::StateOf;

// UserCaseFileSpec

struct UserCaseFileSpec::State {
  std::filesystem::path path;  // empty until Init succeeded
  const workbench::CaseFileFormat* format = nullptr;
};

UserCaseFileSpec::UserCaseFileSpec() : state_(std::make_unique<State>()) {}
UserCaseFileSpec::~UserCaseFileSpec() = default;

bool UserCaseFileSpec::Init(const std::string& path, bool, bool forWriting) {
  workbench::Session& session = currentSession();
  const std::filesystem::path full = session.baseFolder / workbench::pathFromUtf8(path);
  const workbench::Notice reason = forWriting
                                       ? workbench::unusableTarget(path, full, session.takenFiles)
                                       : workbench::Notice("save.reading", "Saved files can only be written here.");
  if (!reason.empty()) {
    session.saveError = reason;
    return false;
  }
  *state_ = {full, workbench::caseFileFormat(full)};
  return true;
}

bool UserCaseFileSpec::IsInit() const {
  return !state_->path.empty();
}

// VEXA_Case

struct VEXA_Case::State {
  VEXA_DataSource* source;
  std::vector<double>* buffer;
};

VEXA_Case::VEXA_Case(VEXA_DataSource& dataSource, std::vector<double>& buffer)
    : state_(std::make_unique<State>(State{&dataSource, &buffer})) {
  buffer.resize(dataSource.ColumnCount());
}
VEXA_Case::~VEXA_Case() = default;

void VEXA_Case::InitCase() {
  state_->buffer->assign(state_->source->ColumnCount(), kSystemMissing);
}

bool VEXA_Case::SetColumnValue(int column, double value) {
  if (column < 0 || static_cast<std::size_t>(column) >= state_->buffer->size()) return false;
  (*state_->buffer)[static_cast<std::size_t>(column)] = value;
  return true;
}

// IndependentDataStore

IndependentDataStore::IndependentDataStore() = default;
IndependentDataStore::~IndependentDataStore() = default;

bool IndependentDataStore::AddCase(const VEXA_Case& newCase) {
  const StateOf<VEXA_DataSource>& target = stateOf(*this);
  workbench::Dataset& dataset = *target.dataset;
  const std::vector<double>& values = *stateOf(newCase).buffer;
  if (target.closed || stateOf(newCase).source != this || values.size() != dataset.columns.size()) return false;
  for (std::size_t i = 0; i < values.size(); ++i) dataset.columns[i].numbers.push_back(values[i]);
  ++dataset.rowCount;
  return true;
}

// UserOutputCaseFile

struct UserOutputCaseFile::State {
  StateOf<UserCaseFileSpec> specification;
  IndependentDataStore store;

  StateOf<VEXA_DataSource>& target() { return stateOf(store); }
};

namespace {

// What was saved of variables in a multiplied unit goes back to their own.
void scaleBack(workbench::Dataset& dataset, double scale) {
  if (scale == 1.0) return;
  for (workbench::Column& column : dataset.columns) {
    for (double& value : column.numbers) {
      if (value != kSystemMissing) value /= scale;
    }
  }
}

void save(const StateOf<UserCaseFileSpec>& specification, const StateOf<VEXA_DataSource>& source) {
  if (specification.path.empty()) {
    throw workbench::OutputError("save.no-file", "SAVE FILE names no file. Give one, such as 'results.csv'.");
  }
  if (source.spoiled) throw workbench::OutputError(currentSession().saveError);
  if (source.dataset->columns.empty()) {
    throw workbench::OutputError(workbench::Notice("save.nothing", "SAVE FILE has nothing to save.") +
                                 currentSession().saveRemedies.nothing);
  }
  scaleBack(*source.dataset, currentSession().savedScale);
  workbench::addCaseColumns(*source.dataset, currentSession());
  workbench::writeCases(*source.dataset, *specification.format, specification.path);
}

}  // namespace

UserOutputCaseFile::UserOutputCaseFile(const UserCaseFileSpec& specification) : state_(std::make_unique<State>()) {
  state_->specification = stateOf(specification);
}
UserOutputCaseFile::~UserOutputCaseFile() = default;

IndependentDataStore& UserOutputCaseFile::DataSource() {
  return state_->store;
}

bool UserOutputCaseFile::Close() {
  if (std::exchange(state_->target().closed, true)) return false;
  try {
    save(state_->specification, state_->target());
  } catch (const workbench::UserError& error) {
    currentSession().saveError = error.notice();
    return false;
  } catch (const std::exception& error) {
    currentSession().saveError = workbench::Notice("save.failed", "SAVE FILE cannot be written: ^1", error.what());
    return false;
  }
  currentSession().savedFiles.push_back(state_->specification.path);
  return true;
}
