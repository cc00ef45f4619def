// One run of a procedure: what the host classes read and what they leave behind.
//
// Host classes are constructed by the procedure without a handle to the session, so the session of the running call is
// installed as the current one for the length of the call (SessionScope).

#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "workbench/base/json.h"
#include "workbench/base/language.h"
#include "workbench/base/notice.h"
#include "workbench/base/taken_file.h"
#include "workbench/base/text_excerpt.h"
#include "workbench/dataset/dataset.h"
#include "workbench/dataset/transformation.h"
#include "workbench/dates/trends_settings.h"

namespace workbench {

struct Message {
  enum class Kind { error, warning };
  Message(Kind which, Notice what) : kind(which), text(what.text()), notice(std::move(what)) {}

  Kind kind;
  std::string text;  // in English; may have several lines (a syntax error shows the line and a caret)
  Notice notice;     // without an id where the procedure speaks
};

// One pass over the cases that the procedure made: which columns, and whether user-missing values were excluded.
struct CasePass {
  std::vector<int> columns;
  bool excludeUserMissing = true;
};

// Wall-clock marks of the procedure's stages, seen from the host's side of the edge.
class StageClock {
 public:
  using Clock = std::chrono::steady_clock;
  enum Mark { callStart, parseEnd, validateEnd, outputStart, outputEnd, callEnd, markCount };
  void set(Mark mark) { marks_[mark] = Clock::now(); }
  // Seconds between two marks; 0 when either was never reached.
  double between(Mark from, Mark to) const;

 private:
  std::array<Clock::time_point, markCount> marks_{};
};

// What to do when a saved file is refused, in the words of the running command.
struct SaveRemedies {
  Notice nothing = phrase("Ask for something to save.");  // a sentence: no column was asked for
  Notice equalNames = phrase("rename one of them");       // two columns would have the same name
};

// What a call of a procedure is given.
struct CallInput {
  std::string commandText;
  bool parseOnly = false;   // the parser refuses the command after reading it, so that the procedure goes no further
  double savedScale = 1.0;  // saved values are divided by it
  std::vector<std::size_t> keptCases;  // of saved cases, aligned at the end, which are then numbered and dated; or none
  bool composed = false;               // from the options of `fit`, so that remedies name options
  Dataset dataset;
  std::size_t casesBefore = 0;            // that the job's range left out
  std::vector<OriginalSeries> originals;  // of transformed variables, the cases before the range included
  TrendsSettings trends;
  int weightColumn = -1;
  std::vector<std::string> splitVariables;
  Language language;
  std::filesystem::path dictionaryFolder;
  std::filesystem::path baseFolder;   // relative SAVE paths start here
  std::vector<TakenFile> takenFiles;  // that a saved file must not overwrite
  int threads = 1;                    // that a procedure may compute on
  // Told the share of a piece of work that is done, by any thread; false stops the run. May be empty.
  std::function<bool(double)> progress;
  SaveRemedies saveRemedies;
};

// What the parser and the procedure leave.
struct CallRecord {
  bool parsed = false;  // the command is valid
  // As parsed: "MODELSTATISTICS MODELFIT" leads to its keywords, "MODEL ENDOGENOUS" to its variables, "SAVE FILE" to
  // the file; "MODEL MAXLAG" to its number.
  std::map<std::string, std::vector<std::string>> requestedLists;
  std::map<std::string, double> requestedNumbers;
  std::vector<std::string> namedFiles;  // as the command writes them
  std::map<std::string, Span> places;   // in the command's text: of "MODEL" its name, of "MODEL MAXLAG" its value
  std::vector<Message> messages;
  std::vector<CasePass> passes;
  std::vector<std::filesystem::path> savedFiles;
  Notice saveError;              // why a saved file could not be written
  int begunItems = 0;            // tables and charts that the procedure began to make
  rapidjson::Document document;  // what the converter received; null when it received nothing
  StageClock clock;
};

struct Session : CallInput, CallRecord {};

// The session of the running call; there must be one.
Session& currentSession();

// The same, or null where no call need be running.
const Session* runningSession();

// Makes a session current for its life time.
class SessionScope {
 public:
  explicit SessionScope(Session& session);
  SessionScope(const SessionScope&) = delete;
  SessionScope& operator=(const SessionScope&) = delete;
  ~SessionScope();

 private:
  Session* previous_;
};

}  // namespace workbench
