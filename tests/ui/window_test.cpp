// Window tests (Qt Test): the main, settings and language windows driven as a user drives them,
// message boxes answered through the host, and the textbox, labels and files checked. The rules
// of counting and listing are the engine's tests' concern; these check what the windows add.
#include <QtTest>
#include <QtWidgets>
#include <algorithm>
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

void WriteBytes(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

QByteArray ReadBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A check box of the settings window by its name, with the option it writes.
#define SETTINGS_BOX(name) {#name, &CountingSettings::name}

}  // namespace

class WindowTest : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> dir_;
  std::unique_ptr<MainWindow> window_;
  std::map<AnsiString, Answer> answers_;  // by title; other message boxes get their default
  std::vector<MessageBoxRequest> shown_;
  std::vector<std::pair<AnsiString, AnsiString>> inputBoxes_;  // title, text

  // Starts a window on the state file, in place of the one before. Its message boxes are
  // recorded and answered from answers_; input boxes and the file chooser are cancelled.
  void Open(const QString& stateFile) {
    window_ = std::make_unique<MainWindow>(stateFile);
    shown_.clear();
    window_->host().SetAnswerProvider([this](const MessageBoxRequest& request) {
      shown_.push_back(request);
      const auto found = answers_.find(request.title);
      return found == answers_.end() ? request.defaultButton : found->second;
    });
    window_->host().SetInputProvider(
        [this](const AnsiString& title, const AnsiString&, const AnsiString& text) {
          inputBoxes_.emplace_back(title, text);
          return std::optional<AnsiString>();
        });
    window_->host().SetFileProvider([] { return std::optional<AnsiString>(); });
    window_->show();
    window_->Start();
  }
  // The text of the first message box with this title, if one was shown.
  std::optional<AnsiString> Shown(std::string_view title) const {
    const auto found = std::find_if(shown_.begin(), shown_.end(),
                                    [title](const MessageBoxRequest& r) { return r.title == title; });
    return found == shown_.end() ? std::nullopt : std::optional(found->text);
  }
  MainWindow& W() { return *window_; }
  // The child with this object name in the main, settings or language window.
  template <typename T>
  T* Get(const char* name) {
    for (QWidget* parent : std::initializer_list<QWidget*>{window_.get(), &W().settingsWindow(),
                                                           &W().languageWindow()}) {
      if (T* child = parent->findChild<T*>(name)) return child;
    }
    qFatal("no child %s", name);
  }
  QString Caption(const char* name) {
    if (const auto* label = W().findChild<QLabel*>(name)) return label->text();
    return Get<QAbstractButton>(name)->text();
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
    auto* poll = new QTimer(window_.get());
    connect(poll, &QTimer::timeout, window_.get(), [this, poll, action] {
      if (W().context().run.lngTotalNumOccurrences == 0) return;
      poll->stop();
      poll->deleteLater();
      action();
    });
    poll->start(0);
  }

 private slots:
  void init() {
    dir_ = std::make_unique<QTemporaryDir>();
    answers_.clear();
    inputBoxes_.clear();
    Open(dir_->filePath("qzl.usr"));
  }
  void cleanup() {
    window_.reset();
    dir_.reset();
  }

  void fileRunListsWordsInTextboxLabelsAndOutputFile() {
    const QString input = dir_->filePath("fruit.txt"), output = dir_->filePath("fruit words.txt");
    WriteBytes(input, "apple banana apple cherry banana apple\r\n");
    TypeInto("txbFile0", input);
    TypeInto("txbFile1", output);
    ChooseItem("cboWordOrder", 0);  // by frequency
    // A words-to-ignore box still being edited is tidied before the run reads it.
    W().settingsWindow().show();
    TypeInto("txbWordsToIgnore", "Cherry", false);
    Count();

    const QString listing = "   Rank    Freq  Word (longest has 6 characters)\n"
                            "      1       3  apple\n      2       2  banana\n";
    QCOMPARE(Output(), listing);
    QCOMPARE(Caption("lblStatWordsIgnored"), "Number of words ignored: 1");
    QCOMPARE(Caption("lblStatTotalInstances"), "Total number of instances of words: 6");
    QVERIFY(Caption("lblTimeElapsed").startsWith("Time elapsed: "));
    QCOMPARE(Caption("cmdCount"), "Count words");
    QVERIFY(Get<QLineEdit>("txbFile0")->isEnabled());
    QVERIFY(shown_.empty());
    const QByteArray inFile = listing.toLatin1().replace("\n", "\r\n");
    QVERIFY(ReadBytes(output).endsWith(inFile));

    // With the overwrite warning on, the existing file is asked about; Cancel writes no listing
    // to it while the textbox still gets one.
    Get<QCheckBox>("chkWarnOnOverwrite")->click();
    WriteBytes(output, "an earlier listing\r\n");
    Get<QPlainTextEdit>("txbOutput")->clear();
    Count();
    const decltype(inputBoxes_) warning = {{"The output file exists.", PathFromQString(output)}};
    QVERIFY(inputBoxes_ == warning);
    QCOMPARE(Output(), listing);
    QCOMPARE(ReadBytes(output), "an earlier listing\r\n");
  }

  void typedInputFileIsVetted() {
    const QString utf8 = dir_->filePath("utf8.txt"), binary = dir_->filePath("binary.dat");
    const QString notDocx = dir_->filePath("letter.docx");
    WriteBytes(utf8, "\xEF\xBB\xBF" "caf\xC3\xA9 au lait\r\n");
    WriteBytes(binary, "ab\x01\x02\x03 some text");
    WriteBytes(notDocx, "plain text, not a zip archive\r\n");
    TypeInto("txbFile0", utf8);
    QVERIFY(Get<QCheckBox>("chkUTF8")->isChecked() && W().settings().chkUTF8 == 1);
    QVERIFY(shown_.empty());
    TypeInto("txbFile0", binary);
    QVERIFY(Shown("Not a text file"));
    QVERIFY(!Get<QCheckBox>("chkUTF8")->isChecked());
    TypeInto("txbFile0", notDocx);
    QVERIFY(Shown("Not a docx file"));
    QVERIFY(Get<QLineEdit>("txbFile0")->text().isEmpty());
  }

  void clipboardIsShownPastedCopiedAndCounted() {
    QGuiApplication::clipboard()->setText("dog cat dog bird");
    QTRY_COMPARE(Caption("lblSizeOfClipboardContents"), "16 bytes on the clipboard.");
    Get<QPushButton>("cmdPaste")->click();
    QCOMPARE(Get<QPlainTextEdit>("txbPasted")->toPlainText(), "dog cat dog bird");
    Get<QRadioButton>("optOnClipboard")->click();
    ChooseItem("cboDisplayFormat", 7);  // word frequency, alphabetical by default
    Count();
    QVERIFY2(Output().endsWith("  Word     Freq\n  bird        1\n  cat         1\n  dog         2\n"),
             qPrintable(Output()));
    QVERIFY(shown_.empty());

    Get<QPlainTextEdit>("txbPasted")->setPlainText("typed words");
    Get<QPushButton>("cmdCopyToClipboard")->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), "typed words");

    // An empty clipboard is told; a run from it sends the source back to the file.
    QGuiApplication::clipboard()->clear();
    Get<QPushButton>("cmdPaste")->click();
    QVERIFY(Shown("Clipboard empty"));
    QVERIFY(Get<QPlainTextEdit>("txbPasted")->toPlainText().isEmpty());
    shown_.clear();
    Count();
    QVERIFY(Shown("Clipboard empty"));
    QVERIFY(Get<QRadioButton>("optInFile")->isChecked() && W().settings().optInFile);
  }

  void stoppedRunDisablesControlsAndListsNothingOnNo() {
    answers_["Large input file"] = Answer::No;  // count without an output file
    answers_["Counting interrupted"] = Answer::No;
    QString captionWhileCounting;
    bool othersEnabledWhileCounting = true;
    OnceCountingLongFile([&] {
      captionWhileCounting = Caption("cmdCount");
      othersEnabledWhileCounting = !Get<QPushButton>("cmdCount")->isEnabled() ||
                                   Get<QLineEdit>("txbFile0")->isEnabled() ||
                                   Get<QComboBox>("cboWordOrder")->isEnabled() ||
                                   Get<QCheckBox>("chkCaseSignificant")->isEnabled();
      Count();  // Stop
    });
    Count();

    QCOMPARE(captionWhileCounting, "Stop");
    QVERIFY(!othersEnabledWhileCounting);
    QVERIFY(Shown("Large input file") && Shown("Counting interrupted"));
    QVERIFY(W().context().run.lngTotalNumOccurrences < 1600000);
    QVERIFY2(Output().endsWith("\nStopped with 4 words found."), qPrintable(Output()));
    QVERIFY(!Output().contains("Rank"));
    QCOMPARE(Caption("cmdCount"), "Count words");
    QVERIFY(Get<QLineEdit>("txbFile0")->isEnabled());
    QVERIFY(Get<QCheckBox>("chkCaseSignificant")->isEnabled());
  }

  void closingDuringRunStopsAndQuits() {
    const QString output = dir_->filePath("words.txt");
    TypeInto("txbFile1", output);
    OnceCountingLongFile([&] { W().close(); });
    Count();

    QTRY_VERIFY(!W().isVisible());
    QVERIFY(W().context().run.lngTotalNumOccurrences < 1600000);
    QVERIFY(!Shown("Counting interrupted"));
    // Nothing was listed, so the output file holds no listing that could pass for a complete one.
    QVERIFY(!ReadBytes(output).contains("alpha"));
    QVERIFY(!QFile::exists(dir_->filePath("qzl.usr")));  // "Save settings on quit" is off
  }

  void settingsControlsWriteTheRecordAndReinitializeRestoresDefaults() {
    const std::pair<const char*, int CountingSettings::*> kBoxes[] = {
        SETTINGS_BOX(chkCaseSignificant), SETTINGS_BOX(chkAllowWordsWithHyphens),
        SETTINGS_BOX(chkAllowWordsWithApostrophes), SETTINGS_BOX(chkAllowWordsWithNumerals),
        SETTINGS_BOX(chkDropFinalS), SETTINGS_BOX(chkOnly7bitASCII), SETTINGS_BOX(chkIgnoreNoVowel),
        SETTINGS_BOX(chkIgnoreInfrequentWords), SETTINGS_BOX(chkAllowCommentMarkers),
        SETTINGS_BOX(chkOutputWithCommas), SETTINGS_BOX(chkWarnOnOverwrite),
        SETTINGS_BOX(chkSaveStateOnQuit)};
    const CountingSettings defaults;
    CountingSettings& settings = W().settings();
    W().settingsWindow().show();
    TypeInto("txbWordsToIgnore", "Well-known, The");
    QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), "the well-known");
    for (const auto& [name, option] : kBoxes) {
      Get<QCheckBox>(name)->click();
      QCOMPARE(settings.*option, 1 - defaults.*option);
    }
    // Hyphens are no longer allowed, and one of the words to ignore has one.
    QVERIFY(Shown("Character not allowed"));
    auto* threshold = Get<QComboBox>("cboThresholdFrequency");
    threshold->setFocus();
    QTest::keyClick(threshold, Qt::Key_End);
    QCOMPARE(settings.cboThresholdFrequency, 7);
    TypeInto("txbStartComment1", "#", false);
    QCOMPARE(settings.txbStartComment[1], "#");
    Get<QCheckBox>("chkSuppressWords")->click();
    QCOMPARE(Caption("lblStatus"), "The program will run faster if words are not displayed as found.");

    Get<QPushButton>("cmdReinitialize")->click();
    for (const auto& [name, option] : kBoxes) {
      QCOMPARE(settings.*option, defaults.*option);
      QCOMPARE(Get<QCheckBox>(name)->isChecked(), defaults.*option == 1);
    }
    QCOMPARE(threshold->currentText(), "2");
    QCOMPARE(Get<QLineEdit>("txbStartComment1")->text(), "//");
    QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), "the well-known");  // not an option
    QCOMPARE(Get<QLabel>("lblSettingsStatus")->text(), "Program reinitialized.");
  }

  void settingsAreSavedOnQuitAndLoadedBack() {
    const QString stateFile = dir_->filePath("config/qzl.usr"), named = dir_->filePath("my.qzl");
    const QString output = dir_->filePath(QString::fromUtf8("caf\xC3\xA9 words = 1.csv"));
    Open(stateFile);
    CountingSettings& s = W().settings();
    s.chkCaseSignificant = s.chkSaveStateOnQuit = 1;
    s.cboThresholdFrequency = 5;
    s.cboDisplayFormat = 9;
    s.optInFile = false;
    s.txbWordsToIgnore = "caf\xE9 the";
    s.txbFile[1] = PathFromQString(output);
    const CountingSettings saved = s;
    const auto kept = [](const CountingSettings& c) {
      return std::tie(c.chkCaseSignificant, c.chkSaveStateOnQuit, c.cboThresholdFrequency,
                      c.cboDisplayFormat, c.optInFile, c.txbWordsToIgnore, c.txbFile);
    };
    QVERIFY(W().settingsWindow().SaveSettingsTo(named));
    QVERIFY(W().close());

    Open(stateFile);
    QVERIFY(kept(W().settings()) == kept(saved));
    QCOMPARE(W().settings().strWordsToIgnore, " caf\xE9 the ");
    QVERIFY(Get<QCheckBox>("chkCaseSignificant")->isChecked());
    QCOMPARE(Get<QComboBox>("cboThresholdFrequency")->currentText(), "7");
    QCOMPARE(Get<QComboBox>("cboDisplayFormat")->currentText(), "word (+ commas)");
    QVERIFY(Get<QRadioButton>("optOnClipboard")->isChecked());
    QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), QString::fromUtf8("caf\xC3\xA9 the"));
    QCOMPARE(Get<QLineEdit>("txbFile1")->text(), output);
    QVERIFY(shown_.empty());

    // A named file loads into a reinitialized window; a damaged one is refused, at start-up too,
    // and changes nothing.
    Get<QPushButton>("cmdReinitialize")->click();
    QVERIFY(W().settingsWindow().LoadSettingsFrom(named));
    QVERIFY(kept(W().settings()) == kept(saved));
    WriteBytes(stateFile, "[Wordtally settings]\nversion=1\ntxbWordsToIgnore=\"no closing quote\n");
    QVERIFY(!W().settingsWindow().LoadSettingsFrom(stateFile));
    QVERIFY(Shown("Settings not loaded"));
    QVERIFY(kept(W().settings()) == kept(saved));
    Open(stateFile);
    QVERIFY(Shown("Settings not loaded"));
    QVERIFY(kept(W().settings()) == kept(CountingSettings()));
  }

  void commonWordsChosenAreLoadedAndLeftOutOfARun() {
    LanguageWindow& languages = W().languageWindow();
    languages.show();
    auto* list = Get<QListWidget>("lstLanguages");
    QVERIFY(list->count() == 7 && list->currentItem()->text() == "English");
    QVERIFY(languages.SelectLanguage("fr"));
    Get<QPushButton>("cmdLanguageCancel")->click();
    QVERIFY(shown_.empty() && W().settings().chkIgnoreCommonWords == 0);

    const QString common = dir_->filePath("common.txt");
    WriteBytes(common, "the and // a comment: these words are skipped\r\n/* also skipped */ was\r\n");
    emit languages.commonWordsFileChosen(PathFromQString(common));
    QCOMPARE(Shown("Common words loaded").value_or(""),
             "3 common words loaded from " + PathFromQString(common));
    QVERIFY(Get<QCheckBox>("chkIgnoreCommonWords")->isChecked());
    QCOMPARE(Get<QLineEdit>("txbCommonWordsFile")->text(), common);
    QGuiApplication::clipboard()->setText("The cat and the dog was here");
    Get<QRadioButton>("optOnClipboard")->click();
    Count();
    QVERIFY2(Output().endsWith("      1       1  cat\n      2       1  dog\n      3       1  here\n"),
             qPrintable(Output()));
    QCOMPARE(Caption("lblStatWordsIgnored"), "No. of words ignored (other than common words): 0");

    if (FindCommonWordsFile(WORDTALLY_BIN_DIR, "cwds_de.txt").empty()) {
      QSKIP("the common-words files are not beside the program");
    }
    shown_.clear();
    languages.show();
    QVERIFY(languages.SelectLanguage("de"));
    Get<QPushButton>("cmdLanguageOk")->click();
    QVERIFY(Shown("Common words loaded").value_or("").ends_with("cwds_de.txt"));
    QVERIFY(W().settings().txbCommonWordsFile.ends_with("cwds_de.txt"));
    QVERIFY(!languages.isVisible());
  }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
