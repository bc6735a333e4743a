// Window tests (Qt Test): the main, settings and language windows driven as a user drives them,
// message boxes answered through the host, and the textbox, labels and files checked.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <map>
#include <memory>
#include <tuple>

#include "settings/common_words_choice.h"
#include "ui/language_window.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;

namespace {

// A started window whose message boxes are recorded and answered by their title, else with their
// default button. Input boxes keep their text (or are cancelled); the file chooser is cancelled.
struct AnsweredWindow {
  explicit AnsweredWindow(const QString& stateFile) : window(stateFile) {
    window.host().SetAnswerProvider([this](const MessageBoxRequest& request) {
      shown.push_back(request);
      const auto found = answers.find(request.title);
      return found == answers.end() ? request.defaultButton : found->second;
    });
    window.host().SetInputProvider(
        [this](const AnsiString& title, const AnsiString&, const AnsiString& text) {
          inputBoxes.emplace_back(title, text);
          return cancelInputBoxes ? std::nullopt : std::optional<AnsiString>(text);
        });
    window.host().SetFileProvider([] { return std::optional<AnsiString>(); });
    window.show();
    window.Start();
  }
  const MessageBoxRequest* Find(std::string_view title) const {
    for (const MessageBoxRequest& request : shown) {
      if (request.title == title) return &request;
    }
    return nullptr;
  }

  MainWindow window;
  std::map<AnsiString, Answer> answers;  // by title
  std::vector<MessageBoxRequest> shown;
  std::vector<std::pair<AnsiString, AnsiString>> inputBoxes;  // title, text
  bool cancelInputBoxes = false;
};

// The child with this object name in the main, settings or language window.
template <typename T>
T* Get(MainWindow& window, const char* name) {
  for (QWidget* parent : {static_cast<QWidget*>(&window),
                          static_cast<QWidget*>(&window.settingsWindow()),
                          static_cast<QWidget*>(&window.languageWindow())}) {
    if (T* child = parent->findChild<T*>(name)) return child;
  }
  qFatal("no child %s", name);
  return nullptr;
}

void WriteBytes(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

QByteArray ReadBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Values that a careless format would mangle: blanks, "=", quotes, line breaks, Windows-1252
// letters in the words, UTF-8 letters in the paths.
void SetUnusualValues(CountingSettings& settings, const QTemporaryDir& dir) {
  settings.chkCaseSignificant = settings.chkAllowWordsWithApostrophes = 1;
  settings.chkIgnoreNoVowel = 0;
  settings.cboThresholdFrequency = 5;
  settings.chkIgnoreInfrequentWords = settings.chkDisableOutputToFile = 1;
  settings.txbWordsToIgnore = "caf\xE9 na\xEFve the";
  settings.txbStartComment = {"<<= x", "\"q\""};
  settings.txbEndComment = {"=>>", "a\r\nb"};
  settings.optInFile = false;
  settings.cboWordOrder = 0;
  settings.cboDisplayFormat = 9;
  settings.txbFile[0] =
      PathFromQString(dir.filePath(QString::fromUtf8("Caf\xC3\xA9 book = 1.txt")));
  settings.txbFile[1] = PathFromQString(dir.filePath("out words.csv"));
}

auto Kept(const CountingSettings& s) {
  return std::tie(s.chkCaseSignificant, s.chkAllowWordsWithApostrophes, s.chkIgnoreNoVowel,
                  s.cboThresholdFrequency, s.chkIgnoreInfrequentWords, s.txbWordsToIgnore,
                  s.txbStartComment, s.txbEndComment, s.optInFile, s.cboWordOrder,
                  s.cboDisplayFormat, s.chkDisableOutputToFile, s.txbFile, s.chkSaveStateOnQuit);
}

}  // namespace

class WindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() {
    dir_ = std::make_unique<QTemporaryDir>();
    opened_ = std::make_unique<AnsweredWindow>(dir_->filePath("qzl.usr"));
  }
  void cleanup() {
    opened_.reset();
    dir_.reset();
  }
  void fileRunListsWordsInTextboxLabelsAndOutputFile();
  void clipboardRunAndPasteStep();
  void typedFileIsVettedAdvisorily();
  void refusedInputsStartNoRun();
  void stoppedRunDisablesControlsAndListsNothingOnNo();
  void closingDuringRunStopsAndQuits();
  void settingsControlsWriteIntoTheRecordAndReinitializeRestoresDefaults();
  void wordsToIgnoreAreTidiedAndChecked();
  void namedSettingsFileRoundTripsAndDamagedOneIsRefused();
  void stateFileIsSavedOnQuitAndRestoredAtStartUp();
  void languageWindowOkLoadsAndCancelChangesNothing();
  void loadedCommonWordsAreLeftOutOfARun();

 private:
  MainWindow& W() { return opened_->window; }
  template <typename T>
  T* Get(const char* name) { return ::Get<T>(W(), name); }
  QString Caption(const char* name) {
    if (const auto* label = W().findChild<QLabel*>(name)) return label->text();
    return Get<QAbstractButton>(name)->text().remove('&');  // as shown: no access-key mark
  }
  QString Output() { return Get<QPlainTextEdit>("txbOutput")->toPlainText(); }
  void TypeInto(const char* lineEdit, const QString& text, bool commit = true) {
    auto* edit = Get<QLineEdit>(lineEdit);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
    if (commit) QTest::keyClick(edit, Qt::Key_Return);
  }
  void ChooseItem(const char* combo, int index) {
    auto* box = Get<QComboBox>(combo);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(box, Qt::Key_Down);
  }
  void Count() { Get<QPushButton>("cmdCount")->click(); }
  // Types a long file (four distinct words a line) as the input, then calls action once, as
  // soon as the run has counted its first words.
  void OnceCountingLongFile(std::function<void()> action) {
    const QString input = dir_->filePath("long.txt");
    WriteBytes(input, QByteArray("alpha beta gamma delta\r\n").repeated(400000));
    TypeInto("txbFile0", input);
    auto* poll = new QTimer(&W());
    connect(poll, &QTimer::timeout, &W(), [this, poll, action] {
      if (W().context().run.lngTotalNumOccurrences == 0) return;
      poll->stop();
      poll->deleteLater();
      action();
    });
    poll->start(0);
  }

  std::unique_ptr<QTemporaryDir> dir_;
  std::unique_ptr<AnsweredWindow> opened_;
};

void WindowTest::fileRunListsWordsInTextboxLabelsAndOutputFile() {
  const QString input = dir_->filePath("fruit.txt"), output = dir_->filePath("fruit words.txt");
  WriteBytes(input, "apple banana apple cherry banana apple\r\n");
  TypeInto("txbFile0", input);
  TypeInto("txbFile1", output);
  ChooseItem("cboWordOrder", 0);  // by frequency
  QCOMPARE(W().settings().cboWordOrder, 0);
  Count();

  QVERIFY2(Output().contains("   Rank    Freq  Word (longest has 6 characters)\n"
                             "      1       3  apple\n      2       2  banana\n"
                             "      3       1  cherry"),
           qPrintable(Output()));
  QCOMPARE(Caption("lblStatWordsInList"), "Number of words in this list: 3");
  QCOMPARE(Caption("lblStatWordsIgnored"), "Number of words ignored: 0");
  QCOMPARE(Caption("lblStatInstancesInList"), "Number of instances of words in this list: 6");
  QCOMPARE(Caption("lblStatTotalInstances"), "Total number of instances of words: 6");
  QVERIFY(Caption("lblTimeElapsed").startsWith("Time elapsed: "));
  QCOMPARE(Caption("cmdCount"), "Count words");
  QVERIFY(Get<QLineEdit>("txbFile0")->isEnabled());
  QVERIFY(opened_->shown.empty());
  QCOMPARE(ReadBytes(output),
           "\"To open this file in Excel state that it is delimited by spaces.\r\n"
           "Set File Origin: Windows (ANSI) & Text qualifier: double-quote.\"\r\n"
           "   Rank    Freq  Word (longest has 6 characters)\r\n"
           "      1       3  apple\r\n      2       2  banana\r\n      3       1  cherry\r\n");

  // With the overwrite warning on, the existing file is asked about; Cancel writes no listing to
  // it while the textbox still gets one.
  Get<QCheckBox>("chkWarnOnOverwrite")->click();
  for (const bool cancel : {false, true}) {
    opened_->cancelInputBoxes = cancel;
    WriteBytes(output, "an earlier listing\r\n");
    Get<QPlainTextEdit>("txbOutput")->clear();
    Count();
    QCOMPARE(opened_->inputBoxes.size(), size_t{cancel ? 2u : 1u});
    QCOMPARE(opened_->inputBoxes.back().first, "The output file exists.");
    QCOMPARE(opened_->inputBoxes.back().second, PathFromQString(output));
    QCOMPARE(ReadBytes(output).contains("apple"), !cancel);
    QVERIFY(Output().contains("      1       3  apple"));
  }
}

void WindowTest::clipboardRunAndPasteStep() {
  QGuiApplication::clipboard()->setText("dog cat dog bird");
  QTRY_COMPARE(Caption("lblSizeOfClipboardContents"), "16 bytes on the clipboard.");
  Get<QPushButton>("cmdPaste")->click();
  QCOMPARE(Get<QPlainTextEdit>("txbPasted")->toPlainText(), "dog cat dog bird");
  Get<QRadioButton>("optOnClipboard")->click();
  QVERIFY(!W().settings().optInFile);
  ChooseItem("cboDisplayFormat", 7);  // word frequency, alphabetical by default
  Count();
  QVERIFY2(Output().contains("  Word     Freq\n  bird        1\n  cat         1\n  dog         2"),
           qPrintable(Output()));
  QCOMPARE(Caption("lblStatTotalInstances"), "Total number of instances of words: 4");
  QVERIFY(opened_->shown.empty());

  // Typed text goes to the clipboard for a clipboard run.
  Get<QPlainTextEdit>("txbPasted")->setPlainText("typed words");
  Get<QPushButton>("cmdCopyToClipboard")->click();
  QCOMPARE(QGuiApplication::clipboard()->text(), "typed words");
  QTRY_COMPARE(Caption("lblSizeOfClipboardContents"), "11 bytes on the clipboard.");

  QGuiApplication::clipboard()->clear();
  Get<QPushButton>("cmdPaste")->click();
  const MessageBoxRequest* empty = opened_->Find("Clipboard empty");
  QVERIFY(empty);
  QCOMPARE(empty->text, "Clipboard is empty.");
  QVERIFY(Get<QPlainTextEdit>("txbPasted")->toPlainText().isEmpty());
}

void WindowTest::typedFileIsVettedAdvisorily() {
  const QString utf8 = dir_->filePath("utf8.txt"), binary = dir_->filePath("binary.dat");
  WriteBytes(utf8, "\xEF\xBB\xBF" "caf\xC3\xA9 au lait\r\n");
  TypeInto("txbFile0", utf8);
  QVERIFY(Get<QCheckBox>("chkUTF8")->isChecked());
  QCOMPARE(W().settings().chkUTF8, 1);
  QVERIFY(Caption("lblFileSize").startsWith("Filesize: "));

  WriteBytes(binary, QByteArray("ab\x01\x02\x03 some text"));
  TypeInto("txbFile0", binary);
  const MessageBoxRequest* refused = opened_->Find("Not a text file");
  QVERIFY(refused);
  QVERIFY(refused->text.starts_with(PathFromQString(binary) +
                                    "\r\nis not an ANSI or UTF-8 encoded text file."));
  QVERIFY(!Get<QCheckBox>("chkUTF8")->isChecked());

  const QString notDocx = dir_->filePath("letter.docx");
  WriteBytes(notDocx, "plain text, not a zip archive\r\n");
  TypeInto("txbFile0", notDocx);
  QVERIFY(opened_->Find("Not a docx file"));
  QVERIFY(Get<QLineEdit>("txbFile0")->text().isEmpty());
}

void WindowTest::refusedInputsStartNoRun() {
  TypeInto("txbFile0", "   ");
  Count();
  const MessageBoxRequest* noFile = opened_->Find("No input file");
  QVERIFY(noFile);
  QCOMPARE(noFile->text, "Input file not specified.");
  QCOMPARE(noFile->icon, MessageIcon::Exclamation);
  QVERIFY(Output().isEmpty());

  QGuiApplication::clipboard()->setText("words and an escape \x1b here");
  Get<QRadioButton>("optOnClipboard")->click();
  Count();
  const MessageBoxRequest* invalid = opened_->Find("Invalid input");
  QVERIFY(invalid);
  QCOMPARE(invalid->text,
           "The text on the clipboard does not consist\r\nsolely of natural language words.");
  QCOMPARE(Get<QRadioButton>("optInFile")->isChecked(), W().settings().optInFile);
  QVERIFY(Caption("lblStatWordsInList").isEmpty());

  // An empty clipboard is told, and the source goes back to the file.
  QGuiApplication::clipboard()->clear();
  Get<QRadioButton>("optOnClipboard")->click();
  Count();
  QVERIFY(opened_->Find("Clipboard empty"));
  QVERIFY(Get<QRadioButton>("optInFile")->isChecked());
  QVERIFY(W().settings().optInFile);
  QCOMPARE(Caption("cmdCount"), "Count words");
}

void WindowTest::stoppedRunDisablesControlsAndListsNothingOnNo() {
  opened_->answers["Large input file"] = Answer::No;  // count without an output file
  opened_->answers["Counting interrupted"] = Answer::No;
  QString captionWhileCounting;
  bool countEnabled = false, inputEnabled = true, orderEnabled = true, settingEnabled = true;
  OnceCountingLongFile([&] {
    captionWhileCounting = Caption("cmdCount");
    countEnabled = Get<QPushButton>("cmdCount")->isEnabled();
    inputEnabled = Get<QLineEdit>("txbFile0")->isEnabled();
    orderEnabled = Get<QComboBox>("cboWordOrder")->isEnabled();
    settingEnabled = Get<QCheckBox>("chkCaseSignificant")->isEnabled();
    Count();  // Stop
  });
  Count();

  QCOMPARE(captionWhileCounting, "Stop");
  QVERIFY(countEnabled && !inputEnabled && !orderEnabled && !settingEnabled);
  QVERIFY(opened_->Find("Large input file"));
  const MessageBoxRequest* question = opened_->Find("Counting interrupted");
  QVERIFY(question);
  QCOMPARE(question->text, "The operation was stopped before all words were counted.\r\n"
                           "Do you wish to list the words which were found?");
  QVERIFY(W().context().run.lngTotalNumOccurrences < 1600000);
  QVERIFY2(Output().split('\n').contains("Stopped with 4 words found."), qPrintable(Output()));
  QVERIFY(!Output().contains("Rank"));
  QCOMPARE(Caption("cmdCount"), "Count words");
  QVERIFY(Get<QLineEdit>("txbFile0")->isEnabled());
  QVERIFY(Get<QCheckBox>("chkCaseSignificant")->isEnabled());
}

void WindowTest::closingDuringRunStopsAndQuits() {
  const QString output = dir_->filePath("words.txt");
  TypeInto("txbFile1", output);
  OnceCountingLongFile([&] { W().close(); });
  Count();

  QTRY_VERIFY(!W().isVisible());
  QVERIFY(W().context().run.lngTotalNumOccurrences < 1600000);
  QVERIFY(!opened_->Find("Counting interrupted"));
  // Nothing was listed, so the output file holds no listing that could pass for a complete one.
  QVERIFY(!ReadBytes(output).contains("alpha"));
  QVERIFY(!QFile::exists(dir_->filePath("qzl.usr")));  // "Save settings on quit" is off
}

void WindowTest::settingsControlsWriteIntoTheRecordAndReinitializeRestoresDefaults() {
  CountingSettings& settings = W().settings();
  W().settingsWindow().show();
  Get<QCheckBox>("chkCaseSignificant")->click();
  Get<QCheckBox>("chkAllowWordsWithHyphens")->click();
  Get<QCheckBox>("chkSaveStateOnQuit")->click();
  Get<QCheckBox>("chkIgnoreNoVowel")->click();
  Get<QCheckBox>("chkAllowCommentMarkers")->click();
  Get<QCheckBox>("chkDisableOutputToFile")->click();
  QCOMPARE(settings.chkCaseSignificant, 1);
  QCOMPARE(settings.chkAllowWordsWithHyphens, 0);
  QCOMPARE(settings.chkSaveStateOnQuit, 1);
  QCOMPARE(settings.chkIgnoreNoVowel, 0);
  QCOMPARE(settings.chkDisableOutputToFile, 1);
  auto* threshold = Get<QComboBox>("cboThresholdFrequency");
  threshold->setFocus();
  QTest::keyClick(threshold, Qt::Key_End);
  QCOMPARE(settings.cboThresholdFrequency, 7);
  QCOMPARE(ThresholdFrequency(settings), 9);
  TypeInto("txbStartComment1", "#", false);
  QCOMPARE(settings.txbStartComment[1], "#");

  // The windows show what the engine changed; ticking the box by hand explains what it does.
  settings.chkSuppressWords = settings.chkAllowWordsWithHyphens = settings.chkIgnoreCommonWords = 1;
  W().host().SettingsChanged();
  auto* suppress = Get<QCheckBox>("chkSuppressWords");
  QVERIFY(suppress->isChecked());
  QVERIFY(Get<QCheckBox>("chkAllowWordsWithHyphens")->isChecked());
  suppress->click();
  suppress->click();
  QCOMPARE(Caption("lblStatus"),
           "The program will run faster if words are not displayed as found.");

  TypeInto("txbWordsToIgnore", "kept");
  Get<QPushButton>("cmdReinitialize")->click();
  QCOMPARE(settings.chkCaseSignificant, 0);
  QCOMPARE(settings.chkIgnoreNoVowel, 1);
  QCOMPARE(settings.chkAllowCommentMarkers, 1);
  QCOMPARE(settings.chkIgnoreCommonWords, 0);
  QCOMPARE(settings.cboThresholdFrequency, 0);
  QCOMPARE(settings.txbWordsToIgnore, "kept");
  QVERIFY(!Get<QCheckBox>("chkCaseSignificant")->isChecked());
  QVERIFY(Get<QCheckBox>("chkIgnoreNoVowel")->isChecked());
  QCOMPARE(threshold->currentText(), "2");
  QCOMPARE(Get<QLineEdit>("txbStartComment0")->text(), "/*");
  QCOMPARE(Get<QLineEdit>("txbEndComment0")->text(), "*/");
  QCOMPARE(Get<QLineEdit>("txbStartComment1")->text(), "//");
  QCOMPARE(Get<QLabel>("lblSettingsStatus")->text(), "Program reinitialized.");
}

void WindowTest::wordsToIgnoreAreTidiedAndChecked() {
  W().settingsWindow().show();
  TypeInto("txbWordsToIgnore", "The, of  AND");
  QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), "and of the");
  QCOMPARE(W().settings().txbWordsToIgnore, "and of the");
  QCOMPARE(W().settings().strWordsToIgnore, " and of the ");
  // A box still being edited is tidied before a run reads it.
  TypeInto("txbWordsToIgnore", "Zoo Ant", false);
  W().settingsWindow().CommitPendingEdits();
  QCOMPARE(W().settings().strWordsToIgnore, " ant zoo ");
  QVERIFY(opened_->shown.empty());

  TypeInto("txbWordsToIgnore", "don't");
  const MessageBoxRequest* warning = opened_->Find("Character not allowed");
  QVERIFY(warning);
  QCOMPARE(warning->text, "The character ' occurs in some word to ignore\r\n"
                          "but is not currently set as a character allowed in a word.");
  QCOMPARE(warning->icon, MessageIcon::Exclamation);
  QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), "don't");

  // Allowing apostrophes makes the same words acceptable; taking hyphens away then warns about
  // a word with a hyphen.
  opened_->shown.clear();
  Get<QCheckBox>("chkAllowWordsWithApostrophes")->click();
  TypeInto("txbWordsToIgnore", "well-known");
  QVERIFY(opened_->shown.empty());
  Get<QCheckBox>("chkAllowWordsWithHyphens")->click();
  QVERIFY(opened_->Find("Character not allowed"));
}

void WindowTest::namedSettingsFileRoundTripsAndDamagedOneIsRefused() {
  SetUnusualValues(W().settings(), *dir_);
  const CountingSettings saved = W().settings();
  const QString file = dir_->filePath("my settings.qzl");
  QVERIFY(W().settingsWindow().SaveSettingsTo(file));
  Get<QPushButton>("cmdReinitialize")->click();
  W().settings() = CountingSettings();
  QVERIFY(W().settingsWindow().LoadSettingsFrom(file));

  QVERIFY(Kept(W().settings()) == Kept(saved));
  QCOMPARE(W().settings().strWordsToIgnore, " caf\xE9 na\xEFve the ");
  // The windows show what was loaded.
  QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(),
           QString::fromUtf8("caf\xC3\xA9 na\xC3\xAFve the"));
  QCOMPARE(Get<QComboBox>("cboDisplayFormat")->currentText(), "word (+ commas)");
  QVERIFY(Get<QRadioButton>("optOnClipboard")->isChecked());
  QCOMPARE(Get<QLineEdit>("txbFile1")->text(), dir_->filePath("out words.csv"));
  QVERIFY(opened_->shown.empty());

  const QString foreign = dir_->filePath("foreign.qzl");
  WriteBytes(foreign, "this is not a settings file\nchkCaseSignificant=0\n");
  QVERIFY(!W().settingsWindow().LoadSettingsFrom(foreign));
  const MessageBoxRequest* refusal = opened_->Find("Settings not loaded");
  QVERIFY(refusal);
  QVERIFY(!refusal->text.empty());
  QVERIFY(Kept(W().settings()) == Kept(saved));
}

void WindowTest::stateFileIsSavedOnQuitAndRestoredAtStartUp() {
  const QString stateFile = dir_->filePath("config/qzl.usr");
  CountingSettings saved;
  {
    AnsweredWindow first(stateFile);
    SetUnusualValues(first.window.settings(), *dir_);
    first.window.settings().chkSaveStateOnQuit = 1;
    saved = first.window.settings();
    QVERIFY(first.window.close());
  }
  QVERIFY(QFile::exists(stateFile));
  {
    AnsweredWindow restored(stateFile);
    QVERIFY(Kept(restored.window.settings()) == Kept(saved));
    QVERIFY(::Get<QCheckBox>(restored.window, "chkCaseSignificant")->isChecked());
    QCOMPARE(::Get<QComboBox>(restored.window, "cboThresholdFrequency")->currentText(), "7");
    QVERIFY(restored.shown.empty());
  }

  // A damaged state file at start-up is reported and leaves the defaults in place.
  WriteBytes(stateFile, "[Wordtally settings]\nversion=1\ntxbWordsToIgnore=\"no closing quote\n");
  AnsweredWindow damaged(stateFile);
  QVERIFY(damaged.Find("Settings not loaded"));
  QCOMPARE(damaged.window.settings().txbWordsToIgnore, "");
  QCOMPARE(damaged.window.settings().chkCaseSignificant, 0);
}

void WindowTest::languageWindowOkLoadsAndCancelChangesNothing() {
  LanguageWindow& languages = W().languageWindow();
  languages.show();
  auto* list = Get<QListWidget>("lstLanguages");
  QCOMPARE(list->count(), 7);
  QCOMPARE(list->item(0)->text(), "English");
  QCOMPARE(list->currentRow(), 0);
  QVERIFY(languages.SelectLanguage("fr"));
  Get<QPushButton>("cmdLanguageCancel")->click();
  QVERIFY(opened_->shown.empty());
  QCOMPARE(W().settings().chkIgnoreCommonWords, 0);
  QVERIFY(W().settings().txbCommonWordsFile.empty());
  QVERIFY(!W().context().commonWords.blnCommonWordsLoaded);

  if (FindCommonWordsFile(WORDTALLY_BIN_DIR, "cwds_de.txt").empty()) {
    QSKIP("the common-words files are not beside the program");
  }
  languages.show();
  QVERIFY(languages.SelectLanguage("de"));
  Get<QPushButton>("cmdLanguageOk")->click();
  const MessageBoxRequest* loaded = opened_->Find("Common words loaded");
  QVERIFY(loaded);
  QCOMPARE(loaded->icon, MessageIcon::Information);
  QVERIFY(loaded->text.ends_with("cwds_de.txt"));
  QCOMPARE(W().settings().chkIgnoreCommonWords, 1);
  QVERIFY(W().settings().txbCommonWordsFile.ends_with("cwds_de.txt"));
  QVERIFY(Get<QCheckBox>("chkIgnoreCommonWords")->isChecked());
  QVERIFY(Get<QLineEdit>("txbCommonWordsFile")->text().endsWith("cwds_de.txt"));
  QVERIFY(!languages.isVisible());
}

void WindowTest::loadedCommonWordsAreLeftOutOfARun() {
  const QString common = dir_->filePath("common.txt");
  WriteBytes(common, "the and // a comment: these words are skipped\r\n/* also skipped */ was\r\n");
  emit W().languageWindow().commonWordsFileChosen(PathFromQString(common));
  const MessageBoxRequest* loaded = opened_->Find("Common words loaded");
  QVERIFY(loaded);
  QCOMPARE(loaded->text, "3 common words loaded from " + PathFromQString(common));

  QGuiApplication::clipboard()->setText("The cat and the dog was here");
  Get<QRadioButton>("optOnClipboard")->click();
  Count();
  // cat, dog and here remain, each once: equal frequencies take consecutive ranks in
  // alphabetical order, listed alphabetically as "rank frequency word".
  QVERIFY2(Output().contains("      1       1  cat\n      2       1  dog\n      3       1  here"),
           qPrintable(Output()));
  QCOMPARE(Caption("lblStatWordsIgnored"), "No. of words ignored (other than common words): 0");
  QCOMPARE(Caption("lblStatTotalInstances"), "Total number of instances of words: 7");
}

QTEST_MAIN(WindowTest)
#include "window_test.moc"
