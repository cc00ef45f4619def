// The program `varmodel`.

#include <exception>
#include <string>
#include <utility>

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
    if (run->checkOnly) return workbench::checkJob(job, run->output);
    const workbench::OutputOptions output = workbench::withOutputsOf(job, run->output);
    return workbench::runJob(std::move(job), output);
  }
  if (const auto* data = std::get_if<workbench::DescribeOptions>(&invocation)) return workbench::describeData(*data);
  const auto& composed = std::get<workbench::ComposeOptions>(invocation);
  return workbench::runJob(workbench::makeComposedJob(composed), composed.output);
}

}  // namespace

int main(int argc, char** argv) {
  workbench::prepareProcess();
  workbench::endOnInterruption();
  try {
    const int exitCode = dispatch(workbench::parseCommandLine(argc, argv));
    if (exitCode == 0) workbench::requireStandardOutput();
    return exitCode;
  } catch (const workbench::DataError& error) {
    workbench::showError(error.what());
    return 3;
  } catch (const workbench::OutputError& error) {
    workbench::showError(error.what());
    return 4;
  } catch (const workbench::UsageError& error) {
    workbench::showError(error.what());
    return 2;
  } catch (const std::bad_alloc&) {
    workbench::showError("there is not enough memory for this job.");
    return 1;
  } catch (const std::exception& error) {
    workbench::showError(std::string("unexpected failure: ") + error.what());
    return 1;
  }
}
