#pragma once
// Small hand-made word stores for the results tests.
#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <vector>

#include <gtest/gtest.h>

#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "results/sorting.h"
#include "support/host.h"

namespace wordtally::testing {

struct TestWord {
  AnsiString word;
  int32_t frequency;
};

// A store as counting leaves it: element 0 unused, words in ascending code-unit order.
inline std::vector<WordListEntry> MakeStore(std::initializer_list<TestWord> words) {
  std::vector<WordListEntry> store(1);
  for (const TestWord& w : words) {
    WordListEntry entry;
    entry.Word = w.word;
    entry.SortKey = MakeSortKey(w.word);
    entry.Frequency = w.frequency;
    entry.Included = true;
    store.push_back(entry);
  }
  EXPECT_TRUE(std::is_sorted(store.begin() + 1, store.end(),
                             [](const auto& a, const auto& b) { return LessCodeUnits(a.Word, b.Word); }))
      << "test store not in binary order";
  return store;
}

// The four ordering steps, in the order the run driver takes them.
inline ListStatistics RankStore(std::vector<WordListEntry>& store, Host& host,
                                bool ignoreInfrequent = false, int32_t threshold = 2) {
  const auto n = static_cast<int32_t>(store.size() - 1);
  QuickSortWords(store, 1, n, 1);
  MarkIncludedWords(store, ignoreInfrequent, threshold);
  ListStatistics stats;
  CountIncludedWords(store, stats);
  BuildFrequencyOrder(store, stats, host);
  return stats;
}

inline std::vector<AnsiString> WordsInStoreOrder(const std::vector<WordListEntry>& store) {
  std::vector<AnsiString> words;
  for (size_t i = 1; i < store.size(); ++i) words.push_back(store[i].Word);
  return words;
}

}  // namespace wordtally::testing
