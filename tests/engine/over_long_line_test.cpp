// A line of 2 GiB or more gives the words a shorter line gives, and a comment to the end of a
// line goes on through the pieces the line is read in.
#include <fcntl.h>
#include <unistd.h>

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "engine/word_extraction.h"
#include "tests/engine/whole_run_fixture.h"

namespace wordtally::testing {
namespace {

using Counts = std::map<AnsiString, int32_t>;

class OverLongLineTest : public WholeRunTest {
 protected:
  Counts StoreCounts() const {
    Counts counts;
    const auto list = ctx.store.WordList();
    for (size_t i = 1; i < list.size(); ++i) counts[list[i].Word] = list[i].Frequency;
    return counts;
  }
};

TEST_F(OverLongLineTest, TwoGibibyteLineGivesItsWords) {
  // Words, then a 2 GiB hole in the file (NUL bytes that take no disk), then more words, all on
  // one line; the type "dat" spares the file the search for a charset.
  const std::string path = WriteFile("huge.dat", Repeated("alpha beta ", 2000));
  const int fd = ::open(path.c_str(), O_WRONLY);
  ASSERT_GE(fd, 0);
  constexpr std::string_view kTail = " gamma alpha\r\n";
  const off_t tailAt = (off_t{1} << 31) + 512;
  ASSERT_EQ(::pwrite(fd, kTail.data(), kTail.size(), tailAt), static_cast<ssize_t>(kTail.size()));
  ::close(fd);
  host.answers = {Answer::No};  // no output file for the large input
  CountFile(path);
  EXPECT_EQ(StoreCounts(), (Counts{{"alpha", 2001}, {"beta", 2000}, {"gamma", 1}}));
  EXPECT_TRUE(ctx.run.blnWordsGot);
}

TEST_F(OverLongLineTest, CommentToTheEndOfTheLineGoesOnIntoTheNextPiece) {
  LineWalker walker(ctx);
  for (const bool goesOn : {true, false}) {
    for (const char* piece : {"alpha // beta", "gamma", "delta"}) {
      ctx.run.strLine = AnsiString(piece) + " ";
      ctx.run.comment.lineGoesOn = goesOn && piece != std::string_view("delta");
      walker.WalkLine();
    }
  }
  // Cut: "delta" is the last piece of the line the comment began on; not cut: only "beta" is
  // comment.
  EXPECT_EQ(StoreCounts(), (Counts{{"alpha", 2}, {"delta", 1}, {"gamma", 1}}));
}

}  // namespace
}  // namespace wordtally::testing
