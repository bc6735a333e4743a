#include "ui/results_source.h"

#include <algorithm>

#include "analysis/rank_distribution.h"
#include "analysis/word_frequencies.h"
#include "ui/qt_text.h"

namespace wordtally::ui {

ResultsSource::ResultsSource(std::span<const WordListEntry> WordList, const ListStatistics& stats,
                             PerFileCounts perFile)
    : WordList_(WordList), stats_(stats), perFile_(std::move(perFile)),
      indexes_(IndexesByRank(WordList, stats)) {
  frequencies_.reserve(indexes_.size());
  for (const int32_t index : indexes_) frequencies_.push_back(WordList[index].Frequency);
  cumulative_ = wordtally::CumulativeShares(frequencies_);
}

int ResultsSource::ColumnCount() const {
  return perFile_.countsOf ? kFirstFile + static_cast<int>(perFile_.fileNames.size()) : kRange;
}

QString ResultsSource::Heading(int column) const {
  static const char* const kHeadings[] = {"Rank", "Word", "Frequency", "Share %", "Cumulative %",
                                          "Range"};
  return column < kFirstFile ? QString(kHeadings[column]) : perFile_.fileNames[column - kFirstFile];
}

int32_t ResultsSource::CountInFile(int32_t row, int32_t file) const {
  const std::span<const FileCount> counts = perFile_.countsOf(Word(row));
  const auto it = std::lower_bound(counts.begin(), counts.end(), file,
                                   [](const FileCount& c, int32_t f) { return c.file < f; });
  return it != counts.end() && it->file == file ? it->count : 0;
}

// A cell's number, which is also what its column sorts by. Rank, frequency and shares come from
// the row's place in the ranking; the word sorts by its store index, since the store keeps its
// records in ascending code-unit order.
double ResultsSource::SortKey(int32_t row, int column) const {
  switch (column) {
    case kRank: return row + 1;
    case kWord: return indexes_[row];
    case kFrequency: return frequencies_[row];
    case kShare: return 100.0 * frequencies_[row] / stats_.lngNumOccurrences;
    case kCumulativeShare: return 100.0 * cumulative_[row];
    case kRange: return static_cast<double>(perFile_.countsOf(Word(row)).size());
    default: return CountInFile(row, column - kFirstFile);
  }
}

QString ResultsSource::Text(int32_t row, int column) const {
  if (column == kWord) return ToQString(Word(row));
  const double value = SortKey(row, column);
  return column == kShare || column == kCumulativeShare ? QString::number(value, 'f', 3)
                                                        : QString::number(value, 'f', 0);
}

}  // namespace wordtally::ui
