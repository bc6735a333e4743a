#include "ui/keywords_panel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "analysis/keyness.h"
#include "analysis/reference_count.h"
#include "ui/keyword_source.h"
#include "ui/qt_text.h"
#include "ui/results_source.h"
#include "ui/table_panel.h"

namespace wordtally::ui {

KeywordsPanel::KeywordsPanel(const EngineContext& ctx, QWidget* parent)
    : QWidget(parent), ctx_(ctx), reference_(new QLineEdit(this)), cutoff_(new QComboBox(this)),
      bonferroni_(new QCheckBox(tr("Bonferroni correction"), this)), status_(new QLabel(this)),
      table_(new TablePanel("keywords", this)) {
  reference_->setObjectName("keywordsReference");
  reference_->setPlaceholderText(tr("A file, a folder or a count file to compare with"));
  cutoff_->setObjectName("keywordsCutoff");
  for (const SignificanceLevel& level : kSignificanceLevels) {
    cutoff_->addItem(tr("p < %1 (G\u00B2 \u2265 %2)").arg(level.p).arg(level.criticalValue));
  }
  bonferroni_->setObjectName("keywordsBonferroni");
  status_->setObjectName("keywordsStatus");
  auto* file = new QPushButton(tr("File..."), this);
  auto* folder = new QPushButton(tr("Folder..."), this);
  auto* compare = new QPushButton(tr("Compare"), this);
  compare->setObjectName("keywordsCompare");

  auto* grid = new QGridLayout;
  grid->addWidget(new QLabel(tr("Reference:"), this), 0, 0);
  grid->addWidget(reference_, 0, 1);
  grid->addWidget(file, 0, 2);
  grid->addWidget(folder, 0, 3);
  grid->addWidget(new QLabel(tr("Cut-off:"), this), 1, 0);
  grid->addWidget(cutoff_, 1, 1);
  grid->addWidget(bonferroni_, 1, 2);
  grid->addWidget(compare, 1, 3);
  grid->setColumnStretch(1, 1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(grid);
  layout->addWidget(status_);
  layout->addWidget(table_, 1);

  connect(file, &QPushButton::clicked, this, [this] { ChooseReference(false); });
  connect(folder, &QPushButton::clicked, this, [this] { ChooseReference(true); });
  connect(compare, &QPushButton::clicked, this, &KeywordsPanel::Compare);
  SetTarget(nullptr);
}

void KeywordsPanel::SetTarget(std::shared_ptr<const ResultsSource> target) {
  target_ = std::move(target);
  table_->model().SetSource(nullptr);
  status_->setText(!target_ ? tr("Count a text first: its words are compared with the reference.")
                             : tr("Choose a reference and press Compare."));
}

void KeywordsPanel::SetReference(const QString& path) { reference_->setText(path); }

void KeywordsPanel::ChooseReference(bool folder) {
  const QString path =
      folder ? QFileDialog::getExistingDirectory(this, tr("Reference folder"))
             : QFileDialog::getOpenFileName(this, tr("Reference file or count file"));
  if (!path.isEmpty()) reference_->setText(path);
}

bool KeywordsPanel::Compare() {
  if (!target_) return false;
  std::string error;
  // The reference is counted without turns of the event loop, so that nothing can start a run
  // meanwhile; the cursor says the window is busy.
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const std::vector<WordFrequency> reference =
      CountReference({PathFromQString(reference_->text().trimmed())}, ctx_.settings,
                     ctx_.commonWords, error);
  QApplication::restoreOverrideCursor();
  if (reference.empty()) {
    status_->setText(ToDisplayText(error));
    table_->model().SetSource(nullptr);
    return false;
  }
  const KeywordCutoff cutoff{kSignificanceLevels[static_cast<size_t>(cutoff_->currentIndex())],
                             bonferroni_->isChecked()};
  auto keywords = std::make_shared<KeywordSource>(CompareCounts(
      IncludedWords(target_->WordList(), target_->Statistics()), reference, cutoff));
  status_->setText(tr("%L1 keywords: the reference has %L2 different words.")
                 .arg(keywords->RowCount())
                 .arg(static_cast<qlonglong>(reference.size())));
  table_->model().SetSource(std::move(keywords));
  return true;
}


}  // namespace wordtally::ui
