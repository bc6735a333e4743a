// The division of a corpus's files over ranks, in shares and rounds, against divisions worked
// out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mpi/shares.h"

namespace wordtally {
// A round as a failure shows it.
void PrintTo(const Round& round, std::ostream* out) {
  *out << (round.largeFile.empty() ? "shares " + ::testing::PrintToString(round.shares)
                                   : "large file " + round.largeFile);
}
}  // namespace wordtally

namespace wordtally::testing {
namespace {

using ::testing::ElementsAre;

TEST(Shares, FilesGoInInputOrderToTheRankHoldingTheirMiddleByte) {
  // 100 bytes in all, 50 per rank: middles at 5, 20, 50, 85 -> ranks 0, 0, 1, 1.
  EXPECT_THAT(DivideIntoShares({"a", "b", "c", "d"}, {10, 20, 40, 30}, 2),
              ElementsAre(Share{"a", "b"}, Share{"c", "d"}));
  // One large file: its middle is rank 1's of three; ranks 0 and 2 get the small ones.
  EXPECT_THAT(DivideIntoShares({"a", "big", "z"}, {1, 97, 2}, 3),
              ElementsAre(Share{"a"}, Share{"big"}, Share{"z"}));
  // More ranks than files: some shares stay empty. Empty files are divided by their count.
  EXPECT_THAT(DivideIntoShares({"a"}, {5}, 3), ElementsAre(Share{}, Share{"a"}, Share{}));
  EXPECT_THAT(DivideIntoShares({"a", "b", "c", "d"}, {0, 0, 0, 0}, 2),
              ElementsAre(Share{"a", "b"}, Share{"c", "d"}));
}

TEST(Shares, EachRankDecodesItsOwnShare) {
  const std::string bytes = EncodeShares({{"x/a b.txt", "c"}, {}, {"d"}});
  EXPECT_THAT(DecodeShare(bytes, 0), ElementsAre("x/a b.txt", "c"));
  EXPECT_THAT(DecodeShare(bytes, 1), ElementsAre());
  EXPECT_THAT(DecodeShare(bytes, 2), ElementsAre("d"));
}

MATCHER_P(SharesRound, shares, "") { return arg.largeFile.empty() && arg.shares == shares; }
MATCHER_P(LargeFileRound, file, "") { return arg.shares.empty() && arg.largeFile == file; }

TEST(Shares, AFileOverAPieceAndARanksPartHasARoundOfItsOwn) {
  const std::vector<std::string> files{"a", "big", "c", "d", "huge"};
  // 400 bytes on 2 ranks: 200 each; pieces of 50. "big" (200) is large, "huge" (150) is not:
  // it is shared with "c" and "d" (180 bytes; middles at 5, 20, 105 of 90 a rank).
  EXPECT_THAT(PlanRounds(files, {20, 200, 10, 20, 150}, 2, 50),
              ElementsAre(SharesRound(std::vector<Share>{{}, {"a"}}), LargeFileRound("big"),
                          SharesRound(std::vector<Share>{{"c", "d"}, {"huge"}})));
  // On 4 ranks (100 each) both are large; the files between them are shared out.
  EXPECT_THAT(PlanRounds(files, {20, 200, 10, 20, 150}, 4, 50),
              ElementsAre(SharesRound(std::vector<Share>{{}, {}, {"a"}, {}}),
                          LargeFileRound("big"),
                          SharesRound(std::vector<Share>{{"c"}, {}, {"d"}, {}}),
                          LargeFileRound("huge")));
  // A file not over one piece is never split, nor anything on one rank.
  EXPECT_THAT(PlanRounds({"a", "b"}, {10, 90}, 2, 90),
              ElementsAre(SharesRound(std::vector<Share>{{"a"}, {"b"}})));
  EXPECT_THAT(PlanRounds({"a", "b"}, {10, 900}, 1, 90),
              ElementsAre(SharesRound(std::vector<Share>{{"a", "b"}})));
  // No files: one round of empty shares.
  EXPECT_THAT(PlanRounds({}, {}, 3, 90), ElementsAre(SharesRound(std::vector<Share>(3))));
}

}  // namespace
}  // namespace wordtally::testing
