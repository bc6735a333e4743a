// The division of a corpus's files over ranks, against divisions worked out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "mpi/shares.h"

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

TEST(Shares, EachRankDecodesItsOwnShareAndNoSharesMeanRankZeroRunsAlone) {
  const std::string bytes = EncodeShares({{"x/a b.txt", "c"}, {}, {"d"}});
  EXPECT_THAT(DecodeShare(bytes, 0), ::testing::Optional(Share{"x/a b.txt", "c"}));
  EXPECT_THAT(DecodeShare(bytes, 1), ::testing::Optional(Share{}));
  EXPECT_THAT(DecodeShare(bytes, 2), ::testing::Optional(Share{"d"}));
  EXPECT_EQ(DecodeShare(EncodeShares({}), 1), std::nullopt);
}

}  // namespace
}  // namespace wordtally::testing
