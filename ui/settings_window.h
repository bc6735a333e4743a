#pragma once
// The settings window: a view of the counting options of the one settings record. Each control
// writes into the record when the user changes it; Refresh shows the record again.
#include <QDialog>
#include <vector>

#include "engine/counting_settings.h"
#include "support/host.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace wordtally::ui {

class SettingsWindow : public QDialog {
  Q_OBJECT

 public:
  SettingsWindow(CountingSettings& settings, Host& host, QWidget* parent = nullptr);

  void FillLists();
  void Refresh();
  // Tidies the words to ignore when they were edited and the box has not lost the focus yet.
  void CommitPendingEdits();
  // Off while a run or a common-words load is in progress.
  void SetControlsEnabled(bool enabled);
  void ShowStatus(const AnsiString& text);

  // Named settings files ("*.qzl"); false after the user was told why not.
  bool SaveSettingsTo(const QString& path);
  bool LoadSettingsFrom(const QString& path);

 signals:
  void reinitializeRequested();
  void settingsLoaded();
  void languageRequested();
  void commonWordsFileChosen(const AnsiString& path);
  // The modern text handling was switched on or off: a chosen file is to be vetted again.
  void textRulesChanged();

 private:
  struct CheckBinding {
    QCheckBox* box;
    int CountingSettings::*option;
  };

  QWidget* BuildWordsBox();
  QWidget* BuildIgnoreBox();
  QWidget* BuildCommentsBox();
  QWidget* BuildOutputBox();
  QWidget* BuildInputTextBox();
  QWidget* BuildButtons();
  QCheckBox* NewCheckBox(const char* caption, const char* name, int CountingSettings::*option,
                         QWidget* parent);
  void OnWordsToIgnoreLostFocus();
  void OnChooseSettingsFileToSave();
  void OnChooseSettingsFileToLoad();
  void OnChooseCommonWordsFile();

  CountingSettings& settings_;
  Host& host_;
  std::vector<CheckBinding> checks_;
  std::vector<QPushButton*> runSensitiveButtons_;
  QWidget* content_ = nullptr;
  QComboBox* cboThresholdFrequency_ = nullptr;
  QLineEdit* txbCommonWordsFile_ = nullptr;
  QLineEdit* txbWordsToIgnore_ = nullptr;
  QLineEdit* txbStartComment_[2] = {};
  QLineEdit* txbEndComment_[2] = {};
  QLabel* lblStatus_ = nullptr;
  bool wordsToIgnoreEdited_ = false;
};

}  // namespace wordtally::ui
