// The output document and its way to the user. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>

#include "host/case_input.h"
#include "host/data_source.h"
#include "host/edge.h"
#include "host/json_document.h"
#include "host/procedure.h"

// Owns the document of one procedure run; tables and charts are appended to it as they are built.
class HOST_API StatJSONGenerator {
 public:
  StatJSONGenerator(const std::string& procedure, const std::string& subtitle);
  StatJSONGenerator(const StatJSONGenerator&) = delete;
  StatJSONGenerator& operator=(const StatJSONGenerator&) = delete;
  virtual ~StatJSONGenerator();

  rapidjson::Document& getProcedureStatJSON();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// Shows a finished document to the user.
class HOST_API StatJSONConverter {
 public:
  explicit StatJSONConverter(BpProcedure& procedure);
  StatJSONConverter(const StatJSONConverter&) = delete;
  StatJSONConverter& operator=(const StatJSONConverter&) = delete;
  ~StatJSONConverter();

  bool generateOutput(rapidjson::Document& document);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};

// Must live while a procedure produces output.
class HOST_API OPSCommonOutput {
 public:
  OPSCommonOutput(ACAVarValidSpecs* variables, ProcedureDataSource& dataSource, BpProcedure* procedure,
                  const ACAInputAdapter* adapter);
  OPSCommonOutput(const OPSCommonOutput&) = delete;
  OPSCommonOutput& operator=(const OPSCommonOutput&) = delete;
  ~OPSCommonOutput();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
