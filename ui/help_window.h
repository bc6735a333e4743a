#pragma once
// The help window and the About window. Links open in the user's browser or file manager.
#include <QDialog>

namespace wordtally::ui {

class HelpWindow : public QDialog {
  Q_OBJECT

 public:
  explicit HelpWindow(QWidget* parent = nullptr);
};

// The program's name, version and the folders it uses.
void ShowAboutWindow(QWidget* parent);

}  // namespace wordtally::ui
