#pragma once
// The Keywords tab: the last run (the target) compared with a reference (a file, a folder or a
// count file) counted with the same settings; the words whose log-likelihood passes the chosen
// cut-off, by falling log-likelihood, in a table with the results table's tools.
#include <QWidget>
#include <vector>

#include <memory>

#include "engine/engine_context.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace wordtally::ui {

class ResultsSource;
class TablePanel;

class KeywordsPanel : public QWidget {
  Q_OBJECT

 public:
  // ctx: the target run's settings and common words, which the reference is counted with.
  KeywordsPanel(const EngineContext& ctx, QWidget* parent = nullptr);

  // The target: the results of the last run (null: no run to compare).
  void SetTarget(std::shared_ptr<const ResultsSource> target);
  void SetReference(const QString& path);
  // Counts the reference and shows the keywords; false, with the reason shown, when there is
  // no target or the reference has no words.
  bool Compare();
  TablePanel& table() { return *table_; }

 private:
  void ChooseReference(bool folder);

  const EngineContext& ctx_;
  std::shared_ptr<const ResultsSource> target_;
  QLineEdit* reference_;
  QComboBox* cutoff_;
  QCheckBox* bonferroni_;
  QLabel* status_;
  TablePanel* table_;
};

}  // namespace wordtally::ui
