#include "ui/help_window.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/help_text.h"
#include "ui/language_window.h"
#include "ui/qt_text.h"
#include "ui/settings_persistence.h"

namespace wordtally::ui {

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent) {
  setObjectName("HelpWindow");
  setWindowTitle(tr("Wordtally help"));
  auto* layout = new QVBoxLayout(this);
  auto* browser = new QTextBrowser(this);
  browser->setObjectName("txbHelp");
  browser->setOpenLinks(false);
  browser->setHtml(HelpHtml());
  connect(browser, &QTextBrowser::anchorClicked, this, [](const QUrl& url) {
    QDesktopServices::openUrl(url);
  });
  layout->addWidget(browser);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
  layout->addWidget(buttons);
  resize(640, 600);
}

void ShowAboutWindow(QWidget* parent) {
  const QString wordsFolder =
      QFileInfo(PathToQString(CommonWordsFilePath("cwds_en.txt"))).absolutePath();
  const QString settingsFolder = QFileInfo(DefaultStateFilePath()).absolutePath();
  const QString text =
      QObject::tr("<h3>Wordtally %1</h3>"
                  "<p>Counts how often each different word occurs in a text.</p>"
                  "<p><a href=\"%2\">Folder of the common-words files</a><br>"
                  "<a href=\"%3\">Folder of the saved settings</a></p>")
          .arg(QStringLiteral(WORDTALLY_VERSION), QUrl::fromLocalFile(wordsFolder).toString(),
               QUrl::fromLocalFile(settingsFolder).toString());
  QMessageBox box(QMessageBox::NoIcon, QObject::tr("About Wordtally"), text, QMessageBox::Ok,
                  parent);
  box.setTextFormat(Qt::RichText);
  box.setTextInteractionFlags(Qt::TextBrowserInteraction);
  if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
    label->setOpenExternalLinks(true);  // through QDesktopServices
  }
  QPushButton* aboutQt = box.addButton(QObject::tr("About Qt"), QMessageBox::HelpRole);
  QObject::connect(aboutQt, &QPushButton::clicked, parent, [parent] {
    QMessageBox::aboutQt(parent);
  });
  box.exec();
}

}  // namespace wordtally::ui
