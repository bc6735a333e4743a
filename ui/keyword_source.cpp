#include "ui/keyword_source.h"

#include <algorithm>
#include <numeric>

#include "ui/qt_text.h"

namespace wordtally::ui {

KeywordSource::KeywordSource(std::vector<Keyword> keywords)
    : keywords_(std::move(keywords)), alphabeticalPlace_(keywords_.size()) {
  std::vector<int32_t> rows(keywords_.size());
  std::iota(rows.begin(), rows.end(), 0);
  std::sort(rows.begin(), rows.end(), [this](int32_t a, int32_t b) {
    return LessCodeUnits(keywords_[a].word, keywords_[b].word);
  });
  for (size_t place = 0; place < rows.size(); ++place) {
    alphabeticalPlace_[rows[place]] = static_cast<int32_t>(place);
  }
}

QString KeywordSource::Heading(int column) const {
  static const char* const kHeadings[] = {"Rank",           "Word",      "Frequency",
                                          "Reference frequency", "Log-likelihood", "Log ratio",
                                          "Use"};
  return kHeadings[column];
}

QString KeywordSource::Text(int32_t row, int column) const {
  const Keyword& k = keywords_[row];
  switch (column) {
    case kWord: return ToQString(k.word);
    case kLogLikelihood: return QString::number(k.logLikelihood, 'f', 2);
    case kLogRatio: return QString::number(k.logRatio, 'f', 2);
    case kUse: return k.OverUsed() ? "over" : "under";
    default: return QString::number(SortKey(row, column), 'f', 0);
  }
}

double KeywordSource::SortKey(int32_t row, int column) const {
  const Keyword& k = keywords_[row];
  switch (column) {
    case kRank: return row + 1;
    case kWord: return alphabeticalPlace_[row];
    case kFrequency: return static_cast<double>(k.frequency);
    case kReferenceFrequency: return static_cast<double>(k.referenceFrequency);
    case kLogLikelihood: return k.logLikelihood;
    default: return k.logRatio;  // the log ratio's sign is the use
  }
}

}  // namespace wordtally::ui
