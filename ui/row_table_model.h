#pragma once
// A table model over a TableSource: the rows shown are an index vector into the source, so that
// filtering and sorting two million words touch integers, never the words' records.
#include <QAbstractTableModel>
#include <memory>
#include <vector>

#include "ui/table_source.h"
#include "ui/word_pattern.h"

namespace wordtally::ui {

class RowTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  // Shows every row of source (nothing when null) in its own order, or in the order of the
  // column sorted last; the filter stays.
  void SetSource(std::shared_ptr<const TableSource> source);
  const TableSource* Source() const { return source_.get(); }
  // Shows the rows whose word matches text (see WordPattern).
  void SetFilter(const QString& text);
  // The source rows shown, top to bottom.
  const std::vector<int32_t>& ShownRows() const { return shown_; }
  int32_t SourceRowCount() const { return source_ ? source_->RowCount() : 0; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 signals:
  void rowsShownChanged();

 private:
  void Refill();
  void SortShown();

  std::shared_ptr<const TableSource> source_;
  std::vector<int32_t> shown_;
  WordPattern pattern_;
  int sortColumn_ = -1;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace wordtally::ui
