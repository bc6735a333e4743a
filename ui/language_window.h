#pragma once
// The small window that offers the common-words files by language. OK hands the chosen file to
// the main window, which loads it; Cancel leaves everything as it was.
#include <QDialog>

#include "engine/counting_settings.h"

class QListWidget;
class QPushButton;

namespace wordtally::ui {

class LanguageWindow : public QDialog {
  Q_OBJECT

 public:
  LanguageWindow(const CountingSettings& settings, QWidget* parent = nullptr);

  // Off while a run or a load is in progress.
  void SetControlsEnabled(bool enabled);
  // Selects the language with this code ("en" ... "fr", "all"); false when there is none.
  bool SelectLanguage(std::string_view code);

 signals:
  void commonWordsFileChosen(const AnsiString& path);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void OnAccepted();

  const CountingSettings& settings_;
  QListWidget* lstLanguages_ = nullptr;
  QPushButton* cmdOk_ = nullptr;
};

// The full path of a common-words file: found in one of the folders that CommonWordsFolders
// names, else the name beside the program, so that loading reports the missing file.
AnsiString CommonWordsFilePath(std::string_view fileName);

}  // namespace wordtally::ui
