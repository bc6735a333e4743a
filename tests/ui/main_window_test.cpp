// The main window driven as a user drives it: controls set, the count button clicked, message
// boxes answered through the host, and the output textbox, labels and output file checked.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>

#include "engine/program_texts.h"
#include "input/file_vetting.h"
#include "tests/ui/window_test_support.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;
using namespace wordtally::ui::testing;

namespace {

// Four distinct words a line, enough lines for a run that lasts a while.
QByteArray LongText() { return QByteArray("alpha beta gamma delta\r\n").repeated(400000); }

}  // namespace

class MainWindowTest : public MainWindowFixture {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void fileRunListsWordsInTextboxAndOutputFile();
  void overwriteWarningAsksForTheOutputFile();
  void clipboardRunCountsTheClipboardText();
  void pasteStepFillsTheTextBox();
  void typedFileIsVettedAdvisorily();
  void refusedInputsStartNoRun();
  void stoppedRunDisablesControlsAndListsNothingOnNo();
  void closingDuringRunStopsAndQuits();

 private:
  template <typename T>
  T* Child(const char* name) {
    T* child = window_->findChild<T*>(name);
    if (!child) qFatal("no child %s", name);
    return child;
  }
  void TypeInto(const char* lineEdit, const QString& text);
  void ChooseItem(const char* combo, int index);
  void ClickCount() { Child<QPushButton>("cmdCount")->click(); }
  // Calls action once, as soon as the run has counted its first words.
  void OnceCounting(std::function<void()> action);

};

void MainWindowTest::init() {
  OpenWindow();
}

void MainWindowTest::cleanup() { CloseWindow(); }

void MainWindowTest::TypeInto(const char* lineEdit, const QString& text) {
  auto* edit = Child<QLineEdit>(lineEdit);
  edit->setFocus();
  edit->selectAll();
  QTest::keyClicks(edit, text);
  QTest::keyClick(edit, Qt::Key_Return);
}

void MainWindowTest::ChooseItem(const char* combo, int index) {
  auto* box = Child<QComboBox>(combo);
  box->setFocus();
  QTest::keyClick(box, Qt::Key_Home);
  for (int i = 0; i < index; ++i) QTest::keyClick(box, Qt::Key_Down);
}

void MainWindowTest::OnceCounting(std::function<void()> action) {
  auto* poll = new QTimer(window_.get());
  connect(poll, &QTimer::timeout, window_.get(), [this, poll, action] {
    if (window_->context().run.lngTotalNumOccurrences == 0) return;
    poll->stop();
    poll->deleteLater();
    action();
  });
  poll->start(0);
}

void MainWindowTest::fileRunListsWordsInTextboxAndOutputFile() {
  const QString input = dir_->filePath("fruit.txt");
  const QString output = dir_->filePath("fruit words.txt");
  WriteBytes(input, "apple banana apple cherry banana apple\r\n");
  TypeInto("txbFile0", input);
  TypeInto("txbFile1", output);
  ChooseItem("cboWordOrder", 0);  // by frequency
  QCOMPARE(window_->settings().cboWordOrder, 0);
  QCOMPARE(window_->settings().cboDisplayFormat, 0);  // rank frequency word
  QVERIFY(!Child<QCheckBox>("chkUTF8")->isChecked());

  ClickCount();

  QVERIFY2(ContainsInOrder(OutputLines(*window_),
                           {"   Rank    Freq  Word (longest has 6 characters)",
                            "      1       3  apple", "      2       2  banana",
                            "      3       1  cherry"}),
           qPrintable(Child<QPlainTextEdit>("txbOutput")->toPlainText()));
  QCOMPARE(CaptionOf(*window_, "lblStatWordsInList"), "Number of words in this list: 3");
  QCOMPARE(CaptionOf(*window_, "lblStatWordsIgnored"), "Number of words ignored: 0");
  QCOMPARE(CaptionOf(*window_, "lblStatInstancesInList"),
           "Number of instances of words in this list: 6");
  QCOMPARE(CaptionOf(*window_, "lblStatTotalInstances"), "Total number of instances of words: 6");
  QVERIFY(CaptionOf(*window_, "lblTimeElapsed").startsWith("Time elapsed: "));
  QCOMPARE(CaptionOf(*window_, "cmdCount"), ToQString(texts::kCountButtonIdle));
  QVERIFY(Child<QLineEdit>("txbFile0")->isEnabled());
  QVERIFY(book_.shown.empty());

  const QByteArray file = ReadBytes(output);
  QVERIFY2(file.startsWith("\"To open this file in Excel state that it is delimited by spaces.\r\n"
                           "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\""),
           file.constData());
  const qsizetype apple = file.indexOf("\r\n      1       3  apple\r\n");
  const qsizetype cherry = file.indexOf("\r\n      3       1  cherry");
  QVERIFY2(apple > 0 && cherry > apple, file.constData());
}

void MainWindowTest::overwriteWarningAsksForTheOutputFile() {
  const QString input = dir_->filePath("fruit.txt");
  const QString output = dir_->filePath("fruit.csv");
  WriteBytes(input, "apple banana apple\r\n");
  WriteBytes(output, "an earlier listing\r\n");
  TypeInto("txbFile0", input);
  TypeInto("txbFile1", output);
  window_->settingsWindow().findChild<QCheckBox*>("chkWarnOnOverwrite")->click();

  ClickCount();
  QCOMPARE(book_.inputBoxes.size(), size_t{1});
  QCOMPARE(book_.inputBoxes[0].first, "The output file exists.");
  QCOMPARE(book_.inputBoxes[0].second, PathFromQString(output));
  QVERIFY(ReadBytes(output).contains("      1       2  apple"));

  // Cancel writes no listing to the file; the textbox still gets it.
  book_.cancelInputBoxes = true;
  WriteBytes(output, "an earlier listing\r\n");
  ClickCount();
  QCOMPARE(book_.inputBoxes.size(), size_t{2});
  QVERIFY(!ReadBytes(output).contains("apple"));
  QVERIFY(OutputLines(*window_).contains("      1       2  apple"));
}

void MainWindowTest::clipboardRunCountsTheClipboardText() {
  QGuiApplication::clipboard()->setText("dog cat dog bird");
  QTRY_COMPARE(CaptionOf(*window_, "lblSizeOfClipboardContents"), "16 bytes on the clipboard.");
  Child<QRadioButton>("optOnClipboard")->click();
  QVERIFY(!window_->settings().optInFile);
  ChooseItem("cboDisplayFormat", 7);  // word frequency, alphabetical by default

  ClickCount();

  QVERIFY2(ContainsInOrder(OutputLines(*window_),
                           {"  Word" + QString(5, ' ') + "Freq", "  bird" + QString(8, ' ') + "1",
                            "  cat" + QString(9, ' ') + "1", "  dog" + QString(9, ' ') + "2"}),
           qPrintable(Child<QPlainTextEdit>("txbOutput")->toPlainText()));
  QCOMPARE(CaptionOf(*window_, "lblStatTotalInstances"), "Total number of instances of words: 4");
  QVERIFY(book_.shown.empty());
}

void MainWindowTest::pasteStepFillsTheTextBox() {
  QGuiApplication::clipboard()->setText("hello world");
  Child<QPushButton>("cmdPaste")->click();
  QCOMPARE(Child<QPlainTextEdit>("txbPasted")->toPlainText(), "hello world");
  QCOMPARE(CaptionOf(*window_, "lblSizeOfClipboardContents"), "11 bytes on the clipboard.");

  // Typed text goes to the clipboard for a clipboard run.
  Child<QPlainTextEdit>("txbPasted")->setPlainText("typed words");
  Child<QPushButton>("cmdCopyToClipboard")->click();
  QCOMPARE(QGuiApplication::clipboard()->text(), "typed words");

  QGuiApplication::clipboard()->clear();
  Child<QPushButton>("cmdPaste")->click();
  const MessageBoxRequest* empty = book_.Find("Clipboard empty");
  QVERIFY(empty);
  QCOMPARE(empty->text, "Clipboard is empty.");
  QVERIFY(Child<QPlainTextEdit>("txbPasted")->toPlainText().isEmpty());
}

void MainWindowTest::typedFileIsVettedAdvisorily() {
  const QString utf8 = dir_->filePath("utf8.txt");
  WriteBytes(utf8, "\xEF\xBB\xBF" "caf\xC3\xA9 au lait\r\n");
  TypeInto("txbFile0", utf8);
  QVERIFY(Child<QCheckBox>("chkUTF8")->isChecked());
  QCOMPARE(window_->settings().chkUTF8, 1);
  QVERIFY(CaptionOf(*window_, "lblFileSize").startsWith("Filesize: "));

  const QString binary = dir_->filePath("binary.dat");
  WriteBytes(binary, QByteArray("ab\x01\x02\x03 some text"));
  TypeInto("txbFile0", binary);
  const MessageBoxRequest* refused = book_.Find("Not a text file");
  QVERIFY(refused);
  QVERIFY(refused->text.starts_with(PathFromQString(binary) +
                                    "\r\nis not an ANSI or UTF-8 encoded text file."));
  QVERIFY(!Child<QCheckBox>("chkUTF8")->isChecked());

  const QString notDocx = dir_->filePath("letter.docx");
  WriteBytes(notDocx, "plain text, not a zip archive\r\n");
  TypeInto("txbFile0", notDocx);
  QVERIFY(book_.Find(kNotDocxTitle));
  QVERIFY(Child<QLineEdit>("txbFile0")->text().isEmpty());
}

void MainWindowTest::refusedInputsStartNoRun() {
  TypeInto("txbFile0", "   ");
  ClickCount();
  const MessageBoxRequest* noFile = book_.Find(texts::kInputFileNotSpecifiedTitle);
  QVERIFY(noFile);
  QCOMPARE(noFile->text, "Input file not specified.");
  QCOMPARE(noFile->icon, MessageIcon::Exclamation);
  QVERIFY(Child<QPlainTextEdit>("txbOutput")->toPlainText().isEmpty());

  QGuiApplication::clipboard()->setText("words and an escape \x1b here");
  Child<QRadioButton>("optOnClipboard")->click();
  ClickCount();
  const MessageBoxRequest* invalid = book_.Find("Invalid input");
  QVERIFY(invalid);
  QCOMPARE(invalid->text, "The text on the clipboard does not consist\r\nsolely of natural language words.");
  QCOMPARE(Child<QRadioButton>("optInFile")->isChecked(), window_->settings().optInFile);
  QVERIFY(CaptionOf(*window_, "lblStatWordsInList").isEmpty());

  // An empty clipboard is told, and the source goes back to the file.
  QGuiApplication::clipboard()->clear();
  Child<QRadioButton>("optOnClipboard")->click();
  ClickCount();
  QVERIFY(book_.Shown("Clipboard empty"));
  QVERIFY(Child<QRadioButton>("optInFile")->isChecked());
  QVERIFY(window_->settings().optInFile);
  QCOMPARE(CaptionOf(*window_, "cmdCount"), ToQString(texts::kCountButtonIdle));
}

void MainWindowTest::stoppedRunDisablesControlsAndListsNothingOnNo() {
  const QString input = dir_->filePath("long.txt");
  WriteBytes(input, LongText());
  TypeInto("txbFile0", input);
  book_.answers["Large input file"] = Answer::No;  // count without an output file
  book_.answers["Counting interrupted"] = Answer::No;

  QString captionWhileCounting;
  bool countEnabled = false, inputEnabled = true, orderEnabled = true, settingEnabled = true;
  OnceCounting([&] {
    captionWhileCounting = CaptionOf(*window_, "cmdCount");
    countEnabled = Child<QPushButton>("cmdCount")->isEnabled();
    inputEnabled = Child<QLineEdit>("txbFile0")->isEnabled();
    orderEnabled = Child<QComboBox>("cboWordOrder")->isEnabled();
    settingEnabled = window_->settingsWindow().findChild<QCheckBox*>("chkCaseSignificant")->isEnabled();
    Child<QPushButton>("cmdCount")->click();  // Stop
  });
  ClickCount();

  QCOMPARE(captionWhileCounting, "Stop");
  QVERIFY(countEnabled);
  QVERIFY(!inputEnabled);
  QVERIFY(!orderEnabled);
  QVERIFY(!settingEnabled);
  QVERIFY(book_.Shown("Large input file"));
  const MessageBoxRequest* question = book_.Find("Counting interrupted");
  QVERIFY(question);
  QCOMPARE(question->text, "The operation was stopped before all words were counted.\r\n"
                           "Do you wish to list the words which were found?");
  QVERIFY(window_->context().run.lngTotalNumOccurrences < 1600000);
  const QStringList lines = OutputLines(*window_);
  QVERIFY2(lines.contains("Stopped with 4 words found."), qPrintable(lines.join('\n')));
  QVERIFY(!lines.join('\n').contains("Rank"));
  QCOMPARE(CaptionOf(*window_, "cmdCount"), ToQString(texts::kCountButtonIdle));
  QVERIFY(Child<QLineEdit>("txbFile0")->isEnabled());
  QVERIFY(window_->settingsWindow().findChild<QCheckBox*>("chkCaseSignificant")->isEnabled());
}

void MainWindowTest::closingDuringRunStopsAndQuits() {
  const QString input = dir_->filePath("long.txt");
  const QString output = dir_->filePath("words.txt");
  WriteBytes(input, LongText());
  TypeInto("txbFile0", input);
  TypeInto("txbFile1", output);

  OnceCounting([&] { window_->close(); });
  ClickCount();

  QTRY_VERIFY(!window_->isVisible());
  QVERIFY(window_->context().run.lngTotalNumOccurrences < 1600000);
  QVERIFY(!book_.Shown("Counting interrupted"));
  // Nothing was listed, so the output file holds no listing that could pass for a complete one.
  QVERIFY(!ReadBytes(output).contains("alpha"));
  QVERIFY(!QFile::exists(dir_->filePath("qzl.usr")));  // "Save settings on quit" is off
}

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
