// Running the program as a user would, in a scratch folder of its own.

#pragma once

#include <string>
#include <vector>

#include "tests/dataset/temp_folder.h"

struct ProgramRun {
  int exitCode = -1;  // 128 + signal when it was killed by one
  std::string out;
  std::string err;
};

// Notes are wrapped; here each is one line again.
std::string unwrapped(const std::string& text);

// The words of printed options; quotes are the shell's.
std::vector<std::string> shellWords(const std::string& text);

// The rest of the line behind the first of these texts; empty where there is none.
std::string after(const std::string& text, const std::string& what);

class Workspace {
 public:
  Workspace& file(const std::string& name, const std::string& content);
  // Another name for a file: a symbolic link, which may lead nowhere, or a hard one.
  Workspace& link(const std::string& target, const std::string& name);
  Workspace& hardLink(const std::string& target, const std::string& name);
  void remove(const std::string& name);
  // A file of examples/, copied under its own name.
  Workspace& example(const std::string& name);
  // The shell's redirections come last: "<data.csv", ">/dev/full", ">&-".
  // Before it, in the same shell: "ulimit -n 8", "export TMPDIR=/nowhere".
  ProgramRun run(const std::vector<std::string>& arguments, const std::string& redirections = "",
                 const std::string& before = "true") const;
  // As cron runs a job: from the root folder, without terminal, input or environment.
  ProgramRun runUnattended(const std::vector<std::string>& arguments) const;
  // The programs start together; whether all succeeded.
  bool runAtOnce(const std::vector<std::vector<std::string>>& programs) const;
  std::string read(const std::string& name) const { return workbench::contents(folder_ / name); }
  std::string folder() const { return folder_.path(); }
  std::vector<std::string> listing() const { return folder_.listing(); }  // names of all files, sorted

 private:
  workbench::TempFolder folder_;
};
