// The results table over two million distinct words, as after a very large run: how long the
// table takes to open (model and view over the store's records, scrolled to the end), to sort by
// each column both ways and to filter. A timing report, not a test; run a Release build:
//   QT_QPA_PLATFORM=offscreen build/bin/bench_results_table
#include <QApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "analysis/quiet_host.h"
#include "results/sorting.h"
#include "ui/results_source.h"
#include "ui/table_panel.h"

namespace {

using namespace wordtally;
constexpr int32_t kNumWords = 2'000'000;

// Distinct words in binary order (the store's), with a long-tailed frequency distribution,
// ranked as a run's listing ranks them.
std::vector<WordListEntry> RankedStore(ListStatistics& stats) {
  std::mt19937 random(20240601);
  std::geometric_distribution<int32_t> rare(0.4);
  std::vector<WordListEntry> list(1);
  list.reserve(kNumWords + 1);
  for (int32_t i = 0; i < kNumWords; ++i) {
    WordListEntry e;
    char word[16];
    std::snprintf(word, sizeof word, "w%07d", i);
    e.Word = word;
    e.Frequency = 1 + rare(random) + (random() % 1000 == 0 ? static_cast<int32_t>(random() % 100000) : 0);
    list.push_back(std::move(e));
  }
  QuietHost host;
  MarkIncludedWords(list, false, 2);
  CountIncludedWords(list, stats);
  BuildFrequencyOrder(list, stats, host);
  return list;
}

template <typename Step>
void Time(const char* what, Step step) {
  QElapsedTimer timer;
  timer.start();
  step();
  std::printf("%-44s %6lld ms\n", what, static_cast<long long>(timer.elapsed()));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  ListStatistics stats;
  const std::vector<WordListEntry> list = RankedStore(stats);
  ui::TablePanel panel("results");  // the results table's own model, view and tools
  panel.resize(800, 600);
  panel.show();
  ui::RowTableModel& model = panel.model();
  QTableView& view = panel.view();
  std::shared_ptr<ui::ResultsSource> source;
  Time("open: the rows by rank and their shares", [&] {
    source = std::make_shared<ui::ResultsSource>(list, stats);
  });
  Time("open: model and view, scrolled to the end", [&] {
    model.SetSource(source);
    view.scrollToBottom();
    QApplication::processEvents();
  });
  const std::pair<int, const char*> columns[] = {
      {0, "rank"}, {1, "word"}, {2, "frequency"}, {4, "cumulative share"}};
  for (const auto& [column, name] : columns) {
    for (const Qt::SortOrder order : {Qt::DescendingOrder, Qt::AscendingOrder}) {
      const std::string what = std::string("sort by ") + name +
                               (order == Qt::AscendingOrder ? " ascending" : " descending");
      Time(what.c_str(), [&] {
        view.sortByColumn(column, order);
        QApplication::processEvents();
      });
    }
  }
  Time("filter *99* (wildcard)", [&] { model.SetFilter("*99*"); });
  Time("filter 123 (contains)", [&] { model.SetFilter("123"); });
  Time("filter cleared", [&] { model.SetFilter(""); });
  std::printf("%d words shown\n", model.rowCount());
  return 0;
}
