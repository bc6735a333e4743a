// The per-line path of a run on a real text: line walk, normalisation, filters and the word store,
// with the default settings. The King James Bible (4.3 MB) is walked 100 times per measurement,
// about 430 MB of text.
#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/quiet_host.h"
#include "engine/engine_context.h"
#include "engine/word_extraction.h"

namespace wordtally {
namespace {


const std::string& Corpus() {
  static const std::string text = [] {
    std::ifstream in(std::string(WORDTALLY_CORPUS_DIR) + "/kjvbible.txt", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }();
  return text;
}

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

void BM_WalkBibleLines(benchmark::State& state) {
  const std::string& text = Corpus();
  if (text.empty()) {
    state.SkipWithError("kjvbible.txt not found");
    return;
  }
  const std::vector<std::string_view> lines = Lines(text);
  constexpr int kRepeats = 100;
  QuietHost host;
  CountingSettings settings;
  int64_t words = 0;
  for (auto _ : state) {
    EngineContext ctx(host, settings);
    ctx.run.blnStartUpCompleted = true;
    LineWalker walker(ctx);
    for (int repeat = 0; repeat < kRepeats; ++repeat) {
      for (std::string_view line : lines) walker.WalkLine(line);
    }
    words += ctx.run.lngTotalNumOccurrences;
    benchmark::DoNotOptimize(ctx.store.lngNumWords());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kRepeats *
                          static_cast<int64_t>(text.size()));
  state.counters["words/s"] = benchmark::Counter(static_cast<double>(words), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_WalkBibleLines)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);

}  // namespace
}  // namespace wordtally

BENCHMARK_MAIN();
