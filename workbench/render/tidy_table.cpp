#include "workbench/render/tidy_table.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "workbench/render/markdown_csv.h"
#include "workbench/render/tidy_measure.h"

namespace workbench {

namespace {

using Row = std::map<std::string_view, std::string>;

struct File {
  std::string_view name;
  std::vector<std::string_view> columns;
};

const std::array<File, 6>& files() {
  static const std::array<File, 6> list{
      {{"coefficients", {"equation", "term", "estimate", "std.error", "statistic", "p.value", "conf.low", "conf.high"}},
       {"forecasts",
        {"response", "period", "estimate", "std.error", "conf.level", "conf.low", "conf.high", "unconditional"}},
       {"responses",
        {"response", "shock", "type", "horizon", "estimate", "std.error", "conf.level", "conf.low", "conf.high"}},
       {"shares",
        {"response", "shock", "type", "horizon", "estimate", "conf.level", "conf.low", "conf.high", "std.error"}},
       {"tests", {"test", "form", "response", "term", "statistic", "df", "df2", "p.value"}},
       {"values", {"table", "variable", "row", "group", "column", "value"}}}};
  return list;
}

const File& fileOf(std::string_view name) {
  return *std::ranges::find(files(), name, &File::name);
}

std::string numberText(const Cell& cell) {
  return cell.missing ? "" : fullPrecision(cell.value);
}

// What stands after the colon of a lasting name.
std::string subjectOf(const std::string& id) {
  const std::size_t colon = id.find(':');
  return colon == std::string::npos ? "" : id.substr(colon + 1);
}

// The rows that one row of a table gives, a level each where there are limits at several.
class Observation {
 public:
  Observation(Row row, std::string level) : row_(std::move(row)), level_(std::move(level)) {}

  void put(const TidyMeasure& measure, const Cell& cell) {
    empty_ = empty_ && cell.missing;
    const bool limit = measure.column == "conf.low" || measure.column == "conf.high";
    if (!limit) {
      row_[measure.column] = numberText(cell);
      return;
    }
    const std::string& level = measure.level.empty() ? level_ : measure.level;
    const auto same = [&](const Row& one) { return one.at("conf.level") == level; };
    auto found = std::ranges::find_if(limits_, same);
    if (found == limits_.end()) found = limits_.insert(limits_.end(), Row{{"conf.level", level}});
    (*found)[measure.column] = numberText(cell);
  }

  // None where every measure is missing.
  void moveTo(std::vector<Row>& rows) const {
    if (empty_) return;
    for (Row one : limits_.empty() ? std::vector<Row>(1) : limits_) {
      one.insert(row_.begin(), row_.end());
      rows.push_back(std::move(one));
    }
  }

 private:
  Row row_;
  std::string level_;
  std::vector<Row> limits_;
  bool empty_ = true;
};

// One table, read by a shape.
class TableReader {
 public:
  TableReader(const PivotTable& table, const TidyShape& shape, const Language& language)
      : table_(table), shape_(shape) {
    const bool plain = shape.groups.empty();
    std::size_t leaf = 0;
    for (const ColumnCategory& column : table.columns) {
      const bool own = plain || leaf < shape.shared;
      if (own || !column.children.empty()) {
        for (const std::string& label : column.children.empty() ? std::vector{column.label} : column.children)
          measures_.push_back(tidyMeasure(label, language));
      } else {
        measures_.push_back(TidyMeasure{"estimate", ""});
      }
      groups_.resize(measures_.size(), own ? "" : column.label);
      leaf = measures_.size();
    }
  }

  // Whether the file has a place for everything that the table holds.
  bool fits() const {
    const auto& columns = fileOf(shape_.file).columns;
    return std::ranges::all_of(
        measures_, [&](const auto& measure) { return measure && std::ranges::count(columns, measure->column) > 0; });
  }

  void read(const Row& common, const std::string& level, std::vector<Row>& rows) const {
    for (std::size_t r = 0; r < table_.rows.size(); ++r) {
      Row start = common;
      start[shape_.rows] = table_.rows[r];
      for (std::size_t leaf = 0; leaf < shape_.shared; ++leaf)
        start[measures_[leaf]->column] = numberText(table_.cells[r][leaf]);
      for (std::size_t leaf = shape_.shared; leaf < groups_.size();) leaf = readGroup(r, leaf, start, level, rows);
    }
  }

 private:
  // The leaf after the group.
  std::size_t readGroup(std::size_t r, std::size_t leaf, Row row, const std::string& level,
                        std::vector<Row>& rows) const {
    const std::size_t end = endOfGroup(leaf);
    if (!shape_.groups.empty()) row[shape_.groups] = groups_[leaf];
    Observation one(std::move(row), level);
    for (; leaf < end; ++leaf) one.put(*measures_[leaf], table_.cells[r][leaf]);
    one.moveTo(rows);
    return end;
  }

  std::size_t endOfGroup(std::size_t leaf) const {
    if (shape_.groups.empty()) return groups_.size();
    std::size_t end = leaf + 1;
    while (end < groups_.size() && groups_[end] == groups_[leaf]) ++end;
    return end;
  }

  const PivotTable& table_;
  const TidyShape& shape_;
  std::vector<std::optional<TidyMeasure>> measures_;  // one a leaf
  std::vector<std::string> groups_;
};

void addValues(const PivotTable& table, const Row& common, std::vector<Row>& rows) {
  std::vector<std::string> groups;
  for (const ColumnCategory& column : table.columns)
    groups.resize(groups.size() + column.leafCount(), column.children.empty() ? "" : column.label);
  const std::vector<std::string> labels = table.leafLabels();
  for (std::size_t r = 0; r < table.rows.size(); ++r) {
    for (std::size_t leaf = 0; leaf < labels.size(); ++leaf) {
      Row row = common;
      row.insert({{"row", table.rows[r]},
                  {"group", groups[leaf]},
                  {"column", labels[leaf]},
                  {"value", numberText(table.cells[r][leaf])}});
      rows.push_back(std::move(row));
    }
  }
}

std::string csvLine(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += csvField(field) + ",";
  line.back() = '\r';
  return line + "\n";
}

std::string csvLine(const std::vector<std::string_view>& columns, const Row& row) {
  std::vector<std::string> fields;
  for (const std::string_view column : columns) {
    const auto found = row.find(column);
    fields.push_back(found == row.end() ? "" : found->second);
  }
  return csvLine(fields);
}

}  // namespace

void TidyFiles::add(const std::string& id, const PivotTable& table, const TidyShapes& shapes,
                    const std::string& procedure, int command) {
  const std::string subject = subjectOf(id);
  const std::string kind = id.substr(0, id.find(':'));
  Row common{{"procedure", procedure}, {"command", std::to_string(command)}};
  for (const TidyShape& shape : shapes.shapes) {
    const TableReader reader(table, shape, language_);
    if (shape.id != kind || shape.subject.empty() != subject.empty() || !reader.fits()) continue;
    if (!subject.empty()) common[shape.subject] = subject;
    if (!shape.mark.empty()) common[shape.mark] = shape.marked;
    reader.read(common, fullPrecision(shapes.level), rows_[shape.file]);
    return;
  }
  common.insert({{"table", kind}, {"variable", subject}});
  addValues(table, common, rows_["values"]);
}

std::map<std::string, std::string> TidyFiles::texts() const {
  std::map<std::string, std::string> texts;
  for (const auto& [name, rows] : rows_) {
    std::vector<std::string_view> columns = fileOf(name).columns;
    columns.insert(columns.end(), {"procedure", "command"});
    std::string& text = texts[std::string(name)];
    text = csvLine(std::vector<std::string>(columns.begin(), columns.end()));
    for (const Row& row : rows) text += csvLine(columns, row);
  }
  return texts;
}

}  // namespace workbench
