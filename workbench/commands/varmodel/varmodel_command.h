// What the workbench knows of VARMODEL.

#pragma once

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"
#include "workbench/edge/shared_library.h"

namespace workbench {

class VarmodelCommand final : public Command {
 public:
  std::string name() const override { return "VARMODEL"; }
  std::string library() const override { return libraryFile("varmodel_procedure"); }
  std::vector<std::string> caseLists() const override { return {"MODEL ENDOGENOUS", "MODEL EXOGENOUS"}; }
  std::vector<std::string> scaledLists() const override { return {"MODEL ENDOGENOUS"}; }
  bool includesUserMissing(const CallRecord& parsed) const override;
  SaveRemedies saveRemedies() const override {
    return {.nothing = phrase("Add PREDICTED or NRESIDUAL."),
            .equalNames = phrase("give PREDICTED and NRESIDUAL different prefixes")};
  }
  void requestSummary(bool wanted) const override;
  Outcome outcome(const CallRecord& record, const CapturedStreams& streams) const override;
  std::string summary(const FinishedRun& run) const override;
  Notice summaryNote(const FinishedRun& run) const override;
  DocumentView view(const FinishedRun& run) const override;
  std::string itemId(const rapidjson::Value& item, std::size_t place) const override;
  std::vector<Notice> notes(const FinishedRun& run) const override;
  TidyShapes tidyShapes(const FinishedRun& run) const override;
  Notice scaleNote(const FinishedRun& run) const override;
  std::string messageId(const std::string& message) const override;
  Advice advice(const std::string& message, const FinishedRun& run, CommandRunner& runner) const override;
  Notice silentCause(const FinishedRun& run) const override;
};

}  // namespace workbench
