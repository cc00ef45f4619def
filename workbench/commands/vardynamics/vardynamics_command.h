// What the workbench knows of VARDYNAMICS.

#pragma once

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"
#include "workbench/edge/shared_library.h"

namespace workbench {

class VardynamicsCommand final : public Command {
 public:
  std::string name() const override { return "VARDYNAMICS"; }
  std::string library() const override { return libraryFile("vardynamics_procedure"); }
  bool includesUserMissing(const CallRecord& parsed) const override;
  bool readsFutureCases() const override { return true; }
  SaveRemedies saveRemedies() const override {
    return {.nothing = phrase("Add FORECASTS, RESIDUALS, SHOCKS or BACKTEST."),
            .equalNames = phrase("rename one of the variables")};
  }
  // A run that says nothing of its success has failed, whatever else it says.
  Outcome outcome(const CallRecord& record, const CapturedStreams& streams) const override;
  std::string messageId(const std::string& message) const override;
  std::string itemId(const rapidjson::Value& item, std::size_t place) const override;
  // The notes of the summary open the output, with the charts of the forecast.
  DocumentView view(const FinishedRun& run) const override;
  // How to analyse the longest part of a sample with a gap.
  Advice advice(const std::string& message, const FinishedRun& run, CommandRunner& runner) const override;
  TidyShapes tidyShapes(const FinishedRun& run) const override;
  std::unique_ptr<Composer> composer() const override;
};

}  // namespace workbench
