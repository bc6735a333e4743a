#pragma once
// The list of what a run counts: the files, folders and count files given as inputs, each with
// its size. A folder is one entry, shown with its total size and, below it, the files in it that
// the run will count; it is removed as a whole. Files are added with the Add buttons or dropped
// onto the list, and removed with the Remove button or the Delete key.
#include <QStringList>
#include <QWidget>
#include <string>
#include <vector>

class QLabel;
class QMimeData;
class QTreeWidget;

namespace wordtally::ui {

// The local files and folders among the URLs of a drag.
QStringList DroppedPaths(const QMimeData& data);
// The input-file chooser's filter.
QString InputFileFilter();

class CorpusList : public QWidget {
  Q_OBJECT

 public:
  explicit CorpusList(QWidget* parent = nullptr);

  // The inputs as given, in the list's order (file-system bytes).
  std::vector<std::string> Inputs() const;
  // Shows exactly these inputs, without telling anyone.
  void SetInputs(const std::vector<std::string>& inputs);
  // Appends the paths not listed yet (made absolute) and tells of the change.
  void AddInputs(const QStringList& paths);
  // Removes the selected entries and tells of the change.
  void RemoveSelected();

 signals:
  // The user added or removed inputs.
  void inputsChanged();

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void AddEntry(const std::string& input);
  void ShowTotal();
  void ChooseFiles();
  void ChooseFolder();
  bool eventFilter(QObject* watched, QEvent* event) override;

  QTreeWidget* tree_ = nullptr;
  QLabel* total_ = nullptr;
};

}  // namespace wordtally::ui
