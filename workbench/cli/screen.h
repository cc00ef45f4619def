// What a run shows in the terminal: output and notes on standard output, then errors, warnings and their hints on
// standard error, where they are the last thing seen.

#pragma once

#include "workbench/base/notice.h"
#include "workbench/cli/job_runs.h"
#include "workbench/cli/options.h"
#include "workbench/render/pivot_table.h"
#include "workbench/render/terminal.h"

namespace workbench {

// Everything. With -q only what explains a failure is shown.
void showRun(const ToldRun& told, const OutputOptions& options);
// The same without trace and output: summary and messages.
void showRest(const ToldRun& told, const OutputOptions& options);

// How standard output is written to.
TerminalStyle outputStyle();
void showText(const std::string& text);
// A line on standard output, of which nothing acts on a terminal.
void showLine(const std::string& text);

// A table, and "note: TEXT", on standard output.
void showTable(const PivotTable& table);
void showNote(const Notice& text);

// "warning: TEXT" and "error: TEXT" on standard error.
void showWarning(const Notice& text);
void showError(const Notice& text);

}  // namespace workbench
