// Window tests of what a run shows: the output box, filled at the turns of the event loop, holds
// exactly the classic echo and listing; a new run clears the last one's numbers; the keys work.
#include <QTest>
#include <QtWidgets>
#include <optional>

#include "ui/main_window.h"
#include "ui/qt_text.h"

using namespace wordtally;
using namespace wordtally::ui;

// The i-th of the test file's 1,700 distinct words: 40 letters, ascending with i.
static QString Word(int i) {
  QString letters(7, 'a');
  for (int k = 6; k >= 0; --k, i /= 26) letters[k] = QChar('a' + i % 26);
  return 'w' + letters + QString(32, 'e');
}

class RunDisplayTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    // The distinct words ten a line, then their first line 40 times more: 41 of those ten.
    QString text;
    for (int i = 0; i < 1700; ++i) text += Word(i) + (i % 10 == 9 ? "\r\n" : " ");
    text += text.left(411).repeated(40);
    QFile file(dir_.filePath("words.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text.toLatin1()) > 0 && file.flush());
    window_.emplace(dir_.filePath("qzl.usr"));
    window_->host().SetAnswerProvider([](const MessageBoxRequest& request) {
      return request.title == "Counting interrupted" ? Answer::No : request.defaultButton;
    });
    window_->show();
    window_->Start();
    window_->OpenInputs({dir_.filePath("words.txt")});
  }

  void echoIsTheClassicTextAndTheWindowKeepsStillAfterAStop() {
    // The progress bar's fixed-pitch font taller than the window's, as on some systems.
    auto* bar = Get<QLabel>("lblTotalNumOccurrences");
    bar->setFont(QFont(bar->font().family(), bar->font().pointSize() + 6));
    QRect progressBox;
    CountCheckingTurns([&] {  // Stop once every word is in
      if (window_->context().store.lngNumWords() < 1700) return;
      progressBox = bar->parentWidget()->geometry();
      Get<QPushButton>("cmdCount")->click();
    }, 50);
    // The first word replaces "Now processing input file ...", each is followed by one blank.
    // 41 x 1582 = 64,862 characters still take the 1583rd word; 41 x 1583 = 64,903 are too many.
    QString expected;
    for (int i = 0; i < 1583; ++i) expected += Word(i) + ' ';
    QCOMPARE(Output(), expected + "\n\n[Suppressing display of words to avoid buffer overflow.]"
                                  "\n\nStopped with 1700 words found.");
    QVERIFY(Get<QCheckBox>("chkSuppressWords")->isChecked());
    QCoreApplication::processEvents();
    QCOMPARE(bar->parentWidget()->geometry(), progressBox);  // the window keeps still
  }

  void listingIsTheClassicTextUpToTheTextboxLimit() {
    CountCheckingTurns();
    // Alphabetical, "rank frequency word", moved in blocks of 20 lines: the header and 20 lines
    // make 51 + 20 x 59 = 1,231 characters, each further block 1,180; 55 blocks make 64,951 and
    // a 56th would pass 65,000, so 1,100 words are shown.
    QString expected = "   Rank    Freq  Word (longest has 40 characters)\n";
    for (int i = 1; i <= 1100; ++i) {
      expected += QString(" %1  %2  %3\n").arg(i, 6).arg(i <= 10 ? 41 : 1, 6).arg(Word(i - 1));
    }
    QCOMPARE(Output(), expected);
    QTest::keyClick(Get<QPlainTextEdit>("txbOutput"), Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(Get<QPlainTextEdit>("txbOutput")->verticalScrollBar()->value(), 0);  // from the end
  }

  void newRunsClearTheLastNumbersAndAltCCounts() {
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&*window_));
    QTest::keyClick(&*window_, Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(Caption("lblStatWordsInList"), "Number of words in this list: 1,700");
    CountCheckingTurns([this] {  // while counting, nothing of the last listing is shown
      const bool counting = Get<QPushButton>("cmdCount")->text() == "Stop";
      QVERIFY(!counting || Caption("lblStatWordsInList").isEmpty());
    });
    Get<QLineEdit>("txbFile0")->clear();  // refused: "Input file not specified."
    Get<QPushButton>("cmdCount")->click();
    QVERIFY(Caption("lblStatWordsInList").isEmpty() && Caption("lblNumberOfWords").isEmpty());
  }

 private:
  template <typename T>
  T* Get(const char* name) { return window_->findChild<T*>(name); }
  QString Caption(const char* name) { return Get<QLabel>(name)->text(); }
  QString Output() { return Get<QPlainTextEdit>("txbOutput")->toPlainText(); }
  // Presses Count. At each turn of the event loop of the run, the box must show all that was
  // written; atTurn then acts, and a pause of pauseMs makes the next turn come soon.
  void CountCheckingTurns(const std::function<void()>& atTurn = {}, int pauseMs = 0) {
    QTest::qWait(50);  // so that the run's first chance of a turn is one
    int turns = 0, stale = 0;
    QTimer probe;
    connect(&probe, &QTimer::timeout, [&] {
      ++turns;
      stale += Output() != ToDisplayText(window_->host().OutputText());
      if (atTurn) atTurn();
      QThread::msleep(pauseMs);
    });
    probe.start(0);
    Get<QPushButton>("cmdCount")->click();
    QVERIFY(turns > 0 && stale == 0);
  }

  QTemporaryDir dir_;
  std::optional<MainWindow> window_;
};

QTEST_MAIN(RunDisplayTest)
#include "run_display_test.moc"
