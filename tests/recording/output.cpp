// The output: the document holds the names of its items.

#include "host/output.h"

#include "host/localization.h"
#include "host/table_builder.h"
#include "host/vizl_graph.h"
#include "tests/recording/operation.h"

using recording::counted;
using recording::current;
using recording::noted;

// ---- localization.h: display texts are the keys

struct PathFactory::State {};
PathFactory::PathFactory(std::unique_ptr<State> state) : state_(std::move(state)) {}
PathFactory::~PathFactory() = default;
PathFactory* PathFactory::getPathInstance(int kind) {
  noted("getPathInstance", kind);
  static PathFactory finder(nullptr);
  return &finder;
}
ANSWERS(std::string, PathFactory, getPath() const, "texts")
OBJECT(FacSTDictionary)
FacSTDictionary::FacSTDictionary(const std::string& path) : state_(new State("FacSTDictionary", path)) {}
NOTES(void, FacSTDictionary, SetProcedure(const std::string& procedure), void(), "SetProcedure", procedure)
ANSWERS(std::string, FacSTDictionary, LookUp(const std::string& key) const, key)

// ---- output.h, table_builder.h, vizl_graph.h: the document holds the names of its items

struct StatJSONGenerator::State : recording::Object {
  State(const std::string& procedure, const std::string& subtitle) : Object("StatJSONGenerator", procedure, subtitle) {
    document.SetArray();
  }
  rapidjson::Document document;
};
StatJSONGenerator::StatJSONGenerator(const std::string& procedure, const std::string& subtitle)
    : state_(new State(procedure, subtitle)) {}
StatJSONGenerator::~StatJSONGenerator() = default;
ANSWERS(rapidjson::Document&, StatJSONGenerator, getProcedureStatJSON(), state_->document)

OBJECT(StatJSONConverter)
StatJSONConverter::StatJSONConverter(BpProcedure&) : state_(new State("StatJSONConverter")) {}
NOTES(bool, StatJSONConverter, generateOutput(rapidjson::Document& document), false, "generateOutput", document.Size())

OBJECT(OPSCommonOutput)
OPSCommonOutput::OPSCommonOutput(ACAVarValidSpecs*, ProcedureDataSource&, BpProcedure*, const ACAInputAdapter* adapter)
    : state_(new State("OPSCommonOutput", adapter != nullptr)) {}

namespace {
// One item of the document under construction.
struct Item {
  Item(StatJSONGenerator& generator, std::string givenName)
      : document(generator.getProcedureStatJSON()), name(std::move(givenName)) {}
  void add(const char* operation) {
    noted(operation, name);
    const recording::Spared spared;
    document.PushBack(rapidjson::Value(name, document.GetAllocator()), document.GetAllocator());
  }
  rapidjson::Document& document;
  std::string name;
};
}  // namespace

namespace tablestatjson {
struct TableBuilder::State : Item {
  using Item::Item;
};
TableBuilder::TableBuilder(StatJSONGenerator& generator, const std::string& name) : state_(new State(generator, name)) {
  counted("TableBuilder");
}
TableBuilder::~TableBuilder() = default;
COUNTS(TableBuilder, setTitle(const std::string&))
COUNTS(TableBuilder, hideTitle(bool))
COUNTS(TableBuilder, setMinColumnWidth(int))
COUNTS(TableBuilder, setMaxColumnWidth(int))
COUNTS(TableBuilder, setDefaultCellFormat(int, int, int))
COUNTS(TableBuilder, setColumnFormat(int, int, int, int))
COUNTS(TableBuilder, setRowDimensionLabel(const std::string&, bool))
COUNTS(TableBuilder, setColumnDimensionLabel(const std::string&, bool))
COUNTS(TableBuilder, addTitleFootnoteRef(int))
COUNTS(TableBuilder, addFootnote(const std::string&))
COUNTS(TableBuilder, addColumnCategories(const std::vector<std::string>&))
COUNTS(TableBuilder, addColumnSubcategories(int, const std::vector<std::string>&))
COUNTS(TableBuilder, addRowCategories(const std::vector<std::string>&))
COUNTS(TableBuilder, fillColumn(int, const std::vector<double>&))
COUNTS(TableBuilder, fillRow(int, const std::vector<double>&))
void TableBuilder::build() {
  state_->add("build");
}
}  // namespace tablestatjson

struct StatVizlGraph::State : Item {
  using Item::Item;
  std::string procedure = "P";
};
StatVizlGraph::StatVizlGraph(StatJSONGenerator& generator, const std::string& name)
    : state_(new State(generator, name)) {
  counted("StatVizlGraph");
}
StatVizlGraph::~StatVizlGraph() = default;
void StatVizlGraph::writeSpecification(rapidjson::Value&, rapidjson::Document::AllocatorType&) {}
ANSWERS(const std::string&, StatVizlGraph, getName() const, state_->name)
ANSWERS(const std::string&, StatVizlGraph, getProcedureName() const, state_->procedure)
COUNTS(StatVizlGraph, addStringDataVariable(const std::string&, const std::vector<std::string>&))
COUNTS(StatVizlGraph, addDoubleDataVariable(const std::string&, const std::vector<double>&))
COUNTS(StatVizlGraph, setDataVector(const std::vector<double>&, bool))
void StatVizlGraph::addVizlGraphToProcedureJSON() {
  state_->add("addVizlGraphToProcedureJSON");
  rapidjson::Value chart(rapidjson::kObjectType);
  writeSpecification(chart, state_->document.GetAllocator());
}
