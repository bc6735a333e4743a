#include "results/sorting.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "support/ansi_text.h"
#include "support/run_error.h"

namespace wordtally {

namespace {

constexpr int32_t kProgressMarkStride = 1000;
constexpr std::string_view kProgressMark = " .";

int32_t NumWords(std::span<const WordListEntry> WordList) {
  return WordList.empty() ? 0 : static_cast<int32_t>(WordList.size() - 1);
}

// The key from the 1-based position intStartPos; empty when the key is shorter.
std::string_view KeyFrom(const WordListEntry& entry, int32_t intStartPos) {
  const std::string_view key = entry.SortKey;
  const size_t skip = static_cast<size_t>(intStartPos - 1);
  return skip < key.size() ? key.substr(skip) : std::string_view();
}

// One partition step around the middle entry's key; leaves i and j where the scans cross.
void Partition(std::span<WordListEntry> WordList, int32_t lo, int32_t hi, int32_t intStartPos,
               int32_t& i, int32_t& j) {
  i = lo;
  j = hi;
  // A copy: the exchanges below may move the middle entry.
  const AnsiString pivot(KeyFrom(WordList[lo + (hi - lo) / 2], intStartPos));
  while (i <= j) {
    while (i < hi && LessCodeUnits(KeyFrom(WordList[i], intStartPos), pivot)) ++i;
    while (j > lo && LessCodeUnits(pivot, KeyFrom(WordList[j], intStartPos))) --j;
    if (i <= j) {
      if (i < j) std::swap(WordList[i], WordList[j]);
      ++i;
      --j;
    }
  }
}

}  // namespace

void QuickSortWords(std::span<WordListEntry> WordList, int32_t lo, int32_t hi,
                    int32_t intStartPos) {
  while (lo < hi) {
    int32_t i = 0, j = 0;
    Partition(WordList, lo, hi, intStartPos, i, j);
    // lo..j and i..hi do not overlap, so sorting them in either order gives the same records in
    // the same places. Recursing into the smaller part and looping on the larger keeps the stack
    // depth logarithmic even when many keys are equal.
    if (j - lo < hi - i) {
      QuickSortWords(WordList, lo, j, intStartPos);
      lo = i;
    } else {
      QuickSortWords(WordList, i, hi, intStartPos);
      hi = j;
    }
  }
}

// With strictly ascending keys, every partition stops both scans at its middle entry and
// exchanges nothing.
void SortWordList(std::span<WordListEntry> WordList) {
  const int32_t lngNumWords = NumWords(WordList);
  const auto first = WordList.begin() + (WordList.empty() ? 0 : 1);
  const bool ascending = std::adjacent_find(first, WordList.end(), [](const WordListEntry& a,
                                                                     const WordListEntry& b) {
                           return !LessCodeUnits(a.SortKey, b.SortKey);
                         }) == WordList.end();
  if (!ascending) QuickSortWords(WordList, 1, lngNumWords, 1);
}

void MarkIncludedWords(std::span<WordListEntry> WordList, bool blnIgnoreInfrequentWords,
                       int32_t intThresholdFrequency) {
  const int32_t lngNumWords = NumWords(WordList);
  for (int32_t i = 1; i <= lngNumWords; ++i) {
    WordListEntry& entry = WordList[i];
    entry.Included = !(blnIgnoreInfrequentWords && entry.Frequency < intThresholdFrequency);
  }
}

void CountIncludedWords(std::span<const WordListEntry> WordList, ListStatistics& stats) {
  stats.intMaxWordLengthFound = 0;
  stats.lngNumWordsIncluded = 0;
  stats.lngMaxFrequency = 0;
  stats.lngNumWordsExcluded = 0;
  stats.lngNumOccurrences = 0;
  const int32_t lngNumWords = NumWords(WordList);
  for (int32_t i = 1; i <= lngNumWords; ++i) {
    const WordListEntry& entry = WordList[i];
    if (!entry.Included) {
      ++stats.lngNumWordsExcluded;
      continue;
    }
    ++stats.lngNumWordsIncluded;
    CheckedAdd(stats.lngNumOccurrences, entry.Frequency);
    stats.lngMaxFrequency = std::max(stats.lngMaxFrequency, entry.Frequency);
    if (entry.Word.size() > static_cast<size_t>(INT16_MAX)) throw RunError(kErrOverflow, "Overflow");
    stats.intMaxWordLengthFound =
        std::max(stats.intMaxWordLengthFound, static_cast<int16_t>(entry.Word.size()));
  }
}

void BuildFrequencyOrder(std::span<WordListEntry> WordList, ListStatistics& stats, Host& host) {
  const int32_t lngNumWords = NumWords(WordList);
  for (int32_t i = 1; i <= lngNumWords; ++i) {
    WordList[i].FreqOrder = 0;
    WordList[i].NextByFreq = 0;
  }
  stats.lngFirstFreq = 0;

  // Falling frequency first, then store order: one 64-bit key per word, sorted once, gives the
  // same numbering as scanning the store once per frequency value. Frequencies below 1 never
  // receive a rank, as no frequency value below 1 is scanned.
  std::vector<uint64_t> order;
  order.reserve(static_cast<size_t>(stats.lngNumWordsIncluded));
  for (int32_t i = 1; i <= lngNumWords; ++i) {
    const WordListEntry& entry = WordList[i];
    if (!entry.Included || entry.Frequency < 1) continue;
    const auto fallingFrequency = static_cast<uint32_t>(INT32_MAX - entry.Frequency);
    order.push_back(uint64_t{fallingFrequency} << 32 | static_cast<uint32_t>(i));
  }
  std::sort(order.begin(), order.end());
  host.ProcessEvents();
  if (order.empty()) return;

  const auto indexAt = [&order](size_t position) {
    return static_cast<int32_t>(order[position] & 0xFFFFFFFFu);
  };
  stats.lngFirstFreq = indexAt(0);
  WordList[stats.lngFirstFreq].FreqOrder = 1;
  for (size_t position = 1; position < order.size(); ++position) {
    const int32_t rank = static_cast<int32_t>(position + 1);
    const int32_t index = indexAt(position);
    WordList[index].FreqOrder = rank;
    WordList[indexAt(position - 1)].NextByFreq = index;
    if (rank % kProgressMarkStride == 0) {
      host.AppendOutput(kProgressMark);
      host.ProcessEvents();
    }
  }
}

}  // namespace wordtally
