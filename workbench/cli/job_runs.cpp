#include "workbench/cli/job_runs.h"

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/taken_file.h"
#include "workbench/base/utf8_path.h"
#include "workbench/cli/data_notes.h"
#include "workbench/cli/job_notes.h"
#include "workbench/commands/common/analysed_rows.h"
#include "workbench/commands/registry.h"
#include "workbench/edge/texts.h"
#include "workbench/language/command_list.h"

namespace workbench {

namespace {

// "a,b" on a command line is one word, and no variable.
bool namesJoinedVariables(const RunMessage& message) {
  static const std::regex joined("\"[^\"]+,[^\"]+\"");
  return message.id == "syntax.no-variable" && std::regex_search(message.text, joined);
}

void addWhatIsKnown(const Composer& composer, ToldRun& told) {
  if (told.hasOutput()) composer.present(told.run, told.view);
  if (std::ranges::any_of(told.messages, namesJoinedVariables)) {
    told.messages.emplace_back(
        RunMessage::Kind::hint,
        Notice("option.blanks", "The words of a list are parted by blanks: --endogenous a b c."));
  }
  const Notice hint = told.run.outcome.succeeded ? Notice() : composer.hint(told.run);
  if (!hint.empty()) told.messages.emplace_back(RunMessage::Kind::hint, hint);
}

ToldRun tell(FinishedRun run, CommandRunner& runner, const Composer* composer = nullptr) {
  ToldRun told{std::move(run), 0, {}, {}};
  told.messages = collectMessages(told.run, runner);
  for (RunMessage& message : told.messages) {
    if (composer == nullptr || message.kind == RunMessage::Kind::note) continue;
    message.text = inOptions(message.text, composer->optionWords(told.run), runner.input().dataset);
  }
  if (told.hasOutput()) told.view = told.run.command.view(told.run);
  if (composer != nullptr) addWhatIsKnown(*composer, told);
  return told;
}

void requireOwnFiles(const FinishedRun& parsed, std::size_t number, std::vector<TakenFile>& taken) {
  std::vector<std::filesystem::path> own;
  for (const std::string& file : parsed.record.namedFiles) own.push_back(parsed.input.baseFolder / pathFromUtf8(file));
  for (const auto& file : own) {
    if (const auto reason = refusedTarget(file, taken)) throw UsageError(phrase("command ^1: ^2", number, *reason));
  }
  for (const auto& file : own) taken.push_back({file, phrase("command ^1 saves to it", number)});
}

std::vector<ToldRun> runAll(const std::vector<std::string>& texts, CommandRunner& runner) {
  std::vector<ToldRun> runs;
  for (const std::string& text : texts) runs.push_back(tell(runner.run(commandOf(text), text), runner));
  return runs;
}

std::vector<ToldRun> runComposed(const Job& job, CommandRunner& runner) {
  std::vector<ToldRun> runs;
  NextRun next{.text = job.command, .settings = job.composer->firstSettings(runner.settings())};
  for (bool more = true; more;) {
    FinishedRun run = runner.run(commandOf(next.text), next.text, next.settings);
    const std::optional<NextRun> following = job.composer->next(run, runner);
    more = following.has_value();
    if (more) next = *following;
    if (more && next.replaces) continue;
    run.followed = more && next.showsChoice;
    runs.push_back(tell(std::move(run), runner, job.composer.get()));
  }
  return runs;
}

void number(std::vector<ToldRun>& runs) {
  if (runs.size() < 2) return;
  for (std::size_t i = 0; i < runs.size(); ++i) runs[i].number = static_cast<int>(i) + 1;
}

// Where the commands that test agree on a level, it is that of all tables.
void shareTestLevel(std::vector<ToldRun>& runs) {
  std::set<double> levels;
  for (const ToldRun& told : runs)
    if (told.view.testLevel) levels.insert(*told.view.testLevel);
  if (levels.size() != 1) return;
  for (ToldRun& told : runs) told.view.testLevel = *levels.begin();
}

// Notes on the data; where the command failed, they may tell why and stand with its errors.
void addJobNotes(const Job& job, const Dataset& dataset, ToldRun& first) {
  std::vector<Notice> said = jobNotes(job, dataset);
  if (!first.run.input.trends.reading.empty()) said.push_back(first.run.input.trends.reading);
  const std::vector<int> columns = columnsOf(dataset, first.run.record, first.run.command.caseLists());
  std::ranges::move(dataNotes(job, first.run.input, columns), std::back_inserter(said));
  const bool failed = !first.run.outcome.succeeded;
  std::vector<RunMessage> notes;
  for (const Notice& one : said) notes.emplace_back(failed ? RunMessage::Kind::hint : RunMessage::Kind::note, one);
  first.messages.insert(failed ? first.messages.end() : first.messages.begin(), notes.begin(), notes.end());
}

}  // namespace

std::vector<ToldRun> unparsedCommands(const std::vector<std::string>& texts, CommandRunner& runner) {
  std::vector<ToldRun> failed;
  std::vector<TakenFile> taken;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    FinishedRun parsed = runner.parse(commandOf(texts[i]), texts[i]);
    if (parsed.record.parsed) {
      requireOwnFiles(parsed, i + 1, taken);
    } else {
      failed.push_back(tell(std::move(parsed), runner));
      failed.back().number = static_cast<int>(i) + 1;
    }
  }
  return failed;
}

std::vector<ToldRun> runCommands(const Job& job, CommandRunner& runner) {
  const std::vector<std::string> texts = splitCommands(job.command);
  std::vector<ToldRun> runs;
  if (texts.size() > 1) runs = unparsedCommands(texts, runner);
  if (runs.empty()) {
    runs = job.composer ? runComposed(job, runner) : runAll(texts, runner);
    number(runs);
  }
  shareTestLevel(runs);
  for (ToldRun& told : runs) {
    for (RunMessage& message : told.messages) message.command = told.number;
  }
  addJobNotes(job, runner.input().dataset, runs.front());
  return runs;
}

int exitCodeOf(const std::vector<ToldRun>& runs) {
  const auto failed =
      std::find_if(runs.begin(), runs.end(), [](const ToldRun& one) { return !one.run.outcome.succeeded; });
  return failed == runs.end() ? 0 : failed->run.outcome.exitCode();
}

}  // namespace workbench
