#include "host/vizl_graph.h"

#include <optional>
#include <stdexcept>
#include <utility>

#include "workbench/edge/generator.h"

using workbench::Json;
using workbench::JsonPool;

struct StatVizlGraph::State {
  StatJSONGenerator& generator;
  JsonPool& pool;
  std::string name;
  std::string procedureName;
  Json columns{rapidjson::kObjectType};
  std::optional<std::size_t> length;  // of every column, once there is one
  bool added = false;

  State(StatJSONGenerator& output, std::string chartName)
      : generator(output),
        pool(workbench::poolOf(output)),
        name(std::move(chartName)),
        procedureName(output.getProcedureStatJSON()["procedure"].GetString()) {}

  [[noreturn]] void fail(const std::string& text) const { throw std::logic_error("Chart '" + name + "': " + text); }

  void addColumn(const std::string& column, std::size_t size, Json values) {
    if (columns.HasMember(column)) fail("there is a column '" + column + "' already.");
    if (size != length.value_or(size)) {
      fail("column '" + column + "' has " + std::to_string(size) + " values, the others have " +
           std::to_string(*length) + ".");
    }
    length = size;
    columns.AddMember(workbench::jsonText(column, pool), values, pool);
  }
};

StatVizlGraph::StatVizlGraph(StatJSONGenerator& generator, const std::string& name)
    : state_(new State(generator, name)) {}
StatVizlGraph::~StatVizlGraph() = default;

void StatVizlGraph::writeSpecification(rapidjson::Value& /*chart*/, rapidjson::Document::AllocatorType& /*allocator*/) {
}

const std::string& StatVizlGraph::getName() const {
  return state_->name;
}

const std::string& StatVizlGraph::getProcedureName() const {
  return state_->procedureName;
}

void StatVizlGraph::addStringDataVariable(const std::string& name, const std::vector<std::string>& values) {
  state_->addColumn(name, values.size(), workbench::jsonTexts(values, state_->pool));
}

void StatVizlGraph::addDoubleDataVariable(const std::string& name, const std::vector<double>& values) {
  Json numbers(rapidjson::kArrayType);
  numbers.Reserve(static_cast<rapidjson::SizeType>(values.size()), state_->pool);
  for (const double value : values) numbers.PushBack(workbench::jsonNumber(value), state_->pool);
  state_->addColumn(name, values.size(), std::move(numbers));
}

void StatVizlGraph::setDataVector(const std::vector<double>& values, bool /*flag*/) {
  addDoubleDataVariable("ydata", values);
}

void StatVizlGraph::addVizlGraphToProcedureJSON() {
  if (std::exchange(state_->added, true)) state_->fail("it is in the document already.");
  JsonPool& pool = state_->pool;
  Json chart(rapidjson::kObjectType);
  chart.AddMember("type", "chart", pool).AddMember("name", workbench::jsonText(state_->name, pool), pool);
  chart.AddMember("columns", state_->columns, pool);
  writeSpecification(chart, pool);
  workbench::appendItem(state_->generator, std::move(chart));
}
