// The settings window as a view of the one settings record: controls write into it, the window
// shows what the engine or Reinitialize changed, and the words to ignore are tidied and checked.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "tests/ui/window_test_support.h"
#include "ui/main_window.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;
using namespace wordtally::ui::testing;

class SettingsWindowTest : public MainWindowFixture {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void listsHoldTheirItemsInOrder();
  void controlsWriteIntoTheRecord();
  void wordsToIgnoreAreTidiedWhenTheBoxLosesFocus();
  void disallowedCharacterInWordsToIgnoreIsReported();
  void engineChangesAreShown();
  void reinitializeRestoresDefaults();

 private:
  template <typename T>
  T* Child(const char* name) {
    T* child = window_->settingsWindow().findChild<T*>(name);
    if (!child) qFatal("no child %s", name);
    return child;
  }
  void TypeWordsToIgnore(const QString& text);

};

void SettingsWindowTest::init() {
  OpenWindow();
  window_->settingsWindow().show();
}

void SettingsWindowTest::cleanup() { CloseWindow(); }

void SettingsWindowTest::TypeWordsToIgnore(const QString& text) {
  auto* box = Child<QLineEdit>("txbWordsToIgnore");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, text);
  QTest::keyClick(box, Qt::Key_Return);
}

void SettingsWindowTest::listsHoldTheirItemsInOrder() {
  auto* threshold = Child<QComboBox>("cboThresholdFrequency");
  QCOMPARE(threshold->count(), 8);
  QCOMPARE(threshold->itemText(0), "2");
  QCOMPARE(threshold->itemText(7), "9");
  QCOMPARE(threshold->currentIndex(), 0);

  auto* order = window_->findChild<QComboBox*>("cboWordOrder");
  QCOMPARE(order->count(), 2);
  QCOMPARE(order->itemText(0), "by frequency");
  QCOMPARE(order->currentText(), "alphabetical");
  auto* format = window_->findChild<QComboBox*>("cboDisplayFormat");
  QCOMPARE(format->count(), 10);
  QCOMPARE(format->currentText(), "rank frequency word");
  QCOMPARE(format->itemText(9), "word (+ commas)");
}

void SettingsWindowTest::controlsWriteIntoTheRecord() {
  CountingSettings& settings = window_->settings();
  Child<QCheckBox>("chkCaseSignificant")->click();
  Child<QCheckBox>("chkAllowWordsWithHyphens")->click();
  Child<QCheckBox>("chkSaveStateOnQuit")->click();
  QCOMPARE(settings.chkCaseSignificant, 1);
  QCOMPARE(settings.chkAllowWordsWithHyphens, 0);
  QCOMPARE(settings.chkSaveStateOnQuit, 1);

  auto* threshold = Child<QComboBox>("cboThresholdFrequency");
  threshold->setFocus();
  QTest::keyClick(threshold, Qt::Key_End);
  QCOMPARE(settings.cboThresholdFrequency, 7);
  QCOMPARE(ThresholdFrequency(settings), 9);

  auto* start = Child<QLineEdit>("txbStartComment1");
  start->setFocus();
  start->selectAll();
  QTest::keyClicks(start, "#");
  QCOMPARE(settings.txbStartComment[1], "#");

  auto* disable = window_->findChild<QCheckBox*>("chkDisableOutputToFile");
  disable->click();
  QCOMPARE(settings.chkDisableOutputToFile, 1);
}

void SettingsWindowTest::wordsToIgnoreAreTidiedWhenTheBoxLosesFocus() {
  TypeWordsToIgnore("The, of  AND");
  QCOMPARE(Child<QLineEdit>("txbWordsToIgnore")->text(), "and of the");
  QCOMPARE(window_->settings().txbWordsToIgnore, "and of the");
  QCOMPARE(window_->settings().strWordsToIgnore, " and of the ");
  QVERIFY(book_.shown.empty());

  // A box still being edited is tidied before a run reads it.
  auto* box = Child<QLineEdit>("txbWordsToIgnore");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, "Zoo Ant");
  window_->settingsWindow().CommitPendingEdits();
  QCOMPARE(window_->settings().strWordsToIgnore, " ant zoo ");
}

void SettingsWindowTest::disallowedCharacterInWordsToIgnoreIsReported() {
  TypeWordsToIgnore("don't");
  const MessageBoxRequest* warning = book_.Find("Character not allowed");
  QVERIFY(warning);
  QCOMPARE(warning->text, "The character ' occurs in some word to ignore\r\n"
                          "but is not currently set as a character allowed in a word.");
  QCOMPARE(warning->icon, MessageIcon::Exclamation);
  QCOMPARE(Child<QLineEdit>("txbWordsToIgnore")->text(), "don't");

  // Allowing apostrophes makes the same words acceptable; taking hyphens away then warns about
  // a word with a hyphen.
  book_.shown.clear();
  Child<QCheckBox>("chkAllowWordsWithApostrophes")->click();
  QVERIFY(book_.shown.empty());
  TypeWordsToIgnore("well-known");
  QVERIFY(book_.shown.empty());
  Child<QCheckBox>("chkAllowWordsWithHyphens")->click();
  QVERIFY(book_.Shown("Character not allowed"));
}

void SettingsWindowTest::engineChangesAreShown() {
  window_->settings().chkSuppressWords = 1;
  window_->settings().chkIgnoreNoVowel = 0;
  window_->host().SettingsChanged();
  QVERIFY(window_->findChild<QCheckBox*>("chkSuppressWords")->isChecked());
  QVERIFY(!Child<QCheckBox>("chkIgnoreNoVowel")->isChecked());

  // Ticking the box by hand explains what it does.
  auto* suppress = window_->findChild<QCheckBox*>("chkSuppressWords");
  suppress->click();
  suppress->click();
  QCOMPARE(window_->findChild<QLabel*>("lblStatus")->text(),
           "The program will run faster if words are not displayed as found.");
}

void SettingsWindowTest::reinitializeRestoresDefaults() {
  CountingSettings& settings = window_->settings();
  Child<QCheckBox>("chkCaseSignificant")->click();
  Child<QCheckBox>("chkIgnoreNoVowel")->click();
  Child<QCheckBox>("chkAllowCommentMarkers")->click();
  settings.chkIgnoreCommonWords = 1;
  settings.cboThresholdFrequency = 4;
  TypeWordsToIgnore("kept");

  Child<QPushButton>("cmdReinitialize")->click();

  QCOMPARE(settings.chkCaseSignificant, 0);
  QCOMPARE(settings.chkIgnoreNoVowel, 1);
  QCOMPARE(settings.chkAllowCommentMarkers, 1);
  QCOMPARE(settings.chkIgnoreCommonWords, 0);
  QCOMPARE(settings.cboThresholdFrequency, 0);
  QCOMPARE(settings.txbWordsToIgnore, "kept");
  QVERIFY(!Child<QCheckBox>("chkCaseSignificant")->isChecked());
  QVERIFY(Child<QCheckBox>("chkIgnoreNoVowel")->isChecked());
  QCOMPARE(Child<QComboBox>("cboThresholdFrequency")->currentText(), "2");
  QCOMPARE(Child<QLineEdit>("txbStartComment0")->text(), "/*");
  QCOMPARE(Child<QLineEdit>("txbEndComment0")->text(), "*/");
  QCOMPARE(Child<QLineEdit>("txbStartComment1")->text(), "//");
  QCOMPARE(Child<QLabel>("lblSettingsStatus")->text(), "Program reinitialized.");
}

QTEST_MAIN(SettingsWindowTest)
#include "settings_window_test.moc"
