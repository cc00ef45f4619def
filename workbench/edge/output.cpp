#include "host/output.h"

#include "workbench/document/document_writer.h"
#include "workbench/edge/session.h"

using workbench::StageClock;

struct StatJSONGenerator::State {
  rapidjson::Document document;
};

StatJSONGenerator::StatJSONGenerator(const std::string& procedure, const std::string& subtitle)
    : state_(new State{workbench::newDocument(procedure, subtitle)}) {
  workbench::currentSession().clock.set(StageClock::outputStart);
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
