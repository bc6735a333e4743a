#pragma once
// The keywords table's rows: the keywords of a comparison by falling log-likelihood. Columns:
// rank, word, frequency, reference frequency, log-likelihood, log ratio, and over- or under-use.
#include <vector>

#include "analysis/keyness.h"
#include "ui/table_source.h"

namespace wordtally::ui {

class KeywordSource : public TableSource {
 public:
  enum Column { kRank, kWord, kFrequency, kReferenceFrequency, kLogLikelihood, kLogRatio, kUse };

  explicit KeywordSource(std::vector<Keyword> keywords);

  int ColumnCount() const override { return kUse + 1; }
  QString Heading(int column) const override;
  int32_t RowCount() const override { return static_cast<int32_t>(keywords_.size()); }
  QString Text(int32_t row, int column) const override;
  double SortKey(int32_t row, int column) const override;
  std::string_view Word(int32_t row) const override { return keywords_[row].word; }

 private:
  std::vector<Keyword> keywords_;
  std::vector<int32_t> alphabeticalPlace_;  // per row, its place in code-unit order of the words
};

}  // namespace wordtally::ui
