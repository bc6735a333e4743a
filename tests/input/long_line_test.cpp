// Over-long lines come in pieces cut at a blank; standard input streams through the same reader.
#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "input/line_reader.h"
#include "tests/input/test_files.h"

namespace wordtally::testing {
namespace {

using Pieces = std::vector<std::pair<std::string, bool>>;  // text, the line goes on

Pieces AllPieces(LineReader& reader) {
  Pieces pieces;
  std::string_view line;
  while (reader.NextLine(line)) pieces.emplace_back(line, reader.LineGoesOn());
  return pieces;
}

TEST(LongLineTest, CutBeforeTheLastBlankWithinTheMaximum) {
  struct Case {
    std::string text;
    std::size_t maxLength;
    Pieces pieces;
  };
  for (const Case& c : {
           Case{"one two three", 7, {{"one two", true}, {"three", false}}},
           Case{"one two", 7, {{"one two", false}}},
           Case{"abcdefghij", 4, {{"abcd", true}, {"efgh", true}, {"ij", false}}},
           Case{"ab\tcd ef\r\ngh", 4, {{"ab", true}, {"cd", true}, {"ef", false}, {"gh", false}}},
           Case{"abcd efgh", 4, {{"abcd", true}, {"efgh", false}}},
       }) {
    SCOPED_TRACE(c.text);
    LineReader reader(16, c.maxLength);
    reader.OpenText(c.text);
    EXPECT_EQ(AllPieces(reader), c.pieces);
  }

  // A long line of a file read through small blocks: no piece is longer than the maximum, and
  // the pieces joined by blanks give the line again.
  std::string line;
  for (int i = 0; i < 200; ++i) line += "word" + std::to_string(i) + (i % 7 ? " " : "\t");
  TestFiles files;
  LineReader reader(16, 32);
  ASSERT_TRUE(reader.Open(files.Write("long.txt", line + "\r\nend")));
  std::string joined;
  const Pieces pieces = AllPieces(reader);
  for (const auto& [text, goesOn] : pieces) {
    EXPECT_LE(text.size(), 32u);
    if (text == "end") break;
    joined += text + (goesOn ? " " : "");
  }
  // The blank dropped at a cut may have been a tab.
  std::replace(line.begin(), line.end(), '\t', ' ');
  std::replace(joined.begin(), joined.end(), '\t', ' ');
  EXPECT_EQ(joined, line);
  EXPECT_EQ(pieces.back(), (std::pair<std::string, bool>{"end", false}));
}

TEST(LongLineTest, Utf8StreamIsReadAsItArrives) {
  int pipeEnds[2];
  ASSERT_EQ(::pipe(pipeEnds), 0);
  const std::string text = "Caf\xC3\xA9 \xE2\x82\xAC 1\r\n\xE4\xB8\xAD \xC3\r\nend";
  ASSERT_EQ(::write(pipeEnds[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  ::close(pipeEnds[1]);
  LineReader reader(16);
  reader.OpenUtf8Stream(pipeEnds[0]);
  EXPECT_EQ(reader.Peek(4), "Caf\xC3");  // as it stands in the input
  EXPECT_EQ(reader.Peek(1000), text);
  EXPECT_EQ(reader.Size(), 0);
  EXPECT_EQ(AllPieces(reader),
            (Pieces{{"Caf\xE9 \x80 1", false}, {"? ?", false}, {"end", false}}));
  EXPECT_EQ(reader.ErrorNumber(), 0);
}

}  // namespace
}  // namespace wordtally::testing
