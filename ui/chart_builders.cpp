#include "ui/chart_builders.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QHorizontalBarSeries>
#include <QLineSeries>
#include <QGraphicsLayout>
#include <QLogValueAxis>
#include <QPen>
#include <QValueAxis>
#include <cmath>

#include "analysis/rank_distribution.h"
#include "ui/qt_text.h"

namespace wordtally::ui {
namespace {

constexpr int kMaxPoints = 1000;

// Slim margins: the charts share the window with the output box's other tabs.
QChart* NewChart(const QString& title) {
  auto* chart = new QChart;
  chart->setTitle(title);
  chart->legend()->hide();
  chart->setMargins(QMargins(4, 4, 4, 4));
  chart->layout()->setContentsMargins(0, 0, 0, 0);
  chart->setBackgroundRoundness(0);
  return chart;
}

QLogValueAxis* LogAxis(const QString& title, double low, double high) {
  auto* axis = new QLogValueAxis;
  axis->setTitleText(title);
  axis->setLabelFormat("%g");
  axis->setBase(10);
  axis->setRange(low, high);
  return axis;
}

void Attach(QChart* chart, QAbstractSeries* series, QAbstractAxis* x, QAbstractAxis* y) {
  chart->addSeries(series);
  // Laid out before it is shown, a chart would cut every label to an ellipsis.
  x->setTruncateLabels(false);
  y->setTruncateLabels(false);
  if (!chart->axes(Qt::Horizontal).contains(x)) chart->addAxis(x, Qt::AlignBottom);
  if (!chart->axes(Qt::Vertical).contains(y)) chart->addAxis(y, Qt::AlignLeft);
  series->attachAxis(x);
  series->attachAxis(y);
}

}  // namespace

std::vector<int32_t> SampledRanks(int32_t n, int maxPoints) {
  std::vector<int32_t> ranks;
  const double step = std::log(static_cast<double>(n)) / (maxPoints - 1);
  for (int i = 0; i < maxPoints && n > 0; ++i) {
    const auto rank = static_cast<int32_t>(std::lround(std::exp(step * i)));
    if (ranks.empty() || rank > ranks.back()) ranks.push_back(std::min(rank, n));
  }
  if (n > 0 && ranks.back() != n) ranks.push_back(n);
  return ranks;
}

QChart* TopWordsChart(const ResultsSource& results, int count) {
  const int shown = std::min(count, static_cast<int>(results.RowCount()));
  QChart* chart = NewChart(QObject::tr("The %1 most frequent words").arg(shown));
  auto* set = new QBarSet(QObject::tr("Frequency"));
  QStringList words;
  for (int row = shown - 1; row >= 0; --row) {  // the most frequent at the top
    *set << results.Frequencies()[row];
    words << ToQString(results.Word(row));
  }
  auto* series = new QHorizontalBarSeries;
  series->append(set);
  auto* wordAxis = new QBarCategoryAxis;
  wordAxis->append(words);
  auto* frequencyAxis = new QValueAxis;
  frequencyAxis->setTitleText(QObject::tr("Frequency"));
  frequencyAxis->setLabelFormat("%d");
  Attach(chart, series, frequencyAxis, wordAxis);
  frequencyAxis->applyNiceNumbers();
  return chart;
}

QChart* ZipfChart(const std::vector<int32_t>& frequenciesByRank) {
  const ZipfFit fit = FitZipf(frequenciesByRank);
  const auto n = static_cast<int32_t>(frequenciesByRank.size());
  QChart* chart = NewChart(fit.valid ? QObject::tr("Rank and frequency: Zipf exponent %1")
                                           .arg(fit.exponent, 0, 'f', 3)
                                     : QObject::tr("Rank and frequency"));
  if (n == 0) return chart;
  auto* words = new QLineSeries;  // the observed ranks; a scatter series drops crowded points
  for (const int32_t rank : SampledRanks(n, kMaxPoints)) words->append(rank, frequenciesByRank[rank - 1]);
  auto* x = LogAxis(QObject::tr("Rank"), 1, std::max(n, 10));
  auto* y = LogAxis(QObject::tr("Frequency"), 1, std::max(frequenciesByRank.front(), 10) * 2.0);
  Attach(chart, words, x, y);
  if (fit.valid) {
    auto* line = new QLineSeries;
    line->setPen(QPen(Qt::darkRed, 1.5, Qt::DashLine));
    for (const double rank : {1.0, static_cast<double>(n)}) {
      line->append(rank, std::exp(fit.intercept - fit.exponent * std::log(rank)));
    }
    Attach(chart, line, x, y);
  }
  return chart;
}

QChart* CoverageChart(const std::vector<double>& cumulativeShares) {
  QChart* chart = NewChart(QObject::tr("Share of all instances covered by the top k words"));
  const auto n = static_cast<int32_t>(cumulativeShares.size());
  if (n == 0) return chart;
  auto* series = new QLineSeries;
  for (const int32_t k : SampledRanks(n, kMaxPoints)) series->append(k, 100.0 * cumulativeShares[k - 1]);
  auto* y = new QValueAxis;
  y->setTitleText(QObject::tr("Coverage %"));
  y->setRange(0, 100);
  Attach(chart, series, LogAxis(QObject::tr("Top k words"), 1, std::max(n, 10)), y);
  return chart;
}

}  // namespace wordtally::ui
