#pragma once
// The main window: source and file choice, order and format, the count/Stop button, the pasted
// text, the output textbox and the run's labels. It owns the one settings record and the engine
// context, and forwards every command to the engine.
#include <QMainWindow>
#include <QString>
#include <functional>

#include "engine/counting_settings.h"
#include "engine/engine_context.h"
#include "ui/corpus_session.h"
#include "ui/qt_host.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSplitter;

namespace wordtally::ui {

class CorpusList;
class HelpWindow;
class LanguageWindow;
class ResultsViews;
class SettingsWindow;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  // stateFile: where the settings are restored from at start-up and saved on quit.
  explicit MainWindow(QString stateFile, QWidget* parent = nullptr);
  ~MainWindow() override;

  // Restores the saved state and vets a restored input file. The common words in use are loaded
  // by the first run that ignores them.
  void Start();
  // Makes paths the inputs: "wordtally-gui FILE...", or files and folders dropped on the window.
  // One ordinary file becomes the input file, checked as if typed.
  void OpenInputs(const QStringList& paths);

  // Saves what the last corpus run found; false, after a message, when the file is not written.
  enum class CorpusFile { Table, Counts };
  bool SaveCorpusFile(CorpusFile kind, const QString& path);

  QtHost& host() { return *host_; }
  CountingSettings& settings() { return settings_; }
  EngineContext& context() { return *ctx_; }
  SettingsWindow& settingsWindow() { return *settingsWindow_; }
  LanguageWindow& languageWindow() { return *languageWindow_; }
  ResultsViews& resultsViews() { return *resultsViews_; }
  bool RunInProgress() const { return running_; }

  // The controls show the record again (after the engine or a loaded file changed it).
  void RefreshFromSettings();
  // Runs a long engine command with everything that could start a second one disabled.
  void RunEngineCommand(const std::function<void()>& command);
  void SaveStateFile();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QWidget* BuildSourceBox();
  QWidget* BuildListingBox();
  QWidget* BuildTextPanes();
  void BuildResultsViews();
  QWidget* BuildProgressBox();
  QWidget* BuildStatisticsBox();
  void BuildMenus();
  void ResizeToFitScreen();
  void CreateHost();
  void ConnectControls();
  void FillLists();

  void OnCountClicked();
  void OnChooseInputFile();
  void OnInputFileTyped();
  void OnChooseOutputFile();
  void OnSuppressWordsToggled(bool checked);
  void OnInputFileChosen(const QString& path);
  void CheckChosenInputFile(const QString& path);
  void OnInputsChanged();
  void ShowInputFileInList();
  void OnSaveCorpusFile(CorpusFile kind);
  void VetInputFile(const AnsiString& name);
  void VetChosenTextFileAgain();
  void LoadCommonWordsFile(const AnsiString& path);
  void ReinitializeProgram();
  void UpdateEnabledState();
  Answer AnswerWhileClosing(const MessageBoxRequest& request) const;
  void WriteFileBoxesToSettings();

  QString stateFile_;
  CountingSettings settings_;
  QtHost* host_ = nullptr;
  std::unique_ptr<EngineContext> ctx_;
  bool running_ = false;
  bool engineBusy_ = false;
  bool closeRequested_ = false;
  CorpusSession corpus_;

  QRadioButton* optInFile_ = nullptr;
  QRadioButton* optOnClipboard_ = nullptr;
  QCheckBox* chkUTF8_ = nullptr;
  QLineEdit* txbInputFile_ = nullptr;
  QLineEdit* txbOutputFile_ = nullptr;
  QPushButton* cmdInputFile_ = nullptr;
  QPushButton* cmdOutputFile_ = nullptr;
  QCheckBox* chkDisableOutputToFile_ = nullptr;
  QLabel* lblFileSize_ = nullptr;
  CorpusList* corpusList_ = nullptr;
  QComboBox* cboWordOrder_ = nullptr;
  QComboBox* cboDisplayFormat_ = nullptr;
  QCheckBox* chkSuppressWords_ = nullptr;
  QPushButton* cmdCount_ = nullptr;
  QPlainTextEdit* txbPasted_ = nullptr;
  QPushButton* cmdPaste_ = nullptr;
  QPushButton* cmdCopyToClipboard_ = nullptr;
  QLabel* lblSizeOfClipboardContents_ = nullptr;
  QPlainTextEdit* txbOutput_ = nullptr;
  QSplitter* textPanes_ = nullptr;
  QWidget* outputPane_ = nullptr;
  ResultsViews* resultsViews_ = nullptr;
  QLabel* lblStatus_ = nullptr;
  std::map<Control, QLabel*> labels_;
  QList<QWidget*> runSensitiveWidgets_;
  QList<QAction*> runSensitiveActions_;
  QAction* saveCorpusTable_ = nullptr;
  QAction* saveCounts_ = nullptr;

  SettingsWindow* settingsWindow_ = nullptr;
  LanguageWindow* languageWindow_ = nullptr;
  HelpWindow* helpWindow_ = nullptr;
};

}  // namespace wordtally::ui
