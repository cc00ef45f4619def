// Charts of the output document. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/edge.h"
#include "host/output.h"

// A chart's data columns and the hook through which the procedure writes its specification text.
class HOST_API StatVizlGraph {
 public:
  StatVizlGraph(StatJSONGenerator& generator, const std::string& name);
  StatVizlGraph(const StatVizlGraph&) = delete;
  StatVizlGraph& operator=(const StatVizlGraph&) = delete;

  // In this order: the second slot is the one that a procedure overrides.
  virtual ~StatVizlGraph();
  virtual void writeSpecification(rapidjson::Value& chart, rapidjson::Document::AllocatorType& allocator);

  const std::string& getName() const;
  const std::string& getProcedureName() const;  // identifier of the chart's data source

  void addStringDataVariable(const std::string& name, const std::vector<std::string>& values);
  void addDoubleDataVariable(const std::string& name, const std::vector<double>& values);
  void setDataVector(const std::vector<double>& values, bool flag);  // the column "ydata"
  void addVizlGraphToProcedureJSON();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
