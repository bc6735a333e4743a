// The language-selection window and common words: OK loads the chosen file and a run then leaves
// its words out; Cancel changes nothing.
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QRadioButton>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "settings/common_words_choice.h"
#include "tests/ui/window_test_support.h"
#include "ui/language_window.h"
#include "ui/main_window.h"
#include "ui/qt_text.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;
using namespace wordtally::ui::testing;

class LanguageWindowTest : public MainWindowFixture {
  Q_OBJECT

 private slots:
  void init();
  void cleanup();
  void offersTheSevenLanguages();
  void okLoadsTheChosenLanguage();
  void cancelLeavesEverythingAsItWas();
  void loadedCommonWordsAreLeftOutOfARun();

 private:
};

void LanguageWindowTest::init() {
  OpenWindow();
}

void LanguageWindowTest::cleanup() { CloseWindow(); }

void LanguageWindowTest::offersTheSevenLanguages() {
  window_->languageWindow().show();
  auto* list = window_->languageWindow().findChild<QListWidget*>("lstLanguages");
  QCOMPARE(list->count(), 7);
  QCOMPARE(list->item(0)->text(), "English");
  QCOMPARE(list->currentRow(), 0);
}

void LanguageWindowTest::okLoadsTheChosenLanguage() {
  if (FindCommonWordsFile(WORDTALLY_BIN_DIR, "cwds_de.txt").empty()) {
    QSKIP("the common-words files are not beside the program");
  }
  LanguageWindow& languages = window_->languageWindow();
  languages.show();
  QVERIFY(languages.SelectLanguage("de"));
  languages.findChild<QPushButton*>("cmdLanguageOk")->click();

  const MessageBoxRequest* loaded = book_.Find("Common words loaded");
  QVERIFY(loaded);
  QCOMPARE(loaded->icon, MessageIcon::Information);
  QVERIFY(loaded->text.ends_with("cwds_de.txt"));
  QCOMPARE(window_->settings().chkIgnoreCommonWords, 1);
  QVERIFY(window_->settings().txbCommonWordsFile.ends_with("cwds_de.txt"));
  SettingsWindow& settings = window_->settingsWindow();
  QVERIFY(settings.findChild<QCheckBox*>("chkIgnoreCommonWords")->isChecked());
  QVERIFY(settings.findChild<QLineEdit*>("txbCommonWordsFile")->text().endsWith("cwds_de.txt"));
  QVERIFY(!languages.isVisible());
}

void LanguageWindowTest::cancelLeavesEverythingAsItWas() {
  LanguageWindow& languages = window_->languageWindow();
  languages.show();
  QVERIFY(languages.SelectLanguage("fr"));
  languages.findChild<QPushButton*>("cmdLanguageCancel")->click();
  QVERIFY(book_.shown.empty());
  QCOMPARE(window_->settings().chkIgnoreCommonWords, 0);
  QVERIFY(window_->settings().txbCommonWordsFile.empty());
  QVERIFY(!window_->context().commonWords.blnCommonWordsLoaded);
}

void LanguageWindowTest::loadedCommonWordsAreLeftOutOfARun() {
  const QString common = dir_->filePath("common.txt");
  WriteBytes(common, "the and // a comment: these words are skipped\r\n/* also skipped */ was\r\n");
  emit window_->languageWindow().commonWordsFileChosen(PathFromQString(common));
  const MessageBoxRequest* loaded = book_.Find("Common words loaded");
  QVERIFY(loaded);
  QCOMPARE(loaded->text, "3 common words loaded from " + PathFromQString(common));

  QGuiApplication::clipboard()->setText("The cat and the dog was here");
  window_->findChild<QRadioButton*>("optOnClipboard")->click();
  window_->findChild<QPushButton*>("cmdCount")->click();

  // cat, dog and here remain, each once: equal frequencies take consecutive ranks in
  // alphabetical order, listed alphabetically as "rank frequency word".
  QVERIFY2(ContainsInOrder(OutputLines(*window_),
                           {"      1       1  cat", "      2       1  dog", "      3       1  here"}),
           qPrintable(window_->findChild<QPlainTextEdit*>("txbOutput")->toPlainText()));
  QCOMPARE(CaptionOf(*window_, "lblStatWordsIgnored"),
           "No. of words ignored (other than common words): 0");
  QCOMPARE(CaptionOf(*window_, "lblStatTotalInstances"), "Total number of instances of words: 7");
}

QTEST_MAIN(LanguageWindowTest)
#include "language_window_test.moc"
