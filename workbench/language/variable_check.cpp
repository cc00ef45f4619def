#include "host/command_parser.h"
#include "workbench/base/text_excerpt.h"
#include "workbench/dataset/dataset.h"
#include "workbench/session/session.h"

using workbench::ColumnKind;
using workbench::Dataset;

namespace {

bool isNumeric(const Dataset& dataset, int index) {
  return index >= 0 && dataset.columns[static_cast<std::size_t>(index)].kind == ColumnKind::number;
}

void refuse(const std::string& list, const std::string& name, const Dataset& dataset, int index) {
  std::string text = list + ": the variable " + workbench::inQuotes(name);
  if (index < 0) {
    text += " is not in the data.";
  } else {
    const bool isText = dataset.columns[static_cast<std::size_t>(index)].kind == ColumnKind::text;
    text += std::string(" holds ") + (isText ? "text" : "dates") +
            " and cannot be analysed. Cast it to a number in the query, or choose a numeric variable.";
  }
  workbench::currentSession().messages.push_back({workbench::Message::Kind::error, std::move(text)});
}

}  // namespace

struct VarSpecObj::State {
  std::string list;  // "ENDOGENOUS of the subcommand MODEL", for messages
  std::vector<int> valid;
};

// The variables are those of the session's dataset, which is the one that every procedure is given.
VarSpecObj::VarSpecObj(const std::string& parameterName, const std::string& subcommandName, const CommandDescriptor&,
                       VEXA_DataSource*, bool)
    : state_(std::make_unique<State>(State{parameterName + " of the subcommand " + subcommandName, {}})) {}

VarSpecObj::~VarSpecObj() = default;

// A list with a variable that cannot be used has no valid variables: a model of the others is not what was asked for.
bool VarSpecObj::ValidateVariables(const std::vector<VexaVarName>& names, int) {
  const Dataset& dataset = workbench::currentSession().dataset;
  state_->valid.clear();
  bool usable = true;
  for (const VexaVarName& name : names) {
    const int index = dataset.find(name.name);
    usable = isNumeric(dataset, index) && usable;
    if (isNumeric(dataset, index)) {
      state_->valid.push_back(index);
    } else {
      refuse(state_->list, name.name, dataset, index);
    }
  }
  if (!usable) state_->valid.clear();
  return usable;
}

const std::vector<int>& VarSpecObj::GetValidVarList() const {
  return state_->valid;
}
