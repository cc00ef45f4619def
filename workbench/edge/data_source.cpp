#include "host/data_source.h"

#include <algorithm>
#include <string_view>

#include "host/codes.h"
#include "workbench/edge/data_state.h"
#include "workbench/edge/session.h"

using workbench::Column;
using workbench::ColumnKind;
using workbench::currentSession;
using workbench::Dataset;
using workbench::kSystemMissing;
using workbench::MeasurementLevel;
using workbench::stateOf;
using workbench::StateOf;

static_assert(static_cast<int>(MeasurementLevel::nominal) == codes::kNominalLevel &&
              static_cast<int>(MeasurementLevel::scale) == codes::kScaleLevel);

namespace {

// Why a saved dataset's column (an index, or -1 for a new one) must not have this name; "" when it may.
workbench::Notice refusal(const Dataset& dataset, const std::string& name, int column) {
  if (name.empty()) return workbench::Notice("save.no-name", "a variable of the saved file has no name.");
  const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7f; };
  if (std::any_of(name.begin(), name.end(), isControl))
    return workbench::Notice("save.control-character", "a variable name of the saved file holds a control character.");
  const int holder = dataset.find(name);
  if (holder < 0 || holder == column) return {};
  return workbench::Notice("save.equal-names", "two variables of the saved file would be named \"^1\": ^2.", name,
                           currentSession().saveRemedies.equalNames);
}

bool acceptName(StateOf<VEXA_DataSource>& source, const std::string& name, int column) {
  const workbench::Notice reason = refusal(*source.dataset, name, column);
  if (reason.empty()) return true;
  source.spoiled = true;
  currentSession().saveError = reason;
  return false;
}

const Column* columnOf(const StateOf<VEXA_Variable>& state) {
  return state.source == nullptr ? nullptr : &state.source->dataset->columns[state.column];
}

Column* writableColumn(const StateOf<VEXA_Variable>& state) {
  return state.source == nullptr || state.source->active ? nullptr : &state.source->dataset->columns[state.column];
}

bool isFormat(int type, int width, int decimals) {
  return type > 0 && width > 0 && decimals >= 0 && decimals < width;
}

bool isColumn(const Dataset* dataset, int index) {
  return dataset != nullptr && index >= 0 && static_cast<std::size_t>(index) < dataset->columns.size();
}

}  // namespace

// VEXA_Variable

VEXA_Variable::VEXA_Variable() : state_(std::make_unique<State>()) {}
VEXA_Variable::VEXA_Variable(VEXA_Variable&&) noexcept = default;
VEXA_Variable& VEXA_Variable::operator=(VEXA_Variable&&) noexcept = default;
VEXA_Variable::~VEXA_Variable() = default;

std::string VEXA_Variable::GetName() const {
  const Column* column = columnOf(*state_);
  return column == nullptr ? "" : column->name;
}

std::string VEXA_Variable::GetLabel() const {
  const Column* column = columnOf(*state_);
  return column == nullptr ? "" : column->label;
}

int VEXA_Variable::GetMeasurementLevel() const {
  const Column* column = columnOf(*state_);
  return static_cast<int>(column == nullptr ? MeasurementLevel::scale : column->level);
}

int VEXA_Variable::GetType() const {
  const Column* column = columnOf(*state_);
  return column != nullptr && column->kind == ColumnKind::text ? column->textWidth : codes::kNumericVariable;
}

bool VEXA_Variable::SetName(const std::string& name) {
  Column* column = writableColumn(*state_);
  if (column == nullptr || !acceptName(*state_->source, name, static_cast<int>(state_->column))) return false;
  column->name = name;
  return true;
}

bool VEXA_Variable::SetLabel(const std::string& label) {
  Column* column = writableColumn(*state_);
  if (column != nullptr) column->label = label;
  return column != nullptr;
}

bool VEXA_Variable::SetFormat(int type, int width, int decimals) {
  Column* column = writableColumn(*state_);
  if (column == nullptr || !isFormat(type, width, decimals)) return false;
  column->printFormat = {type, width, decimals};
  return true;
}

bool VEXA_Variable::SetWriteFormat(int type, int width, int decimals) {
  Column* column = writableColumn(*state_);
  if (column == nullptr || !isFormat(type, width, decimals)) return false;
  column->writeFormat = {type, width, decimals};
  return true;
}

bool VEXA_Variable::SetMeasurementLevel(int level) {
  Column* column = writableColumn(*state_);
  if (column == nullptr || level < codes::kNominalLevel || level > codes::kScaleLevel) return false;
  column->level = static_cast<MeasurementLevel>(level);
  return true;
}

// VEXA_InputCaseIterator

struct VEXA_InputCaseIterator::State {
  const Dataset* dataset = nullptr;
  std::size_t casesTaken = 0;
};

VEXA_InputCaseIterator::VEXA_InputCaseIterator() : state_(std::make_unique<State>()) {}
VEXA_InputCaseIterator::VEXA_InputCaseIterator(VEXA_InputCaseIterator&&) noexcept = default;
VEXA_InputCaseIterator& VEXA_InputCaseIterator::operator=(VEXA_InputCaseIterator&&) noexcept = default;
VEXA_InputCaseIterator::~VEXA_InputCaseIterator() = default;

bool VEXA_InputCaseIterator::NextCase() {
  if (state_->dataset == nullptr || state_->casesTaken == state_->dataset->rowCount) return false;
  ++state_->casesTaken;
  return true;
}

std::string VEXA_InputCaseIterator::GetStringValue(int column) const {
  if (!isColumn(state_->dataset, column) || state_->casesTaken == 0) return "";
  const Column& source = state_->dataset->columns[static_cast<std::size_t>(column)];
  if (source.kind != ColumnKind::text) return "";
  std::string value = source.texts[state_->casesTaken - 1];
  value.resize(std::max(value.size(), static_cast<std::size_t>(source.textWidth)), ' ');
  return value;
}

// VEXA_TrendsInfo

struct VEXA_TrendsInfo::State {
  const workbench::TrendsSettings* settings;  // the session's
};

VEXA_TrendsInfo::VEXA_TrendsInfo() : state_(std::make_unique<State>(State{&currentSession().trends})) {}
VEXA_TrendsInfo::~VEXA_TrendsInfo() = default;

// A PREDICT range of this host has no lower end.
void VEXA_TrendsInfo::GetPred(bool& qHi, bool& qHiDate, long& hiCase, bool& qLo, bool& qLoDate, long& loCase) const {
  const workbench::TrendsSettings& trends = *state_->settings;
  qHi = trends.predictSet;
  qHiDate = trends.predictSet && trends.predictIsDate;
  hiCase = trends.predictSet && !trends.predictIsDate ? trends.predictCase : 0;
  qLo = false;
  qLoDate = false;
  loCase = 0;
}

int VEXA_TrendsInfo::GetNDateVars() const {
  return static_cast<int>(state_->settings->dateVariables.size());
}

void VEXA_TrendsInfo::GetDateVar(int i, int& column, int& unitCode, int& periodicity) const {
  const workbench::DateVariable& variable = state_->settings->dateVariables.at(static_cast<std::size_t>(i));
  column = variable.column;
  unitCode = variable.unitCode;
  periodicity = variable.periodicity;
}

void VEXA_TrendsInfo::GetPredVar(int i, OBS& high, OBS& low) const {
  high = state_->settings->dateVariables.at(static_cast<std::size_t>(i)).predictThru;
  low = kSystemMissing;
}

// VEXA_DataSource

VEXA_DataSource::VEXA_DataSource() : state_(std::make_unique<State>()) {
  state_->dataset = &state_->own;
}
VEXA_DataSource::~VEXA_DataSource() = default;

unsigned VEXA_DataSource::ColumnCount() const {
  return static_cast<unsigned>(state_->dataset->columns.size());
}

long VEXA_DataSource::CaseCount() const {
  return static_cast<long>(state_->dataset->rowCount);
}

VEXA_Variable* VEXA_DataSource::GetVariable(int index) {
  if (!isColumn(state_->dataset, index)) return nullptr;
  const auto column = static_cast<std::size_t>(index);
  auto& variables = state_->variables;
  if (variables.size() <= column) variables.resize(column + 1);
  if (!variables[column]) {
    variables[column] = std::make_unique<VEXA_Variable>();
    stateOf(*variables[column]) = {state_.get(), column};
  }
  return variables[column].get();
}

bool VEXA_DataSource::IsSplitFileOn() const {
  return state_->active && !currentSession().splitVariables.empty();
}

VEXA_TrendsInfo* VEXA_DataSource::GetTrendsInfo() {
  return &state_->trends;
}

VEXA_InputCaseIterator VEXA_DataSource::GetInputCaseIterator() {
  VEXA_InputCaseIterator iterator;
  stateOf(iterator).dataset = state_->dataset;
  return iterator;
}

void VEXA_DataSource::SetLabel(const std::string& label) {
  if (!state_->active) state_->dataset->label = label;
}

VEXA_Variable* VEXA_DataSource::MakeVariable(int type, const std::string& name) {
  Dataset& dataset = *state_->dataset;
  if (state_->active || type != codes::kNumericVariable || dataset.rowCount > 0 || !acceptName(*state_, name, -1))
    return nullptr;
  dataset.columns.emplace_back().name = name;
  return GetVariable(static_cast<int>(dataset.columns.size()) - 1);
}

// ProcedureDataSource

struct ProcedureDataSource::State {
  VEXA_DataSource source;
};

ProcedureDataSource::ProcedureDataSource() : state_(std::make_unique<State>()) {
  stateOf(state_->source).dataset = &currentSession().dataset;
  stateOf(state_->source).active = true;
}
ProcedureDataSource::~ProcedureDataSource() = default;

VEXA_DataSource* ProcedureDataSource::GetDataSource() {
  return &state_->source;
}

int ProcedureDataSource::GetWeightVarIndex() const {
  return currentSession().weightColumn;
}
