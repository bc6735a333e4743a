// Window tests (Qt Test): the main, settings and language windows driven as a user drives them,
// message boxes answered through the host, and the textbox, labels and files checked. The rules
// of counting and listing are the engine's tests' concern; these check what the windows add.
#include <QtTest>
#include <QtWidgets>
#include <algorithm>
#include <memory>
#include <tuple>

#include "settings/common_words_choice.h"
#include "ui/language_window.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;

// A check box of the settings window by its name, with the option it writes.
#define SETTINGS_BOX(name) {#name, &CountingSettings::name}

class WindowTest : public QObject {
  Q_OBJECT

  std::unique_ptr<QTemporaryDir> dir_;
  std::unique_ptr<MainWindow> window_;
  bool answerNo_ = false;  // No to every question, instead of each box's default button
  std::vector<MessageBoxRequest> shown_;

  // Starts a window on the state file, in place of the one before. Its message boxes are
  // recorded and answered as answerNo_ says; input boxes and the file chooser are cancelled.
  void Open(const QString& stateFile) {
    window_ = std::make_unique<MainWindow>(stateFile);
    shown_.clear();
    window_->host().SetAnswerProvider([this](const MessageBoxRequest& request) {
      shown_.push_back(request);
      const bool question = request.buttons != MessageButtons::Ok;
      return answerNo_ && question ? Answer::No : request.defaultButton;
    });
    const auto cancel = [](const auto&...) { return std::optional<AnsiString>(); };
    window_->host().SetInputProvider(cancel);
    window_->host().SetFileProvider(cancel);
    window_->show();
    window_->Start();
  }
  static void WriteBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
  }
  static QByteArray ReadBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  bool Shown(std::string_view title) const {
    return std::ranges::any_of(shown_,
                               [title](const MessageBoxRequest& r) { return r.title == title; });
  }
  // The control with this object name in the main window or one of its dialogs.
  template <typename T>
  T* Get(const char* name) {
    T* child = window_->findChild<T*>(name);
    if (!child) qFatal("no control %s", name);
    return child;
  }
  QString Caption(const char* label) { return Get<QLabel>(label)->text(); }
  QString Output() { return Get<QPlainTextEdit>("txbOutput")->toPlainText(); }
  void TypeInto(const char* lineEdit, const QString& text, bool commit = true) {
    auto* edit = Get<QLineEdit>(lineEdit);
    edit->selectAll();
    QTest::keyClicks(edit, text);
    if (commit) QTest::keyClick(edit, Qt::Key_Return);
  }
  void Count() { Get<QPushButton>("cmdCount")->click(); }
  // Types a long file (four distinct words a line) as the input, then calls action once, as
  // soon as the run has counted its first words.
  void OnceCountingLongFile(std::function<void()> action) {
    const QString input = dir_->filePath("long.txt");
    WriteBytes(input, QByteArray("alpha beta gamma delta\r\n").repeated(400000));
    TypeInto("txbFile0", input);
    // Line after line, so that the run is surely still counting when the poll sees its first
    // words (a stop between pieces is the engine tests' business).
    window_->context().threads = 1;
    auto* poll = new QTimer(window_.get());
    connect(poll, &QTimer::timeout, window_.get(), [this, poll, action] {
      if (window_->context().run.lngTotalNumOccurrences == 0) return;
      poll->stop();
      poll->deleteLater();
      action();
    });
    poll->start(0);
  }

 private slots:
  void init() {
    window_.reset();  // before its folder goes
    dir_ = std::make_unique<QTemporaryDir>();
    answerNo_ = false;
    Open(dir_->filePath("qzl.usr"));
  }

  void fileRunListsWordsInTextboxLabelsAndOutputFile() {
    const QString input = dir_->filePath("fruit.txt"), output = dir_->filePath("fruit words.txt");
    WriteBytes(input, "\xEF\xBB\xBF" "apple banana apple caf\xC3\xA9 banana apple\r\n");
    TypeInto("txbFile0", input);
    QVERIFY(Get<QCheckBox>("chkUTF8")->isChecked());  // the file is vetted as it is typed
    TypeInto("txbFile1", output);
    QTest::keyClick(Get<QComboBox>("cboWordOrder"), Qt::Key_Home);  // by frequency
    // A words-to-ignore box still being edited is tidied before the run reads it.
    TypeInto("txbWordsToIgnore", QString::fromUtf8("CAF\xC3\x89"), false);
    Count();

    const QString listing = "   Rank    Freq  Word (longest has 6 characters)\n"
                            "      1       3  apple\n      2       2  banana\n";
    QCOMPARE(Output(), listing);
    QCOMPARE(Caption("lblStatWordsIgnored"), "Number of words ignored: 1");
    QVERIFY(shown_.empty());
    QVERIFY(ReadBytes(output).endsWith(listing.toLatin1().replace("\n", "\r\n")));

    // With the overwrite warning on, the existing file is asked about; Cancel writes no listing
    // to it while the textbox still gets one.
    Get<QCheckBox>("chkWarnOnOverwrite")->click();
    WriteBytes(output, "an earlier listing\r\n");
    Count();
    QCOMPARE(Output(), listing);
    QCOMPARE(ReadBytes(output), "an earlier listing\r\n");

    // A typed docx file that is no zip archive is refused at once.
    WriteBytes(dir_->filePath("letter.docx"), "plain text, not a zip archive\r\n");
    TypeInto("txbFile0", dir_->filePath("letter.docx"));
    QVERIFY(Shown("Not a docx file") && Get<QLineEdit>("txbFile0")->text().isEmpty());
  }

  void clipboardIsShownPastedCopiedAndCounted() {
    QGuiApplication::clipboard()->setText("dog cat dog bird");
    QTRY_COMPARE(Caption("lblSizeOfClipboardContents"), "16 bytes on the clipboard.");
    Get<QPushButton>("cmdPaste")->click();
    QCOMPARE(Get<QPlainTextEdit>("txbPasted")->toPlainText(), "dog cat dog bird");
    Get<QRadioButton>("optOnClipboard")->click();
    QTest::keyClick(Get<QComboBox>("cboDisplayFormat"), Qt::Key_End);  // all on one line
    Count();
    QCOMPARE(Output(), "Word (longest has 4 characters)\nbird, cat, dog");

    Get<QPlainTextEdit>("txbPasted")->setPlainText("typed words");
    Get<QPushButton>("cmdCopyToClipboard")->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), "typed words");
    // A run from an empty clipboard is refused, and the source goes back to the file.
    QGuiApplication::clipboard()->clear();
    Count();
    QVERIFY(Shown("Clipboard empty") && Get<QRadioButton>("optInFile")->isChecked());
  }

  void runIsStoppedByTheCountButtonOrByClosingTheWindow() {
    answerNo_ = true;  // count without an output file, and list nothing when stopped
    const char* const kRunSensitive[] = {"txbFile0", "cboWordOrder", "chkCaseSignificant"};
    QString whileCounting;  // the count button's caption, and the other controls enabled
    OnceCountingLongFile([&] {
      whileCounting = Get<QPushButton>("cmdCount")->text();
      for (const char* name : kRunSensitive) {
        if (Get<QWidget>(name)->isEnabled()) whileCounting += QString(" ") + name;
      }
      Count();  // Stop
    });
    Count();
    QCOMPARE(whileCounting, "Stop");
    QVERIFY(Shown("Large input file") && Shown("Counting interrupted"));
    QVERIFY2(Output().endsWith("\nStopped with 4 words found.") && !Output().contains("Rank"),
             qPrintable(Output()));
    QCOMPARE(Get<QPushButton>("cmdCount")->text(), "&Count words");
    for (const char* name : kRunSensitive) QVERIFY(Get<QWidget>(name)->isEnabled());

    // Closing the window stops the run without a question and quits.
    shown_.clear();
    const QString output = dir_->filePath("words.txt");
    TypeInto("txbFile1", output);
    OnceCountingLongFile([&] { window_->close(); });
    Count();
    QTRY_VERIFY(!window_->isVisible());
    QVERIFY(window_->context().run.lngTotalNumOccurrences < 1600000);
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
    CountingSettings& settings = window_->settings();
    TypeInto("txbWordsToIgnore", "Well-known, The");
    QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), "the well-known");
    for (const auto& [name, option] : kBoxes) {
      Get<QCheckBox>(name)->click();
      QCOMPARE(settings.*option, 1 - defaults.*option);
    }
    // Hyphens are no longer allowed, and one of the words to ignore has one.
    QVERIFY(Shown("Character not allowed"));
    auto* threshold = Get<QComboBox>("cboThresholdFrequency");
    QTest::keyClick(threshold, Qt::Key_End);
    QCOMPARE(settings.cboThresholdFrequency, 7);
    TypeInto("txbStartComment1", "#", false);
    QCOMPARE(settings.txbStartComment[1], "#");
    Get<QCheckBox>("chkSuppressWords")->click();
    QCOMPARE(Caption("lblStatus"),
             "The program will run faster if words are not displayed as found.");

    Get<QPushButton>("cmdReinitialize")->click();
    for (const auto& [name, option] : kBoxes) {
      QCOMPARE(settings.*option, defaults.*option);
      QCOMPARE(Get<QCheckBox>(name)->isChecked(), defaults.*option == 1);
    }
    QCOMPARE(threshold->currentText(), "2");
    QCOMPARE(Get<QLineEdit>("txbStartComment1")->text(), "//");
    QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), "the well-known");  // not an option
    QCOMPARE(Caption("lblSettingsStatus"), "Program reinitialized.");
  }

  void settingsAreSavedOnQuitAndLoadedBack() {
    const QString stateFile = dir_->filePath("config/qzl.usr"), named = dir_->filePath("my.qzl");
    const QString output = dir_->filePath(QString::fromUtf8("caf\xC3\xA9 words = 1.csv"));
    Open(stateFile);
    CountingSettings& s = window_->settings();
    s.chkCaseSignificant = s.chkSaveStateOnQuit = 1;
    s.txbWordsToIgnore = "caf\xE9 the";
    s.txbFile[1] = PathFromQString(output);
    const auto kept = [](const CountingSettings& c) {
      return std::tie(c.chkCaseSignificant, c.chkSaveStateOnQuit, c.txbWordsToIgnore, c.txbFile);
    };
    const CountingSettings saved = s;
    QVERIFY(window_->settingsWindow().SaveSettingsTo(named) && window_->close());

    Open(stateFile);
    QVERIFY(kept(window_->settings()) == kept(saved));
    QCOMPARE(window_->settings().strWordsToIgnore, " caf\xE9 the ");
    QCOMPARE(Get<QLineEdit>("txbWordsToIgnore")->text(), QString::fromUtf8("caf\xC3\xA9 the"));
    QCOMPARE(Get<QLineEdit>("txbFile1")->text(), output);
    QVERIFY(shown_.empty());

    // A named file loads into a reinitialized window; a damaged state file is reported at
    // start-up and leaves the defaults.
    Get<QPushButton>("cmdReinitialize")->click();
    QVERIFY(window_->settingsWindow().LoadSettingsFrom(named));
    QVERIFY(kept(window_->settings()) == kept(saved));
    WriteBytes(stateFile, "[Wordtally settings]\nversion=1\ntxbWordsToIgnore=\"no closing quote\n");
    Open(stateFile);
    QVERIFY(Shown("Settings not loaded") && kept(window_->settings()) == kept(CountingSettings()));
  }

  void commonWordsOfTheChosenLanguageAreLeftOutOfARun() {
    LanguageWindow& languages = window_->languageWindow();
    languages.show();
    auto* list = Get<QListWidget>("lstLanguages");
    QVERIFY(list->count() == 7 && list->currentItem()->text() == "English");
    QVERIFY(languages.SelectLanguage("fr"));
    Get<QPushButton>("cmdLanguageCancel")->click();
    QVERIFY(shown_.empty() && window_->settings().chkIgnoreCommonWords == 0);
    if (FindCommonWordsFile(WORDTALLY_BIN_DIR, "cwds_de.txt").empty()) {
      QSKIP("the common-words files are not beside the program");
    }

    languages.show();
    QVERIFY(languages.SelectLanguage("de"));
    Get<QPushButton>("cmdLanguageOk")->click();
    QVERIFY(Shown("Common words loaded") && !languages.isVisible());
    QVERIFY(Get<QCheckBox>("chkIgnoreCommonWords")->isChecked() &&
            Get<QLineEdit>("txbCommonWordsFile")->text().endsWith("cwds_de.txt"));
    QGuiApplication::clipboard()->setText("Der Hund und die Katze");  // der, und, die are common
    Get<QRadioButton>("optOnClipboard")->click();
    Count();
    QCOMPARE(Output(), "   Rank    Freq  Word (longest has 5 characters)\n"
                       "      1       1  hund\n      2       1  katze\n");
    QCOMPARE(Caption("lblStatWordsIgnored"), "No. of words ignored (other than common words): 0");
  }
  // The modern text switch writes the record, vets the chosen file again under its rules, and
  // Reinitialize turns it off.
  void modernTextSwitchVetsTheChosenFileAgain() {
    auto* utf8 = Get<QCheckBox>("chkUTF8");
    auto* modern = Get<QCheckBox>("chkModernText");
    // A Polish poem in UTF-8 without a byte-order mark or charset: ANSI by the classic rules.
    TypeInto("txbFile0", WORDTALLY_TEST_DATA "/pl_pan_tadeusz_invocation_utf8_lf.txt");
    QVERIFY(!utf8->isChecked());
    window_->settingsWindow().show();
    modern->click();
    QVERIFY(window_->settings().chkModernText == 1 && utf8->isChecked());
    Count();
    QVERIFY(Output().contains(u"gr\u00F3d") && shown_.empty());
    Get<QPushButton>("cmdReinitialize")->click();
    QVERIFY(window_->settings().chkModernText == 0 && !modern->isChecked() && !utf8->isChecked());
  }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
