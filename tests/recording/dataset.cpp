// The active dataset, its cases and its dates, and the saved file.

#include "host/data_source.h"

#include <algorithm>
#include <limits>

#include "host/case_file.h"
#include "host/case_input.h"
#include "host/dates.h"
#include "tests/recording/operation.h"

using recording::counted;
using recording::current;
using recording::noted;

namespace {
const recording::Column& columnAt(int i) {
  return current().columns.at(static_cast<std::size_t>(i));
}
const recording::DateVariable& dateVariableAt(int i) {
  return current().dateVariables.at(static_cast<std::size_t>(i));
}
bool refuses(const std::string& operation) {
  return current().refusedOperation == operation;
}
std::size_t caseCount() {
  return current().columns.front().numbers.size();
}
}  // namespace

// ---- data_source.h

struct VEXA_Variable::State {
  recording::Column column;
};
VEXA_Variable::VEXA_Variable() : state_(new State) {}
VEXA_Variable::VEXA_Variable(VEXA_Variable&&) noexcept = default;
VEXA_Variable::~VEXA_Variable() = default;
ANSWERS(std::string, VEXA_Variable, GetName() const, state_->column.name)
ANSWERS(std::string, VEXA_Variable, GetLabel() const, std::string())
ANSWERS(int, VEXA_Variable, GetMeasurementLevel() const, state_->column.level)
ANSWERS(int, VEXA_Variable, GetType() const, state_->column.width)
NOTES(bool, VEXA_Variable, SetName(const std::string& name), !refuses("SetName"), "SetName", name)
NOTES(bool, VEXA_Variable, SetLabel(const std::string& label), !refuses("SetLabel"), "SetLabel", label)
NOTES(bool, VEXA_Variable, SetFormat(int type, int width, int decimals), !refuses("SetFormat"), "SetFormat", type,
      width, decimals)
NOTES(bool, VEXA_Variable, SetWriteFormat(int type, int width, int decimals), !refuses("SetWriteFormat"),
      "SetWriteFormat", type, width, decimals)
NOTES(bool, VEXA_Variable, SetMeasurementLevel(int level), !refuses("SetMeasurementLevel"), "SetMeasurementLevel",
      level)

struct VEXA_InputCaseIterator::State {
  std::size_t next = 0;
};
VEXA_InputCaseIterator::VEXA_InputCaseIterator() : state_(new State) {
  counted("VEXA_InputCaseIterator");
}
VEXA_InputCaseIterator::VEXA_InputCaseIterator(VEXA_InputCaseIterator&&) noexcept = default;
VEXA_InputCaseIterator::~VEXA_InputCaseIterator() = default;
ANSWERS(bool, VEXA_InputCaseIterator, NextCase(), ++state_->next <= caseCount())
ANSWERS(std::string, VEXA_InputCaseIterator, GetStringValue(int column) const,
        columnAt(column).texts.at(state_->next - 1))

struct VEXA_TrendsInfo::State {};
VEXA_TrendsInfo::VEXA_TrendsInfo() = default;
VEXA_TrendsInfo::~VEXA_TrendsInfo() = default;
void VEXA_TrendsInfo::GetPred(bool& qHi, bool& qHiDate, long& hiCase, bool&, bool&, long&) const {
  counted("GetPred");
  qHi = current().predictSet;
  qHiDate = current().predictIsDate;
  hiCase = current().predictCase;
}
ANSWERS(int, VEXA_TrendsInfo, GetNDateVars() const, static_cast<int>(current().dateVariables.size()))
void VEXA_TrendsInfo::GetDateVar(int i, int& column, int& unitCode, int& periodicity) const {
  counted("GetDateVar");
  periodicity = i == 0 ? 0 : 4;
  column = dateVariableAt(i).column;
  unitCode = dateVariableAt(i).unitCode;
}
void VEXA_TrendsInfo::GetPredVar(int i, OBS& high, OBS&) const {
  counted("GetPredVar");
  high = dateVariableAt(i).predictThru;
}

struct VEXA_DataSource::State {
  std::vector<std::unique_ptr<VEXA_Variable>> variables;
  VEXA_TrendsInfo trends;

  VEXA_Variable* add(const recording::Column& column) {
    variables.push_back(std::make_unique<VEXA_Variable>());
    HostAccess::state(*variables.back()).column = column;
    return variables.back().get();
  }
};
VEXA_DataSource::VEXA_DataSource() : state_(new State) {}
VEXA_DataSource::~VEXA_DataSource() = default;
ANSWERS(unsigned, VEXA_DataSource, ColumnCount() const, static_cast<unsigned>(state_->variables.size()))
ANSWERS(long, VEXA_DataSource, CaseCount() const, static_cast<long>(caseCount()))
ANSWERS(VEXA_Variable*, VEXA_DataSource, GetVariable(int index),
        state_->variables.at(static_cast<std::size_t>(index)).get())
ANSWERS(bool, VEXA_DataSource, IsSplitFileOn() const, current().isSplit)
ANSWERS(VEXA_TrendsInfo*, VEXA_DataSource, GetTrendsInfo(), &state_->trends)
VEXA_InputCaseIterator VEXA_DataSource::GetInputCaseIterator() {
  return {};
}
NOTES(void, VEXA_DataSource, SetLabel(const std::string& label), void(), "SetLabel", label)
VEXA_Variable* VEXA_DataSource::MakeVariable(int type, const std::string& name) {
  noted("MakeVariable", type, name);
  if (refuses("MakeVariable")) return nullptr;
  return state_->add({.name = name});
}

struct ProcedureDataSource::State : recording::Object {
  State() : Object("ProcedureDataSource") {
    for (const recording::Column& column : current().columns) HostAccess::state(active).add(column);
  }
  VEXA_DataSource active;
};
ProcedureDataSource::ProcedureDataSource() : state_(new State) {}
ProcedureDataSource::~ProcedureDataSource() = default;
ANSWERS(VEXA_DataSource*, ProcedureDataSource, GetDataSource(), &state_->active)
ANSWERS(int, ProcedureDataSource, GetWeightVarIndex() const, current().weightColumn)

// ---- case_input.h

namespace {
struct OneCase : MCCommon_940::Record {
  int Size() const override {
    counted("Size");
    return current().recordSize.value_or(static_cast<int>(values.size()));
  }
  const double* GetAll() const override {
    counted("GetAll");
    return isEmpty ? nullptr : values.data();
  }
  std::vector<double> values;
  bool isEmpty = false;
};
}  // namespace
MCCommon_940::Record::~Record() = default;

struct ACAVarValidSpecs::State : recording::Object {
  using Object::Object;
  std::vector<int> columns;
};
ACAVarValidSpecs::ACAVarValidSpecs(bool flag1, bool flag2, bool flag3)
    : state_(new State("ACAVarValidSpecs", flag1, flag2, flag3)) {}
ACAVarValidSpecs::~ACAVarValidSpecs() = default;
bool ACAVarValidSpecs::AddVariable(int column, bool flag1, bool flag2, bool excludeUserMissing, bool flag4) {
  noted("AddVariable", column, flag1, flag2, excludeUserMissing, flag4);
  state_->columns.push_back(column);
  return true;
}

struct ACAInputAdapter::State : recording::Object {
  explicit State(const ACAVarValidSpecs& given) : Object("ACAInputAdapter"), variables(given) {}
  const ACAVarValidSpecs& variables;
};
ACAInputAdapter::ACAInputAdapter(ACAVarValidSpecs* variables, ProcedureDataSource&) : state_(new State(*variables)) {}
ACAInputAdapter::~ACAInputAdapter() = default;

struct ACAProcDataSourceIter::State : recording::Object {
  State(const ACAInputAdapter& adapter, bool flag)
      : Object("ACAProcDataSourceIter", flag),
        columns(HostAccess::state(HostAccess::state(adapter).variables).columns) {}
  const std::vector<int>& columns;
  std::size_t next = 0;
  OneCase record;
};
ACAProcDataSourceIter::ACAProcDataSourceIter(ACAInputAdapter& adapter, bool flag) : state_(new State(adapter, flag)) {}
ACAProcDataSourceIter::~ACAProcDataSourceIter() = default;
ANSWERS(bool, ACAProcDataSourceIter, HasMore(), current().goesOnForEver || state_->next < caseCount())
const MCCommon_940::Record* ACAProcDataSourceIter::Next() {
  counted("Next");
  if (state_->next >= caseCount()) return nullptr;
  state_->record.values.clear();
  for (const int column : state_->columns) {
    state_->record.values.push_back(columnAt(column).numbers.at(state_->next));
  }
  state_->record.isEmpty = state_->next == current().withoutValues;
  return state_->next++ == current().withoutRecord ? nullptr : &state_->record;
}
int ACAProcDataSourceIter::GetFailReason() {
  return 0;
}
bool ACAProcDataSourceIter::NewPass() {
  return false;
}
bool ACAProcDataSourceIter::PreprocessCase() {
  return true;
}

// ---- dates.h: quarters from 1990

struct TSXDateSpec::State {};
struct TSXDateSpec::TSXIndexTuple::State {
  std::int64_t offset = 0;
};
TSXDateSpec::TSXIndexTuple::TSXIndexTuple(const TSXDateSpec&) : state_(new State) {
  counted("TSXIndexTuple");
}
TSXDateSpec::TSXIndexTuple::~TSXIndexTuple() = default;
bool TSXDateSpec::TSXIndexTuple::SetIndexes(const std::vector<unsigned>& components) {
  noted("SetIndexes", components);
  if (components.size() != 2 || components[1] < 1 || components[1] > 4) return false;
  state_->offset = (std::int64_t{components[0]} - 1990) * 4 + components[1] - 1;
  return true;
}
NOTES(std::int64_t, TSXDateSpec::TSXIndexTuple, ClosestCaseOffset(bool later) const, state_->offset,
      "ClosestCaseOffset", later)
std::vector<unsigned> TSXDateSpec::TSXIndexTuple::GetIndexes() const {
  counted("GetIndexes");
  return {static_cast<unsigned>(1990 + state_->offset / 4), static_cast<unsigned>(1 + state_->offset % 4)};
}
TSXDateSpec::TSXIndexTuple TSXDateSpec::IndexTuple(long caseOffset) const {
  counted("IndexTuple");
  TSXIndexTuple tuple(*this);
  HostAccess::state(tuple).offset = caseOffset;
  return tuple;
}
TSXDateSpec::TSXDateSpec() {
  counted("TSXDateSpec");
}
TSXDateSpec::~TSXDateSpec() = default;
ANSWERS(int, TSXDateSpec, PeriodCount() const, 2)
bool TSXDateSpec::GetPeriod(int i, PeriodType& unit) const {
  counted("GetPeriod");
  unit = static_cast<PeriodType>(2 + i);
  return true;
}

OBJECT(TfoDateHandler)
TfoDateHandler::TfoDateHandler(ProcedureDataSource&, ProcDSIterator* iterator, unsigned option)
    : state_(new State("TfoDateHandler", iterator != nullptr, option)) {}
TSXDateSpec TfoDateHandler::GetCurrDateSpec() const {
  return {};
}
ANSWERS(std::string, TfoDateHandler, GetDateLabel(long caseOffset, const TSXDateSpec&) const,
        "T" + std::to_string(caseOffset))
NOTES(unsigned, TfoDateHandler, VEXAIndexOrigin(PeriodType unit), 1, "VEXAIndexOrigin", int{unit})

// ---- case_file.h

struct UserCaseFileSpec::State : recording::Object {
  using Object::Object;
  bool isInit = false;
};
UserCaseFileSpec::UserCaseFileSpec() : state_(new State("UserCaseFileSpec")) {}
UserCaseFileSpec::~UserCaseFileSpec() = default;
NOTES(bool, UserCaseFileSpec, Init(const std::string& path, bool isLiteral, bool forWriting), state_->isInit = true,
      "Init", path, isLiteral, forWriting)
ANSWERS(bool, UserCaseFileSpec, IsInit() const, state_->isInit)

IndependentDataStore::IndependentDataStore() = default;
IndependentDataStore::~IndependentDataStore() = default;

struct VEXA_Case::State : recording::Object {
  State(std::vector<double>& buffer, std::size_t columnCount) : Object("VEXA_Case"), values(buffer) {
    values.resize(columnCount);
  }
  std::vector<double>& values;
};
VEXA_Case::VEXA_Case(VEXA_DataSource& dataSource, std::vector<double>& buffer)
    : state_(new State(buffer, HostAccess::state(dataSource).variables.size())) {}
VEXA_Case::~VEXA_Case() = default;
void VEXA_Case::InitCase() {
  counted("InitCase");
  std::fill(state_->values.begin(), state_->values.end(), std::numeric_limits<double>::lowest());
}
bool VEXA_Case::SetColumnValue(int column, double value) {
  counted("SetColumnValue");
  if (refuses("SetColumnValue")) return false;
  state_->values.at(static_cast<std::size_t>(column)) = value;
  return true;
}

bool IndependentDataStore::AddCase(const VEXA_Case& newCase) {
  counted("AddCase");
  if (refuses("AddCase")) return false;
  current().savedCases.push_back(HostAccess::state(newCase).values);
  return true;
}

struct UserOutputCaseFile::State : recording::Object {
  using Object::Object;
  IndependentDataStore store;
};
UserOutputCaseFile::UserOutputCaseFile(const UserCaseFileSpec&) : state_(new State("UserOutputCaseFile")) {}
UserOutputCaseFile::~UserOutputCaseFile() = default;
ANSWERS(IndependentDataStore&, UserOutputCaseFile, DataSource(), state_->store)
ANSWERS(bool, UserOutputCaseFile, Close(), !refuses("Close"))
