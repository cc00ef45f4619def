#include "workbench/cli/short_form.h"

#include <algorithm>

#include "workbench/cli/screen.h"
#include "workbench/document/document_reader.h"
#include "workbench/edge/texts.h"
#include "workbench/render/message_text.h"
#include "workbench/render/terminal.h"

namespace workbench {

namespace {

class ShortForm {
 public:
  explicit ShortForm(std::vector<std::string> tables) : tables_(std::move(tables)), style_(outputStyle()) {
    style_.listsCharts = false;
  }

  void addHeadline(const ToldRun& told) {
    if (told.hasOutput()) add(paintHeadlineTerminal(told.run.record.document, style_, currentLanguage(), told.view));
  }

  void addTables(const ToldRun& told) {
    const Json* items = told.hasOutput() ? itemsOf(told.run.record.document) : nullptr;
    DocumentView view = told.view;
    view.headline.reset();
    bool shows = false;
    for (rapidjson::SizeType i = 0; items != nullptr && i < items->Size(); ++i) {
      const std::string id = told.run.command.itemId((*items)[i], i);
      if (std::ranges::count(tables_, id.substr(0, id.find(':'))) == 0) view.hidden.insert(i);
      shows = shows || !view.hidden.contains(i);
    }
    if (shows) add(paintDocumentTerminal(told.run.record.document, style_, currentLanguage(), view));
  }

  void addNotes(const ToldRun& told) {
    for (const RunMessage& message : told.messages) {
      if (message.kind == RunMessage::Kind::note && message.shownQuietly) addNote(message.shown());
    }
    for (const auto& file : told.run.record.savedFiles) notes_ += tr("saved: ^1", file.string()) + "\n";
  }

  void addNote(const std::string& text) { notes_ += paintMessage("note", text, style_, currentLanguage()); }

  bool isEmpty() const { return text_.empty(); }

  std::string take() {
    add(notes_);
    return std::move(text_);
  }

 private:
  void add(const std::string& block) {
    if (!block.empty()) text_ += (text_.empty() ? "" : "\n") + block;
  }

  std::vector<std::string> tables_;
  TerminalStyle style_;
  std::string text_;
  std::string notes_;
};

std::string howToHaveMore(const Job& job, const OutputOptions& options) {
  std::string text = tr("Every table is shown with --all.");
  if (options.html.empty()) text += " " + tr("Tables and charts are written as one page with --html FILE.");
  if (!job.predictPeriods) text += " " + tr("Forecasts are made with --predict N.");
  return text;
}

}  // namespace

bool showsShortForm(const Job& job, const OutputOptions& options) {
  return job.composer && !job.composer->shortForm().empty() && !options.everything && !options.plots &&
         options.verbosity != Verbosity::verbose;
}

void showShortForm(const Job& job, const std::vector<ToldRun>& runs, const OutputOptions& options) {
  ShortForm form(job.composer->shortForm());
  for (const ToldRun& told : runs) form.addHeadline(told);
  for (const ToldRun& told : runs) form.addTables(told);
  for (const ToldRun& told : runs) form.addNotes(told);
  if (!form.isEmpty()) form.addNote(howToHaveMore(job, options));
  showText(form.take());
}

}  // namespace workbench
