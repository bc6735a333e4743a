// Sorting, ranking and listing a store of two million distinct words, as after a very large run.
#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "analysis/quiet_host.h"
#include "engine/word_store.h"
#include "results/listing.h"
#include "results/listing_line.h"
#include "results/sorting.h"
#include "support/file_utils.h"

namespace wordtally {
namespace {

constexpr int32_t kNumWords = 2'000'000;


// Distinct words of 4 to 9 letters, some capitalised or accented, in binary order as the store
// holds them, with a long-tailed frequency distribution (most words rare, a few very common).
const std::vector<WordListEntry>& CountedStore() {
  static const std::vector<WordListEntry> store = [] {
    std::mt19937 random(20240601);
    const std::string letters = "abcdefghijklmnopqrstuvwxyz\xE9\xF6\xE4";
    std::vector<std::string> words;
    words.reserve(kNumWords + kNumWords / 10);
    while (words.size() < static_cast<size_t>(kNumWords) + kNumWords / 10) {
      std::string w(4 + random() % 6, ' ');
      for (char& c : w) c = letters[random() % letters.size()];
      if (random() % 8 == 0) w[0] = static_cast<char>(UpperAnsiChar(static_cast<unsigned char>(w[0])));
      words.push_back(std::move(w));
    }
    std::sort(words.begin(), words.end(), LessCodeUnits);
    words.erase(std::unique(words.begin(), words.end()), words.end());
    words.resize(kNumWords);
    // The entries view the words and keys, which live as long as the program.
    static std::vector<std::string> keys;
    keys.reserve(kNumWords);
    static std::vector<std::string> kept = std::move(words);
    std::vector<WordListEntry> list(1);
    list.reserve(kNumWords + 1);
    std::geometric_distribution<int32_t> rare(0.4);
    for (const std::string& w : kept) {
      WordListEntry e;
      e.SortKey = keys.emplace_back(MakeSortKey(w));
      e.Word = w;
      e.Frequency = 1 + rare(random) + (random() % 1000 == 0 ? static_cast<int32_t>(random() % 100000) : 0);
      e.Included = true;
      list.push_back(std::move(e));
    }
    return list;
  }();
  return store;
}

ListStatistics Rank(std::vector<WordListEntry>& list, Host& host) {
  MarkIncludedWords(list, false, 2);
  ListStatistics stats;
  CountIncludedWords(list, stats);
  BuildFrequencyOrder(list, stats, host);
  return stats;
}

void BM_SortTwoMillionWords(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<WordListEntry> list = CountedStore();
    state.ResumeTiming();
    QuickSortWords(list, 1, kNumWords, 1);
    benchmark::DoNotOptimize(list.data());
  }
}

void BM_RankTwoMillionWords(benchmark::State& state) {
  std::vector<WordListEntry> list = CountedStore();
  QuickSortWords(list, 1, kNumWords, 1);
  QuietHost host;
  for (auto _ : state) benchmark::DoNotOptimize(Rank(list, host).lngFirstFreq);
}

// Lists to a file (and to the textbox up to its limit), in the given order and format.
void BM_ListTwoMillionWordsToFile(benchmark::State& state) {
  std::vector<WordListEntry> list = CountedStore();
  QuickSortWords(list, 1, kNumWords, 1);
  QuietHost host;
  const ListStatistics stats = Rank(list, host);
  TemporaryFolder folder;
  ListingOptions options;
  options.cboWordOrder = static_cast<int>(state.range(0));
  options.cboDisplayFormat = static_cast<int>(state.range(1));
  options.strOutputFile = folder.Path() + "/list.csv";
  options.chkOutputWithCommas = 1;
  for (auto _ : state) benchmark::DoNotOptimize(ListWords(list, stats, host, options).end);
  state.counters["bytes"] = static_cast<double>(FileSize(options.strOutputFile));
}

BENCHMARK(BM_SortTwoMillionWords)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_RankTwoMillionWords)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ListTwoMillionWordsToFile)
    ->Args({0, kRankFrequencyWord})
    ->Args({1, kRankWordFrequency})
    ->Args({0, kWordWithCommas})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

}  // namespace
}  // namespace wordtally

BENCHMARK_MAIN();
