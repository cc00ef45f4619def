// What the workbench knows of a command beside what its procedure says of it: one class a command, in a folder of its
// own, and one line in registry.cpp. Only name and library must be given; the rest makes runs friendlier.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/commands/common/outcome.h"
#include "workbench/edge/session.h"
#include "workbench/edge/stream_capture.h"
#include "workbench/render/pivot_table.h"
#include "workbench/render/tidy_table.h"

namespace workbench {

class CommandRunner;
class Composer;
struct FinishedRun;

// What to do about a message of the procedure.
struct Advice {
  Notice hint;           // below the message; empty when there is nothing to add
  bool unasked = false;  // the message concerns nothing that was asked for
};

class Command {
 public:
  virtual ~Command() = default;

  virtual std::string name() const = 0;     // the first word of the command
  virtual std::string library() const = 0;  // file name in the program's lib/, or an absolute path
  virtual std::string entry() const { return name(); }

  // The parameters ("SUBCOMMAND PARAMETER") whose variables a case must hold to be used.
  virtual std::vector<std::string> caseLists() const { return {}; }
  // Those among them whose variables a job's scale multiplies; saved values are divided by it again.
  virtual std::vector<std::string> scaledLists() const { return {}; }
  // Whether the parsed command takes user-missing values as valid.
  virtual bool includesUserMissing(const CallRecord& /*parsed*/) const { return false; }
  // Whether the procedure reads cases after the last complete one. If not, they are hidden from it.
  virtual bool readsFutureCases() const { return false; }

  // What to do when a file that it saves is refused.
  virtual SaveRemedies saveRemedies() const { return {}; }

  // Asks the procedure for its text summary, by whatever means it has, or for none.
  virtual void requestSummary(bool /*wanted*/) const {}
  // How the call ended. Without an override: "NAME_entry: StepN" with the name in lower case tells the step that
  // failed; a run without such a line and without an error message succeeded.
  virtual Outcome outcome(const CallRecord& record, const CapturedStreams& streams) const;

  // The rest is asked after the call. Texts are finished sentences.
  virtual std::string summary(const FinishedRun& /*run*/) const { return {}; }
  // What of the summary was not computed, and how to have it; empty when all was.
  virtual Notice summaryNote(const FinishedRun& /*run*/) const { return {}; }
  // Notes under the output in reading order; the account of the rows is not among them.
  virtual std::vector<Notice> notes(const FinishedRun& /*run*/) const { return {}; }
  // Notes below single tables and charts, and items that are not shown.
  virtual DocumentView view(const FinishedRun& /*run*/) const { return {}; }
  // A lasting English name for an item of the document, whatever the language. Without an override: type and place.
  virtual std::string itemId(const rapidjson::Value& item, std::size_t place) const;
  // How its tables read in long form; what has no shape is written cell by cell.
  virtual TidyShapes tidyShapes(const FinishedRun& /*run*/) const { return {}; }
  // What a job's scale changed in the output, and what not.
  virtual Notice scaleNote(const FinishedRun& /*run*/) const { return {}; }
  // About an error or warning of the procedure. The runner may be used for further calls on the same data.
  virtual Advice advice(const std::string& /*message*/, const FinishedRun& /*run*/, CommandRunner& /*runner*/) const {
    return {};
  }
  // The lasting id of an error or warning of the procedure, whatever its arguments.
  virtual std::string messageId(const std::string& message) const;
  // The likely cause of a stop without any message, as far as the trace tells; empty when it does not.
  virtual Notice silentCause(const FinishedRun& /*run*/) const { return {}; }

  // The subcommand of the program that composes this command from options; null when there is none.
  virtual std::unique_ptr<Composer> composer() const;
};

// A call of a procedure that has ended, and what it left.
struct FinishedRun {
  const Command& command;
  const CallInput& input;
  std::string text;       // of the command
  double scale = 1.0;     // the factor of the variables of its scaledLists()
  bool complete = false;  // incomplete cases were hidden from the procedure
  bool predicts = true;   // the procedure saw the session's PREDICT target
  bool followed = false;  // a further command shows everything for what this one chose
  CallRecord record;
  CapturedStreams streams;
  Outcome outcome;
};

// A lasting name for each item of the document, in its order.
std::vector<std::string> itemIds(const FinishedRun& run);

}  // namespace workbench
