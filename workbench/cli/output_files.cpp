#include "workbench/cli/output_files.h"

#include "workbench/base/errors.h"

namespace workbench {

void claimOutputFiles(const OutputOptions& options, CallInput& input) {
  if (options.summary && options.takesStandardOutput()) {
    throw UsageError("--summary is shown on standard output, which a file of this run takes. Leave one of them out.");
  }
  const std::pair<const char*, const std::filesystem::path&> outputs[] = {{"--html", options.html},
                                                                          {"--json", options.json},
                                                                          {"--trace", options.trace},
                                                                          {"--write-job", options.writtenJob}};
  for (const auto& [option, file] : outputs) {
    if (file.empty()) continue;
    if (const auto reason = refusedTarget(file, input.takenFiles)) throw UsageError(*reason);
    input.takenFiles.push_back({file, std::string(option) + " is written to it"});
  }
}

}  // namespace workbench
