// The chart items of a document as parts of the report's page.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/json.h"
#include "workbench/charts/chart.h"
#include "workbench/render/number_format.h"
#include "workbench/report/column_store.h"

namespace workbench {

// Collects what the page's script has to know about the charts while their places in the page are written.
class ChartSections {
 public:
  // The place of a chart in the page: a heading, an empty frame that the script fills when it comes into view (for a
  // panel, a frame each), the data to be shown on request, and below whatever of its statements was not understood.
  std::string add(const rapidjson::Value& item, const Language& language);

  bool empty() const { return charts_.empty(); }

  // {"sample": points that a series is drawn with at most, "decimal": separator of decimals, "texts": {...} what the
  // script shows, "columns": [[...], ...], "charts": [...], "panels": [...]}, safe inside a <script> element. Charts
  // and panels are as in chart_model.h.
  std::string json(const Language& language) const;

 private:
  std::string addFrame(const Chart& chart, const std::string& description, const Language& language);
  std::string addPanel(const Chart& panel, const std::string& description, const Language& language);

  ColumnStore columns_;
  std::vector<std::string> charts_;  // JSON
  std::vector<std::string> panels_;
};

}  // namespace workbench
