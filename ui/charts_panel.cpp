#include "ui/charts_panel.h"

#include <QChartView>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QSvgGenerator>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ui/chart_builders.h"

namespace wordtally::ui {
namespace {

QChartView* NewChartView(const QString& name, QWidget* parent) {
  auto* view = new QChartView(parent);
  view->setObjectName(name);
  view->setRenderHint(QPainter::Antialiasing);
  return view;
}

// Replaces the view's chart, deleting the one before.
void Show(QChartView* view, QChart* chart) {
  QChart* old = view->chart();
  view->setChart(chart);
  delete old;
}

bool SaveSvg(QWidget& view, const QString& path) {
  QSvgGenerator svg;
  svg.setFileName(path);
  svg.setSize(view.size());
  svg.setViewBox(QRect(QPoint(0, 0), view.size()));
  svg.setTitle(QStringLiteral("Wordtally chart"));
  QPainter painter;
  if (!painter.begin(&svg)) return false;
  view.render(&painter);
  return painter.end();
}

}  // namespace

ChartsPanel::ChartsPanel(QWidget* parent)
    : QWidget(parent), topCount_(new QComboBox(this)), tabs_(new QTabWidget(this)),
      topWords_(NewChartView("topWordsChart", this)), zipf_(NewChartView("zipfChart", this)),
      coverage_(NewChartView("coverageChart", this)) {
  topCount_->setObjectName("chartTopCount");
  for (const int count : {10, 20, 50}) topCount_->addItem(tr("Top %1").arg(count), count);
  tabs_->setObjectName("chartTabs");
  tabs_->addTab(topWords_, tr("Top words"));
  tabs_->addTab(zipf_, tr("Rank/frequency"));
  tabs_->addTab(coverage_, tr("Coverage"));
  auto* savePng = new QPushButton(tr("Save PNG..."), this);
  auto* saveSvg = new QPushButton(tr("Save SVG..."), this);

  // The tools sit beside the chart tabs, leaving the charts all the height there is.
  auto* tools = new QWidget(this);
  auto* toolsLayout = new QHBoxLayout(tools);
  toolsLayout->setContentsMargins(0, 0, 0, 2);
  toolsLayout->addWidget(new QLabel(tr("Bar chart:"), tools));
  toolsLayout->addWidget(topCount_);
  toolsLayout->addWidget(savePng);
  toolsLayout->addWidget(saveSvg);
  tabs_->setCornerWidget(tools, Qt::TopRightCorner);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(tabs_, 1);

  connect(topCount_, &QComboBox::currentIndexChanged, this, &ChartsPanel::DrawTopWords);
  connect(savePng, &QPushButton::clicked, this,
          [this] { OnSaveClicked(tr("Save chart as PNG"), tr("PNG images (*.png)")); });
  connect(saveSvg, &QPushButton::clicked, this,
          [this] { OnSaveClicked(tr("Save chart as SVG"), tr("SVG images (*.svg)")); });
  ShowRun(nullptr);
}

void ChartsPanel::ShowRun(std::shared_ptr<const ResultsSource> results) {
  results_ = std::move(results);
  DrawTopWords();
  Show(zipf_, ZipfChart(results_ ? results_->Frequencies() : std::vector<int32_t>()));
  Show(coverage_, CoverageChart(results_ ? results_->CumulativeShares() : std::vector<double>()));
}

void ChartsPanel::DrawTopWords() {
  if (!results_) {
    Show(topWords_, new QChart);
    return;
  }
  Show(topWords_, TopWordsChart(*results_, topCount_->currentData().toInt()));
}

bool ChartsPanel::SaveCurrentChart(const QString& path) const {
  QWidget& view = *tabs_->currentWidget();
  if (path.endsWith(".svg", Qt::CaseInsensitive)) return SaveSvg(view, path);
  return view.grab().save(path, "PNG");
}

void ChartsPanel::OnSaveClicked(const QString& title, const QString& filter) {
  const QString path = QFileDialog::getSaveFileName(this, title, QString(), filter);
  if (!path.isEmpty() && !SaveCurrentChart(path)) {
    QMessageBox::warning(this, title, tr("%1 could not be written.").arg(path));
  }
}

}  // namespace wordtally::ui
