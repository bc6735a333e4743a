#include "ui/row_table_model.h"

#include <algorithm>
#include <numeric>

#include "ui/qt_text.h"

namespace wordtally::ui {

void RowTableModel::SetSource(std::shared_ptr<const TableSource> source) {
  beginResetModel();
  source_ = std::move(source);
  if (source_ && sortColumn_ >= source_->ColumnCount()) sortColumn_ = -1;
  Refill();
  endResetModel();
  emit rowsShownChanged();
}

void RowTableModel::SetFilter(const QString& text) {
  beginResetModel();
  pattern_ = WordPattern(ToAnsi(text));
  Refill();
  endResetModel();
  emit rowsShownChanged();
}

void RowTableModel::Refill() {
  shown_.clear();
  const int32_t n = SourceRowCount();
  if (pattern_.MatchesEverything()) {
    shown_.resize(static_cast<size_t>(n));
    std::iota(shown_.begin(), shown_.end(), 0);
  } else {
    for (int32_t row = 0; row < n; ++row) {
      if (pattern_.Matches(source_->Word(row))) shown_.push_back(row);
    }
  }
  SortShown();
}

// Sorts (key, row) pairs: one virtual call per row, then plain comparisons; the row breaks ties,
// so that equal keys keep the source's order in either direction.
void RowTableModel::SortShown() {
  if (sortColumn_ < 0 || !source_) return;
  std::vector<std::pair<double, int32_t>> keyed;
  keyed.reserve(shown_.size());
  for (const int32_t row : shown_) keyed.emplace_back(source_->SortKey(row, sortColumn_), row);
  if (sortOrder_ == Qt::AscendingOrder) {
    std::sort(keyed.begin(), keyed.end());
  } else {
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
      return a.first != b.first ? a.first > b.first : a.second < b.second;
    });
  }
  for (size_t i = 0; i < keyed.size(); ++i) shown_[i] = keyed[i].second;
}

void RowTableModel::sort(int column, Qt::SortOrder order) {
  sortColumn_ = column;
  sortOrder_ = order;
  beginResetModel();  // the rows all move: a reset spares mapping every persistent index
  SortShown();
  endResetModel();
}

int RowTableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int RowTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || !source_ ? 0 : source_->ColumnCount();
}

QVariant RowTableModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) {
    return source_->Text(shown_[static_cast<size_t>(index.row())], index.column());
  }
  if (role == Qt::TextAlignmentRole && index.column() != TableSource::kWordColumn) {
    return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
  }
  return {};
}

QVariant RowTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal || !source_) return {};
  return source_->Heading(section);
}

}  // namespace wordtally::ui
