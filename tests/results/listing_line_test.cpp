#include "results/listing_line.h"

#include <gtest/gtest.h>

#include "tests/common/scripted_host.h"
#include "tests/results/test_store.h"

namespace wordtally::testing {
namespace {

AnsiString Line(const ListingLayout& layout, const std::vector<WordListEntry>& store, int32_t i) {
  AnsiString line = "left over";
  BuildListingLine(layout, store, i, line);
  return line;
}

class ListingLineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    store = MakeStore({{"Zebra", 3}, {"apple", 3}, {"banana", 5}});
    stats = RankStore(store, host);
    ASSERT_EQ(store[1].Word, "apple");
  }
  ScriptedHost host;
  std::vector<WordListEntry> store;
  ListStatistics stats;
};

TEST_F(ListingLineTest, EveryFormatWithBlanksAndWithCommas) {
  // Widths 6, 6, 6; the longest word, "banana", has 6 characters. Per format: header and apple
  // (rank 2, frequency 3) with blanks, then with commas.
  const char* const longest = "Word (longest has 6 characters)";
  const std::array<const char*, 4> expected[kNumDisplayFormats] = {
      {"   Rank    Freq  Word (longest has 6 characters)", "      2       3  apple",
       "    Rank,    Freq,  Word (longest has 6 characters)", "       2,       3,  apple"},
      {"   Rank  Word      Freq", "      2  apple        3", "    Rank,  Word,   Freq",
       "       2,  apple,      3"},
      {"   Rank    Freq", "      2       3", "    Rank,    Freq", "       2,       3"},
      {"   Rank  Word (longest has 6 characters)", "      2  apple",
       "    Rank,  Word (longest has 6 characters)", "       2,  apple"},
      {"   Freq    Rank", "      3       2", "    Freq,    Rank", "       3,       2"},
      {"    Freq  Word (longest has 6 characters)", "       3  apple",
       "    Freq,  Word (longest has 6 characters)", "       3,  apple"},
      {"  Word     Rank", "  apple       2", "  Word,   Rank", "  apple,      2"},
      {"  Word     Freq", "  apple       3", "  Word,   Freq", "  apple,      3"},
      {longest, "apple", longest, "apple"},
      {longest, "apple", longest, "apple"},
  };
  for (int format = 0; format < kNumDisplayFormats; ++format) {
    for (const bool commas : {false, true}) {
      SCOPED_TRACE(::testing::Message() << "format " << format << (commas ? " commas" : ""));
      const ListingLayout layout = MakeListingLayout(stats, 6, format, commas);
      EXPECT_EQ(Line(layout, store, 0), expected[format][commas * 2]);
      EXPECT_EQ(Line(layout, store, 1), expected[format][commas * 2 + 1]);
    }
  }
}

TEST_F(ListingLineTest, SingleFieldsAndWidths) {
  ListingLayout layout = MakeListingLayout(stats, 6, kRankWordFrequency, false);
  AnsiString text = "x";
  RankText(layout, store, 2, text);
  FreqText(layout, store, 0, text);
  WordText(layout, store, 3, text);
  EXPECT_EQ(text, "x     1  FreqZebra ");

  // 12 words, highest frequency 345, longest word 4: every width stays at the minimum of 6.
  ListStatistics small;
  small.lngNumWordsIncluded = 12;
  small.lngMaxFrequency = 345;
  small.intMaxWordLengthFound = 4;
  layout = MakeListingLayout(small, 6, kRankFrequencyWord, false);
  EXPECT_EQ(std::tuple(layout.intRankWidth, layout.intFreqWidth, layout.intWordWidth),
            std::tuple(6, 6, 6));

  // More than 999999 words, a frequency of eight digits and a word of 9 characters.
  ListStatistics large = small;
  large.lngNumWordsIncluded = 1000000;
  large.lngMaxFrequency = 12345678;
  large.intMaxWordLengthFound = 9;
  auto big = MakeStore({{"zebra", 7}});
  big[1].FreqOrder = 1000000;
  for (const auto& [format, header, zebra] :
       {std::tuple{kRankFrequencyWord, "    Rank      Freq  Word (longest has 9 characters)",
                   " 1000000         7  zebra"},
        std::tuple{kWordFrequency, "  Word          Freq", "  zebra            7"},
        std::tuple{kFrequencyRank, "     Freq     Rank", "        7  1000000"}}) {
    layout = MakeListingLayout(large, 6, format, false);
    EXPECT_EQ(Line(layout, big, 0), header);
    EXPECT_EQ(Line(layout, big, 1), zebra);
  }
  // A larger minimum widens every column.
  layout = MakeListingLayout(small, 8, kRankWord, false);
  EXPECT_EQ(Line(layout, big, 0), "     Rank  Word (longest has 4 characters)");
}

}  // namespace
}  // namespace wordtally::testing
