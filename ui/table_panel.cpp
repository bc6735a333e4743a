#include "ui/table_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

#include "support/csv_text.h"

namespace wordtally::ui {
namespace {

std::vector<std::string> RowFields(const TableSource& source, int32_t row) {
  std::vector<std::string> fields;
  for (int column = 0; column < source.ColumnCount(); ++column) {
    fields.push_back(source.Text(row, column).toStdString());
  }
  return fields;
}

}  // namespace

TablePanel::TablePanel(const QString& name, QWidget* parent)
    : QWidget(parent), model_(new RowTableModel(this)), view_(new QTableView(this)),
      filter_(new QLineEdit(this)), count_(new QLabel(this)), tools_(new QHBoxLayout) {
  filter_->setObjectName(name + "Filter");
  filter_->setPlaceholderText(tr("Filter: letters the words contain, or a pattern with * and ?"));
  filter_->setClearButtonEnabled(true);
  count_->setObjectName(name + "Count");
  auto* copy = new QPushButton(tr("Copy"), this);
  copy->setObjectName(name + "Copy");
  auto* exportCsv = new QPushButton(tr("Export CSV..."), this);
  exportCsv->setObjectName(name + "ExportCsv");
  tools_->addWidget(filter_, 1);
  tools_->addWidget(count_);
  tools_->addWidget(copy);
  tools_->addWidget(exportCsv);

  view_->setObjectName(name + "Table");
  view_->setModel(model_);
  view_->setSortingEnabled(true);
  view_->sortByColumn(-1, Qt::AscendingOrder);  // the source's own order until a heading is clicked
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->verticalHeader()->hide();
  // Rows of one height: the view never measures two million rows.
  view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 6);
  view_->horizontalHeader()->setStretchLastSection(true);
  view_->horizontalHeader()->setResizeContentsPrecision(100);  // a glance at 100 rows suffices

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(tools_);
  layout->addWidget(view_, 1);

  connect(filter_, &QLineEdit::textChanged, model_, &RowTableModel::SetFilter);
  connect(model_, &RowTableModel::rowsShownChanged, this, &TablePanel::ShowRowCount);
  connect(model_, &QAbstractItemModel::modelReset, view_, &QTableView::resizeColumnsToContents);
  connect(copy, &QPushButton::clicked, this, &TablePanel::CopySelectedRows);
  connect(new QShortcut(QKeySequence::Copy, view_), &QShortcut::activated, this,
          &TablePanel::CopySelectedRows);
  connect(exportCsv, &QPushButton::clicked, this, &TablePanel::OnExportCsvClicked);
  ShowRowCount();
}

void TablePanel::ShowRowCount() {
  const auto shown = static_cast<qlonglong>(model_->ShownRows().size());
  const qlonglong all = model_->SourceRowCount();
  count_->setText(shown == all ? tr("%L1 words").arg(all) : tr("%L1 of %L2 words").arg(shown).arg(all));
}

QString TablePanel::SelectedRowsText() const {
  QModelIndexList selected = view_->selectionModel()->selectedRows();
  std::sort(selected.begin(), selected.end());
  QString text;
  for (const QModelIndex& index : selected) {
    QStringList cells;
    for (int column = 0; column < model_->columnCount(); ++column) {
      cells << model_->index(index.row(), column).data().toString();
    }
    text += cells.join('\t') + '\n';
  }
  return text;
}

void TablePanel::CopySelectedRows() const {
  QGuiApplication::clipboard()->setText(SelectedRowsText());
}

bool TablePanel::ExportCsv(const QString& path) const {
  const TableSource* source = model_->Source();
  if (!source) return false;
  std::vector<std::string> headings;
  for (int column = 0; column < source->ColumnCount(); ++column) {
    headings.push_back(source->Heading(column).toStdString());
  }
  std::string text(kUtf8ByteOrderMark);
  text += CsvRecord(headings);
  for (const int32_t row : model_->ShownRows()) text += CsvRecord(RowFields(*source, row));
  QFile file(path);
  return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
         file.write(text.data(), static_cast<qint64>(text.size())) ==
             static_cast<qint64>(text.size()) &&
         file.flush();
}

void TablePanel::OnExportCsvClicked() {
  const QString path =
      QFileDialog::getSaveFileName(this, tr("Export CSV"), QString(), tr("CSV files (*.csv)"));
  if (!path.isEmpty() && !ExportCsv(path)) {
    QMessageBox::warning(this, tr("Export CSV"), tr("%1 could not be written.").arg(path));
  }
}

}  // namespace wordtally::ui
