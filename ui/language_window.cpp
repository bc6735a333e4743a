#include "ui/language_window.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "settings/common_words_choice.h"
#include "ui/qt_text.h"

namespace wordtally::ui {

AnsiString CommonWordsFilePath(std::string_view fileName) {
  const std::string programFolder = PathFromQString(QCoreApplication::applicationDirPath());
  const std::string found = FindCommonWordsFile(programFolder, fileName);
  if (!found.empty()) return found;
  return PathFromQString(QDir(QCoreApplication::applicationDirPath())
                             .filePath(PathToQString(std::string(fileName))));
}

LanguageWindow::LanguageWindow(const CountingSettings& settings, QWidget* parent)
    : QDialog(parent), settings_(settings) {
  setObjectName("LanguageWindow");
  setWindowTitle(tr("Common words"));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Ignore the common words of this language:"), this));
  lstLanguages_ = new QListWidget(this);
  lstLanguages_->setObjectName("lstLanguages");
  for (const CommonWordsLanguage& language : CommonWordsLanguages()) {
    auto* item = new QListWidgetItem(ToQString(language.displayName), lstLanguages_);
    item->setData(Qt::UserRole, QString::fromLatin1(language.code.data(),
                                                    static_cast<qsizetype>(language.code.size())));
  }
  layout->addWidget(lstLanguages_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  cmdOk_ = buttons->button(QDialogButtonBox::Ok);
  cmdOk_->setObjectName("cmdLanguageOk");
  buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdLanguageCancel");
  connect(buttons, &QDialogButtonBox::accepted, this, &LanguageWindow::OnAccepted);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(lstLanguages_, &QListWidget::itemDoubleClicked, this, &LanguageWindow::OnAccepted);
  layout->addWidget(buttons);
}

void LanguageWindow::showEvent(QShowEvent* event) {
  // Start from the language of the file in use, else English.
  const CommonWordsLanguage* current = LanguageOfCommonWordsFile(settings_.txbCommonWordsFile);
  SelectLanguage(current ? current->code : CommonWordsLanguages().front().code);
  QDialog::showEvent(event);
}

bool LanguageWindow::SelectLanguage(std::string_view code) {
  const QString wanted = QString::fromLatin1(code.data(), static_cast<qsizetype>(code.size()));
  for (int row = 0; row < lstLanguages_->count(); ++row) {
    if (lstLanguages_->item(row)->data(Qt::UserRole).toString() == wanted) {
      lstLanguages_->setCurrentRow(row);
      return true;
    }
  }
  return false;
}

void LanguageWindow::SetControlsEnabled(bool enabled) {
  cmdOk_->setEnabled(enabled);
  lstLanguages_->setEnabled(enabled);
}

void LanguageWindow::OnAccepted() {
  const QListWidgetItem* item = lstLanguages_->currentItem();
  if (!item || !cmdOk_->isEnabled()) return;
  const CommonWordsLanguage* language =
      FindCommonWordsLanguage(ToAnsi(item->data(Qt::UserRole).toString()));
  if (!language) return;
  accept();
  emit commonWordsFileChosen(CommonWordsFilePath(language->fileName));
}

}  // namespace wordtally::ui
