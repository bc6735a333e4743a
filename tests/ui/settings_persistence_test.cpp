// Settings kept in real files: a named settings file saved and loaded through the settings
// window, the state file saved on quit and restored at start-up, and a damaged file refused.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "tests/ui/window_test_support.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/settings_persistence.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;
using namespace wordtally::ui::testing;

namespace {

// Values that a careless format would mangle: blanks, "=", quotes, line breaks, Windows-1252
// letters in the words, UTF-8 letters in the paths.
void SetUnusualValues(CountingSettings& settings, const QTemporaryDir& dir) {
  settings.chkCaseSignificant = 1;
  settings.chkAllowWordsWithApostrophes = 1;
  settings.chkIgnoreNoVowel = 0;
  settings.cboThresholdFrequency = 5;
  settings.chkIgnoreInfrequentWords = 1;
  settings.txbWordsToIgnore = "caf\xE9 na\xEFve the";
  settings.txbStartComment = {"<<= x", "\"q\""};
  settings.txbEndComment = {"=>>", "a\r\nb"};
  settings.optInFile = false;
  settings.cboWordOrder = 0;
  settings.cboDisplayFormat = 9;
  settings.chkDisableOutputToFile = 1;
  settings.txbFile[0] = PathFromQString(dir.filePath(QString::fromUtf8("Caf\xC3\xA9 book = 1.txt")));
  settings.txbFile[1] = PathFromQString(dir.filePath("out words.csv"));
}

void CompareSettings(const CountingSettings& actual, const CountingSettings& expected) {
  QCOMPARE(actual.chkCaseSignificant, expected.chkCaseSignificant);
  QCOMPARE(actual.chkAllowWordsWithApostrophes, expected.chkAllowWordsWithApostrophes);
  QCOMPARE(actual.chkIgnoreNoVowel, expected.chkIgnoreNoVowel);
  QCOMPARE(actual.cboThresholdFrequency, expected.cboThresholdFrequency);
  QCOMPARE(actual.chkIgnoreInfrequentWords, expected.chkIgnoreInfrequentWords);
  QCOMPARE(actual.txbWordsToIgnore, expected.txbWordsToIgnore);
  QCOMPARE(actual.txbStartComment, expected.txbStartComment);
  QCOMPARE(actual.txbEndComment, expected.txbEndComment);
  QCOMPARE(actual.optInFile, expected.optInFile);
  QCOMPARE(actual.cboWordOrder, expected.cboWordOrder);
  QCOMPARE(actual.cboDisplayFormat, expected.cboDisplayFormat);
  QCOMPARE(actual.chkDisableOutputToFile, expected.chkDisableOutputToFile);
  QCOMPARE(actual.txbFile, expected.txbFile);
}

}  // namespace

class SettingsPersistenceTest : public QObject {
  Q_OBJECT

 private slots:
  void namedSettingsFileRoundTrips();
  void stateFileIsSavedOnQuitAndRestoredAtStartUp();
  void damagedSettingsFileIsRefusedAndChangesNothing();
};

void SettingsPersistenceTest::namedSettingsFileRoundTrips() {
  QTemporaryDir dir;
  MainWindow window(dir.filePath("qzl.usr"));
  AnswerBook book;
  book.Attach(window.host());
  window.Start();
  SetUnusualValues(window.settings(), dir);
  const CountingSettings saved = window.settings();
  const QString file = dir.filePath("my settings.qzl");
  QVERIFY(window.settingsWindow().SaveSettingsTo(file));

  window.settingsWindow().findChild<QPushButton*>("cmdReinitialize")->click();
  window.settings() = CountingSettings();
  QVERIFY(window.settingsWindow().LoadSettingsFrom(file));

  CompareSettings(window.settings(), saved);
  QCOMPARE(window.settings().strWordsToIgnore, " caf\xE9 na\xEFve the ");
  // The windows show what was loaded.
  QCOMPARE(window.settingsWindow().findChild<QLineEdit*>("txbWordsToIgnore")->text(),
           QString::fromUtf8("caf\xC3\xA9 na\xC3\xAFve the"));
  QCOMPARE(window.findChild<QComboBox*>("cboDisplayFormat")->currentText(), "word (+ commas)");
  QVERIFY(window.findChild<QRadioButton*>("optOnClipboard")->isChecked());
  QCOMPARE(window.findChild<QLineEdit*>("txbFile1")->text(), dir.filePath("out words.csv"));
  QVERIFY(book.shown.empty());
}

void SettingsPersistenceTest::stateFileIsSavedOnQuitAndRestoredAtStartUp() {
  QTemporaryDir dir;
  const QString stateFile = dir.filePath("config/qzl.usr");
  CountingSettings saved;
  {
    MainWindow window(stateFile);
    AnswerBook book;
    book.Attach(window.host());
    window.show();
    window.Start();
    SetUnusualValues(window.settings(), dir);
    window.settings().chkSaveStateOnQuit = 1;
    saved = window.settings();
    QVERIFY(window.close());
  }
  QVERIFY(QFile::exists(stateFile));

  MainWindow restored(stateFile);
  AnswerBook book;
  book.Attach(restored.host());
  restored.Start();
  CompareSettings(restored.settings(), saved);
  QCOMPARE(restored.settings().chkSaveStateOnQuit, 1);
  QVERIFY(restored.settingsWindow().findChild<QCheckBox*>("chkCaseSignificant")->isChecked());
  QCOMPARE(restored.settingsWindow().findChild<QComboBox*>("cboThresholdFrequency")->currentText(),
           "7");
}

void SettingsPersistenceTest::damagedSettingsFileIsRefusedAndChangesNothing() {
  QTemporaryDir dir;
  MainWindow window(dir.filePath("qzl.usr"));
  AnswerBook book;
  book.Attach(window.host());
  window.Start();
  const CountingSettings before = window.settings();

  const QString foreign = dir.filePath("foreign.qzl");
  WriteBytes(foreign, "this is not a settings file\nchkCaseSignificant=1\n");
  QVERIFY(!window.settingsWindow().LoadSettingsFrom(foreign));
  const MessageBoxRequest* refusal = book.Find(kSettingsNotLoadedTitle);
  QVERIFY(refusal);
  QVERIFY(!refusal->text.empty());
  CompareSettings(window.settings(), before);

  // A damaged state file at start-up is reported and leaves the defaults in place.
  const QString stateFile = dir.filePath("damaged/qzl.usr");
  QDir().mkpath(dir.filePath("damaged"));
  WriteBytes(stateFile, "[Wordtally settings]\nversion=1\ntxbWordsToIgnore=\"no closing quote\n");
  MainWindow restored(stateFile);
  AnswerBook restoredBook;
  restoredBook.Attach(restored.host());
  restored.Start();
  QVERIFY(restoredBook.Shown(kSettingsNotLoadedTitle));
  QCOMPARE(restored.settings().txbWordsToIgnore, "");
  QCOMPARE(restored.settings().chkCaseSignificant, 0);
}

QTEST_MAIN(SettingsPersistenceTest)
#include "settings_persistence_test.moc"
