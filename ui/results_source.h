#pragma once
// The results table's rows: every included word of the last run, by rank, read from the store's
// records as the listing left them. Columns: rank, word, frequency, share of the instances in
// the list (%) and the cumulative share (%); with per-file counts (a corpus run) also the range
// and one column per file.
#include <QStringList>
#include <functional>
#include <span>
#include <vector>

#include "engine/file_tally.h"
#include "engine/word_store.h"
#include "results/list_statistics.h"
#include "ui/table_source.h"

namespace wordtally::ui {

// Where the per-file columns come from: the files' names, and a word's counts in ascending file
// order (files where it does not occur left out).
struct PerFileCounts {
  QStringList fileNames;
  std::function<std::span<const FileCount>(std::string_view word)> countsOf;
};

class ResultsSource : public TableSource {
 public:
  enum Column { kRank, kWord, kFrequency, kShare, kCumulativeShare, kRange, kFirstFile };

  // WordList and stats must outlive the source (the store's records until the next run).
  ResultsSource(std::span<const WordListEntry> WordList, const ListStatistics& stats,
                PerFileCounts perFile = {});

  int ColumnCount() const override;
  QString Heading(int column) const override;
  int32_t RowCount() const override { return static_cast<int32_t>(indexes_.size()); }
  QString Text(int32_t row, int column) const override;
  double SortKey(int32_t row, int column) const override;
  std::string_view Word(int32_t row) const override { return Entry(row).Word; }

  // By rank: the store indexes, the frequencies and the share the top k words cover.
  const std::vector<int32_t>& StoreIndexes() const { return indexes_; }
  const std::vector<int32_t>& Frequencies() const { return frequencies_; }
  const std::vector<double>& CumulativeShares() const { return cumulative_; }
  std::span<const WordListEntry> WordList() const { return WordList_; }
  const ListStatistics& Statistics() const { return stats_; }

 private:
  const WordListEntry& Entry(int32_t row) const { return WordList_[indexes_[row]]; }
  int32_t CountInFile(int32_t row, int32_t file) const;

  std::span<const WordListEntry> WordList_;
  const ListStatistics& stats_;
  PerFileCounts perFile_;
  std::vector<int32_t> indexes_;
  std::vector<int32_t> frequencies_;
  std::vector<double> cumulative_;
};

}  // namespace wordtally::ui
