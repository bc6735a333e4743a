// Counting speed of the word store: 50 million occurrences of 2 million distinct words, every
// word once and the rest drawn from a Zipf-like distribution, as in natural text.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "engine/word_store.h"

namespace {

constexpr int kDistinct = 2'000'000;
constexpr int kOccurrences = 50'000'000;

std::string MakeWord(int i) {
  std::string w;
  do {
    w += static_cast<char>('a' + i % 26);
    i /= 26;
  } while (i > 0);
  return w + "ing";
}

std::vector<int> ZipfOccurrences() {
  std::vector<double> cumulative(kDistinct);
  double sum = 0;
  for (int i = 0; i < kDistinct; ++i) cumulative[i] = sum += 1.0 / (i + 1);
  std::mt19937_64 random(42);
  std::uniform_real_distribution<double> uniform(0, sum);
  std::vector<int> sequence(kOccurrences);
  for (int i = 0; i < kDistinct; ++i) sequence[i] = i;
  for (int i = kDistinct; i < kOccurrences; ++i) {
    sequence[i] = static_cast<int>(
        std::lower_bound(cumulative.begin(), cumulative.end(), uniform(random)) -
        cumulative.begin());
  }
  std::shuffle(sequence.begin(), sequence.end(), random);
  return sequence;
}

double PeakMemoryMiB() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024.0;
}

struct Input {
  std::vector<std::string> words;
  std::vector<int> sequence;
};

const Input& TheInput() {
  static const Input input = [] {
    Input in;
    in.words.resize(kDistinct);
    for (int i = 0; i < kDistinct; ++i) in.words[i] = MakeWord(i);
    in.sequence = ZipfOccurrences();
    return in;
  }();
  return input;
}

// What reading the occurrences alone costs, without the store: the floor under the figure below.
void BM_ReadOccurrencesOnly(benchmark::State& state) {
  const auto& [words, sequence] = TheInput();
  for (auto _ : state) {
    size_t total = 0;
    for (int i : sequence) total += words[i].size() + static_cast<unsigned char>(words[i][0]);
    benchmark::DoNotOptimize(total);
  }
  state.counters["occurrences/s"] = benchmark::Counter(
      static_cast<double>(kOccurrences) * state.iterations(), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ReadOccurrencesOnly)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_CountZipfWords(benchmark::State& state) {
  const auto& [words, sequence] = TheInput();
  const double memoryBefore = PeakMemoryMiB();
  for (auto _ : state) {
    wordtally::WordStore store;
    for (int i : sequence) store.Count(words[i]);
    benchmark::DoNotOptimize(store.WordList().data());  // includes the sort for reading
  }
  state.counters["occurrences/s"] = benchmark::Counter(
      static_cast<double>(kOccurrences) * state.iterations(), benchmark::Counter::kIsRate);
  state.counters["peak_MiB_total"] = PeakMemoryMiB();
  state.counters["peak_MiB_before_store"] = memoryBefore;
}
BENCHMARK(BM_CountZipfWords)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
