#include "input/line_reader.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "tests/input/test_files.h"

namespace wordtally {
namespace {

using testing::TestFiles;
using Lines = std::vector<std::string>;

Lines AllLines(LineReader& reader) {
  Lines lines;
  std::string_view line;
  while (reader.NextLine(line)) lines.emplace_back(line);
  return lines;
}

Lines LinesOfText(std::string text) {
  LineReader reader;
  reader.OpenText(std::move(text));
  return AllLines(reader);
}

TEST(LineReaderTest, EveryLineEndStyleEndsALine) {
  EXPECT_EQ(LinesOfText("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
  EXPECT_EQ(LinesOfText("a\n"), (Lines{"a"}));
  EXPECT_EQ(LinesOfText("\n\n"), (Lines{"", ""}));
  EXPECT_EQ(LinesOfText("a\r\r\nb\n\rc"), (Lines{"a", "", "b", "", "c"}));
  EXPECT_EQ(LinesOfText(""), Lines{});
  // Progress: bytes consumed so far of the whole.
  LineReader reader;
  reader.OpenText("ab\r\ncd\n");
  std::string_view line;
  ASSERT_TRUE(reader.NextLine(line));
  EXPECT_EQ(reader.BytesConsumed(), 4);
  EXPECT_EQ(reader.Size(), 7);
}

TEST(LineReaderTest, LinesCrossBlockBoundaries) {
  TestFiles files;
  // With 16-byte blocks the CR is the block's last byte and its LF the next block's first.
  LineReader reader(16);
  ASSERT_TRUE(reader.Open(files.Write("split.txt", std::string(15, 'a') + "\r\nbbb")));
  EXPECT_EQ(AllLines(reader), (Lines{std::string(15, 'a'), "bbb"}));
  EXPECT_EQ(reader.ErrorNumber(), 0);
  const std::string longLine(100, 'x');
  ASSERT_TRUE(reader.Open(files.Write("long.txt", "s\n" + longLine + "\r\nt")));
  EXPECT_EQ(AllLines(reader), (Lines{"s", longLine, "t"}));

  // Many lines of every ending style through small blocks.
  std::string text;
  Lines expected;
  const char* endings[] = {"\r\n", "\n", "\r"};
  for (int i = 0; i < 3000; ++i) {
    expected.push_back("line " + std::to_string(i) + std::string(i % 23, '.'));
    text += expected.back() + endings[i % 3];
  }
  LineReader smallBlocks(64);
  ASSERT_TRUE(smallBlocks.Open(files.Write("many.txt", text)));
  EXPECT_EQ(smallBlocks.Size(), std::ssize(text));
  EXPECT_EQ(AllLines(smallBlocks), expected);
  EXPECT_EQ(smallBlocks.BytesConsumed(), std::ssize(text));
}

TEST(LineReaderTest, OpenFailuresCarryTheRunErrorNumber) {
  EXPECT_EQ(RunErrorNumberOf(EACCES), 70);
  EXPECT_EQ(RunErrorNumberOf(ENOENT), 53);
  EXPECT_EQ(RunErrorNumberOf(EIO), 75);
  EXPECT_EQ(RunErrorNumberOf(EISDIR), 75);
  TestFiles files;
  LineReader reader;
  EXPECT_FALSE(reader.Open(files.Path("missing.txt")));
  EXPECT_EQ(reader.ErrorNumber(), 53);
  EXPECT_EQ(reader.ErrorDescription(), "File not found");
  std::string_view line;
  EXPECT_FALSE(reader.NextLine(line));

  ASSERT_EQ(::mkdir(files.Path("folder.txt").c_str(), 0700), 0);
  EXPECT_FALSE(reader.Open(files.Path("folder.txt")));
  EXPECT_EQ(reader.ErrorNumber(), 75);

  EXPECT_TRUE(reader.Open(files.Write("empty.txt", "")));
  EXPECT_FALSE(reader.NextLine(line));
  EXPECT_EQ(reader.ErrorNumber(), 0);
}

TEST(LineReaderTest, PermissionDeniedIsSeventy) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may read any file";
  TestFiles files;
  LineReader reader;
  const std::string locked = files.Write("locked.txt", "secret");
  ASSERT_EQ(::chmod(locked.c_str(), 0), 0);
  EXPECT_FALSE(reader.Open(locked));
  EXPECT_EQ(reader.ErrorNumber(), 70);
  EXPECT_EQ(reader.ErrorDescription(), "Permission denied");
}

}  // namespace
}  // namespace wordtally
