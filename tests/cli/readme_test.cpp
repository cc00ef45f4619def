// The sessions of README.md are what the program shows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <regex>
#include <sstream>

#include "tests/dataset/temp_folder.h"

namespace {

struct Step {
  std::string command;
  std::vector<std::string> pieces = {};  // of what it shows, between lines "..."
};

// The commands behind "$ " in the blocks of the file, and what stands below each.
std::vector<Step> stepsOf(const std::string& text) {
  std::vector<Step> steps;
  bool inSession = false;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("```")) {
      inSession = false;
    } else if (line.starts_with("$ build/release/bin/varmodel")) {
      inSession = true;
      for (std::string more; line.ends_with('\\') && std::getline(lines, more);)
        line = line.substr(0, line.size() - 1) + more;
      steps.push_back({line.substr(2), {""}});
    } else if (inSession && line == "...") {
      steps.back().pieces.emplace_back();
    } else if (inSession) {
      steps.back().pieces.back() += line + "\n";
    }
  }
  return steps;
}

std::string shownBy(const std::string& command) {
  const std::string line = "cd '" VARMODEL_SOURCE_DIR "' && " +
                           std::regex_replace(command, std::regex("^build/release/"), "'" VARMODEL_BINARY_DIR "'/") +
                           " 2>&1";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(line.c_str(), "r"), pclose);
  std::string shown;
  for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) shown += static_cast<char>(c);
  return shown;
}

TEST(Readme, ShowsWhatTheProgramShows) {
  const std::vector<Step> steps = stepsOf(workbench::contents(VARMODEL_SOURCE_DIR "/README.md"));
  ASSERT_GE(steps.size(), 3u);
  for (const Step& step : steps) {
    const std::string shown = shownBy(step.command);
    std::size_t at = 0;
    for (std::string piece : step.pieces) {
      while (piece.ends_with("\n\n")) piece.pop_back();
      const std::size_t found = shown.find(piece, at);
      ASSERT_NE(found, std::string::npos) << step.command << "\ndoes not show\n" << piece << "\nbut\n" << shown;
      EXPECT_TRUE(at > 0 || found == 0) << step.command << " begins otherwise:\n" << shown;
      at = found + piece.size();
    }
  }
}

}  // namespace
