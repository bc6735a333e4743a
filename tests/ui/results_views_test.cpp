// Window tests of the results views (Qt Test, offscreen): the results table, the charts and the
// keywords after real runs in the main window. Expected rows were worked out by hand.
#include <QtTest>
#include <QtWidgets>
#include <QChartView>
#include <QBarSet>
#include <QHorizontalBarSeries>
#include <memory>

#include "ui/charts_panel.h"
#include "ui/keywords_panel.h"
#include "ui/main_window.h"
#include "ui/results_views.h"
#include "ui/table_panel.h"

using namespace wordtally;
using namespace wordtally::ui;

class ResultsViewsTest : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> dir_;
  std::unique_ptr<MainWindow> window_;
  std::vector<MessageBoxRequest> shown_;

  QString WriteFile(const QString& name, const QByteArray& bytes) {
    QFile file(dir_->filePath(name));
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
    return file.fileName();
  }
  static QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  void Count(const QString& input) {
    window_->settings().txbFile[0] = input.toStdString();
    window_->RefreshFromSettings();
    window_->findChild<QPushButton*>("cmdCount")->click();
  }
  TablePanel& Table() { return window_->resultsViews().table(); }
  // The cells shown, a row a line, cells separated by blanks.
  QStringList Rows(TablePanel& table) {
    QStringList rows;
    for (const int32_t row : table.model().ShownRows()) {
      QStringList cells;
      for (int c = 0; c < table.model().columnCount(); ++c) cells << table.model().Source()->Text(row, c);
      rows << cells.join(' ');
    }
    return rows;
  }

 private slots:
  void init() {
    window_.reset();
    dir_ = std::make_unique<QTemporaryDir>();
    window_ = std::make_unique<MainWindow>(dir_->filePath("qzl.usr"));
    shown_.clear();
    window_->host().SetAnswerProvider([this](const MessageBoxRequest& request) {
      shown_.push_back(request);
      return request.defaultButton;
    });
    window_->show();
    window_->Start();
  }

  // the 3, cat 2, dog 1, sat 1 (7 instances): shares 3/7 = 42.857 %, 2/7 = 28.571 %, 1/7 =
  // 14.286 %; equal frequencies rank in word order.
  void tableShowsSortsFiltersCopiesAndExports() {
    Count(WriteFile("pets.txt", "the cat sat\r\nthe dog the cat\r\n"));
    const QStringList byRank = {"1 the 3 42.857 42.857", "2 cat 2 28.571 71.429",
                                "3 dog 1 14.286 85.714", "4 sat 1 14.286 100.000"};
    QCOMPARE(Rows(Table()), byRank);
    QCOMPARE(window_->findChild<QLabel*>("resultsCount")->text(), "4 words");

    Table().view().sortByColumn(1, Qt::DescendingOrder);  // by word, Z to A
    QCOMPARE(Rows(Table()), (QStringList{byRank[0], byRank[3], byRank[2], byRank[1]}));
    Table().view().sortByColumn(2, Qt::AscendingOrder);  // equal frequencies keep their ranks
    QCOMPARE(Rows(Table()), (QStringList{byRank[2], byRank[3], byRank[1], byRank[0]}));

    Table().view().sortByColumn(0, Qt::AscendingOrder);
    const std::pair<QString, QStringList> filters[] = {
        {"A", {"cat", "sat"}}, {"?at", {"cat", "sat"}}, {"*T", {"cat", "sat"}}, {"d*g", {"dog"}},
        {"x", {}}};
    for (const auto& [filter, words] : filters) {
      window_->findChild<QLineEdit*>("resultsFilter")->setText(filter);
      QStringList shown;
      for (const QString& row : Rows(Table())) shown << row.section(' ', 1, 1);
      QCOMPARE(shown, words);
    }
    QCOMPARE(window_->findChild<QLabel*>("resultsCount")->text(), "0 of 4 words");

    window_->findChild<QLineEdit*>("resultsFilter")->setText("at");
    Table().view().selectAll();
    window_->findChild<QPushButton*>("resultsCopy")->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), "2\tcat\t2\t28.571\t71.429\n"
                                                   "4\tsat\t1\t14.286\t100.000\n");
    QVERIFY(Table().ExportCsv(dir_->filePath("shown.csv")));
    QCOMPARE(ReadFile(dir_->filePath("shown.csv")),
             "\xEF\xBB\xBFRank,Word,Frequency,Share %,Cumulative %\r\n"
             "2,cat,2,28.571,71.429\r\n4,sat,1,14.286,100.000\r\n");
    QVERIFY(window_->resultsViews().ExportListing(dir_->filePath("shown.txt")));
    QVERIFY(ReadFile(dir_->filePath("shown.txt"))
                .endsWith("   Rank    Freq  Word (longest has 3 characters)\r\n"
                          "      2       2  cat\r\n      4       1  sat\r\n"));
  }

  // 5000 distinct words overflow the output box (error -6); the table holds all of them.
  void tableHoldsTheWholeListWhenTheBoxIsFull() {
    QByteArray text;
    for (int i = 0; i < 5000; ++i) {
      text += QByteArray("wa") + char('a' + i % 26) + char('a' + i / 26 % 26) + char('a' + i / 676) + "\r\n";
    }
    Count(WriteFile("many.txt", text));
    QCOMPARE(shown_.size(), size_t{1});
    QVERIFY(shown_[0].text.find("The whole list is in the Results table.") != std::string::npos);
    QCOMPARE(Table().model().rowCount(), 5000);
    Count(dir_->filePath("missing.txt"));  // a refused run leaves nothing on show
    QCOMPARE(Table().model().rowCount(), 0);
  }

  // a.txt: cat 2, dog 1; b.txt: cat 1, sat 1 (5 instances).
  void corpusRunAddsRangeAndAColumnPerFile() {
    QDir(dir_->path()).mkdir("texts");
    WriteFile("texts/a.txt", "cat dog cat\r\n");
    WriteFile("texts/b.txt", "cat sat\r\n");
    window_->OpenInputs({dir_->filePath("texts")});
    window_->findChild<QPushButton*>("cmdCount")->click();
    const QStringList rows = {"1 cat 3 60.000 60.000 2 2 1", "2 dog 1 20.000 80.000 1 1 0",
                              "3 sat 1 20.000 100.000 1 0 1"};
    QCOMPARE(Rows(Table()), rows);
    QCOMPARE(Table().model().headerData(6, Qt::Horizontal, Qt::DisplayRole).toString(), "a.txt");
    Table().view().sortByColumn(7, Qt::DescendingOrder);  // by b.txt
    QCOMPARE(Rows(Table()), (QStringList{rows[0], rows[2], rows[1]}));
  }

  void chartsDrawTheRunAndSave() {
    Count(WriteFile("pets.txt", "the cat sat\r\nthe dog the cat\r\n"));
    auto* top = window_->findChild<QChartView*>("topWordsChart");
    auto* bars = qobject_cast<QHorizontalBarSeries*>(top->chart()->series().value(0));
    QVERIFY(bars);
    QCOMPARE(bars->barSets().value(0)->count(), 4);  // top 10 of four words
    QCOMPARE(bars->barSets().value(0)->at(3), 3.0);  // the most frequent at the top
    // ln f on ln r: x = 0, ln 2, ln 3, ln 4 and y = ln 3, ln 2, 0, 0 give sums x 3.178054,
    // y 1.791759, xx 3.609214, xy 0.480453 and the slope (4 * 0.480453 - 3.178054 * 1.791759) /
    // (4 * 3.609214 - 3.178054^2) = -3.772495 / 4.33683 = -0.8699.
    QVERIFY(window_->findChild<QChartView*>("zipfChart")->chart()->title().endsWith("0.870"));
    for (const char* name : {"chart.png", "chart.svg"}) {
      QVERIFY(window_->resultsViews().charts().SaveCurrentChart(dir_->filePath(name)));
    }
    QVERIFY(ReadFile(dir_->filePath("chart.png")).startsWith("\x89PNG"));
    QVERIFY(ReadFile(dir_->filePath("chart.svg")).contains("<svg"));
  }

  // The target and reference of the command line's keyword test, worked out there by hand.
  void keywordsCompareTheRunWithAReference() {
    Count(WORDTALLY_TEST_DATA "/cli/mixed_ansi_crlf.txt");
    KeywordsPanel& keywords = window_->resultsViews().keywords();
    keywords.SetReference(WriteFile("reference.txt", QByteArray("the\r\n").repeated(16)));
    QVERIFY(keywords.Compare());
    QCOMPARE(Rows(keywords.table()), (QStringList{"1 the 4 16 8.46 -2.09 under",
                                                  QString::fromUtf8("2 café 3 0 3.98 2.50 over")}));
    window_->findChild<QComboBox*>("keywordsCutoff")->setCurrentIndex(1);  // p < 0.01: 6.63
    QVERIFY(keywords.Compare());
    QCOMPARE(keywords.table().model().rowCount(), 1);
    keywords.SetReference(dir_->filePath("missing.txt"));
    QVERIFY(!keywords.Compare());
  }
};

QTEST_MAIN(ResultsViewsTest)
#include "results_views_test.moc"
