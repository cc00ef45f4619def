// Running the program as a user would, in a scratch folder of its own.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct ProgramRun {
  int exitCode = -1;  // 128 + signal when it was killed by one
  std::string out;
  std::string err;
};

class Workspace {
 public:
  Workspace();  // an empty folder, removed with the object
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;
  ~Workspace();

  Workspace& file(const std::string& name, const std::string& content);
  // A file of examples/, copied under its own name.
  Workspace& example(const std::string& name);
  ProgramRun run(const std::vector<std::string>& arguments, const std::string& environment = "") const;
  std::string read(const std::string& name) const;
  std::vector<std::string> listing() const;  // names of all files, sorted

  std::filesystem::path folder;
};
