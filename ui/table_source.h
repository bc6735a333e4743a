#pragma once
// The rows behind a results view: a read-only table that RowTableModel shows, sorts and filters
// without copying it. Rows are numbered 0..RowCount()-1 in the source's own order.
#include <QString>
#include <cstdint>
#include <string_view>

namespace wordtally::ui {

class TableSource {
 public:
  virtual ~TableSource() = default;

  virtual int ColumnCount() const = 0;
  virtual QString Heading(int column) const = 0;
  virtual int32_t RowCount() const = 0;
  virtual QString Text(int32_t row, int column) const = 0;
  // What the column sorts by; rows with equal keys keep the source's order.
  virtual double SortKey(int32_t row, int column) const = 0;
  // The row's word, which the filter matches (Windows-1252).
  virtual std::string_view Word(int32_t row) const = 0;
  // The word is the one column of text, after the rank; the others hold numbers and are aligned
  // to the right.
  static constexpr int kWordColumn = 1;
};

}  // namespace wordtally::ui
