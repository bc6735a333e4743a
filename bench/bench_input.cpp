// Input throughput: a corpus text repeated to about 400 MB (WORDTALLY_BENCH_INPUT_MB to change)
// is vetted, read and split into lines, and passed through both UTF-8 translations.
// The corpus folder comes from WORDTALLY_CORPUS (environment) or the build's default.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "input/decoding.h"
#include "input/file_vetting.h"
#include "input/line_reader.h"
#include "support/file_utils.h"

namespace {

using namespace wordtally;

std::string g_inputPath;
int64_t g_inputSize = 0;

std::string CorpusFolder() {
  const char* folder = std::getenv("WORDTALLY_CORPUS");
  return folder ? folder : WORDTALLY_CORPUS_DIR;
}

std::string CorpusFile() { return CorpusFolder() + "/kjvbible.txt"; }

bool WriteRepeatedCorpus(const std::string& path, int64_t targetBytes) {
  std::ifstream in(CorpusFile(), std::ios::binary);
  std::string corpus((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (corpus.empty()) return false;
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  int64_t written = 0;
  while (written < targetBytes) {
    out.write(corpus.data(), static_cast<std::streamsize>(corpus.size()));
    written += static_cast<int64_t>(corpus.size());
  }
  g_inputSize = written;
  return static_cast<bool>(out);
}

void BM_ClassifyTextFile(benchmark::State& state) {
  for (auto _ : state) {
    unsigned char firstControlChar = 0;
    int32_t firstControlPos = 0;
    double controlPercent = 0;
    bool isUtf8 = false;
    benchmark::DoNotOptimize(ClassifyTextFile(g_inputPath, 16384, firstControlChar,
                                              firstControlPos, 0, controlPercent, isUtf8, true));
  }
  state.SetBytesProcessed(state.iterations() * g_inputSize);
}

void BM_ReadAndSplit(benchmark::State& state) {
  for (auto _ : state) {
    LineReader reader;
    reader.Open(g_inputPath);
    std::string_view line;
    int64_t lines = 0;
    while (reader.NextLine(line)) ++lines;
    benchmark::DoNotOptimize(lines);
  }
  state.SetBytesProcessed(state.iterations() * g_inputSize);
}

// Every line of reader through trimming and both UTF-8 translations, as a UTF-8 run reads it.
void TranslateLines(LineReader& reader, AnsiString& line) {
  std::string_view raw;
  while (reader.NextLine(raw)) {
    line.assign(raw);
    TrimControlChars(line);
    Utf8ToAnsiInPlace(line);
    ReplaceUtf8Punctuation(line);
    benchmark::DoNotOptimize(line.data());
  }
}

void BM_ReadSplitAndTranslate(benchmark::State& state) {
  AnsiString line;
  for (auto _ : state) {
    LineReader reader;
    reader.Open(g_inputPath);
    TranslateLines(reader, line);
  }
  state.SetBytesProcessed(state.iterations() * g_inputSize);
}

// Text full of accented letters and typographic punctuation, which takes the translations' slow
// paths: a French UTF-8 page repeated to about 40 MB, served from memory.
void BM_TranslateAccentedText(benchmark::State& state) {
  std::ifstream in(CorpusFolder() + "/html/httpd_install_fr_utf8.html", std::ios::binary);
  std::string page((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::string text;
  while (!page.empty() && text.size() < 40'000'000) text += page;
  AnsiString line;
  for (auto _ : state) {
    LineReader reader;
    reader.OpenText(text);
    TranslateLines(reader, line);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

BENCHMARK(BM_ClassifyTextFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ReadAndSplit)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_ReadSplitAndTranslate)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_TranslateAccentedText)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  const char* megabytes = std::getenv("WORDTALLY_BENCH_INPUT_MB");
  int64_t target = (megabytes ? std::atoll(megabytes) : 400) * 1000 * 1000;
  TemporaryFolder folder;
  g_inputPath = folder.Path() + "/bench_input.txt";
  if (!folder.Valid() || !WriteRepeatedCorpus(g_inputPath, target)) {
    std::cerr << "Cannot build the input from " << CorpusFile() << "\n";
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
