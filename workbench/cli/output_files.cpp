#include "workbench/cli/output_files.h"

#include "workbench/base/errors.h"
#include "workbench/base/file_set.h"
#include "workbench/base/standard_streams.h"

namespace workbench {

namespace {

// Folders may be one, and may hold other outputs.
void claimFolders(const OutputOptions& options, CallInput& input) {
  std::vector<TakenFile> folders;
  for (const auto& [option, folder] : {std::pair{"--tables", &options.tables}, {"--charts", &options.charts}}) {
    if (folder->empty()) continue;
    if (*folder == kStandardStream)
      throw UsageError("option.folder", "^1 takes a folder, and - is standard output. Name a folder.", option);
    if (const auto reason = refusedTarget(*folder, input.takenFiles)) throw UsageError(*reason);
    if (const Notice reason = unusableFolder(*folder); !reason.empty()) throw UsageError(reason);
    folders.push_back({*folder, phrase("^1 writes into it", option)});
  }
  input.takenFiles.insert(input.takenFiles.end(), folders.begin(), folders.end());
}

}  // namespace

OutputOptions withOutputsOf(const Job& job, OutputOptions options) {
  static_cast<OutputNames&>(options) = completed(options, job.outputs);
  return options;
}

void claimOutputFiles(const OutputOptions& options, CallInput& input) {
  if (options.summary && options.takesStandardOutput()) {
    throw UsageError("option.summary",
                     "--summary is shown on standard output, which a file of this run takes. Leave one of them out.");
  }
  const std::pair<const char*, const std::filesystem::path&> outputs[] = {{"--html", options.html},
                                                                          {"--json", options.json},
                                                                          {"--trace", options.trace},
                                                                          {"--write-job", options.writtenJob}};
  for (const auto& [option, file] : outputs) {
    if (file.empty()) continue;
    if (const auto reason = refusedTarget(file, input.takenFiles)) throw UsageError(*reason);
    input.takenFiles.push_back({file, phrase("^1 is written to it", option)});
  }
  claimFolders(options, input);
}

}  // namespace workbench
