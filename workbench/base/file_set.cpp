#include "workbench/base/file_set.h"

#include <list>
#include <system_error>

#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"
#include "workbench/base/utf8_path.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

// The folders on the way to it that are made; those that stay empty go again.
class MadeFolders {
 public:
  explicit MadeFolders(const fs::path& folder) {
    std::error_code error;
    for (fs::path one = folder; !one.empty() && !fs::exists(one, error); one = one.parent_path()) made_.push_back(one);
    fs::create_directories(folder, error);
    if (error) {
      removeEmpty();
      throw OutputError("output.no-folder", "the folder ^1 cannot be made: ^2. Choose another place.", folder,
                        error.message());
    }
  }
  MadeFolders(const MadeFolders&) = delete;
  MadeFolders& operator=(const MadeFolders&) = delete;
  ~MadeFolders() { removeEmpty(); }

 private:
  void removeEmpty() noexcept {
    std::error_code ignored;
    for (const fs::path& folder : made_) fs::remove(folder, ignored);
  }

  std::vector<fs::path> made_;  // the innermost first
};

}  // namespace

void writeFileSet(const fs::path& folder, const std::vector<FileText>& files) {
  const MadeFolders made(folder);
  std::list<StagedFile> staged;
  for (const FileText& file : files) {
    StagedFile& one = staged.emplace_back(folder / pathFromUtf8(file.name));
    FileSink sink(one.path(), folder / pathFromUtf8(file.name));
    sink.write(file.bytes);
    sink.close();
  }
  for (StagedFile& one : staged) one.makeDurable();
  for (StagedFile& one : staged) one.publish();
}

Notice unusableFolder(const fs::path& folder) {
  std::error_code error;
  if (!fs::exists(folder, error) || fs::is_directory(folder, error)) return {};
  return Notice("output.file-for-folder", "^1 is a file, and a folder is asked for. Choose another name.", folder);
}

}  // namespace workbench
