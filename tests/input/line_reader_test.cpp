#include "input/line_reader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <cerrno>
#include <unistd.h>

#include <string>
#include <vector>

#include "tests/input/test_files.h"

namespace wordtally {
namespace {

using testing::TestFiles;

std::vector<std::string> AllLines(LineReader& reader) {
  std::vector<std::string> lines;
  std::string_view line;
  while (reader.NextLine(line)) lines.emplace_back(line);
  return lines;
}

std::vector<std::string> LinesOfText(std::string text) {
  LineReader reader;
  reader.OpenText(std::move(text));
  return AllLines(reader);
}

using Lines = std::vector<std::string>;

TEST(LineReaderTest, EveryLineEndStyleEndsALine) {
  EXPECT_EQ(LinesOfText("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
  EXPECT_EQ(LinesOfText("a\n"), (Lines{"a"}));
  EXPECT_EQ(LinesOfText("\n\n"), (Lines{"", ""}));
  EXPECT_EQ(LinesOfText("a\r\r\nb\n\rc"), (Lines{"a", "", "b", "", "c"}));
  EXPECT_EQ(LinesOfText(""), Lines{});
}

TEST(LineReaderTest, LinesCrossBlockBoundaries) {
  TestFiles files;
  // With 16-byte blocks the CR is the block's last byte and its LF the next block's first.
  std::string crLfSplit = std::string(15, 'a') + "\r\nbbb";
  LineReader reader(16);
  ASSERT_TRUE(reader.Open(files.Write("split.txt", crLfSplit)));
  EXPECT_EQ(AllLines(reader), (Lines{std::string(15, 'a'), "bbb"}));
  EXPECT_EQ(reader.ErrorNumber(), 0);

  std::string longLine(100, 'x');
  ASSERT_TRUE(reader.Open(files.Write("long.txt", "s\n" + longLine + "\r\nt")));
  EXPECT_EQ(AllLines(reader), (Lines{"s", longLine, "t"}));

  // Many lines of every ending style through small blocks.
  std::string text;
  Lines expected;
  const char* endings[] = {"\r\n", "\n", "\r"};
  for (int i = 0; i < 3000; ++i) {
    std::string line = "line " + std::to_string(i) + std::string(i % 23, '.');
    expected.push_back(line);
    text += line + endings[i % 3];
  }
  LineReader smallBlocks(64);
  ASSERT_TRUE(smallBlocks.Open(files.Write("many.txt", text)));
  EXPECT_EQ(smallBlocks.Size(), static_cast<int64_t>(text.size()));
  EXPECT_EQ(AllLines(smallBlocks), expected);
  EXPECT_EQ(smallBlocks.BytesConsumed(), static_cast<int64_t>(text.size()));
}

TEST(LineReaderTest, ReportsProgress) {
  LineReader reader;
  reader.OpenText("ab\r\ncd\n");
  std::string_view line;
  ASSERT_TRUE(reader.NextLine(line));
  EXPECT_EQ(reader.BytesConsumed(), 4);
  EXPECT_EQ(reader.Size(), 7);
}

TEST(LineReaderTest, OpenFailuresCarryTheRunErrorNumber) {
  TestFiles files;
  LineReader reader;
  EXPECT_FALSE(reader.Open(files.Path("missing.txt")));
  EXPECT_EQ(reader.ErrorNumber(), 53);
  EXPECT_EQ(reader.ErrorDescription(), "File not found");
  std::string_view line;
  EXPECT_FALSE(reader.NextLine(line));

  std::string folder = files.Path("folder.txt");
  ASSERT_EQ(::mkdir(folder.c_str(), 0700), 0);
  EXPECT_FALSE(reader.Open(folder));
  EXPECT_EQ(reader.ErrorNumber(), 75);

  EXPECT_TRUE(reader.Open(files.Write("empty.txt", "")));
  EXPECT_FALSE(reader.NextLine(line));
  EXPECT_EQ(reader.ErrorNumber(), 0);
}

TEST(LineReaderTest, OperatingSystemErrorsMapToRunErrorNumbers) {
  EXPECT_EQ(RunErrorNumberOf(EACCES), 70);
  EXPECT_EQ(RunErrorNumberOf(ENOENT), 53);
  EXPECT_EQ(RunErrorNumberOf(EIO), 75);
  EXPECT_EQ(RunErrorNumberOf(EISDIR), 75);
}

TEST(LineReaderTest, PermissionDeniedIsSeventy) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may read any file";
  TestFiles files;
  std::string path = files.Write("locked.txt", "secret");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  LineReader reader;
  EXPECT_FALSE(reader.Open(path));
  EXPECT_EQ(reader.ErrorNumber(), 70);
  EXPECT_EQ(reader.ErrorDescription(), "Permission denied");
}

}  // namespace
}  // namespace wordtally
