#include "results/sorting.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/run_error.h"
#include "tests/common/scripted_host.h"
#include "tests/results/test_store.h"

namespace wordtally::testing {
namespace {

using Words = std::vector<AnsiString>;

// The sort written straight down as plain recursion, first the left part, then the right part.
void LiteralQuickSort(std::vector<WordListEntry>& list, int32_t lo, int32_t hi) {
  if (lo >= hi) return;
  int32_t i = lo, j = hi;
  const AnsiString pivot = list[lo + (hi - lo) / 2].SortKey;
  while (i <= j) {
    while (i < hi && CompareCodeUnits(list[i].SortKey, pivot) < 0) ++i;
    while (j > lo && CompareCodeUnits(list[j].SortKey, pivot) > 0) --j;
    if (i <= j) {
      if (i < j) std::swap(list[i], list[j]);
      ++i;
      --j;
    }
  }
  if (lo < j) LiteralQuickSort(list, lo, j);
  if (i < hi) LiteralQuickSort(list, i, hi);
}

// The two-pass numbering and chaining, scanning the store once per frequency and once per link.
void LiteralFrequencyOrder(std::vector<WordListEntry>& list, const ListStatistics& stats,
                           int32_t& first) {
  const auto n = static_cast<int32_t>(list.size() - 1);
  for (int32_t i = 1; i <= n; ++i) list[i].FreqOrder = list[i].NextByFreq = 0;
  int32_t rank = 0;
  first = 0;
  for (int32_t f = stats.lngMaxFrequency; f >= 1; --f) {
    for (int32_t i = 1; i <= n; ++i) {
      if (list[i].Included && list[i].Frequency == f) {
        list[i].FreqOrder = ++rank;
        if (rank == 1) first = i;
      }
    }
  }
  if (first == 0) return;
  int32_t prev = first;
  for (int32_t r = 1; r < stats.lngNumWordsIncluded; ++r) {
    for (int32_t i = 1; i <= n; ++i) {
      if (list[i].FreqOrder == r + 1) {
        list[prev].NextByFreq = i;
        prev = i;
        break;
      }
    }
  }
}

// Entries whose Word tells them apart while many share a SortKey.
std::vector<WordListEntry> ManyEqualKeys(int32_t n, int distinctKeys, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<WordListEntry> list(1);
  for (int32_t i = 0; i < n; ++i) {
    WordListEntry e;
    e.Word = std::string("w").append(std::to_string(i));
    e.SortKey = std::string("k").append(std::to_string(random() % distinctKeys));
    e.Frequency = static_cast<int32_t>(random() % 4) + 1;
    e.Included = true;
    list.push_back(e);
  }
  return list;
}

TEST(QuickSortWords, EqualKeysEndWhereTheStepsLeaveThem) {
  // Two equal keys: the middle entry is the first; neither scan moves, so the two are exchanged.
  auto store = MakeStore({{"Word", 1}, {"word", 1}});
  QuickSortWords(store, 1, 2, 1);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"word", "Word"}));

  // Three equal keys: first and last are exchanged, the middle one meets itself.
  store = MakeStore({{"AAA", 1}, {"Aaa", 1}, {"aaa", 1}});
  QuickSortWords(store, 1, 3, 1);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"aaa", "Aaa", "AAA"}));

  // "\xC4rger" (Ärger) and "Aerger" share the key "aerger" and stay adjacent.
  store = MakeStore({{"Aerger", 1}, {"Zorn", 1}, {"\xC4rger", 1}});
  QuickSortWords(store, 1, 3, 1);
  // Pivot "zorn" (index 2): i stops at 2, j at 3; exchange -> Aerger, Ärger, Zorn; i=3, j=2.
  // Then 1..2 with pivot "aerger": exchange -> Ärger, Aerger.
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"\xC4rger", "Aerger", "Zorn"}));
}

TEST(QuickSortWords, OrdersByKeyInCodeUnitOrder) {
  // "\xD6l" (Öl) sorts as "oel": after "ode", before "of".
  auto store = MakeStore({{"ode", 1}, {"of", 1}, {"\xD6l", 1}});
  QuickSortWords(store, 1, 3, 1);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"ode", "\xD6l", "of"}));

  // Case and accents are neutralised by the key: apple, banana, Zebra, \xC9lan (Élan) as elan.
  store = MakeStore({{"Zebra", 1}, {"apple", 1}, {"banana", 1}, {"\xC9lan", 1}});
  QuickSortWords(store, 1, 4, 1);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"apple", "banana", "\xC9lan", "Zebra"}));

  // Small "\xFE" (U+00FE) comes before small "\x9C" (U+0153) although its byte is larger.
  // (A byte-order comparison would exchange the two.)
  store = MakeStore({{"\xFEorn", 1}, {"\x9C" "uvre", 1}});
  QuickSortWords(store, 1, 2, 1);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"\xFEorn", "\x9C" "uvre"}));

  // From position 2 only "b", "a", "c" and "" (a key shorter than the position) are compared.
  store = MakeStore({{"xc", 1}, {"y", 1}, {"ya", 1}, {"zb", 1}});
  QuickSortWords(store, 1, 4, 2);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"y", "ya", "zb", "xc"}));

  // A part of the store: entries outside lo..hi stay put.
  store = MakeStore({{"aaa", 1}, {"bbb", 1}, {"ccc", 1}, {"ddd", 1}});
  std::reverse(store.begin() + 1, store.end());
  QuickSortWords(store, 2, 4, 1);
  EXPECT_EQ(WordsInStoreOrder(store), (Words{"ddd", "aaa", "bbb", "ccc"}));
}

TEST(QuickSortWords, BoundedRecursionGivesTheLiteralOrder) {
  for (const auto& [n, keys, seed] : {std::tuple{3000, 5, 1u}, std::tuple{3000, 2, 2u},
                                       std::tuple{5000, 1, 3u}, std::tuple{200000, 50, 4u},
                                       std::tuple{2, 1, 5u}, std::tuple{1, 1, 6u}}) {
    auto expected = ManyEqualKeys(n, keys, seed);
    auto actual = expected;
    LiteralQuickSort(expected, 1, n);
    QuickSortWords(actual, 1, n, 1);
    ASSERT_EQ(WordsInStoreOrder(actual), WordsInStoreOrder(expected)) << n << " words, " << keys;
  }
  std::vector<WordListEntry> empty(1);
  QuickSortWords(empty, 1, 0, 1);
  EXPECT_EQ(empty.size(), 1u);
}

// FreqOrder and NextByFreq of every entry in store order, and the statistics in field order.
std::vector<int32_t> Ranks(const std::vector<WordListEntry>& store) {
  std::vector<int32_t> ranks;
  for (size_t i = 1; i < store.size(); ++i) ranks.push_back(store[i].FreqOrder);
  return ranks;
}
std::vector<int32_t> Chain(const std::vector<WordListEntry>& store) {
  std::vector<int32_t> next;
  for (size_t i = 1; i < store.size(); ++i) next.push_back(store[i].NextByFreq);
  return next;
}
std::vector<int32_t> Numbers(const ListStatistics& s) {
  return {s.lngNumWordsIncluded, s.lngNumWordsExcluded, s.lngNumOccurrences, s.lngMaxFrequency,
          s.intMaxWordLengthFound, s.lngFirstFreq};
}
using Ints = std::vector<int32_t>;

TEST(Ranking, AppleZebraBanana) {
  ScriptedHost host;
  auto store = MakeStore({{"Zebra", 3}, {"apple", 3}, {"banana", 5}});
  const ListStatistics stats = RankStore(store, host);
  ASSERT_EQ(WordsInStoreOrder(store), (Words{"apple", "banana", "Zebra"}));
  EXPECT_EQ(Ranks(store), (Ints{2, 1, 3}));
  EXPECT_EQ(Chain(store), (Ints{3, 1, 0}));  // banana -> apple -> Zebra
  EXPECT_EQ(Numbers(stats), (Ints{3, 0, 11, 5, 6, 2}));
  EXPECT_EQ(host.output, "");  // no progress mark below 1000 links

  auto one = MakeStore({{"solo", 4}});
  EXPECT_EQ(RankStore(one, host).lngFirstFreq, 1);
  EXPECT_EQ(Ranks(one), Ints{1});
  EXPECT_EQ(Chain(one), Ints{0});
}

TEST(Ranking, ThresholdExcludesInfrequentWords) {
  ScriptedHost host;
  auto store = MakeStore({{"aaa", 1}, {"bbb", 2}, {"caf\xE9s", 1}, {"ddd", 5}});
  // "cafés" is excluded: the longest word has 3 characters.
  EXPECT_EQ(Numbers(RankStore(store, host, true, 2)), (Ints{2, 2, 7, 5, 3, 4}));
  for (int i : {1, 2, 3, 4}) EXPECT_EQ(store[i].Included, i % 2 == 0) << i;
  EXPECT_EQ(Ranks(store), (Ints{0, 2, 0, 1}));
  EXPECT_EQ(Chain(store), (Ints{0, 0, 0, 2}));

  // With the option off the threshold is not applied; "cafés" counts five characters, and aaa
  // comes before cafés among the words counted once.
  EXPECT_EQ(Numbers(RankStore(store, host, false, 2)), (Ints{4, 0, 9, 5, 5, 4}));
  EXPECT_EQ(Ranks(store), (Ints{3, 2, 4, 1}));

  // Every word excluded.
  EXPECT_EQ(Numbers(RankStore(store, host, true, 6)), (Ints{0, 4, 0, 0, 0, 0}));
  EXPECT_EQ(Ranks(store), (Ints{0, 0, 0, 0}));

  std::vector<WordListEntry> empty(1);
  EXPECT_EQ(Numbers(RankStore(empty, host)), (Ints{0, 0, 0, 0, 0, 0}));
}

TEST(Ranking, SameRanksAndChainAsTheTwoPassScan) {
  ScriptedHost host;
  for (unsigned seed : {11u, 12u}) {
    auto store = ManyEqualKeys(2500, 40, seed);
    const auto n = static_cast<int32_t>(store.size() - 1);
    QuickSortWords(store, 1, n, 1);
    MarkIncludedWords(store, true, 2);
    ListStatistics stats;
    CountIncludedWords(store, stats);
    auto expected = store;
    int32_t expectedFirst = 0;
    LiteralFrequencyOrder(expected, stats, expectedFirst);
    BuildFrequencyOrder(store, stats, host);
    EXPECT_EQ(stats.lngFirstFreq, expectedFirst);
    for (int32_t i = 1; i <= n; ++i) {
      ASSERT_EQ(store[i].FreqOrder, expected[i].FreqOrder) << i;
      ASSERT_EQ(store[i].NextByFreq, expected[i].NextByFreq) << i;
    }
  }
}

TEST(Ranking, ProgressMarkEveryThousandLinks) {
  for (const auto& [n, marks] : {std::pair{999, ""}, std::pair{1000, " ."},
                                 std::pair{1999, " ."}, std::pair{2000, " . ."}}) {
    ScriptedHost host;
    host.output = "Ranking ...";
    auto store = ManyEqualKeys(n, 7, 9u);
    RankStore(store, host);
    EXPECT_EQ(host.output, std::string("Ranking ...") + marks) << n;
  }
}

TEST(Ranking, SumsBeyond32BitsAreOverflow) {
  auto store = MakeStore({{"aaa", INT32_MAX}, {"bbb", 1}});
  ListStatistics stats;
  try {
    CountIncludedWords(store, stats);
    FAIL() << "no overflow";
  } catch (const RunError& e) {
    EXPECT_EQ(e.Number(), kErrOverflow);
  }
}

}  // namespace
}  // namespace wordtally::testing
