#include "sortsearch/frmSort.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "forms/controls.h"
#include "forms/qt_text.h"
#include "forms/wrapping_row.h"
#include "platform/desktop.h"
#include "sortsearch/sort_engine.h"

namespace quillbox {
namespace {

/// The sort form of an editor.
struct SortForm {
  EditorForm editor;
  const char* name;
  const char* caption = "Sorting Options";
  const char* boxName = "";  ///< the name of the boxes' control array
  const char* hint = "Sorts by what is ticked; the first counts most.";
  const char* beginName;
  const char* beginCaption;
  void (frmSort::*begin)();  ///< under its name on this form
  const char* exitName = "cmdExit";
  const char* exitCaption;
};

constexpr SortForm kForms[] = {
    {.editor = EditorForm::music,
     .name = "frmMusicSort",
     .boxName = "chkMusSort",
     .beginName = "cmdBeginSort",
     .beginCaption = "&Begin Sorting",
     .begin = &frmSort::cmdBeginSort_Click,
     .exitName = "cmdExitSort",
     .exitCaption = "E&xit Window"},
    {.editor = EditorForm::video,
     .name = "frmVideoSort",
     .boxName = "chkSort",
     .beginName = "cmdBeginSort",
     .beginCaption = "&Begin Sort",
     .begin = &frmSort::cmdBeginSort_Click,
     .exitCaption = "E&xit"},
    {.editor = EditorForm::software,
     .name = "frmSoftwareSort",
     .boxName = "chkSort",
     .beginName = "cmbBeginSort",
     .beginCaption = "&Begin Sort",
     .begin = frmSort::cmbBeginSort_Click,
     .exitCaption = "E&xit"},
    {.editor = EditorForm::comics,
     .name = "frmComicSort",
     .boxName = "chkSort",
     .beginName = "cmdBeginSort",
     .beginCaption = "Be&gin Sort",
     .begin = &frmSort::cmdBeginSort_Click,
     .exitCaption = "E&xit"},
    {.editor = EditorForm::books,
     .name = "frmBookSort",
     .caption = "Book Sort Options",
     .boxName = "chkBsort",
     .hint = "A sort of books ends the program. The collection is then under its\n"
             "backup's name, such as shelf.bak, in its old order. When Quillbox is\n"
             "started again, the start screen offers to put it back.",
     .beginName = "cmdSort",
     .beginCaption = "&Begin Sort",
     .begin = frmSort::cmdSort_Click,
     .exitCaption = "E&xit Window"},
    {.editor = EditorForm::wave,
     .name = "frmWaveSort",
     .hint = "The collection is sorted by file name.",
     .beginName = "cmdBeginSort",
     .beginCaption = "&Begin Sort",
     .begin = &frmSort::cmdBeginSort_Click,
     .exitCaption = "E&xit"},
};

const SortForm& formOf(const CollectionKind& kind) { return rowOf<kForms>(kind.editor); }

/// Shows the busy pointer: most sorts have no progress to show.
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
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  auto* hint = new QLabel(QString::fromUtf8(form.hint));
  hint->setObjectName(QStringLiteral("lblHint"));
  column->addWidget(hint);
  for (const SortKey& key : sortRulesOf(kind).keys) {
    if (key.boxCaption.empty()) continue;
    const QString caption = fromUtf8Text(key.boxCaption);
    auto* box = new QCheckBox(caption);
    box->setObjectName(controlName(form.boxName, static_cast<int>(boxes_.size())));
    box->setAccessibleName(withoutAccessKey(caption));
    column->addWidget(box);
    boxes_.push_back(box);
  }

  begin_ = makeButton(QString::fromUtf8(form.beginName), QString::fromUtf8(form.beginCaption));
  onClick(*begin_, [this, begin = form.begin] { (this->*begin)(); });
  explain(*begin_, QStringLiteral("Sort the file by what is ticked"));
  auto* exit = makeButton(QString::fromUtf8(form.exitName), QString::fromUtf8(form.exitCaption));
  onClick(*exit, [this] { owner_.leave(); });
  explain(*exit, QStringLiteral("Back to the collection"), QStringLiteral("Escape"));
  auto* row = new WrappingRow;
  row->addWidget(begin_);
  row->addWidget(exit);
  layOut(page, row);
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
    const std::int16_t count = [&] {
      const WaitCursor wait;
      return sortCollection(state().files, state(), kind_, ticked, program().board());
    }();
    program().message(kDefaultTitle, "Sorting complete.");
    finishSort(state().files, state(), kind_);
    owner_.sorted(count);
  } catch (const RunTimeError& error) {
    // The items may be in other places than the forms assume.
    program().report(error);
    endProgram();
  }
}

}  // namespace quillbox
