#include "sortsearch/frmSort.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cassert>
#include <utility>

#include "forms/controls.h"
#include "forms/qt_text.h"
#include "printing/frmRecDisp.h"
#include "sortsearch/sort_engine.h"

namespace quillbox {
namespace {

/// The sort form of an editor.
struct SortForm {
  EditorForm editor;
  const char* name;
  const char* caption;
  const char* boxName;  ///< of the boxes, followed by "_" and their number from 0
  const char* beginName;
  const char* beginCaption;
  const char* exitName;
  const char* exitCaption;
};

constexpr SortForm kForms[] = {
    {EditorForm::music, "frmMusicSort", "Sorting Options", "chkMusSort", "cmdBeginSort",
     "&Begin Sorting", "cmdExitSort", "E&xit Window"},
    {EditorForm::video, "frmVideoSort", "Sorting Options", "chkSort", "cmdBeginSort", "&Begin Sort",
     "cmdExit", "E&xit"},
    {EditorForm::software, "frmSoftwareSort", "Sorting Options", "chkSort", "cmbBeginSort",
     "&Begin Sort", "cmdExit", "E&xit"},
    {EditorForm::comics, "frmComicSort", "Sorting Options", "chkSort", "cmdBeginSort",
     "Be&gin Sort", "cmdExit", "E&xit"},
    {EditorForm::books, "frmBookSort", "Book Sort Options", "chkBsort", "cmdSort", "&Begin Sort",
     "cmdExit", "E&xit Window"},
    {EditorForm::wave, "frmWaveSort", "Sorting Options", "", "cmdBeginSort", "&Begin Sort",
     "cmdExit", "E&xit"},
};

const SortForm& formOf(const CollectionKind& kind) {
  const auto* const form = std::ranges::find(kForms, kind.editor, &SortForm::editor);
  assert(form != std::end(kForms));
  return *form;
}

/// Shows the pointer that asks for patience: most sorts have no progress to show.
class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

frmSort::frmSort(Program& program, const CollectionKind& kind, Owner owner)
    : Form(program, formOf(kind).name), kind_(kind), owner_(std::move(owner)) {
  const SortForm& form = formOf(kind);
  setCaption(QString::fromUtf8(form.caption));
  auto* page = new QWidget;
  setCentralWidget(page);
  auto* column = new QVBoxLayout(page);
  auto* hint = new QLabel;
  column->addWidget(hint);
  for (const SortKey& key : sortRulesOf(kind).keys) {
    if (key.boxCaption.empty()) continue;
    const QString caption = fromUtf8Text(key.boxCaption);
    auto* box = new QCheckBox(caption);
    box->setObjectName(
        QStringLiteral("%1_%2").arg(QString::fromUtf8(form.boxName)).arg(boxes_.size()));
    box->setAccessibleName(withoutAccessKey(caption));
    column->addWidget(box);
    boxes_.push_back(box);
  }
  hint->setText(boxes_.empty() ? QStringLiteral("The collection is sorted by file name.")
                               : QStringLiteral("Sorts by what is ticked; the first counts most."));
  column->addStretch(1);
  column->addSpacing(column->spacing());

  begin_ = makeButton(QString::fromUtf8(form.beginName), QString::fromUtf8(form.beginCaption));
  onClick(*begin_, [this] { cmdBeginSort_Click(); });
  auto* exit = makeButton(QString::fromUtf8(form.exitName), QString::fromUtf8(form.exitCaption));
  onClick(*exit, [this] { owner_.leave(); });
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  row->addWidget(begin_);
  row->addWidget(exit);
  column->addLayout(row);
  actAsDialog(nullptr);
  setHelpPage("sort.md");
}

void frmSort::open(Form& editor) {
  showInsteadOf(editor);
  QWidget* first = begin_;
  if (!boxes_.empty()) first = boxes_.front();
  first->setFocus();
}

void frmSort::cmdBeginSort_Click() {
  std::vector<bool> ticked;
  for (const QCheckBox* box : boxes_) ticked.push_back(box->isChecked());
  try {
    {
      const WaitCursor wait;
      sortCollection(state(), kind_, ticked, program().form<frmRecDisp>());
    }
    program().message(kDefaultTitle, "Sorting complete.");
    finishSort(state(), kind_);
    owner_.sorted();
  } catch (const RunTimeError& error) {
    // Where the items are now is not what the forms know.
    program().report(error);
    endProgram();
  }
}

}  // namespace quillbox
