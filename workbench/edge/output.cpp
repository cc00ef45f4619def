#include "host/output.h"

#include "workbench/document/document_values.h"
#include "workbench/edge/session.h"

using workbench::jsonText;
using workbench::StageClock;

struct StatJSONGenerator::State {
  rapidjson::Document document{rapidjson::kObjectType};
};

StatJSONGenerator::StatJSONGenerator(const std::string& procedure, const std::string& subtitle) : state_(new State) {
  workbench::currentSession().clock.set(StageClock::outputStart);
  rapidjson::Document& document = state_->document;
  auto& pool = document.GetAllocator();
  document.AddMember("procedure", jsonText(procedure, pool), pool);
  document.AddMember("subtitle", jsonText(subtitle, pool), pool);
  document.AddMember("items", workbench::Json(rapidjson::kArrayType), pool);
}

StatJSONGenerator::~StatJSONGenerator() = default;

rapidjson::Document& StatJSONGenerator::getProcedureStatJSON() {
  return state_->document;
}

struct StatJSONConverter::State {};

StatJSONConverter::StatJSONConverter(BpProcedure& /*procedure*/) {}
StatJSONConverter::~StatJSONConverter() = default;

// The document becomes the session's together with its memory pool; the caller's is null afterwards.
bool StatJSONConverter::generateOutput(rapidjson::Document& document) {
  workbench::Session& session = workbench::currentSession();
  session.document.Swap(document);
  document.SetNull();
  session.clock.set(StageClock::outputEnd);
  return true;
}

struct OPSCommonOutput::State {};

OPSCommonOutput::OPSCommonOutput(ACAVarValidSpecs* /*variables*/, ProcedureDataSource& /*dataSource*/,
                                 BpProcedure* /*procedure*/, const ACAInputAdapter* /*adapter*/) {}
OPSCommonOutput::~OPSCommonOutput() = default;
