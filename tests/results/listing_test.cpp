#include "results/listing.h"

#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "results/list_summary.h"
#include "results/listing_line.h"
#include "tests/common/scripted_host.h"
#include "tests/results/test_store.h"

namespace wordtally::testing {
namespace {

// apple (3), Zebra (3), banana (5): ranks apple 2, banana 1, Zebra 3; widths 6; longest 6.
class ListingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    store = MakeStore({{"Zebra", 3}, {"apple", 3}, {"banana", 5}});
    stats = RankStore(store, host);
    host.output = "Ranking the words ... .";
    options.onLine = [this](std::string_view line) { lines.emplace_back(line); };
  }
  ListingOutcome List() { return ListWords(store, stats, host, options); }

  ScriptedHost host;
  std::vector<WordListEntry> store;
  ListStatistics stats;
  ListingOptions options;
  std::vector<AnsiString> lines;
};

TEST_F(ListingTest, ByFrequencyAndAlphabetically) {
  options.cboWordOrder = 0;
  options.cboDisplayFormat = kRankFrequencyWord;
  ListingOutcome outcome = List();
  EXPECT_EQ(outcome.end, ListingEnd::Completed);
  EXPECT_FALSE(outcome.blnFileWritten);
  EXPECT_EQ(host.output,
            "   Rank    Freq  Word (longest has 6 characters)\r\n"
            "      1       5  banana\r\n"
            "      2       3  apple\r\n"
            "      3       3  Zebra\r\n");
  EXPECT_EQ(host.setOutputCount, 1);  // the listing replaced the progress text
  EXPECT_EQ(lines, (std::vector<AnsiString>{"   Rank    Freq  Word (longest has 6 characters)",
                                            "      1       5  banana", "      2       3  apple",
                                            "      3       3  Zebra"}));

  // The alphabetical listing shows the same ranks.
  options.cboWordOrder = 1;
  options.cboDisplayFormat = kRankWord;
  outcome = List();
  EXPECT_EQ(outcome.end, ListingEnd::Completed);
  EXPECT_EQ(host.output,
            "   Rank  Word (longest has 6 characters)\r\n"
            "      2  apple\r\n"
            "      1  banana\r\n"
            "      3  Zebra\r\n");
}

TEST_F(ListingTest, AllWordsOnOneLine) {
  options.cboDisplayFormat = kWordWithCommas;
  List();
  EXPECT_EQ(host.output, "Word (longest has 6 characters)\r\nbanana, apple, Zebra");
  EXPECT_EQ(lines, (std::vector<AnsiString>{"Word (longest has 6 characters)",
                                            "banana, apple, Zebra"}));
}

TEST_F(ListingTest, ExcludedWordsAreNotListed) {
  store = MakeStore({{"aaa", 1}, {"bbb", 2}, {"ccc", 1}, {"ddd", 5}});
  stats = RankStore(store, host, true, 2);
  options.cboWordOrder = 1;
  options.cboDisplayFormat = kWordRank;
  List();
  // Two words: rank width 6, word width 6 (minimum), longest 3.
  EXPECT_EQ(host.output,
            "  Word     Rank\r\n"
            "  bbb         2\r\n"
            "  ddd         1\r\n");
}

TEST_F(ListingTest, NothingToList) {
  std::vector<WordListEntry> empty(1);
  ListStatistics none = RankStore(empty, host);
  ListWords(empty, none, host, options);
  EXPECT_EQ(host.output, "No words satisfying the conditions were found.");
  EXPECT_TRUE(lines.empty());

  options.chkIgnoreInfrequentWords = 1;
  options.intThresholdFrequency = 6;
  stats = RankStore(store, host, true, 6);
  List();
  EXPECT_EQ(host.output, "No words with more than 2 letters occur at least 6 times.");

  options.intThresholdFrequency = 2;
  auto once = MakeStore({{"aaa", 1}, {"bbb", 1}});
  none = RankStore(once, host, true, 2);
  ListWords(once, none, host, options);
  EXPECT_EQ(host.output, "No words with more than 2 letters occur at least twice.");
  EXPECT_TRUE(lines.empty());

  EXPECT_EQ(NothingToListText(4, false, 3),
            "No words with more than 2 letters occur at least once.");
}

TEST_F(ListingTest, StopAfterTheSecondWord) {
  bool stop = false;
  options.blnStop = &stop;
  options.cboDisplayFormat = kRankFrequency;
  host.processEventsCount = 0;
  host.onProcessEvents = [&] { stop = host.processEventsCount == 2; };
  const ListingOutcome outcome = List();
  EXPECT_EQ(outcome.end, ListingEnd::Stopped);
  EXPECT_EQ(host.output,
            "   Rank    Freq\r\n"
            "      1       5\r\n"
            "      2       3\r\n"
            "Listing stopped.");

  // Format 9's words line has no line break of its own: the note still starts a new line.
  stop = false;
  host.processEventsCount = 0;
  options.cboDisplayFormat = kWordWithCommas;
  List();
  EXPECT_EQ(host.output, "Word (longest has 6 characters)\r\nbanana, apple\r\nListing stopped.");
}

// 5000 words counted once, format 2: every line, header included, is 15 characters and CR LF.
// The first move shows the header and 20 lines (357 characters), every further one 340; after
// 190 further moves the text holds 64957 characters, and one more would pass 65000.
TEST_F(ListingTest, TextboxLimitKeepsTheCallbackComplete) {
  store.assign(1, WordListEntry());
  for (int i = 0; i < 5000; ++i) {
    char word[8];
    std::snprintf(word, sizeof word, "w%05d", i);
    store.push_back({word, word, 1, 0, 0, true});
  }
  stats = RankStore(store, host);
  options.cboDisplayFormat = kRankFrequency;
  for (int order : {0, 1}) {
    lines.clear();
    options.cboWordOrder = order;
    const ListingOutcome outcome = List();
    EXPECT_EQ(outcome.end, ListingEnd::TextboxFull);
    EXPECT_EQ(outcome.strProcedure,
              order == 0 ? "ListWordsByFrequency A" : "ListWordsAlphabetically A");
    ASSERT_EQ(host.output.size(), 64957u);
    EXPECT_EQ(host.output.substr(0, 34), "   Rank    Freq\r\n      1       1\r\n");
    EXPECT_EQ(host.output.substr(64957 - 17), "   3820       1\r\n");
    ASSERT_EQ(lines.size(), 5001u);
    EXPECT_EQ(lines.back(), "   5000       1");
  }
}

TEST(ListStatisticsLabels, CaptionsAndNumbers) {
  ScriptedHost host;
  ListStatistics stats;
  stats.lngNumWordsIncluded = 1234;
  stats.lngNumWordsExcluded = 5;
  stats.lngNumOccurrences = 98765;
  ShowListStatistics(host, stats, 1234567, 12, true);
  EXPECT_EQ(host.Caption(Control::StatWordsInList), "Number of words in this list: 1,234");
  EXPECT_EQ(host.Caption(Control::StatWordsIgnored),
            "No. of words ignored (other than common words): 12");
  EXPECT_EQ(host.Caption(Control::StatWordsExcluded), "Number of words excluded: 5");
  EXPECT_EQ(host.Caption(Control::StatInstancesInList),
            "Number of instances of words in this list: 98,765");
  EXPECT_TRUE(host.Visible(Control::StatInstancesInList));
  EXPECT_EQ(host.Caption(Control::StatTotalInstances),
            "Total number of instances of words: 1,234,567");

  stats.lngNumOccurrences = 0;
  ShowListStatistics(host, stats, 0, 0, false);
  EXPECT_EQ(host.Caption(Control::StatWordsIgnored), "Number of words ignored: 0");
  EXPECT_FALSE(host.Visible(Control::StatInstancesInList));
}

}  // namespace
}  // namespace wordtally::testing
