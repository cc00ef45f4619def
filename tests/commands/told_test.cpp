// What the program makes of a run that has ended: exit code, messages, hints and notes, each compared whole.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/commands/common/command_runner.h"
#include "workbench/commands/common/run_messages.h"
#include "workbench/commands/fit/fit_composer.h"
#include "workbench/commands/vardynamics/vardynamics_command.h"
#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/commands/varmodel/varmodel_command.h"
#include "workbench/language/parsed_command.h"

namespace workbench {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kSuccess = "[]\nVAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!\n";

class Told : public testing::Test {
 protected:
  Told() {
    for (const char* name : {"a", "b", "x"}) {
      Column& column = input_.dataset.columns.emplace_back();
      column.name = name;
      column.numbers.assign(30, 1.0);
    }
    input_.dataset.rowCount = 30;
    record_.passes.resize(1);
    record_.requestedLists["MODEL ENDOGENOUS"] = {"a", "b"};
    record_.requestedNumbers["MODEL MAXLAG"] = 2;
    record_.places["MODEL"] = {10, 15};
    streams_.out = kSuccess;
  }

  // The run with what was given up to here.
  FinishedRun finished() {
    FinishedRun run{.command = command_,
                    .input = input_,
                    .text = "VARMODEL /MODEL",
                    .record = {},
                    .streams = streams_,
                    .outcome = {}};
    static_cast<CallRecord&>(run.record) = std::move(record_);
    run.outcome = command_.outcome(run.record, run.streams);
    return run;
  }
  // One line a message; "(asked)" after those that -q hides.
  std::vector<std::string> messages() {
    CommandRunner runner(input_, {});
    const FinishedRun run = finished();
    std::vector<std::string> lines;
    for (const RunMessage& one : collectMessages(run, runner)) {
      lines.push_back(std::string(labelOf(one.kind)) + (one.shownQuietly ? ": " : " (not quietly): ") + one.text);
    }
    return lines;
  }
  void document(const char* json) {
    record_.document = {};
    record_.document.Parse(json);
  }
  void says(Message::Kind kind, const std::string& text) { record_.messages.push_back({kind, text}); }

  VarmodelCommand command_;
  CallInput input_;
  CallRecord record_;
  CapturedStreams streams_;
};

TEST_F(Told, ExitCodesFollowTheLastLines) {
  const struct {
    std::string out, err;
    int exitCode;
    int step;
  } cases[] = {
      {kSuccess, "", 0, 0},
      {kSuccess, "varmodel_entry: Step3 Unknown error occurred.\n", 0, 0},
      {"", "varmodel_entry: Step1 Unknown error occurred.\n", 1, 1},
      {"", "varmodel_entry: Step2 Unknown error occurred.\n", 2, 2},
      {"", "varmodel_entry: Step5 Unknown error occurred.\n", 1, 5},
      {"", "a\nvarmodel_entry: Step2 x\nvarmodel_entry: Step6 Unknown error occurred.\n", 4, 6},
      {"", "varmodel_entry: Step7 Unknown error occurred.\n", 1, 0},
      {"", "varmodel_entry: Step", 1, 0},
      {"", "VARMODEL: Unknown exception occurred.\n", 1, 0},
      {"", "varmodel_entry: Step2 x\nVARMODEL: Standard exception: host\n", 1, 0},
      {"", "x varmodel_entry: Step2\n", 1, 0},
      {kSuccess + "more\n", "", 1, 0},
      {kSuccess.substr(0, kSuccess.size() - 1), "", 1, 0},
      {"x" + kSuccess.substr(3), "", 1, 0},
      // The line as a name in the dump is no success.
      {"[\"" + kSuccess + "\"]\n", "varmodel_entry: Step6 Unknown error occurred.\n", 4, 6},
  };
  for (const auto& one : cases) {
    streams_ = {one.out, one.err};
    const Outcome outcome = finished().outcome;
    EXPECT_EQ(outcome.exitCode(), one.exitCode) << one.err;
    EXPECT_EQ(outcome.failedStep, one.step) << one.err;
  }
}

TEST_F(Told, ASuccessThatLeftLessThanWasAskedForIsNone) {
  const struct {
    int begun, made;
    std::size_t named, saved;
    int failedCreations;
    int exitCode;
    std::string says;
  } cases[] = {
      {2, 2, 1, 1, 0, 0, ""},
      {2, 1, 0, 0, 0, 1, "error: 1 of the tables and charts could not be made and are missing here."},
      {2, 2, 0, 0, 3, 1, "error: 3 of the tables and charts could not be made and are missing here."},
      {2, 2, 2, 1, 0, 4, "error: the run stopped at step 6, writing the saved file"},
  };
  for (const auto& one : cases) {
    std::string items;
    for (int i = 0; i < one.made; ++i)
      items += i == 0 ? "{\"type\":\"chart\",\"name\":\"\"}" : ",{\"type\":\"chart\",\"name\":\"\"}";
    document(("{\"items\":[" + items + "]}").c_str());
    record_.begunItems = one.begun;
    record_.namedFiles.assign(one.named, "a.csv");
    record_.savedFiles.assign(one.saved, "a.csv");
    streams_.err.clear();
    for (int i = 0; i < one.failedCreations; ++i) {
      streams_.err += "Error: VAROutputGen::generateACFChart - Chart creation failed for variable 'a'\n";
    }
    FinishedRun run = finished();
    run.outcome = withWhatWasLeft(run.outcome, run.record);
    EXPECT_EQ(run.outcome.exitCode(), one.exitCode);
    CommandRunner runner(input_, {});
    const std::vector<RunMessage> said = collectMessages(run, runner);
    if (one.says.empty()) continue;
    EXPECT_TRUE((std::string(labelOf(said.at(0).kind)) + ": " + said.at(0).text).starts_with(one.says))
        << said.at(0).text;
  }
}

TEST_F(Told, ASilentStopIsExplainedByItsCauseOrItsTrace) {
  const std::string stopped = "error: the run stopped at ";
  const std::string silent = ", without a message of the procedure.\n";
  const auto handler = [](const std::string& name, const char* mark) {
    return "VARSubCommands::get_SubCommand_" + name + " - Completed with status" + mark + "FAILURE\n";
  };
  const std::string traced = "one\ntwo\nthree\nfour\nfive\nvarmodel_entry: Step";
  const struct {
    std::string out, err, said;
  } cases[] = {
      {handler("Method", ": "), "varmodel_entry: Step3",
       "step 3, checking the subcommands and reading the data" + silent +
           "The likely cause: the METHOD subcommand is missing: add /METHOD TYPE=[OLS]."},
      {handler("ModelStatistics", ": "), "varmodel_entry: Step3",
       "step 3, checking the subcommands and reading the data" + silent +
           "The likely cause: MODELSTATISTICS has no MODELFIT list: add MODELFIT=[PARAMETERS], or leave it out."},
      {handler("Auxiliary", " "), "varmodel_entry: Step3",
       "step 3, checking the subcommands and reading the data" + silent +
           "The likely cause: AUXILIARY has no CILEVEL: add CILEVEL=95, or leave it out."},
      {"VARSubCommands::get_SubCommand_Method - Completed with status: SUCCESS\nFAILURE", traced + "1\n",
       "step 1, describing the command" + silent +
           "The last lines of its trace:\n  two\n  three\n  four\n  five\n  varmodel_entry: Step1\n"},
      {"", traced + "2\n",
       "step 2, parsing the command" + silent +
           "The last lines of its trace:\n  two\n  three\n  four\n  five\n  varmodel_entry: Step2\n"},
      {"", "varmodel_entry: Step4\n\n",
       "step 4, the estimation" + silent + "The last lines of its trace:\n  varmodel_entry: Step4\n"},
      {"", "x\nvarmodel_entry: Step5\n",
       "step 5, building the output" + silent + "The last lines of its trace:\n  x\n  varmodel_entry: Step5\n"},
      {"", "varmodel_entry: Step6",
       "step 6, writing the saved file" + silent + "The last lines of its trace:\n  varmodel_entry: Step6\n"},
      {"", "", "an unknown step" + silent + "The last lines of its trace:\n"},
  };
  for (const auto& one : cases) {
    streams_ = {one.out, one.err};
    EXPECT_THAT(messages(), ElementsAre(stopped + one.said));
  }
}

TEST_F(Told, MessagesStandOnceEachWithItsHint) {
  using Kind = Message::Kind;
  streams_ = {};
  record_.saveError = Notice::quoted("save.failed", "not saved");
  for (const char* text :
       {"Insufficient observations: x",
        "Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity",
        "Turn off split file", "Remove Weight Variable",
        "Endogenous and exogenous variables are missing in different cases.", "other"}) {
    says(Kind::error, text);
  }
  says(Kind::warning, "CORRMATRIX is required when EIGEN is specified in MODELFIT.");
  says(Kind::warning, "The forecast table is not created, because.");
  says(Kind::warning, "The forecast table is not created");  // said already
  says(Kind::error, "The forecast table is not created");
  const std::string unasked =
      "hint (not quietly): This warning comes with TAUTO whenever no forecast was requested; it does not concern the "
      "test. For forecasts give a [predict] target in the job file.";
  EXPECT_THAT(
      messages(),
      ElementsAre(
          "error: Insufficient observations: x",
          "hint: With 30 rows, 2 endogenous and 0 exogenous variables the largest usable MAXLAG is 9. Give MAXLAG=9.",
          "error: Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity",
          "hint: Some series is constant, or one is a linear combination of others (a total beside its parts). "
          "Drop one of them, or use differences.",
          "error: Turn off split file", "hint: Remove 'split' from the job file.", "error: Remove Weight Variable",
          "hint: Remove 'weight' from the job file.",
          "error: Endogenous and exogenous variables are missing in different cases.",
          "hint: To drop the rows that lack a variable of either list, give [data] in the job file this "
          "line:\n  complete = true",
          "error: other", "warning: CORRMATRIX is required when EIGEN is specified in MODELFIT.",
          "hint: The run stops here. Add CORRMATRIX to MODELFIT, or remove EIGEN.",
          "warning (not quietly): The forecast table is not created, because.", unasked,
          "error (not quietly): The forecast table is not created", unasked, "error: not saved"));
}

TEST_F(Told, EveryKeywordWithoutItsItemIsNamed) {
  const auto missing = [](const std::string& keyword, const std::string& more = "") {
    return "note (not quietly): " + keyword + " was requested but produced no output." + more;
  };
  const std::string forecasts = " Forecasts need a [predict] target after the last case.";
  const auto ask = [&] {
    record_.requestedLists["MODELSTATISTICS MODELFIT"] = {
        "DESCRIPTIVES", "GOODFIT", "PARAMETERS", "RES",        "RESIDACF", "MSE",   "RMSE",  "MAE",
        "MAPE",         "RSQUARE", "ARSQUARE",   "CORRMATRIX", "EIGEN",    "TNORM", "TAUTO", "FORECASTS"};
    record_.requestedLists["SERIESPLOT PLOT"] = {"TIMESERIES", "ACF",        "RES", "RESCOMB",
                                                 "RESACF",     "RESACFCOMB", "FIT", "FORECAST"};
  };
  ask();
  document(R"({"items":[]})");
  EXPECT_THAT(
      messages(),
      ElementsAre("note (not quietly): No output was requested: add keywords to MODELSTATISTICS or SERIESPLOT.",
                  missing("DESCRIPTIVES"), missing("GOODFIT"), missing("PARAMETERS"), missing("RES"),
                  missing("RESIDACF", " Its column is part of the residual tests: add TAUTO or TNORM."), missing("MSE"),
                  missing("RMSE"), missing("MAE"), missing("MAPE"), missing("RSQUARE"), missing("ARSQUARE"),
                  missing("CORRMATRIX"), missing("EIGEN"), missing("TNORM"), missing("TAUTO"),
                  missing("FORECASTS", forecasts), missing("TIMESERIES"), missing("ACF"), missing("RESCOMB"),
                  missing("RESACF"), missing("RESACFCOMB"), missing("FIT"), missing("FORECAST", forecasts)));
  // The last row of tests could not be computed.
  const std::vector<std::pair<std::string, std::vector<std::string>>> items = {
      {R"("table","name":"Descriptive Statistics")", {"DESCRIPTIVES"}},
      {R"("table","name":"Goodness of Fit")", {"GOODFIT"}},
      {R"("table","name":"VAR Model Parameters - a","rows":["c"])", {"PARAMETERS"}},
      {R"("table","name":"Model Fit Statistics")", {"RES", "MSE", "RMSE", "MAE", "MAPE", "RSQUARE", "ARSQUARE"}},
      {R"("table","name":"Correlation Matrix of Residuals")", {"CORRMATRIX", "EIGEN"}},
      {R"("table","name":"Test for Residuals","rows":["a","b"],"cells":[[3,1,0.5,1,1,0.1],[0,0,1,0,1,0.1]])",
       {"RESIDACF", "TNORM", "TAUTO"}},
      {R"("table","name":"Forecast")", {"FORECASTS"}},
      {R"("chart","name":"Time Series -a")", {"TIMESERIES"}},
      {R"("chart","name":"ACF -a")", {"ACF"}},
      {R"("chart","name":"Residuals -a")", {"RES", "RESCOMB"}},  // the combined chart's name begins so
      {R"("chart","name":"ACF Residuals -a")", {"RESACF"}},
      {R"("chart","name":"Fit Values -a")", {"FIT"}},
      {R"("chart","name":"Forecast -a")", {"FORECAST"}}};
  for (const auto& [absent, keywords] : items) {
    SCOPED_TRACE(absent);
    std::string list = R"({"type":"table","name":"None"})";
    for (const auto& [item, ignored] : items) list += item == absent ? "" : R"(,{"type":)" + item + "}";
    ask();
    record_.passes.resize(1);
    record_.requestedLists["MODEL ENDOGENOUS"] = {"a", "b"};
    document((R"({"items":[)" + list + "]}").c_str());
    std::vector<std::string> named;
    for (const std::string& line : messages()) {
      const auto end = line.find(" was requested but");
      if (end != std::string::npos) named.push_back(line.substr(0, end));
    }
    std::vector<std::string> expected = {"note (not quietly): RESACFCOMB"};
    for (const std::string& keyword : keywords) expected.push_back("note (not quietly): " + keyword);
    EXPECT_THAT(named, testing::UnorderedElementsAreArray(expected));
  }
}

TEST_F(Told, ResidualTestsThatFailedAreNamed) {
  record_.requestedLists["MODELSTATISTICS MODELFIT"] = {"TNORM", "TAUTO"};
  document(R"({"items":[{"type":"table","name":"Test for Residuals","rows":["a","b"],
    "cells":[[3,1,0.5,1,1,0.1],[0,0,1,0,1,0.1]]}]})");
  EXPECT_THAT(messages(),
              ElementsAre("note (not quietly): The Ljung-Box test of b could not be computed: it needs at least one "
                          "lag and more residuals than lags.",
                          "note (not quietly): The Jarque-Bera test of b could not be computed: it needs at least four "
                          "residuals with a variance of at least 1e-12."));
}

TEST_F(Told, NotesOnRowsAndLags) {
  input_.dataset.columns[0].numbers[4] = kSystemMissing;
  input_.dataset.columns[1].numbers[0] = kSystemMissing;
  streams_.err = "Warning: A::b - The selected lag 1 is below MAXLAG 2: x.\nWarning: said: a - b\nno Warning: here\n";
  record_.requestedLists["MODELSTATISTICS MODELFIT"] = {"ARSQUARE"};
  document(R"({"items":[{"type":"table","name":"Model Fit Statistics"}]})");
  EXPECT_THAT(
      messages(),
      ElementsAre(
          "note: Rows: 30 read, 28 used, 2 dropped (a missing in 1, b missing in 1; first dropped: 1, 5).",
          "note: Dropped cases lie inside the sample: the series are joined over the gap, so that the lags "
          "next to it span more than their number of periods.",
          "note (not quietly): The selected lag 1 is below MAXLAG 2: x.", "note (not quietly): said: a - b",
          "note (not quietly): To have everything for lag 1, run this command:\nVARMODEL /MODEL MINLAG=1 MAXLAG=1",
          "note (not quietly): Adjusted R Square is computed from R Square, which was not requested and "
          "therefore counts as 0: request RSQUARE beside ARSQUARE."));
}

TEST_F(Told, NotesBelowTables) {
  const auto notes = [&](const std::vector<std::string>& keywords, const std::string& table, const std::string& cells) {
    record_.passes.resize(1);
    record_.requestedLists["MODEL ENDOGENOUS"] = {"a", "b"};
    record_.requestedNumbers["MODEL MAXLAG"] = 2;
    record_.requestedLists["MODELSTATISTICS MODELFIT"] = keywords;
    document(
        (R"({"items":[{"type":"table","name":")" + table + R"(","rows":["a","b"],"cells":)" + cells + "}]}").c_str());
    const CommandRunner current(input_, {});
    const FinishedRun run = finished();
    const auto found = command_.view(run).notes;
    return found.empty() ? std::vector<std::string>() : found.begin()->second;
  };
  EXPECT_THAT(notes({"PARAMETERS"}, "VAR Model Parameters - a", "[]"),
              ElementsAre("Sig. is taken from Student's t with 26 degrees of freedom, the confidence limits from the "
                          "normal distribution: limits from Student's t would be wider."));  // 30 - 2 rows, 2 terms
  EXPECT_THAT(notes({"ARSQUARE", "RSQUARE", "MSE"}, "Model Fit Statistics", "[]"),
              ElementsAre("Adjusted R Square counts all 30 rows of the sample, not the 28 that are regressed."));
  EXPECT_THAT(notes({"ARSQUARE"}, "Model Fit Statistics", "[]"), IsEmpty());
  // Below its bound the tail is no floor; without TAUTO the first columns are those of Jarque-Bera.
  const std::string bound =
      "Sig. of the Jarque-Bera test stands at 1.0e-06 wherever the statistic is 10 or more. The tail of its "
      "distribution is: b 0.0067.";
  EXPECT_THAT(notes({"TNORM"}, "Test for Residuals", "[[9.999,0.1],[10,0.1]]"), ElementsAre(bound));
  EXPECT_THAT(notes({"TNORM", "TAUTO"}, "Test for Residuals", "[[99,2,0.1,9.999,0.1],[99,2,0.1,10,0.1]]"),
              ElementsAre(bound));
  // df shown 2 of 2, 1 of 2, and 0: not computed.
  const std::string freedom =
      "Sig. of the Ljung-Box test is taken with 2 degrees of freedom, the number of autocorrelations in the statistic; "
      "df shows that number less the lag order, at least 1.";
  EXPECT_THAT(notes({"TAUTO"}, "Test for Residuals", "[[1,2,1],[1,0,1]]"), IsEmpty());
  EXPECT_THAT(notes({"TAUTO"}, "Test for Residuals", "[[1,2,1],[1,1,1]]"), ElementsAre(freedom));
}

TEST(HiddenRows, AreThoseThatTheCommandMayNotSee) {
  Dataset dataset;
  dataset.columns.resize(1);
  dataset.columns[0].numbers = {kSystemMissing, 1, kSystemMissing, 3, kSystemMissing, kSystemMissing};
  dataset.rowCount = 6;
  const std::vector<int> columns = {0};
  const auto hidden = [&](bool dropsIncomplete, bool keepsFuture) {
    return hiddenRows(dataset, columns,
                      {.excludeUserMissing = true, .dropsIncomplete = dropsIncomplete, .keepsFuture = keepsFuture});
  };
  EXPECT_THAT(hidden(false, false), ElementsAre(4, 5));
  EXPECT_THAT(hidden(true, false), ElementsAre(0, 2, 4, 5));
  EXPECT_THAT(hidden(true, true), ElementsAre(0, 2));
  EXPECT_THAT(hidden(false, true), IsEmpty());
}

TEST(VardynamicsView, TheSummaryOpensTheOutputAndTheLargestLevelDecides) {
  const CallInput input;
  const VardynamicsCommand command;
  FinishedRun run{.command = command, .input = input, .text = "", .record = {}, .streams = {}, .outcome = {}};
  run.record.document.Parse(R"({"items": [{"type": "table", "name": "Roots"},
    {"type": "table", "name": "Model Summary"}, {"type": "table", "name": "Forecast - a"},
    {"type": "chart", "name": "Forecast Chart - a"}]})");
  EXPECT_EQ(command.view(run).headline, std::size_t{1});
  EXPECT_THAT(command.view(run).leadingCharts, ElementsAre(3));
  EXPECT_EQ(command.view(run).testLevel, 0.05);
  ParsedCommand parsed;
  parsed.subcommands.push_back({"AUXILIARY", {{.name = "CILEVEL", .numbers = {68, 99, 95}}}});
  run.record.requestedNumbers = requestedNumbers(parsed);
  EXPECT_EQ(command.view(run).testLevel, 0.01);
}

TEST(UsableLag, LeavesAsManyRowsAsSeries) {
  CallInput input;
  for (const char* name : {"a", "b", "x"}) input.dataset.columns.emplace_back().name = name;
  const VarmodelCommand command;
  // K = 2, m = 1: rows - p - (2 + 2 p) >= 2.
  for (const auto& [rows, lag] :
       {std::pair<std::size_t, std::int64_t>{3, 0}, {6, 0}, {7, 1}, {9, 1}, {10, 2}, {78, 24}, {79, 25}, {500, 25}}) {
    input.dataset.rowCount = rows;
    for (Column& column : input.dataset.columns) column.numbers.assign(rows, 1.0);
    FinishedRun run{.command = command, .input = input, .text = "", .record = {}, .streams = {}, .outcome = {}};
    run.record.passes.resize(1);
    run.record.requestedLists = {{"MODEL ENDOGENOUS", {"a", "b"}}, {"MODEL EXOGENOUS", {"x"}}};
    run.record.requestedNumbers["MODEL MAXLAG"] = static_cast<double>(lag);
    EXPECT_EQ(varmodel::usableLag(run)->lag, lag) << rows;
    EXPECT_FALSE(varmodel::exceedsUsableLag(run));
    run.record.requestedNumbers["MODEL MAXLAG"] = static_cast<double>(lag + 1);
    EXPECT_TRUE(varmodel::exceedsUsableLag(run));
  }
  EXPECT_EQ(varmodel::usableLagText({.rows = 6, .endogenous = 2, .exogenous = 1, .lag = 0}).text(),
            "With 6 rows, 2 endogenous and 1 exogenous variables no lag can be estimated: use fewer variables or more "
            "data.");
}

TEST(FitComposer, ComposesWhatItsOptionsAskFor) {
  const auto composed = [](std::vector<std::string> words, std::optional<long> periods) {
    FitComposer composer;
    CLI::App app;
    composer.addOptions(app);
    words.emplace_back("--model-only");
    std::reverse(words.begin(), words.end());  // as the parser takes them
    app.parse(words);
    return composer.compose({.predictPeriods = periods});
  };
  const std::string statistics =
      "  /METHOD TYPE=[OLS]\n"
      "  /MODELSTATISTICS MODELFIT=[DESCRIPTIVES GOODFIT PARAMETERS RES RESIDACF MSE RMSE MAE MAPE\n"
      "    RSQUARE ARSQUARE CORRMATRIX EIGEN TNORM TAUTO";
  const std::string choice = "  /METHOD TYPE=[OLS]\n  /MODELSTATISTICS MODELFIT=[GOODFIT PARAMETERS]\n";
  const std::string charts = "  /SERIESPLOT PLOT=[TIMESERIES ACF RES RESCOMB RESACF FIT";
  EXPECT_EQ(composed({"--endogenous", "a", "two words"}, {}),
            "VARMODEL\n  /MODEL ENDOGENOUS=a \"two words\" LAG=[BIC]\n" + choice);
  EXPECT_EQ(composed({"--endogenous", "a", "b", "--minlag", "2", "--maxlag", "5", "--save", "out.csv"}, 4),
            "VARMODEL\n  /MODEL ENDOGENOUS=a b LAG=[BIC] MINLAG=2 MAXLAG=5\n" + choice);
  EXPECT_EQ(composed({"--endogenous", "a", "b", "--maxlag", "1"}, {}),
            "VARMODEL\n  /MODEL ENDOGENOUS=a b LAG=[BIC] MINLAG=1 MAXLAG=1\n" + statistics + "]\n" + charts + "]\n");
  EXPECT_EQ(composed({"--endogenous", "a", "b", "--exogenous", "x", "--lag", "aic", "hqic", "--minlag", "3", "--maxlag",
                      "3", "--cilevel", "97.5", "--save", "out.csv", "--include-missing"},
                     4),
            "VARMODEL PREDICT\n  /MODEL ENDOGENOUS=a b EXOGENOUS=x LAG=[AIC HQIC] MINLAG=3 MAXLAG=3\n" + statistics +
                " FORECASTS]\n" + charts +
                " FORECAST]\n  /SAVE FILE=\"out.csv\" PREDICTED NRESIDUAL\n  /AUXILIARY CILEVEL=97.5\n"
                "  /MISSING USERMISSING=INCLUDE\n");
}

}  // namespace

}  // namespace workbench
