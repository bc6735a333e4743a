// Window tests of corpus runs: inputs dropped onto the window and the list, removed again, and a
// run over three small files (one in a folder) checked as a user sees it: the listing, the files
// counted, the saved corpus table, and the same words counted again from the saved counts; a
// run over two long files stopped in the second lists the words of both.
#include <QtTest>
#include <QtWidgets>
#include <optional>

#include "ui/main_window.h"

using namespace wordtally;
using namespace wordtally::ui;

class CorpusWindowTest : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  std::optional<MainWindow> window_;
  std::vector<AnsiString> titles_;  // of the message boxes shown

  template <typename T>
  T* Get(const char* name) { return window_->findChild<T*>(name); }
  QString Text(const char* label) { return Get<QLabel>(label)->text(); }
  QString Path(const char* name) { return dir_.filePath(name); }
  void Write(const char* name, const QByteArray& bytes) {
    QDir(dir_.path()).mkpath(QFileInfo(Path(name)).path());
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
  }
  // Drops files and folders as a file manager does. The application passes on only drops that
  // come from the window system, so the event goes straight to the widget's own handling.
  void Drop(QObject* target, const QStringList& names) {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& name : names) urls << QUrl::fromLocalFile(dir_.filePath(name));
    data.setUrls(urls);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    target->event(&drop);
  }
  QStringList Listed() {
    QStringList rows;
    for (QTreeWidgetItemIterator it(Get<QTreeWidget>("lstCorpus")); *it; ++it) {
      rows << QFileInfo((*it)->text(0)).fileName() + " " + (*it)->text(1) + " " + (*it)->text(2);
    }
    return rows;
  }
  void Select(const QString& fileName) {
    auto* list = Get<QTreeWidget>("lstCorpus");
    list->setCurrentItem(list->findItems(fileName, Qt::MatchEndsWith).value(0));
  }

 private slots:
  void init() {
    // 20, 15 and 7 bytes: apple 2 + 0 + 1, banana 1 + 1 + 0, cherry 0 + 1 + 0.
    Write("a.txt", "apple banana apple\r\n");
    Write("b.txt", "banana cherry\r\n");
    Write("more/c.txt", "apple\r\n");
    titles_.clear();
    window_.emplace(Path("qzl.usr"));
    window_->host().SetAnswerProvider([this](const MessageBoxRequest& request) {
      titles_.push_back(request.title);
      return request.title == "Large input file" ? Answer::No : request.defaultButton;
    });
    window_->show();
    window_->Start();
    QTest::keyClick(Get<QComboBox>("cboWordOrder"), Qt::Key_Home);  // by frequency
  }

  void droppedInputsAreListedAndRemoved() {
    Drop(&*window_, {"a.txt"});  // one file is the input file, as before
    QCOMPARE(Get<QLineEdit>("txbFile0")->text(), Path("a.txt"));
    Drop(Get<QWidget>("CorpusList"), {"b.txt", "more"});  // joins the list
    QCOMPARE(Listed(), QStringList({"a.txt 20 bytes ", "b.txt 15 bytes ",
                                    "more 7 bytes folder, 1 file", "c.txt 7 bytes "}));
    QCOMPARE(Text("lblCorpusTotal"), "3 files, 42 bytes");
    QVERIFY(Get<QLineEdit>("txbFile0")->text().isEmpty());  // the list is what is counted

    Select("b.txt");
    QTest::keyClick(Get<QTreeWidget>("lstCorpus"), Qt::Key_Delete);
    Select("more");
    Get<QPushButton>("cmdRemoveInput")->click();
    QCOMPARE(Listed(), QStringList({"a.txt 20 bytes "}));
    QCOMPARE(Get<QLineEdit>("txbFile0")->text(), Path("a.txt"));
  }

  void corpusIsCountedSavedAndCountedAgainFromItsCounts() {
    const QString listing = "   Rank    Freq  Word (longest has 6 characters)\n"
                            "      1       3  apple\n      2       2  banana\n      3       1  cherry\n";
    Drop(&*window_, {"a.txt", "b.txt", "more"});
    Get<QPushButton>("cmdCount")->click();
    QCOMPARE(Get<QPlainTextEdit>("txbOutput")->toPlainText(), listing);
    QCOMPARE(Text("lblStatFiles"), "Files counted: 3, skipped: 0");
    QVERIFY(titles_.empty() && Get<QAction>("actSaveCorpusTable")->isEnabled());

    QVERIFY(window_->SaveCorpusFile(MainWindow::CorpusFile::Table, Path("table.csv")));
    QFile table(Path("table.csv"));
    QVERIFY(table.open(QIODevice::ReadOnly));
    QCOMPARE(table.readLine(), "\xEF\xBB\xBFRank,Word,Frequency,Range,a.txt,b.txt,more/c.txt\r\n");
    QCOMPARE(table.readLine(), "1,apple,3,2,2,0,1\r\n");

    QVERIFY(window_->SaveCorpusFile(MainWindow::CorpusFile::Counts, Path("counts.txt")));
    Drop(&*window_, {"counts.txt"});
    QVERIFY(Listed().size() == 1 && Listed().front().endsWith(" count file"));
    Get<QPushButton>("cmdCount")->click();
    QCOMPARE(Get<QPlainTextEdit>("txbOutput")->toPlainText(), listing);

    // A classic run leaves nothing of the corpus to show or save.
    Drop(&*window_, {"b.txt"});
    Get<QPushButton>("cmdCount")->click();
    QVERIFY(Get<QLabel>("lblStatFiles")->isHidden());
    QVERIFY(!Get<QAction>("actSaveCorpusTable")->isEnabled());
  }

  void stopInTheSecondFileListsTheWordsOfBoth() {
    // The second file takes many of the window's turns (one each 40 ms) to read, however fast.
    const QByteArray line("alpha beta gamma delta\r\n");
    Write("long1.txt", line.repeated(400000));
    Write("long2.txt", line.repeated(2000000));
    Drop(&*window_, {"long1.txt", "long2.txt"});
    // Line after line, so that the poll surely finds the second file being read.
    window_->context().threads = 1;
    QTimer poll;
    connect(&poll, &QTimer::timeout, [&] {
      if (!Text("lblStatus").startsWith("File 2 of 2: long2.txt")) return;
      poll.stop();
      Get<QPushButton>("cmdCount")->click();  // Stop
    });
    poll.start(0);
    Get<QPushButton>("cmdCount")->click();
    QVERIFY(std::ranges::count(titles_, "Counting interrupted") == 1);
    // The words were counted as often as the whole first file and part of the second have them.
    const QString output = Get<QPlainTextEdit>("txbOutput")->toPlainText();
    const QStringList alpha = output.section('\n', 1).split('\n').filter("alpha");
    const int frequency = alpha.value(0).split(' ', Qt::SkipEmptyParts).value(1).toInt();
    QVERIFY2(frequency > 400000 && frequency < 2400000, qPrintable(output));
  }

  void progressNamesTheFileAndTheShareOfAllBytes() {
    window_->host().ShowCorpusProgress({3, 20, Path("more/c.txt").toStdString(), 45, 100});
    QCOMPARE(Text("lblStatus"), "File 3 of 20: c.txt - 45%");
  }
};

QTEST_MAIN(CorpusWindowTest)
#include "corpus_window_test.moc"
