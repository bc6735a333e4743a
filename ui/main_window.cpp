#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include "corpus/corpus_files.h"
#include "engine/clipboard_input.h"
#include "engine/program_texts.h"
#include "engine/progress.h"
#include "engine/run_driver.h"
#include "engine/word_filters.h"
#include "input/file_vetting.h"
#include "support/file_utils.h"
#include "ui/corpus_list.h"
#include "ui/help_window.h"
#include "ui/language_window.h"
#include "ui/corpus_columns.h"
#include "ui/qt_text.h"
#include "ui/results_views.h"
#include "ui/settings_persistence.h"
#include "ui/settings_window.h"

namespace wordtally::ui {
namespace {

constexpr std::string_view kSuppressWordsNote =
    "The program will run faster if words are not displayed as found.";

// "Courier New" where it is installed, else the system's fixed-pitch font: the text progress
// bar and the busy indicator must not jitter as they change.
QFont FixedPitchFont() {
  QFont font("Courier New");
  font.setStyleHint(QFont::Monospace);
  if (!QFontInfo(font).fixedPitch()) font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  return font;
}

// A label keeps its line in the layout when it is empty or hidden, so that the window does not
// shift as a run shows, clears and hides its counters.
QLabel* NewLabel(const QString& name, QWidget* parent, bool fixedPitch = false) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  if (fixedPitch) label->setFont(FixedPitchFont());
  label->setMinimumHeight(label->fontMetrics().height());
  QSizePolicy policy = label->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  label->setSizePolicy(policy);
  return label;
}

void FillCombo(QComboBox* combo, const std::vector<AnsiString>& items) {
  combo->clear();
  for (const AnsiString& item : items) combo->addItem(ToQString(item));
}

}  // namespace

MainWindow::MainWindow(QString stateFile, QWidget* parent)
    : QMainWindow(parent), stateFile_(std::move(stateFile)) {
  setObjectName("MainWindow");
  setWindowTitle(tr("Wordtally"));
  setAcceptDrops(true);

  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  auto* top = new QHBoxLayout;
  top->addWidget(BuildSourceBox(), 3);
  top->addWidget(BuildListingBox(), 2);
  layout->addLayout(top);
  layout->addWidget(BuildTextPanes(), 1);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(BuildProgressBox(), 1);
  bottom->addWidget(BuildStatisticsBox(), 1);
  layout->addLayout(bottom);
  setCentralWidget(central);
  lblStatus_ = NewLabel("lblStatus", statusBar());
  statusBar()->addWidget(lblStatus_, 1);

  CreateHost();
  BuildResultsViews();
  settingsWindow_ = new SettingsWindow(settings_, *host_, this);
  languageWindow_ = new LanguageWindow(settings_, this);
  helpWindow_ = new HelpWindow(this);
  BuildMenus();
  FillLists();
  ConnectControls();
  RefreshFromSettings();
  UpdateEnabledState();
  ResizeToFitScreen();
}

MainWindow::~MainWindow() = default;

// A roomy window, but never larger than the screen (small screens, or scaled to 125% or more).
void MainWindow::ResizeToFitScreen() {
  QSize size(1000, 720);
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    size = size.boundedTo(screen->availableGeometry().size() * 0.95);
  }
  resize(size.expandedTo(minimumSizeHint()));
}

QWidget* MainWindow::BuildSourceBox() {
  auto* box = new QGroupBox(tr("Text to count"), this);
  auto* grid = new QGridLayout(box);
  optInFile_ = new QRadioButton("file", box);
  optInFile_->setObjectName("optInFile");
  optOnClipboard_ = new QRadioButton("clipboard", box);
  optOnClipboard_->setObjectName("optOnClipboard");
  chkUTF8_ = new QCheckBox("UTF-8", box);
  chkUTF8_->setObjectName("chkUTF8");
  auto* sourceRow = new QHBoxLayout;
  sourceRow->addWidget(new QLabel(tr("Source:"), box));
  sourceRow->addWidget(optInFile_);
  sourceRow->addWidget(optOnClipboard_);
  sourceRow->addStretch(1);
  sourceRow->addWidget(chkUTF8_);
  grid->addLayout(sourceRow, 0, 0, 1, 4);

  txbInputFile_ = new QLineEdit(box);
  txbInputFile_->setObjectName("txbFile0");
  cmdInputFile_ = new QPushButton(tr("Choose..."), box);
  cmdInputFile_->setObjectName("cmdInputFile");
  lblFileSize_ = NewLabel("lblFileSize", box);
  grid->addWidget(new QLabel(tr("Input file:"), box), 1, 0);
  grid->addWidget(txbInputFile_, 1, 1);
  grid->addWidget(cmdInputFile_, 1, 2);
  grid->addWidget(lblFileSize_, 2, 1, 1, 2);

  txbOutputFile_ = new QLineEdit(box);
  txbOutputFile_->setObjectName("txbFile1");
  cmdOutputFile_ = new QPushButton(tr("Choose..."), box);
  cmdOutputFile_->setObjectName("cmdOutputFile");
  chkDisableOutputToFile_ = new QCheckBox("Disable", box);
  chkDisableOutputToFile_->setObjectName("chkDisableOutputToFile");
  grid->addWidget(new QLabel(tr("Output file:"), box), 3, 0);
  grid->addWidget(txbOutputFile_, 3, 1);
  grid->addWidget(cmdOutputFile_, 3, 2);
  grid->addWidget(chkDisableOutputToFile_, 3, 3);
  corpusList_ = new CorpusList(box);
  grid->addWidget(corpusList_, 4, 0, 1, 4);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(4, 1);
  runSensitiveWidgets_ << box;
  return box;
}

QWidget* MainWindow::BuildListingBox() {
  auto* panel = new QWidget(this);
  auto* grid = new QGridLayout(panel);
  auto* options = new QGroupBox(tr("Listing"), panel);
  auto* form = new QGridLayout(options);
  cboWordOrder_ = new QComboBox(options);
  cboWordOrder_->setObjectName("cboWordOrder");
  cboDisplayFormat_ = new QComboBox(options);
  cboDisplayFormat_->setObjectName("cboDisplayFormat");
  chkSuppressWords_ = new QCheckBox("Don't display words as found", options);
  chkSuppressWords_->setObjectName("chkSuppressWords");
  form->addWidget(new QLabel(tr("Word order:"), options), 0, 0);
  form->addWidget(cboWordOrder_, 0, 1);
  form->addWidget(new QLabel(tr("Format:"), options), 1, 0);
  form->addWidget(cboDisplayFormat_, 1, 1);
  form->addWidget(chkSuppressWords_, 2, 0, 1, 2);
  form->setColumnStretch(1, 1);
  runSensitiveWidgets_ << options;

  cmdCount_ = new QPushButton(ToQString(texts::kCountButtonIdle), panel);
  cmdCount_->setObjectName("cmdCount");
  cmdCount_->setMinimumHeight(cmdCount_->sizeHint().height() * 2);
  QFont bold = cmdCount_->font();
  bold.setBold(true);
  cmdCount_->setFont(bold);
  grid->addWidget(options, 0, 0);
  grid->addWidget(cmdCount_, 1, 0);
  grid->setContentsMargins(0, 0, 0, 0);
  return panel;
}

QWidget* MainWindow::BuildTextPanes() {
  auto* splitter = new QSplitter(Qt::Horizontal, this);
  textPanes_ = splitter;

  auto* pastePane = new QWidget(splitter);
  auto* pasteLayout = new QVBoxLayout(pastePane);
  pasteLayout->setContentsMargins(0, 0, 0, 0);
  pasteLayout->addWidget(new QLabel(tr("Text pasted or typed here:"), pastePane));
  txbPasted_ = new QPlainTextEdit(pastePane);
  txbPasted_->setObjectName("txbPasted");
  pasteLayout->addWidget(txbPasted_, 1);
  auto* pasteRow = new QHBoxLayout;
  cmdPaste_ = new QPushButton(tr("Paste clipboard text"), pastePane);
  cmdPaste_->setObjectName("cmdPaste");
  cmdCopyToClipboard_ = new QPushButton(tr("Copy to clipboard"), pastePane);
  cmdCopyToClipboard_->setObjectName("cmdCopyToClipboard");
  pasteRow->addWidget(cmdPaste_);
  pasteRow->addWidget(cmdCopyToClipboard_);
  pasteRow->addStretch(1);
  pasteLayout->addLayout(pasteRow);
  lblSizeOfClipboardContents_ = NewLabel("lblSizeOfClipboardContents", pastePane);
  pasteLayout->addWidget(lblSizeOfClipboardContents_);
  runSensitiveWidgets_ << txbPasted_ << cmdPaste_ << cmdCopyToClipboard_;

  auto* outputPane = new QWidget(this);  // moves into the results views
  outputPane_ = outputPane;
  auto* outputLayout = new QVBoxLayout(outputPane);
  outputLayout->setContentsMargins(0, 0, 0, 0);
  outputLayout->addWidget(new QLabel(tr("Words found:"), outputPane));
  txbOutput_ = new QPlainTextEdit(outputPane);
  txbOutput_->setObjectName("txbOutput");
  txbOutput_->setReadOnly(true);
  // The keyboard moves through the box too (Ctrl+Home, Ctrl+End, Page Up, ...).
  txbOutput_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The words found make one long paragraph that is laid out again at each turn of the event
  // loop while a run echoes them. A fixed-pitch font needs no shaping, and a scroll bar that is
  // always there spares a second layout whenever the text starts or stops filling the box.
  QFont outputFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  outputFont.setStyleStrategy(QFont::PreferNoShaping);
  txbOutput_->setFont(outputFont);
  txbOutput_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  outputLayout->addWidget(txbOutput_, 1);
  splitter->addWidget(pastePane);
  return splitter;
}

// The output box becomes the first tab of the results views, which need the engine context.
void MainWindow::BuildResultsViews() {
  resultsViews_ = new ResultsViews(*ctx_, outputPane_, textPanes_);
  textPanes_->addWidget(resultsViews_);
  textPanes_->setStretchFactor(0, 1);
  textPanes_->setStretchFactor(1, 2);
}

QWidget* MainWindow::BuildProgressBox() {
  auto* box = new QGroupBox(tr("Progress"), this);
  auto* layout = new QVBoxLayout(box);
  auto* timeRow = new QHBoxLayout;
  labels_[Control::TimeElapsed] = NewLabel("lblTimeElapsed", box);
  labels_[Control::Twirler] = NewLabel("lblTwirler", box, true);
  timeRow->addWidget(labels_[Control::TimeElapsed]);
  timeRow->addStretch(1);
  timeRow->addWidget(labels_[Control::Twirler]);
  layout->addLayout(timeRow);
  labels_[Control::NumberOfWords] = NewLabel("lblNumberOfWords", box);
  labels_[Control::TotalNumOccurrences] = NewLabel("lblTotalNumOccurrences", box, true);
  labels_[Control::NumWordsExcluded] = NewLabel("lblNumWordsExcluded", box);
  labels_[Control::NumOccurrences] = NewLabel("lblNumOccurrences", box);
  for (Control control : {Control::NumberOfWords, Control::TotalNumOccurrences,
                          Control::NumWordsExcluded, Control::NumOccurrences}) {
    layout->addWidget(labels_[control]);
  }
  layout->addStretch(1);
  return box;
}

QWidget* MainWindow::BuildStatisticsBox() {
  auto* box = new QGroupBox(tr("Statistics"), this);
  auto* layout = new QVBoxLayout(box);
  const std::pair<Control, const char*> stats[] = {
      {Control::StatWordsInList, "lblStatWordsInList"},
      {Control::StatWordsIgnored, "lblStatWordsIgnored"},
      {Control::StatWordsExcluded, "lblStatWordsExcluded"},
      {Control::StatInstancesInList, "lblStatInstancesInList"},
      {Control::StatTotalInstances, "lblStatTotalInstances"}};
  for (const auto& [control, name] : stats) {
    labels_[control] = NewLabel(name, box);
    layout->addWidget(labels_[control]);
  }
  // Shown by corpus runs only; hidden, it leaves no empty line.
  labels_[Control::StatFiles] = new QLabel(box);
  labels_[Control::StatFiles]->setObjectName("lblStatFiles");
  labels_[Control::StatFiles]->hide();
  layout->addWidget(labels_[Control::StatFiles]);
  layout->addStretch(1);
  return box;
}

void MainWindow::BuildMenus() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  QAction* open = file->addAction(tr("&Open input file..."), this, &MainWindow::OnChooseInputFile);
  open->setShortcut(QKeySequence::Open);
  file->addSeparator();
  saveCorpusTable_ = file->addAction(tr("Save corpus &table..."), this,
                                     [this] { OnSaveCorpusFile(CorpusFile::Table); });
  saveCorpusTable_->setObjectName("actSaveCorpusTable");
  saveCounts_ = file->addAction(tr("Save &counts..."), this,
                                [this] { OnSaveCorpusFile(CorpusFile::Counts); });
  saveCounts_->setObjectName("actSaveCounts");
  file->addSeparator();
  QAction* quit = file->addAction(tr("&Quit"), this, &QWidget::close);
  quit->setShortcut(QKeySequence::Quit);

  QMenu* options = menuBar()->addMenu(tr("&Options"));
  QAction* settings = options->addAction(tr("&Settings..."), this, [this] {
    settingsWindow_->show();
    settingsWindow_->raise();
    settingsWindow_->activateWindow();
  });
  settings->setObjectName("actSettings");
  QAction* language = options->addAction(tr("&Common words language..."), languageWindow_,
                                         &QDialog::show);

  QMenu* help = menuBar()->addMenu(tr("&Help"));
  QAction* helpAction = help->addAction(tr("&Help"), helpWindow_, &QWidget::show);
  helpAction->setShortcut(QKeySequence::HelpContents);
  help->addAction(tr("&About Wordtally"), this, [this] { ShowAboutWindow(this); });
  runSensitiveActions_ << open << language;
}

void MainWindow::CreateHost() {
  HostWidgets widgets;
  widgets.dialogParent = this;
  widgets.output = txbOutput_;
  widgets.pasteBox = txbPasted_;
  for (const auto& [control, label] : labels_) widgets.controls[control] = label;
  widgets.controls[Control::CountButton] = cmdCount_;
  widgets.controls[Control::Status] = lblStatus_;
  widgets.controls[Control::SizeOfClipboardContents] = lblSizeOfClipboardContents_;
  widgets.controls[Control::FileSize] = lblFileSize_;
  host_ = new QtHost(std::move(widgets), this);
  ctx_ = std::make_unique<EngineContext>(*host_, settings_);
}

void MainWindow::FillLists() {
  FillCombo(cboWordOrder_, WordOrderItems());
  FillCombo(cboDisplayFormat_, DisplayFormatItems());
  settingsWindow_->FillLists();
}

void MainWindow::ConnectControls() {
  connect(host_, &QtHost::timerTicked, this, [this] { TimerTick(*ctx_); });
  connect(host_, &QtHost::settingsChanged, this, &MainWindow::RefreshFromSettings);
  connect(host_, &QtHost::busyChanged, this, [this](bool busy) {
    engineBusy_ = busy;
    UpdateEnabledState();
  });
  connect(cmdCount_, &QPushButton::clicked, this, &MainWindow::OnCountClicked);
  connect(optInFile_, &QRadioButton::clicked, this, [this] { settings_.optInFile = true; });
  connect(optOnClipboard_, &QRadioButton::clicked, this, [this] {
    settings_.optInFile = false;
    ShowClipboardSize(*ctx_);
  });
  connect(chkUTF8_, &QCheckBox::clicked, this, [this](bool on) { settings_.chkUTF8 = on; });
  connect(chkDisableOutputToFile_, &QCheckBox::clicked, this,
          [this](bool on) { settings_.chkDisableOutputToFile = on; });
  connect(chkSuppressWords_, &QCheckBox::clicked, this, &MainWindow::OnSuppressWordsToggled);
  connect(cboWordOrder_, &QComboBox::activated, this, [this](int i) { settings_.cboWordOrder = i; });
  connect(cboDisplayFormat_, &QComboBox::activated, this,
          [this](int i) { settings_.cboDisplayFormat = i; });
  connect(cmdInputFile_, &QPushButton::clicked, this, &MainWindow::OnChooseInputFile);
  connect(txbInputFile_, &QLineEdit::editingFinished, this, &MainWindow::OnInputFileTyped);
  connect(corpusList_, &CorpusList::inputsChanged, this, &MainWindow::OnInputsChanged);
  connect(cmdOutputFile_, &QPushButton::clicked, this, &MainWindow::OnChooseOutputFile);
  connect(txbOutputFile_, &QLineEdit::editingFinished, this, &MainWindow::WriteFileBoxesToSettings);
  connect(cmdPaste_, &QPushButton::clicked, this, [this] { PasteClipboardText(*ctx_, true); });
  connect(cmdCopyToClipboard_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(txbPasted_->toPlainText()); });
  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
          [this] { ShowClipboardSize(*ctx_); });

  connect(settingsWindow_, &SettingsWindow::reinitializeRequested, this,
          &MainWindow::ReinitializeProgram);
  connect(settingsWindow_, &SettingsWindow::settingsLoaded, this, [this] {
    RefreshFromSettings();
    const AnsiString& input = settings_.txbFile[0];
    if (FileExists(input)) VetInputFile(input);
  });
  connect(settingsWindow_, &SettingsWindow::textRulesChanged, this,
          &MainWindow::VetChosenTextFileAgain);
  connect(settingsWindow_, &SettingsWindow::languageRequested, languageWindow_, &QDialog::show);
  connect(languageWindow_, &LanguageWindow::commonWordsFileChosen, this,
          &MainWindow::LoadCommonWordsFile);
  connect(settingsWindow_, &SettingsWindow::commonWordsFileChosen, this,
          &MainWindow::LoadCommonWordsFile);
}

void MainWindow::Start() {
  RestoreSavedState(stateFile_, settings_, *host_);
  RefreshFromSettings();
  ShowClipboardSize(*ctx_);
  ctx_->run.blnStartUpCompleted = true;
  const AnsiString input = settings_.txbFile[0];
  if (FileExists(input)) {
    CheckInputFileExists(*host_, input);
    VetInputFile(input);
  }
}

void MainWindow::RefreshFromSettings() {
  optInFile_->setChecked(settings_.optInFile);
  optOnClipboard_->setChecked(!settings_.optInFile);
  chkUTF8_->setChecked(settings_.chkUTF8 == 1);
  txbInputFile_->setText(PathToQString(settings_.txbFile[0]));
  txbOutputFile_->setText(PathToQString(settings_.txbFile[1]));
  chkDisableOutputToFile_->setChecked(settings_.chkDisableOutputToFile == 1);
  chkSuppressWords_->setChecked(settings_.chkSuppressWords == 1);
  cboWordOrder_->setCurrentIndex(settings_.cboWordOrder);
  cboDisplayFormat_->setCurrentIndex(settings_.cboDisplayFormat);
  ShowInputFileInList();
  settingsWindow_->Refresh();
}

void MainWindow::WriteFileBoxesToSettings() {
  settings_.txbFile[1] = PathFromQString(txbOutputFile_->text().trimmed());
}

void MainWindow::OnCountClicked() {
  if (running_) {
    RequestStop(*ctx_);
    return;
  }
  // A box being edited has not told the record yet.
  settingsWindow_->CommitPendingEdits();
  settings_.txbFile[0] = PathFromQString(txbInputFile_->text());
  WriteFileBoxesToSettings();
  // The input box holds the one file of a classic run; when it is empty, the list may hold a
  // corpus.
  const std::vector<std::string> inputs = corpusList_->Inputs();
  if (settings_.optInFile && settings_.txbFile[0].empty() && IsCorpusRun(inputs)) {
    RunEngineCommand([this, &inputs] { corpus_.Run(*ctx_, inputs); });
  } else {
    corpus_.Forget(*ctx_);
    RunEngineCommand([this] { DoIt(*ctx_); });
  }
  const CorpusCounts* counts = corpus_.Counts(*ctx_);
  resultsViews_->ShowRun(counts != nullptr ? PerFileCountsOf(*counts) : PerFileCounts{});
}

void MainWindow::RunEngineCommand(const std::function<void()>& command) {
  running_ = true;
  UpdateEnabledState();
  resultsViews_->Clear();  // a command may reset or refill the store the views read
  command();
  host_->FlushOutput();  // the box shows the command's last words before anyone looks
  running_ = false;
  engineBusy_ = false;  // a command that ends, however it ends, leaves the window idle
  UpdateEnabledState();
  RefreshFromSettings();
  if (closeRequested_) QTimer::singleShot(0, this, &QWidget::close);
}

void MainWindow::UpdateEnabledState() {
  const bool idle = !running_ && !engineBusy_;
  for (QWidget* widget : runSensitiveWidgets_) widget->setEnabled(idle);
  for (QAction* action : runSensitiveActions_) action->setEnabled(idle);
  const bool corpusSavable = idle && corpus_.HasResults(*ctx_);
  saveCorpusTable_->setEnabled(corpusSavable);
  saveCounts_->setEnabled(corpusSavable);
  settingsWindow_->SetControlsEnabled(idle);
  languageWindow_->SetControlsEnabled(idle);
}

void MainWindow::OnChooseInputFile() {
  if (running_) return;
  const QStringList chosen =
      QFileDialog::getOpenFileNames(this, tr("Input file"), txbInputFile_->text(), InputFileFilter());
  if (!chosen.isEmpty()) OpenInputs(chosen);
}

void MainWindow::OnInputFileTyped() {
  const QString typed = txbInputFile_->text().trimmed();
  if (PathFromQString(typed) == settings_.txbFile[0]) return;
  if (typed.isEmpty()) {
    settings_.txbFile[0].clear();
    lblFileSize_->clear();
    ShowInputFileInList();
    return;
  }
  OnInputFileChosen(typed);
}

void MainWindow::OnInputFileChosen(const QString& path) {
  CheckChosenInputFile(path);
  ShowInputFileInList();
}

void MainWindow::CheckChosenInputFile(const QString& path) {
  const AnsiString name = PathFromQString(path);
  settings_.txbFile[0] = name;
  txbInputFile_->setText(path);
  if (!CheckInputFileExists(*host_, name)) return;
  if (LowerExtension(name) == "docx") {
    if (IsZipFile(name) != 1) {
      ShowNotDocxMessage(*host_, name);
      settings_.txbFile[0].clear();
      txbInputFile_->clear();
    }
    return;
  }
  VetInputFile(name);
}

// The advisory vetting: only the UTF-8 verdict is used; a refusal is told again by the run.
void MainWindow::VetInputFile(const AnsiString& name) {
  host_->SetCaption(Control::Status, "Now checking file ...");
  settings_.chkUTF8 = 0;
  bool isUtf8 = false;
  int16_t classCode = 0;
  CheckInputFile(*host_, ctx_->blnMacNoticeShown, name, false, isUtf8, classCode, false,
                 TextRulesOf(settings_));
  settings_.chkUTF8 = isUtf8 ? 1 : 0;
  chkUTF8_->setChecked(isUtf8);
}

// The text rules changed: the UTF-8 box shows the verdict of the new ones.
void MainWindow::VetChosenTextFileAgain() {
  const AnsiString& input = settings_.txbFile[0];
  if (FileExists(input) && LowerExtension(input) != "docx") VetInputFile(input);
}

void MainWindow::OnChooseOutputFile() {
  if (const std::optional<AnsiString> chosen = host_->ChooseOutputFile()) {
    settings_.txbFile[1] = *chosen;
    txbOutputFile_->setText(PathToQString(*chosen));
  }
}

void MainWindow::OnSuppressWordsToggled(bool checked) {
  settings_.chkSuppressWords = checked ? 1 : 0;
  host_->SetCaption(Control::Status, checked ? AnsiString(kSuppressWordsNote) : AnsiString());
}

void MainWindow::LoadCommonWordsFile(const AnsiString& path) {
  ctx_->commonWords.strCommonWordsFile = path;
  RunEngineCommand([this] { AttemptToReadCommonWords(*ctx_); });
}

void MainWindow::ReinitializeProgram() {
  ctx_->run = RunState{};
  ctx_->run.blnStartUpCompleted = true;
  const TextRules rulesBefore = TextRulesOf(settings_);
  SetDefaultValues(settings_);
  settings_.chkIgnoreCommonWords = 0;
  if (TextRulesOf(settings_) != rulesBefore) VetChosenTextFileAgain();
  RefreshFromSettings();
  UpdateEnabledState();  // the run's statistics are gone, and with them the corpus table
  settingsWindow_->ShowStatus("Program reinitialized.");
}

void MainWindow::SaveStateFile() { SaveState(stateFile_, settings_, *host_); }

Answer MainWindow::AnswerWhileClosing(const MessageBoxRequest& request) const {
  // Quitting during a run: confirm the stop, list nothing, write nothing.
  if (request.title == texts::kStopQuestionTitle) return Answer::Yes;
  switch (request.buttons) {
    case MessageButtons::YesNo: return Answer::No;
    case MessageButtons::YesNoCancel:
    case MessageButtons::YesNoToAllCancel: return Answer::Cancel;
    case MessageButtons::Ok: break;
  }
  return Answer::Ok;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (running_) {
    closeRequested_ = true;
    host_->SetAnswerProvider([this](const MessageBoxRequest& r) { return AnswerWhileClosing(r); });
    host_->SetInputProvider([](const AnsiString&, const AnsiString&, const AnsiString&) {
      return std::optional<AnsiString>();
    });
    host_->SetFileProvider([] { return std::optional<AnsiString>(); });
    RequestStop(*ctx_);
    event->ignore();
    return;
  }
  if (settings_.chkSaveStateOnQuit == 1) SaveStateFile();
  settingsWindow_->close();
  languageWindow_->close();
  helpWindow_->close();
  event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!running_ && !DroppedPaths(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

// Dropped on the window, files and folders replace the inputs; dropped on the list, they join it.
void MainWindow::dropEvent(QDropEvent* event) {
  const QStringList paths = DroppedPaths(*event->mimeData());
  if (running_ || paths.isEmpty()) return;
  OpenInputs(paths);
  event->acceptProposedAction();
}

void MainWindow::OpenInputs(const QStringList& paths) {
  optInFile_->setChecked(true);
  settings_.optInFile = true;
  corpusList_->SetInputs({});
  corpusList_->AddInputs(paths);
}

// One ordinary file is the classic input file, checked as if chosen; a corpus leaves the input
// box empty, since the list is then what is counted.
void MainWindow::OnInputsChanged() {
  const std::vector<std::string> inputs = corpusList_->Inputs();
  if (inputs.size() == 1 && !IsCorpusRun(inputs)) {
    OnInputFileChosen(PathToQString(inputs.front()));
    return;
  }
  settings_.txbFile[0].clear();
  txbInputFile_->clear();
  lblFileSize_->clear();
}

// The list shows the input box's file, and a corpus only while the box is empty.
void MainWindow::ShowInputFileInList() {
  const AnsiString& file = settings_.txbFile[0];
  if (!file.empty()) {
    corpusList_->SetInputs({file});
  } else if (!IsCorpusRun(corpusList_->Inputs())) {
    corpusList_->SetInputs({});
  }
}

void MainWindow::OnSaveCorpusFile(CorpusFile kind) {
  const bool table = kind == CorpusFile::Table;
  const QString chosen = QFileDialog::getSaveFileName(
      this, table ? tr("Save corpus table") : tr("Save counts"), QString(),
      table ? tr("Corpus tables (*.csv)") : tr("Count files (*.counts);;All files (*)"));
  if (!chosen.isEmpty()) SaveCorpusFile(kind, chosen);
}

bool MainWindow::SaveCorpusFile(CorpusFile kind, const QString& path) {
  const std::string name = PathFromQString(path);
  std::string error;
  const bool saved = kind == CorpusFile::Table ? corpus_.SaveTable(*ctx_, name, error)
                                               : corpus_.SaveCounts(name, error);
  if (!saved) Tell(*host_, "Not saved", error, MessageIcon::Exclamation);
  return saved;
}

}  // namespace wordtally::ui
