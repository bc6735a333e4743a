#include "ui/results_views.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>

#include "results/listing_export.h"
#include "ui/charts_panel.h"
#include "ui/keywords_panel.h"
#include "ui/qt_text.h"
#include "ui/table_panel.h"

namespace wordtally::ui {

ResultsViews::ResultsViews(const EngineContext& ctx, QWidget* outputPane, QWidget* parent)
    : QTabWidget(parent), ctx_(ctx), table_(new TablePanel("results", this)),
      charts_(new ChartsPanel(this)), keywords_(new KeywordsPanel(ctx, this)) {
  setObjectName("resultsViews");
  auto* exportListing = new QPushButton(tr("Export listing..."), table_);
  exportListing->setObjectName("resultsExportListing");
  exportListing->setToolTip(tr("The rows shown, as the output file is written"));
  table_->tools().addWidget(exportListing);
  connect(exportListing, &QPushButton::clicked, this, &ResultsViews::OnExportListingClicked);
  addTab(outputPane, tr("Words found"));
  addTab(table_, tr("Results table"));
  addTab(charts_, tr("Charts"));
  addTab(keywords_, tr("Keywords"));
}

void ResultsViews::Clear() {
  table_->model().SetSource(nullptr);
  charts_->ShowRun(nullptr);
  keywords_->SetTarget(nullptr);
  results_.reset();
}

void ResultsViews::ShowRun(PerFileCounts perFile) {
  results_ = std::make_shared<ResultsSource>(ctx_.store.WordList(), ctx_.run.stats,
                                             std::move(perFile));
  table_->model().SetSource(results_);
  charts_->ShowRun(results_);
  keywords_->SetTarget(results_);
}

bool ResultsViews::ExportListing(const QString& path) const {
  if (!results_) return false;
  std::vector<int32_t> indexes;
  for (const int32_t row : table_->model().ShownRows()) {
    indexes.push_back(results_->StoreIndexes()[static_cast<size_t>(row)]);
  }
  const CountingSettings& s = ctx_.settings;
  const ListingLayout layout = MakeListingLayout(ctx_.run.stats, ctx_.run.intMinWidth,
                                                 s.cboDisplayFormat, s.chkOutputWithCommas == 1);
  return WriteListingFile(PathFromQString(path), results_->WordList(), indexes, layout);
}

void ResultsViews::OnExportListingClicked() {
  const QString path = QFileDialog::getSaveFileName(this, tr("Export listing"), QString(),
                                                    tr("Listings (*.txt *.csv)"));
  if (!path.isEmpty() && !ExportListing(path)) {
    QMessageBox::warning(this, tr("Export listing"), tr("%1 could not be written.").arg(path));
  }
}

}  // namespace wordtally::ui
