#pragma once
// The tabs beside the classic output box: the results table (every included word of the last
// run), the charts and the keywords. They read the word store after a run and let go of it
// before the next command touches it.
#include <QTabWidget>
#include <memory>

#include "engine/engine_context.h"
#include "ui/results_source.h"

namespace wordtally::ui {

class ChartsPanel;
class KeywordsPanel;
class TablePanel;

class ResultsViews : public QTabWidget {
  Q_OBJECT

 public:
  // outputPane: the classic output box's pane, the first tab.
  ResultsViews(const EngineContext& ctx, QWidget* outputPane, QWidget* parent = nullptr);

  // Before a command that may change the store: the views let go of its records.
  void Clear();
  // After a run: shows what the listing left in the store (nothing when the run listed nothing).
  void ShowRun(PerFileCounts perFile = {});
  // Writes the rows the table shows as the output file is written, in the listing's format.
  bool ExportListing(const QString& path) const;

  TablePanel& table() { return *table_; }
  ChartsPanel& charts() { return *charts_; }
  KeywordsPanel& keywords() { return *keywords_; }

 private:
  void OnExportListingClicked();

  const EngineContext& ctx_;
  std::shared_ptr<const ResultsSource> results_;
  TablePanel* table_;
  ChartsPanel* charts_;
  KeywordsPanel* keywords_;
};

}  // namespace wordtally::ui
