// The program `varmodel`.

#include <algorithm>
#include <exception>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "workbench/base/descriptor.h"
#include "workbench/base/errors.h"
#include "workbench/base/interruption.h"
#include "workbench/base/process.h"
#include "workbench/base/standard_streams.h"
#include "workbench/cli/check.h"
#include "workbench/cli/command_line.h"
#include "workbench/cli/composed_job.h"
#include "workbench/cli/describe.h"
#include "workbench/cli/output_files.h"
#include "workbench/cli/run.h"
#include "workbench/cli/screen.h"

namespace {

int dispatch(const workbench::Invocation& invocation) {
  if (const auto* end = std::get_if<workbench::EndNow>(&invocation)) return end->exitCode;
  if (const auto* run = std::get_if<workbench::RunOptions>(&invocation)) {
    workbench::Job job = workbench::readJobFile(run->jobFile);
    job.data.unsafe = run->unsafeSql;
    if (run->checkOnly) return workbench::checkJob(job, run->output);
    const workbench::OutputOptions output = workbench::withOutputsOf(job, run->output);
    return workbench::runJob(std::move(job), output);
  }
  if (const auto* data = std::get_if<workbench::DescribeOptions>(&invocation)) return workbench::describeData(*data);
  const auto& composed = std::get<workbench::ComposeOptions>(invocation);
  return workbench::runJob(workbench::makeComposedJob(composed), composed.output);
}

// With -v the id is told that docs/messages.md lists the error under.
int refuse(const workbench::UserError& error, int exitCode, std::span<char*> words) {
  const auto asks = [](std::string_view word) { return word == "-v" || word == "--verbose"; };
  const bool verbose = std::ranges::any_of(words, asks);
  workbench::showError(error.notice() + (verbose ? workbench::Notice("\n[" + error.notice().id() + "]") : ""));
  return exitCode;
}

int guardedMain(int argc, char** argv) {
  workbench::prepareProcess();
  try {
    workbench::endOnInterruption();
    const int exitCode = dispatch(workbench::parseCommandLine(argc, argv));
    if (exitCode == 0) workbench::requireStandardOutput();
    return exitCode;
  } catch (const workbench::DataError& error) {
    return refuse(error, 3, {argv, static_cast<std::size_t>(argc)});
  } catch (const workbench::OutputError& error) {
    return refuse(error, 4, {argv, static_cast<std::size_t>(argc)});
  } catch (const workbench::UsageError& error) {
    return refuse(error, 2, {argv, static_cast<std::size_t>(argc)});
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    workbench::showError(workbench::Notice("program.unexpected", "unexpected failure: ^1", error.what()));
    return 1;
  }
}

}  // namespace

// Where there is no memory, none is taken for saying so.
int main(int argc, char** argv) {
  try {
    return guardedMain(argc, argv);
  } catch (...) {
    workbench::writeSome(workbench::kStandardError,
                         "error: there is not enough memory for this job. Use fewer rows, a smaller lag or fewer "
                         "draws.\n");
    return 1;
  }
}
