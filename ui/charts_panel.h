#pragma once
// The Charts tab: the most frequent words (top 10, 20 or 50), rank against frequency with the
// Zipf fit, and coverage, each on a tab of its own and each savable as PNG or SVG.
#include <QWidget>
#include <memory>

class QChartView;
class QComboBox;
class QTabWidget;

namespace wordtally::ui {

class ResultsSource;

class ChartsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChartsPanel(QWidget* parent = nullptr);

  // Draws the charts of a run; null clears them.
  void ShowRun(std::shared_ptr<const ResultsSource> results);
  // Saves the chart on show as SVG when path ends in ".svg", else as PNG; false when it fails.
  bool SaveCurrentChart(const QString& path) const;

 private:
  void DrawTopWords();
  void OnSaveClicked(const QString& title, const QString& filter);

  std::shared_ptr<const ResultsSource> results_;
  QComboBox* topCount_;
  QTabWidget* tabs_;
  QChartView* topWords_;
  QChartView* zipf_;
  QChartView* coverage_;
};

}  // namespace wordtally::ui
