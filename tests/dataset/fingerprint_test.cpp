// The fingerprint against coreutils' sha256sum, over bytes written by hand.

#include "workbench/dataset/fingerprint.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/dataset/temp_folder.h"

namespace workbench {
namespace {

std::string sha256sum(const std::string& bytes) {
  const TempFolder folder;
  folder.write("bytes", bytes);
  const std::string command = "cd " + folder.path().string() + " && sha256sum < bytes > digits";
  return std::system(command.c_str()) == 0 ? contents(folder / "digits").substr(0, 64) : "no sha256sum";
}

TEST(Fingerprint, IsThatOfTheBytesDescribed) {
  using namespace std::string_literals;
  Dataset dataset;
  dataset.columns.resize(3);
  dataset.columns[0].name = "Größe";
  dataset.columns[0].numbers = {1.0, kSystemMissing};
  dataset.columns[1].name = "when";
  dataset.columns[1].kind = ColumnKind::instant;
  dataset.columns[1].instants = {258, -1};
  dataset.columns[2].name = "name";
  dataset.columns[2].kind = ColumnKind::text;
  dataset.columns[2].texts = {"a", ""};
  dataset.rowCount = 2;
  const std::string numbers = "Größe\0n\0\0\0\0\0\0\xF0\x3F\xFF\xFF\xFF\xFF\xFF\xFF\xEF\xFF"s;
  const std::string instants = "when\0i\2\1\0\0\0\0\0\0"s + std::string(8, '\xFF');
  const std::string texts = "name\0ta\0\0"s;
  const std::string wanted = sha256sum(sha256sum(numbers) + sha256sum(instants) + sha256sum(texts));
  EXPECT_EQ(fingerprint(dataset), wanted);
  dataset.columns[0].label = "a label";
  dataset.columns[0].userMissing = {1.0};
  EXPECT_EQ(fingerprint(dataset), wanted);
  dataset.columns[0].numbers[0] = 1.0000000000000002;
  EXPECT_NE(fingerprint(dataset), wanted);
}

}  // namespace
}  // namespace workbench
