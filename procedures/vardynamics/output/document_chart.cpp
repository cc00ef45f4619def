#include "procedures/vardynamics/output/document_chart.h"

#include "host/vizl_graph.h"
#include "procedures/common/chart_specification.h"

namespace vardynamics {
namespace {

std::string columnStatement(const std::string& name, const char* kind) {
  return "DATA: " + name + " = col(source(s), name(\"" + name + "\")" + kind + ")";
}

std::vector<std::string> specification(const DocumentChart& chart, const std::string& source) {
  std::vector<std::string> lines{"SOURCE: s = userSource(id(\"" + source + "\"))"};
  for (const auto& column : chart.texts) lines.push_back(columnStatement(column.first, ", unit.category()"));
  for (const auto& column : chart.numbers) lines.push_back(columnStatement(column.first, ""));
  lines.emplace_back("GRAPH: begin()");
  lines.push_back("GUIDE: text.title(label(\"" + chart.title + "\"))");
  lines.insert(lines.end(), chart.statements.begin(), chart.statements.end());
  lines.emplace_back("GRAPH: end()");
  return lines;
}

class Graph final : public StatVizlGraph {
 public:
  Graph(StatJSONGenerator& generator, const DocumentChart& chart) : StatVizlGraph(generator, chart.id), chart_(chart) {}

  void writeSpecification(rapidjson::Value& object, rapidjson::Document::AllocatorType& allocator) override {
    procedures::addSpecification(object, allocator, specification(chart_, getProcedureName()));
  }

 private:
  const DocumentChart& chart_;
};

}  // namespace

std::string axisGuide(int dimension, const std::string& label) {
  return "GUIDE: axis(dim(" + std::to_string(dimension) + "),label(\"" + label + "\"))";
}

void writeChart(StatJSONGenerator& generator, const DocumentChart& chart) {
  Graph graph(generator, chart);
  for (const auto& [name, values] : chart.texts) graph.addStringDataVariable(name, values);
  for (const auto& [name, values] : chart.numbers) graph.addDoubleDataVariable(name, values);
  graph.addVizlGraphToProcedureJSON();
}

std::string bandElement(const std::string& place, const std::string& low, const std::string& high,
                        const std::string& label) {
  return "ELEMENT: band(position(" + place + "*" + low + "*" + high + "), color.interior(color.blue), label(\"" +
         label + "\"))";
}

}  // namespace vardynamics
