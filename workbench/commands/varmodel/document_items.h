// Which keyword of a VARMODEL command asks for which item of its document.

#pragma once

#include <string>
#include <string_view>

#include "workbench/base/json.h"
#include "workbench/base/notice.h"
#include "workbench/edge/session.h"

namespace workbench::varmodel {

inline constexpr std::string_view modelFit = "MODELSTATISTICS MODELFIT";
inline constexpr std::string_view seriesPlot = "SERIESPLOT PLOT";

// Was the keyword given in this list (modelFit, "EIGEN")?
bool requested(const CallRecord& record, std::string_view list, std::string_view keyword);

// The items of the run's document; null when there is none.
const rapidjson::Value* itemsOf(const CallRecord& record);

// Whether the item is of this type and its name, in English, begins so.
bool isItem(const rapidjson::Value& item, std::string_view type, std::string_view name);
// The first such item of the run's document; null when there is none.
const rapidjson::Value* findItem(const CallRecord& record, std::string_view type, std::string_view name);

// A lasting English name for the item, such as "parameters:realgdp"; empty for an item that is not known.
std::string itemId(const rapidjson::Value& item);

// One note for each keyword that was requested and has no item in the document.
std::vector<Notice> keywordNotes(const CallRecord& record);

}  // namespace workbench::varmodel
