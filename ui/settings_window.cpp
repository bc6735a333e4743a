#include "ui/settings_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/settings_persistence.h"

namespace wordtally::ui {
namespace {

const QString kSettingsFileFilter = QStringLiteral("Settings files (*.qzl)");

QLineEdit* NewLineEdit(const QString& name, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(name);
  return edit;
}

}  // namespace

SettingsWindow::SettingsWindow(CountingSettings& settings, Host& host, QWidget* parent)
    : QDialog(parent), settings_(settings), host_(host) {
  setObjectName("SettingsWindow");
  setWindowTitle(tr("Settings"));
  auto* layout = new QVBoxLayout(this);
  content_ = new QWidget(this);
  auto* columns = new QGridLayout(content_);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->addWidget(BuildWordsBox(), 0, 0);
  columns->addWidget(BuildCommentsBox(), 1, 0);
  columns->addWidget(BuildIgnoreBox(), 0, 1);
  columns->addWidget(BuildOutputBox(), 1, 1);
  columns->addWidget(BuildInputTextBox(), 2, 0, 1, 2);
  layout->addWidget(content_);
  layout->addWidget(BuildButtons());
  lblStatus_ = new QLabel(this);
  lblStatus_->setObjectName("lblSettingsStatus");
  layout->addWidget(lblStatus_);
}

QCheckBox* SettingsWindow::NewCheckBox(const char* caption, const char* name,
                                       int CountingSettings::*option, QWidget* parent) {
  auto* box = new QCheckBox(QString::fromLatin1(caption), parent);
  box->setObjectName(name);
  checks_.push_back({box, option});
  connect(box, &QCheckBox::clicked, this, [this, option](bool on) { settings_.*option = on; });
  return box;
}

QWidget* SettingsWindow::BuildWordsBox() {
  auto* box = new QGroupBox(tr("Words"), content_);
  auto* layout = new QVBoxLayout(box);
  layout->addWidget(NewCheckBox("Upper/lower case significant", "chkCaseSignificant",
                                &CountingSettings::chkCaseSignificant, box));

  auto* allow = new QGroupBox(tr("Allow 'words' with"), box);
  auto* allowRow = new QHBoxLayout(allow);
  QCheckBox* allowBoxes[] = {
      NewCheckBox("hyphens -", "chkAllowWordsWithHyphens",
                  &CountingSettings::chkAllowWordsWithHyphens, allow),
      NewCheckBox("apostrophes '", "chkAllowWordsWithApostrophes",
                  &CountingSettings::chkAllowWordsWithApostrophes, allow),
      NewCheckBox("numerals", "chkAllowWordsWithNumerals",
                  &CountingSettings::chkAllowWordsWithNumerals, allow)};
  for (QCheckBox* option : allowBoxes) {
    allowRow->addWidget(option);
    // The words to ignore may now hold a character that can no longer be part of a word.
    connect(option, &QCheckBox::clicked, this, [this] { CheckAllowedExtraChars(settings_, host_); });
  }
  allowRow->addStretch(1);
  layout->addWidget(allow);

  layout->addWidget(NewCheckBox("Convert plural words in English to singular form",
                                "chkDropFinalS", &CountingSettings::chkDropFinalS, box));
  layout->addWidget(NewCheckBox("Allow only 7-bit ASCII characters", "chkOnly7bitASCII",
                                &CountingSettings::chkOnly7bitASCII, box));
  layout->addWidget(NewCheckBox("Ignore words with no vowel or 'y'", "chkIgnoreNoVowel",
                                &CountingSettings::chkIgnoreNoVowel, box));

  auto* thresholdRow = new QHBoxLayout;
  thresholdRow->addWidget(NewCheckBox("Ignore words with fewer than", "chkIgnoreInfrequentWords",
                                      &CountingSettings::chkIgnoreInfrequentWords, box));
  cboThresholdFrequency_ = new QComboBox(box);
  cboThresholdFrequency_->setObjectName("cboThresholdFrequency");
  connect(cboThresholdFrequency_, &QComboBox::activated, this,
          [this](int index) { settings_.cboThresholdFrequency = index; });
  thresholdRow->addWidget(cboThresholdFrequency_);
  thresholdRow->addWidget(new QLabel("occurrences", box));
  thresholdRow->addStretch(1);
  layout->addLayout(thresholdRow);
  layout->addStretch(1);
  return box;
}

QWidget* SettingsWindow::BuildIgnoreBox() {
  auto* box = new QGroupBox(tr("Words to ignore"), content_);
  auto* layout = new QVBoxLayout(box);
  auto* commonRow = new QHBoxLayout;
  QCheckBox* ignoreCommon = NewCheckBox("Ignore common words in file:", "chkIgnoreCommonWords",
                                        &CountingSettings::chkIgnoreCommonWords, box);
  // Ticking the box with no file chosen yet offers the languages.
  connect(ignoreCommon, &QCheckBox::clicked, this, [this](bool on) {
    if (on && settings_.txbCommonWordsFile.empty()) emit languageRequested();
  });
  auto* language = new QPushButton(tr("Language..."), box);
  language->setObjectName("cmdLanguage");
  connect(language, &QPushButton::clicked, this, &SettingsWindow::languageRequested);
  auto* chooseFile = new QPushButton(tr("Other file..."), box);
  chooseFile->setObjectName("cmdCommonWordsFile");
  connect(chooseFile, &QPushButton::clicked, this, &SettingsWindow::OnChooseCommonWordsFile);
  commonRow->addWidget(ignoreCommon);
  commonRow->addStretch(1);
  commonRow->addWidget(language);
  commonRow->addWidget(chooseFile);
  layout->addLayout(commonRow);
  txbCommonWordsFile_ = NewLineEdit("txbCommonWordsFile", box);
  txbCommonWordsFile_->setReadOnly(true);
  layout->addWidget(txbCommonWordsFile_);

  layout->addWidget(new QLabel("Ignore these words:", box));
  txbWordsToIgnore_ = NewLineEdit("txbWordsToIgnore", box);
  connect(txbWordsToIgnore_, &QLineEdit::textEdited, this, [this](const QString& text) {
    settings_.txbWordsToIgnore = ToAnsi(text);
    wordsToIgnoreEdited_ = true;
  });
  connect(txbWordsToIgnore_, &QLineEdit::editingFinished, this,
          &SettingsWindow::OnWordsToIgnoreLostFocus);
  layout->addWidget(txbWordsToIgnore_);
  layout->addStretch(1);
  return box;
}

QWidget* SettingsWindow::BuildCommentsBox() {
  auto* box = new QGroupBox(tr("Comments"), content_);
  auto* grid = new QGridLayout(box);
  grid->addWidget(NewCheckBox("Allow start- and end-comment markers", "chkAllowCommentMarkers",
                              &CountingSettings::chkAllowCommentMarkers, box),
                  0, 0, 1, 3);
  grid->addWidget(new QLabel(tr("start"), box), 1, 1);
  grid->addWidget(new QLabel(tr("end"), box), 1, 2);
  const char* pairCaptions[] = {"1st pair:", "2nd pair:"};
  for (int pair = 0; pair < 2; ++pair) {
    txbStartComment_[pair] = NewLineEdit(QString("txbStartComment%1").arg(pair), box);
    txbEndComment_[pair] = NewLineEdit(QString("txbEndComment%1").arg(pair), box);
    connect(txbStartComment_[pair], &QLineEdit::textEdited, this,
            [this, pair](const QString& text) { settings_.txbStartComment[pair] = ToAnsi(text); });
    connect(txbEndComment_[pair], &QLineEdit::textEdited, this,
            [this, pair](const QString& text) { settings_.txbEndComment[pair] = ToAnsi(text); });
    grid->addWidget(new QLabel(pairCaptions[pair], box), pair + 2, 0);
    grid->addWidget(txbStartComment_[pair], pair + 2, 1);
    grid->addWidget(txbEndComment_[pair], pair + 2, 2);
  }
  grid->setRowStretch(4, 1);
  return box;
}

QWidget* SettingsWindow::BuildOutputBox() {
  auto* box = new QGroupBox(tr("Output file and settings"), content_);
  auto* layout = new QVBoxLayout(box);
  layout->addWidget(NewCheckBox("Include commas in output file", "chkOutputWithCommas",
                                &CountingSettings::chkOutputWithCommas, box));
  layout->addWidget(NewCheckBox("Warn before overwriting output file", "chkWarnOnOverwrite",
                                &CountingSettings::chkWarnOnOverwrite, box));
  layout->addWidget(NewCheckBox("Save settings on quit", "chkSaveStateOnQuit",
                                &CountingSettings::chkSaveStateOnQuit, box));
  layout->addStretch(1);
  return box;
}

QWidget* SettingsWindow::BuildInputTextBox() {
  auto* box = new QGroupBox(tr("Input text"), content_);
  auto* layout = new QVBoxLayout(box);
  QCheckBox* modern = NewCheckBox("Modern text handling (UTF-8 without a mark, Unix line ends)",
                                  "chkModernText", &CountingSettings::chkModernText, box);
  modern->setToolTip(
      tr("Recognises a file of valid UTF-8 as UTF-8 even without a byte-order mark or charset, "
         "counts files with Unix line ends at any size without asking, and refuses clipboard "
         "text only for real control characters. Off: the classic rules."));
  connect(modern, &QCheckBox::clicked, this, &SettingsWindow::textRulesChanged);
  layout->addWidget(modern);
  return box;
}

QWidget* SettingsWindow::BuildButtons() {
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* reinitialize = buttons->addButton("Reinitialize", QDialogButtonBox::ResetRole);
  reinitialize->setObjectName("cmdReinitialize");
  QPushButton* save = buttons->addButton(tr("Save settings..."), QDialogButtonBox::ActionRole);
  save->setObjectName("cmdSaveSettings");
  QPushButton* load = buttons->addButton(tr("Load settings..."), QDialogButtonBox::ActionRole);
  load->setObjectName("cmdLoadSettings");
  QPushButton* close = buttons->addButton(QDialogButtonBox::Close);
  connect(reinitialize, &QPushButton::clicked, this, &SettingsWindow::reinitializeRequested);
  connect(save, &QPushButton::clicked, this, &SettingsWindow::OnChooseSettingsFileToSave);
  connect(load, &QPushButton::clicked, this, &SettingsWindow::OnChooseSettingsFileToLoad);
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  // Only Close stays usable while a run reads the settings.
  runSensitiveButtons_ = {reinitialize, save, load};
  return buttons;
}

void SettingsWindow::FillLists() {
  cboThresholdFrequency_->clear();
  for (const AnsiString& item : ThresholdItems()) cboThresholdFrequency_->addItem(ToQString(item));
  cboThresholdFrequency_->setCurrentIndex(0);
}

void SettingsWindow::Refresh() {
  for (const CheckBinding& check : checks_) check.box->setChecked(settings_.*check.option == 1);
  cboThresholdFrequency_->setCurrentIndex(settings_.cboThresholdFrequency);
  txbCommonWordsFile_->setText(PathToQString(settings_.txbCommonWordsFile));
  txbWordsToIgnore_->setText(ToQString(settings_.txbWordsToIgnore));
  for (int pair = 0; pair < 2; ++pair) {
    txbStartComment_[pair]->setText(ToQString(settings_.txbStartComment[pair]));
    txbEndComment_[pair]->setText(ToQString(settings_.txbEndComment[pair]));
  }
}

void SettingsWindow::CommitPendingEdits() {
  if (wordsToIgnoreEdited_) OnWordsToIgnoreLostFocus();
}

void SettingsWindow::OnWordsToIgnoreLostFocus() {
  wordsToIgnoreEdited_ = false;
  settings_.txbWordsToIgnore = ToAnsi(txbWordsToIgnore_->text());
  txbWordsToIgnore_LostFocus(settings_, host_);
  txbWordsToIgnore_->setText(ToQString(settings_.txbWordsToIgnore));
}

void SettingsWindow::SetControlsEnabled(bool enabled) {
  content_->setEnabled(enabled);
  for (QPushButton* button : runSensitiveButtons_) button->setEnabled(enabled);
}

void SettingsWindow::ShowStatus(const AnsiString& text) { lblStatus_->setText(ToDisplayText(text)); }

bool SettingsWindow::SaveSettingsTo(const QString& path) {
  CommitPendingEdits();
  if (!SaveNamedSettings(path, settings_, host_)) return false;
  ShowStatus(ToAnsi(tr("Settings saved to %1").arg(QFileInfo(path).fileName())));
  return true;
}

bool SettingsWindow::LoadSettingsFrom(const QString& path) {
  if (!LoadNamedSettings(path, settings_, host_)) return false;
  emit settingsLoaded();
  ShowStatus(ToAnsi(tr("Settings loaded from %1").arg(QFileInfo(path).fileName())));
  return true;
}

void SettingsWindow::OnChooseSettingsFileToSave() {
  QString path = QFileDialog::getSaveFileName(this, tr("Save settings"), QString(),
                                              kSettingsFileFilter);
  if (path.isEmpty()) return;
  if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".qzl");
  SaveSettingsTo(path);
}

void SettingsWindow::OnChooseSettingsFileToLoad() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Load settings"), QString(),
                                                    kSettingsFileFilter);
  if (!path.isEmpty()) LoadSettingsFrom(path);
}

void SettingsWindow::OnChooseCommonWordsFile() {
  const QString path = QFileDialog::getOpenFileName(this, tr("Common-words file"),
                                                    txbCommonWordsFile_->text(),
                                                    tr("Text files (*.txt);;All files (*)"));
  if (!path.isEmpty()) emit commonWordsFileChosen(PathFromQString(path));
}

}  // namespace wordtally::ui
