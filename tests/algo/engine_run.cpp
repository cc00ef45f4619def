#include "tests/algo/engine_run.h"

#include <fstream>
#include <stdexcept>

namespace varmodel {
namespace {

std::vector<std::string> fieldsOf(const std::string& line) {
  std::vector<std::string> fields;
  std::istringstream source(line);
  for (std::string field; std::getline(source, field, ',');) {
    std::erase(field, '"');
    fields.push_back(field);
  }
  return fields;
}

std::map<std::string, std::vector<double>> readMacroSeries() {
  std::ifstream file(VARMODEL_SOURCE_DIR "/examples/us_macro_quarterly.csv");
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("examples/us_macro_quarterly.csv cannot be read");
  const std::vector<std::string> names = fieldsOf(line);
  std::map<std::string, std::vector<double>> series;
  while (std::getline(file, line)) {
    const std::vector<std::string> fields = fieldsOf(line);
    for (std::size_t j = 0; j < names.size(); ++j) series[names[j]].push_back(std::stod(fields.at(j)));
  }
  return series;
}

}  // namespace

const std::map<std::string, std::vector<double>>& macroSeries() {
  static const std::map<std::string, std::vector<double>> series = readMacroSeries();
  return series;
}

}  // namespace varmodel
