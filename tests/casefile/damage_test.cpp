// Whatever happens while a file is written, the old one stays whole and nothing is left beside it.

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "tests/casefile/save_fixture.h"
#include "tests/dataset/fault.h"
#include "workbench/base/atomic_file.h"
#include "workbench/base/errors.h"
#include "workbench/base/interruption.h"
#include "workbench/dataset/load.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

constexpr rlim_t kFileLimit = 100'000;  // bytes; every file of kManyCases is larger
constexpr std::size_t kManyCases = 200'000;

std::vector<double> manyValues() {
  std::vector<double> values(kManyCases);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = 1.0 / static_cast<double>(i + 1);
  return values;
}

template <class Work>
pid_t startChild(Work work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  return child;
}

int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

void kill9(pid_t child) {
  kill(child, SIGKILL);
  statusOf(child);
}

std::string failureOf(const std::filesystem::path& target) {
  return faultOf<OutputError>([&] { writeFileAtomically(target, "new"); });
}

using Damage = EveryFormat;

// A process that may not write larger files sees the same error as one on a full disk.
TEST_P(Damage, AFullDiskLeavesTheOldFile) {
  folder_.write(file(), "old");
  const std::vector<double> values = manyValues();
  const pid_t child = startChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{kFileLimit, kFileLimit};
    setrlimit(RLIMIT_FSIZE, &limit);
    const bool saved = save(file(), {"PRE_1"}, {values});
    return !saved && session_.saveError.text().find((folder_ / file()).string()) != std::string::npos &&
           session_.saveError.text().find("arge") != std::string::npos;  // "File too large", "could not be enlarged"
  });
  EXPECT_EQ(statusOf(child), 0);
  EXPECT_EQ(contents(folder_ / file()), "old");
  EXPECT_THAT(folder_.listing(), ElementsAre(file()));
}

// The bytes up to the limit are taken, so that only the rest of them fails.
TEST_F(SaveTest, AFileWrittenInPartIsAFailure) {
  const auto target = folder_.write("out.json", "old");
  const pid_t child = startChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{kFileLimit, kFileLimit};
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::string text(kFileLimit + 1, 'x');
    return faultOf<OutputError>([&] { writeFileAtomically(target, text); }).find("File too large") != std::string::npos;
  });
  EXPECT_EQ(statusOf(child), 0);
  EXPECT_EQ(contents(target), "old");
}

TEST_P(Damage, AKilledWriterLeavesTheOldFileOrTheWholeNewOne) {
  const std::vector<double> values = manyValues();
  for (const int milliseconds : {5, 20, 40, 80, 160}) {
    folder_.write(file(), "old");
    const pid_t child = startChild([&] { return save(file(), {"PRE_1"}, {values}); });
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    kill9(child);
    if (contents(folder_ / file()) != "old") {
      EXPECT_EQ(loadDataset({folder_ / file(), ""}).columns[0].numbers, values) << milliseconds;
    }
  }
  ASSERT_TRUE(save(file(), {"PRE_1"}, {{1}})) << session_.saveError.text();
  EXPECT_THAT(folder_.listing(), SizeIs(file() == "out.csv" ? 2 : 1)) << "stale folders stay";
}

INSTANTIATE_TEST_SUITE_P(Formats, Damage, testing::Values("csv", "parquet", "duckdb"));

TEST_F(SaveTest, AKilledWritersFolderIsRemovedALivingOnesIsNot) {
  const auto target = folder_.write("out.json", "old");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = startChild([&] {
    StagedFile staged(target);
    FileSink(staged.path(), target).write("half");
    if (write(ready[1], "x", 1) != 1) return false;
    pause();
    return true;
  });
  char byte;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  close(ready[0]);
  close(ready[1]);
  writeFileAtomically(target, "second");
  EXPECT_THAT(folder_.listing(), SizeIs(2));
  kill9(child);
  EXPECT_EQ(contents(target), "second");
  EXPECT_THAT(folder_.listing(), testing::Contains(StartsWith(".out.json.varmodel-")));
  folder_.write(".other.varmodel-abcdef", "of somebody");
  std::filesystem::create_symlink(folder_.path(), folder_ / ".link.varmodel-abcdef");
  writeFileAtomically(folder_ / "other.json", "of another target");
  EXPECT_THAT(folder_.listing(),
              ElementsAre(".link.varmodel-abcdef", ".other.varmodel-abcdef", "other.json", "out.json"));
}

// At every moment, also when its writer is killed, a CSV file has the metadata of its own run or none.
TEST_F(SaveTest, CasesAndMetadataAreOfOneRun) {
  for (int kills = 0; kills < 12; ++kills) {
    const pid_t child = startChild([&]() -> bool {
      for (int run = 0;; ++run) save("out.csv", {"run" + std::to_string(run)}, {{1.0}});
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(30 + 3 * kills));
    kill9(child);
    const std::string cases = contents(folder_ / "out.csv");
    const std::string metadata = contents(folder_ / "out.csv.meta.json");
    const std::string name = "\"" + cases.substr(0, cases.find('\n')) + "\"";
    EXPECT_TRUE(metadata.empty() || metadata.find(name) != std::string::npos) << metadata << name;
  }
  const auto writer = [&](const std::string& name) {
    return startChild([&, name] {
      for (int run = 0; run < 15; ++run) save("out.csv", {name}, {{1.0}});
      return true;
    });
  };
  const pid_t first = writer("first");
  const pid_t second = writer("second");
  statusOf(first);
  statusOf(second);
  EXPECT_THAT(contents(folder_ / "out.csv.meta.json"),
              HasSubstr(contents(folder_ / "out.csv").starts_with("first") ? "first" : "second"));
  EXPECT_THAT(folder_.listing(), ElementsAre("out.csv", "out.csv.meta.json"));
  const std::string longest = std::string(241, 'n') + ".csv";  // with the metadata's ending as long as a name may be
  for (const char* run : {"first", "second"}) EXPECT_TRUE(save(longest, {run}, {{1.0}})) << session_.saveError.text();
}

TEST_F(SaveTest, WhatMayNotBeWrittenIsNamed) {
  const auto target = folder_.write("out.csv", "old");
  std::filesystem::create_directory(folder_ / "open");
  std::filesystem::permissions(folder_ / "open", std::filesystem::perms(0777));
  const auto guarded = folder_.write("open/guarded.csv", "old");
  std::filesystem::permissions(guarded, std::filesystem::perms(0444));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
  const bool root = geteuid() == 0;  // to whom permissions do not apply
  ASSERT_EQ(root ? setresuid(65534, 65534, 0) : 0, 0);
  const bool saved = save("new.csv", {"PRE_1"}, {{1}});
  const std::string overwriting = failureOf(target);
  const std::string replacing = failureOf(guarded);
  ASSERT_EQ(root ? setresuid(0, 0, 0) : 0, 0);
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0755));
  EXPECT_FALSE(saved);
  EXPECT_THAT(session_.saveError.text(),
              AllOf(HasSubstr("new.csv"), HasSubstr("Permission denied"), HasSubstr("may write")));
  EXPECT_THAT(overwriting, HasSubstr("Permission denied"));
  EXPECT_THAT(replacing, HasSubstr("Permission denied"));
  EXPECT_THAT(folder_.listing(), ElementsAre("open", "out.csv"));
  EXPECT_EQ(contents(target) + contents(guarded), "oldold");
}

TEST_F(SaveTest, AnInterruptionRemovesWhatIsStagedAndKeepsTheOldFile) {
  const auto target = folder_.write("out.json", "old");
  const int status = statusOf(startChild([&] {
    endOnInterruption();
    const StagedFile staged(target);
    std::ofstream(staged.path()) << "half";
    kill(getpid(), SIGINT);
    return pause() == 0;
  }));
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 130);
  EXPECT_THAT(folder_.listing(), ElementsAre("out.json"));
  EXPECT_EQ(contents(target), "old");
}

TEST_F(SaveTest, DevicesAreWrittenDirectly) {
  EXPECT_EQ(failureOf("/dev/null"), "");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  EXPECT_THAT(failureOf("/dev/full"),
              AllOf(HasSubstr("/dev/full"), HasSubstr("No space left"), HasSubstr("Make room")));
  std::filesystem::create_symlink("/dev/full", folder_ / "full.csv");
  std::filesystem::create_symlink("/dev/full", folder_ / "full.parquet");
  EXPECT_FALSE(save("full.csv", {"PRE_1"}, {{1}}));
  EXPECT_THAT(session_.saveError.text(), HasSubstr("No space left"));
  EXPECT_FALSE(save("full.parquet", {"PRE_1"}, {{1}}));
  EXPECT_THAT(session_.saveError.text(), HasSubstr("not a regular file"));
  EXPECT_THAT(folder_.listing(), SizeIs(2));
}

TEST_F(SaveTest, LinksStandForTheirFilesLongNamesFitAndFoldersAreRefused) {
  const auto target = folder_.write("real.json", "old");
  std::filesystem::create_symlink("real.json", folder_ / "link.json");
  std::filesystem::create_hard_link(target, folder_ / "backup.json");
  writeFileAtomically(folder_ / "link.json", "new");
  EXPECT_EQ(contents(target), "new");
  EXPECT_EQ(contents(folder_ / "backup.json"), "old") << "written in place";
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "link.json"));
  std::filesystem::create_symlink("later.json", folder_ / "dangling.json");
  writeFileAtomically(folder_ / "dangling.json", "new");
  EXPECT_EQ(contents(folder_ / "later.json"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder_ / "dangling.json"));
  std::filesystem::create_symlink("circle", folder_ / "circle");
  EXPECT_THAT(failureOf(folder_ / "circle"), HasSubstr("Too many levels of symbolic links"));
  EXPECT_THAT(failureOf(folder_.path()), HasSubstr("folder"));
  const std::string longest(255, 'n');  // the staging folder's own mark must find room
  writeFileAtomically(folder_ / longest, "new");
  EXPECT_EQ(contents(folder_ / longest), "new");
}

}  // namespace
}  // namespace workbench
