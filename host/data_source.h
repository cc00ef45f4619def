// The active dataset: its dictionary, its raw cases and its time-series settings. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>

#include "host/edge.h"

// One observation as the host stores it.
using OBS = double;

class HOST_API VEXA_Variable {
 public:
  VEXA_Variable();
  VEXA_Variable(VEXA_Variable&&) noexcept;
  VEXA_Variable& operator=(VEXA_Variable&&) noexcept;
  ~VEXA_Variable();

  std::string GetName() const;
  std::string GetLabel() const;     // empty when the variable has none
  int GetMeasurementLevel() const;  // 1 nominal, 2 ordinal, 3 scale
  int GetType() const;              // 0 numeric, otherwise the width of a string variable

  bool SetName(const std::string& name);
  bool SetLabel(const std::string& label);
  bool SetFormat(int type, int width, int decimals);  // print format
  bool SetWriteFormat(int type, int width, int decimals);
  bool SetMeasurementLevel(int level);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// A forward pass over the raw cases, string values included.
class HOST_API VEXA_InputCaseIterator {
 public:
  VEXA_InputCaseIterator();
  VEXA_InputCaseIterator(VEXA_InputCaseIterator&&) noexcept;
  VEXA_InputCaseIterator& operator=(VEXA_InputCaseIterator&&) noexcept;
  ~VEXA_InputCaseIterator();

  bool NextCase();                               // false after the last case
  std::string GetStringValue(int column) const;  // padded with blanks to the variable's width

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// The dataset's time-series settings: its date variables and the PREDICT range.
class HOST_API VEXA_TrendsInfo {
 public:
  VEXA_TrendsInfo();
  VEXA_TrendsInfo(const VEXA_TrendsInfo&) = delete;
  VEXA_TrendsInfo& operator=(const VEXA_TrendsInfo&) = delete;
  ~VEXA_TrendsInfo();

  // The upper end of the PREDICT range comes first, then the lower: is it set, is it a date, its case number (from 1).
  void GetPred(bool& qHi, bool& qHiDate, long& hiCase, bool& qLo, bool& qLoDate, long& loCase) const;
  int GetNDateVars() const;
  // Date variable i: its column, the code of its time unit (2 year .. 10 observation), its periodicity (0 for none).
  void GetDateVar(int i, int& column, int& unitCode, int& periodicity) const;
  // Date variable i: its component of the PREDICT range's ends; system-missing when not given.
  void GetPredVar(int i, OBS& high, OBS& low) const;

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

class HOST_API VEXA_DataSource {
 public:
  VEXA_DataSource();
  VEXA_DataSource(const VEXA_DataSource&) = delete;
  VEXA_DataSource& operator=(const VEXA_DataSource&) = delete;
  virtual ~VEXA_DataSource();

  unsigned ColumnCount() const;
  long CaseCount() const;
  VEXA_Variable* GetVariable(int index);  // null for an index that is not a column
  bool IsSplitFileOn() const;
  VEXA_TrendsInfo* GetTrendsInfo();
  VEXA_InputCaseIterator GetInputCaseIterator();

  void SetLabel(const std::string& label);
  VEXA_Variable* MakeVariable(int type, const std::string& name);  // type 0: numeric; null when the name is refused

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// A procedure's access to the active dataset.
class HOST_API ProcedureDataSource {
 public:
  ProcedureDataSource();
  ProcedureDataSource(const ProcedureDataSource&) = delete;
  ProcedureDataSource& operator=(const ProcedureDataSource&) = delete;
  ~ProcedureDataSource();

  VEXA_DataSource* GetDataSource();
  int GetWeightVarIndex() const;  // -1 when cases are not weighted

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
