#include "ui/corpus_list.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "corpus/corpus_files.h"
#include "support/file_utils.h"
#include "support/number_format.h"
#include "ui/qt_text.h"

namespace wordtally::ui {
namespace {

enum Column { kName, kSize, kKind };
// Per entry, besides its columns: the input as given, and what it adds to the list's total.
constexpr int kInputRole = Qt::UserRole;
constexpr int kBytesRole = Qt::UserRole + 1;
constexpr int kFilesRole = Qt::UserRole + 2;

QString SizeText(int64_t bytes) {
  return bytes < 0 ? QObject::tr("not found") : QString::fromStdString(FormatFileSize(bytes, 2));
}

QString FilesText(int64_t files) {
  return files == 1 ? QObject::tr("1 file") : QObject::tr("%1 files").arg(files);
}

void FillRow(QTreeWidgetItem* item, const QString& name, int64_t bytes, const QString& kind) {
  item->setText(kName, name);
  item->setText(kSize, SizeText(bytes));
  item->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
  item->setText(kKind, kind);
}

QString KindText(const CorpusInput& file) {
  return file.isCountFile ? QObject::tr("count file") : QString();
}

}  // namespace

QStringList DroppedPaths(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths << url.toLocalFile();
  }
  return paths;
}

QString InputFileFilter() {
  return QObject::tr(
      "Texts and documents (*.txt *.htm *.html *.xml *.csv *.log *.docx);;All files (*)");
}

CorpusList::CorpusList(QWidget* parent) : QWidget(parent) {
  setObjectName("CorpusList");
  setAcceptDrops(true);
  tree_ = new QTreeWidget(this);
  tree_->setObjectName("lstCorpus");
  tree_->setHeaderLabels({tr("Files to count"), tr("Size"), tr("Kind")});
  tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  tree_->setRootIsDecorated(true);
  tree_->setTextElideMode(Qt::ElideMiddle);  // the file's name stays in view
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  tree_->header()->setSectionResizeMode(kName, QHeaderView::Stretch);
  // A few lines high, so that the output box keeps its room; it scrolls for more.
  tree_->setMaximumHeight(tree_->header()->sizeHint().height() + 5 * fontMetrics().height());
  tree_->installEventFilter(this);
  total_ = new QLabel(this);
  total_->setObjectName("lblCorpusTotal");

  auto* addFiles = new QPushButton(tr("Add files..."), this);
  addFiles->setObjectName("cmdAddFiles");
  auto* addFolder = new QPushButton(tr("Add folder..."), this);
  addFolder->setObjectName("cmdAddFolder");
  auto* remove = new QPushButton(tr("Remove"), this);
  remove->setObjectName("cmdRemoveInput");
  connect(addFiles, &QPushButton::clicked, this, &CorpusList::ChooseFiles);
  connect(addFolder, &QPushButton::clicked, this, &CorpusList::ChooseFolder);
  connect(remove, &QPushButton::clicked, this, &CorpusList::RemoveSelected);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(addFiles);
  buttons->addWidget(addFolder);
  buttons->addWidget(remove);
  buttons->addStretch(1);
  buttons->addWidget(total_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(tree_, 1);
  layout->addLayout(buttons);
}

std::vector<std::string> CorpusList::Inputs() const {
  std::vector<std::string> inputs;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    inputs.push_back(tree_->topLevelItem(i)->data(kName, kInputRole).toByteArray().toStdString());
  }
  return inputs;
}

void CorpusList::SetInputs(const std::vector<std::string>& inputs) {
  if (inputs == Inputs()) return;
  tree_->clear();
  for (const std::string& input : inputs) AddEntry(input);
  ShowTotal();
}

void CorpusList::AddInputs(const QStringList& paths) {
  std::vector<std::string> listed = Inputs();
  for (const QString& path : paths) {
    // Absolute, because checking a file makes its folder the current one.
    const std::string input = PathFromQString(QFileInfo(path).absoluteFilePath());
    if (std::ranges::find(listed, input) != listed.end()) continue;
    listed.push_back(input);
    AddEntry(input);
  }
  ShowTotal();
  emit inputsChanged();
}

void CorpusList::RemoveSelected() {
  const QList<QTreeWidgetItem*> selected = tree_->selectedItems();
  if (selected.isEmpty()) return;
  qDeleteAll(selected);  // only entries are selectable, never the files below a folder
  ShowTotal();
  emit inputsChanged();
}

// A folder's entry lists, below it, the files the run will find in it.
void CorpusList::AddEntry(const std::string& input) {
  const std::vector<CorpusInput> files = ExpandCorpusInputs({input});
  auto* entry = new QTreeWidgetItem(tree_);
  entry->setData(kName, kInputRole, QByteArray::fromStdString(input));
  int64_t bytes = 0;
  if (FolderExists(input)) {
    const QString folder = PathToQString(input);
    for (const CorpusInput& file : files) {
      const int64_t size = FileSize(file.path);
      bytes += std::max<int64_t>(size, 0);
      auto* row = new QTreeWidgetItem(entry);
      row->setFlags(Qt::ItemIsEnabled);
      const QString name = QFileInfo(PathToQString(file.path)).absoluteFilePath();
      FillRow(row, QDir(folder).relativeFilePath(name), size, KindText(file));
    }
    FillRow(entry, folder, bytes, tr("folder, %1").arg(FilesText(std::ssize(files))));
  } else {
    bytes = FileSize(input);
    FillRow(entry, PathToQString(input), bytes, KindText(files.front()));
  }
  entry->setData(kSize, kBytesRole, qint64{std::max<int64_t>(bytes, 0)});
  entry->setData(kSize, kFilesRole, qint64{std::ssize(files)});
}

void CorpusList::ShowTotal() {
  int64_t bytes = 0, files = 0;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    bytes += tree_->topLevelItem(i)->data(kSize, kBytesRole).toLongLong();
    files += tree_->topLevelItem(i)->data(kSize, kFilesRole).toLongLong();
  }
  total_->setText(files == 0 ? QString() : FilesText(files) + ", " + SizeText(bytes));
}

void CorpusList::ChooseFiles() {
  const QStringList chosen =
      QFileDialog::getOpenFileNames(this, tr("Add files"), QString(), InputFileFilter());
  if (!chosen.isEmpty()) AddInputs(chosen);
}

void CorpusList::ChooseFolder() {
  const QString chosen = QFileDialog::getExistingDirectory(this, tr("Add folder"));
  if (!chosen.isEmpty()) AddInputs({chosen});
}

bool CorpusList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tree_ && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
    RemoveSelected();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void CorpusList::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedPaths(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void CorpusList::dropEvent(QDropEvent* event) {
  const QStringList paths = DroppedPaths(*event->mimeData());
  if (paths.isEmpty()) return;
  AddInputs(paths);
  event->acceptProposedAction();
}

}  // namespace wordtally::ui
