#include "workbench/document/chart_writer.h"

#include <stdexcept>
#include <utility>

namespace workbench {

void ChartWriter::fail(const std::string& text) const {
  throw std::logic_error("Chart '" + name_ + "': " + text);
}

void ChartWriter::addColumn(const std::string& column, std::size_t size, Json values) {
  if (columns_.HasMember(column)) fail("there is a column '" + column + "' already.");
  if (size != length_.value_or(size)) {
    fail("column '" + column + "' has " + std::to_string(size) + " values, the others have " +
         std::to_string(*length_) + ".");
  }
  length_ = size;
  columns_.AddMember(jsonText(column, pool_), values, pool_);
}

void ChartWriter::addColumn(const std::string& column, const std::vector<std::string>& texts) {
  addColumn(column, texts.size(), jsonTexts(texts, pool_));
}

void ChartWriter::addColumn(const std::string& column, const std::vector<double>& numbers) {
  Json values(rapidjson::kArrayType);
  values.Reserve(static_cast<rapidjson::SizeType>(numbers.size()), pool_);
  for (const double number : numbers) values.PushBack(jsonNumber(number), pool_);
  addColumn(column, numbers.size(), std::move(values));
}

Json ChartWriter::finish() {
  if (std::exchange(finished_, true)) fail("it is in the document already.");
  Json chart(rapidjson::kObjectType);
  chart.AddMember("type", "chart", pool_).AddMember("name", jsonText(name_, pool_), pool_);
  chart.AddMember("columns", columns_, pool_);
  return chart;
}

}  // namespace workbench
