#pragma once
// One results view's table with its tools: a filter box, the number of words shown, copying the
// selected rows as tab-separated text and exporting the rows shown as CSV. The results table and
// the keywords share it; each adds its own tools to the row above the table.
#include <QWidget>

#include "ui/row_table_model.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QTableView;

namespace wordtally::ui {

class TablePanel : public QWidget {
  Q_OBJECT

 public:
  // name prefixes the controls' object names ("results" gives "resultsFilter", ...).
  TablePanel(const QString& name, QWidget* parent = nullptr);

  RowTableModel& model() { return *model_; }
  QTableView& view() { return *view_; }
  // The row of tools above the table, for the view's own buttons.
  QHBoxLayout& tools() { return *tools_; }

  // The selected rows, top to bottom, as lines of tab-separated cells.
  QString SelectedRowsText() const;
  void CopySelectedRows() const;
  // Writes the heading and the rows shown as CSV (UTF-8 with a byte-order mark); false when the
  // file cannot be written.
  bool ExportCsv(const QString& path) const;

 private:
  void OnExportCsvClicked();
  void ShowRowCount();

  RowTableModel* model_;
  QTableView* view_;
  QLineEdit* filter_;
  QLabel* count_;
  QHBoxLayout* tools_;
};

}  // namespace wordtally::ui
