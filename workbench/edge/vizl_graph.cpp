#include "host/vizl_graph.h"

#include <utility>

#include "workbench/document/chart_writer.h"
#include "workbench/document/document_writer.h"
#include "workbench/edge/session.h"

struct StatVizlGraph::State {
  StatJSONGenerator& generator;
  workbench::ChartWriter writer;
  std::string procedureName;

  State(StatJSONGenerator& output, std::string name)
      : generator(output),
        writer(output.getProcedureStatJSON().GetAllocator(), std::move(name)),
        procedureName(output.getProcedureStatJSON()["procedure"].GetString()) {}
};

StatVizlGraph::StatVizlGraph(StatJSONGenerator& generator, const std::string& name) {
  ++workbench::currentSession().begunItems;
  state_.reset(new State(generator, name));
}
StatVizlGraph::~StatVizlGraph() = default;

void StatVizlGraph::writeSpecification(rapidjson::Value& /*chart*/, rapidjson::Document::AllocatorType& /*allocator*/) {
}

const std::string& StatVizlGraph::getName() const {
  return state_->writer.name();
}

const std::string& StatVizlGraph::getProcedureName() const {
  return state_->procedureName;
}

void StatVizlGraph::addStringDataVariable(const std::string& name, const std::vector<std::string>& values) {
  state_->writer.addColumn(name, values);
}

void StatVizlGraph::addDoubleDataVariable(const std::string& name, const std::vector<double>& values) {
  state_->writer.addColumn(name, values);
}

void StatVizlGraph::setDataVector(const std::vector<double>& values, bool /*flag*/) {
  addDoubleDataVariable("ydata", values);
}

void StatVizlGraph::addVizlGraphToProcedureJSON() {
  rapidjson::Document& document = state_->generator.getProcedureStatJSON();
  workbench::Json chart = state_->writer.finish();
  writeSpecification(chart, document.GetAllocator());
  workbench::appendItem(document, std::move(chart));
}
