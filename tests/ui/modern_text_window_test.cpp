// The modern text switch in the real windows: it writes into the settings record, a chosen
// input file is vetted again under the new rules, and Reinitialize turns it off.
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "ui/main_window.h"
#include "ui/settings_window.h"

using namespace wordtally;
using namespace wordtally::ui;

class ModernTextWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void switchVetsTheChosenFileAgainAndReinitializeTurnsItOff() {
    QTemporaryDir dir;
    MainWindow window(dir.filePath("qzl.usr"));
    std::vector<AnsiString> titles;  // of the message boxes shown
    window.host().SetAnswerProvider([&titles](const MessageBoxRequest& request) {
      titles.push_back(request.title);
      return request.defaultButton;
    });
    window.show();
    window.Start();
    auto* utf8 = window.findChild<QCheckBox*>("chkUTF8");
    auto* modern = window.settingsWindow().findChild<QCheckBox*>("chkModernText");
    auto* input = window.findChild<QLineEdit*>("txbFile0");
    // A Polish poem in UTF-8 without a byte-order mark or charset: ANSI by the classic rules.
    input->setText(WORDTALLY_TEST_DATA "/pl_pan_tadeusz_invocation_utf8_lf.txt");
    QTest::keyClick(input, Qt::Key_Return);
    QVERIFY(!utf8->isChecked());

    window.settingsWindow().show();
    modern->click();
    QCOMPARE(window.settings().chkModernText, 1);
    QVERIFY(utf8->isChecked());
    window.findChild<QPushButton*>("cmdCount")->click();
    QVERIFY(window.findChild<QPlainTextEdit*>("txbOutput")->toPlainText().contains(u"gród"));
    QVERIFY(titles.empty());

    window.settingsWindow().findChild<QPushButton*>("cmdReinitialize")->click();
    QCOMPARE(window.settings().chkModernText, 0);
    QVERIFY(!modern->isChecked());
    QVERIFY(!utf8->isChecked());
  }
};

QTEST_MAIN(ModernTextWindowTest)
#include "modern_text_window_test.moc"
