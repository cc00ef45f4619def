// Writing a new data file. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/data_source.h"
#include "host/edge.h"

// Which file to write; not initialised until Init succeeds.
class HOST_API UserCaseFileSpec {
 public:
  UserCaseFileSpec();
  UserCaseFileSpec(const UserCaseFileSpec&) = delete;
  UserCaseFileSpec& operator=(const UserCaseFileSpec&) = delete;
  ~UserCaseFileSpec();

  bool Init(const std::string& path, bool isLiteral, bool forWriting);
  bool IsInit() const;

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// One case under construction over a caller's buffer, which must outlive it.
class VEXA_Case;

// A dataset that is written, not read.
class HOST_API IndependentDataStore : public VEXA_DataSource {
 public:
  IndependentDataStore();
  ~IndependentDataStore() override;

  bool AddCase(const VEXA_Case& newCase);
};

class HOST_API VEXA_Case {
 public:
  // The buffer receives one value a column of the data source; it is resized to fit.
  VEXA_Case(VEXA_DataSource& dataSource, std::vector<double>& buffer);
  VEXA_Case(const VEXA_Case&) = delete;
  VEXA_Case& operator=(const VEXA_Case&) = delete;
  ~VEXA_Case();

  void InitCase();  // every value system-missing
  bool SetColumnValue(int column, double value);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// The file appears under its name only when Close succeeds; destroyed before that, it leaves nothing behind.
class HOST_API UserOutputCaseFile {
 public:
  explicit UserOutputCaseFile(const UserCaseFileSpec& specification);
  UserOutputCaseFile(const UserOutputCaseFile&) = delete;
  UserOutputCaseFile& operator=(const UserOutputCaseFile&) = delete;
  ~UserOutputCaseFile();

  IndependentDataStore& DataSource();
  bool Close();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
