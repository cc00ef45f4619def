// One chart item of an output document, read.

#pragma once

#include "host/json_document.h"
#include "workbench/report/chart_data.h"
#include "workbench/report/vizl.h"

namespace workbench {

struct Chart {
  ChartSpec spec;  // titled by the item's name when its lines give no title
  ChartData data;
};

// Throws std::runtime_error where a property of the item has the wrong JSON type.
Chart readChart(const rapidjson::Value& item);

}  // namespace workbench
