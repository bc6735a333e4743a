#pragma once
// The counts of a corpus: what a count file holds and what merging combines. The basis of the
// corpus table, of runs from count files, of the keyword comparison and of spreading a count over
// several processes or machines. No front end in it.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "engine/counting_settings.h"
#include "engine/file_tally.h"
#include "support/ansi_text.h"

namespace wordtally {

// One setting that shapes the counts, as name and value (for example "case sensitive", "1").
using CountSetting = std::pair<std::string, std::string>;

// The settings that decide which words are counted and how they are spelt; the listing's
// settings (order, format, threshold, output file) are not among them.
std::vector<CountSetting> CountSettingsOf(const CountingSettings& settings);

// The names of the settings whose values differ between a and b (the same names in the same
// order are expected), in a's order; empty when the counts may be merged.
std::vector<std::string> DifferingSettings(const std::vector<CountSetting>& a,
                                           const std::vector<CountSetting>& b);

struct CountedFile {
  std::string path;             // as given or found in a folder
  int64_t size = 0;             // bytes
  int64_t modifiedSeconds = 0;  // seconds since 1970-01-01 UTC
};

struct CorpusWord {
  AnsiString word;
  int32_t frequency = 0;
  std::vector<FileCount> perFile;  // ascending file order; files where the word occurs only
  int32_t Range() const { return static_cast<int32_t>(perFile.size()); }
};

struct CorpusCounts {
  std::vector<CountSetting> settings;
  std::vector<CountedFile> files;
  int32_t totalOccurrences = 0;  // the run's lngTotalNumOccurrences (excluded instances included)
  int32_t wordsIgnored = 0;      // the run's lngNumWordsIgnored
  std::vector<CorpusWord> words;  // ascending code-unit order of word
};

// Adds from to into: into's files keep their indexes and from's follow them, frequencies and
// totals are summed per word. The settings must be equal (DifferingSettings empty). Throws
// RunError 6 when a sum would pass 2147483647.
void MergeCounts(CorpusCounts& into, const CorpusCounts& from);

// The word of counts, or nullptr (binary search).
const CorpusWord* FindCorpusWord(const CorpusCounts& counts, std::string_view word);

}  // namespace wordtally
