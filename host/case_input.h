// Reading the cases of chosen variables as numeric records. Conventions: edge.h.

#pragma once

#include <memory>

#include "host/data_source.h"
#include "host/edge.h"

namespace MCCommon_940 {
// The values of one case, in the order in which the variables were registered.
class HOST_API Record {
 public:
  virtual ~Record();
  virtual int Size() const = 0;
  virtual const double* GetAll() const = 0;
};
}  // namespace MCCommon_940

// The variables to read. An excluded user-missing value is delivered as the system-missing value.
class HOST_API ACAVarValidSpecs {
 public:
  ACAVarValidSpecs(bool flag1, bool flag2, bool flag3);
  ACAVarValidSpecs(const ACAVarValidSpecs&) = delete;
  ACAVarValidSpecs& operator=(const ACAVarValidSpecs&) = delete;
  virtual ~ACAVarValidSpecs();

  virtual bool AddVariable(int column, bool flag1, bool flag2, bool excludeUserMissing, bool flag4);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// Turns the active dataset's cases into records. Every case is delivered, whatever is missing in it.
class HOST_API ACAInputAdapter {
 public:
  ACAInputAdapter(ACAVarValidSpecs* variables, ProcedureDataSource& dataSource);
  ACAInputAdapter(const ACAInputAdapter&) = delete;
  ACAInputAdapter& operator=(const ACAInputAdapter&) = delete;
  virtual ~ACAInputAdapter();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// A pass over the records; a record lives until the next call of Next.
class HOST_API ACAProcDataSourceIter {
 public:
  ACAProcDataSourceIter(ACAInputAdapter& adapter, bool flag);
  ACAProcDataSourceIter(const ACAProcDataSourceIter&) = delete;
  ACAProcDataSourceIter& operator=(const ACAProcDataSourceIter&) = delete;

  // In this order: a compiled procedure calls them through their slots.
  virtual ~ACAProcDataSourceIter();
  virtual bool HasMore();
  virtual const MCCommon_940::Record* Next();
  virtual int GetFailReason();
  virtual bool NewPass();
  virtual bool PreprocessCase();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
