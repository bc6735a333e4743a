#include "results/sorting.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
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

// The included words of one frequency, chained through NextByFreq in store order.
struct FrequencyGroup {
  int32_t frequency;
  int32_t first;
  int32_t last;
};

// Clears every rank and link, then chains the words that receive a rank (included, frequency 1 or
// more) in one group per frequency; the groups come back by falling frequency. Falling frequency,
// then store order, is the order of the ranks. Neighbours in the store often share a frequency,
// so the last group is tried before the map.
std::vector<FrequencyGroup> ChainByFrequency(std::span<WordListEntry> WordList) {
  std::vector<FrequencyGroup> groups;
  std::unordered_map<int32_t, size_t> groupOf;
  size_t group = 0;
  const int32_t lngNumWords = NumWords(WordList);
  for (int32_t i = 1; i <= lngNumWords; ++i) {
    WordListEntry& entry = WordList[i];
    entry.FreqOrder = 0;
    entry.NextByFreq = 0;
    if (!entry.Included || entry.Frequency < 1) continue;
    if (groups.empty() || groups[group].frequency != entry.Frequency) {
      const auto [found, added] = groupOf.try_emplace(entry.Frequency, groups.size());
      if (added) groups.push_back({entry.Frequency, i, 0});
      group = found->second;
    }
    if (groups[group].last != 0) WordList[groups[group].last].NextByFreq = i;
    groups[group].last = i;
  }
  std::sort(groups.begin(), groups.end(), [](const FrequencyGroup& a, const FrequencyGroup& b) {
    return a.frequency > b.frequency;
  });
  return groups;
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
  stats.lngFirstFreq = 0;
  const std::vector<FrequencyGroup> groups = ChainByFrequency(WordList);
  host.ProcessEvents();
  if (groups.empty()) return;
  for (size_t g = 0; g + 1 < groups.size(); ++g) {
    WordList[groups[g].last].NextByFreq = groups[g + 1].first;
  }
  stats.lngFirstFreq = groups.front().first;
  int32_t rank = 0;
  for (int32_t index = stats.lngFirstFreq; index != 0; index = WordList[index].NextByFreq) {
    WordList[index].FreqOrder = ++rank;
    if (rank % kProgressMarkStride == 0) {
      host.AppendOutput(kProgressMark);
      host.ProcessEvents();
    }
  }
}

}  // namespace wordtally
