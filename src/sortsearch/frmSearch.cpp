#include "sortsearch/frmSearch.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "forms/controls.h"
#include "forms/qt_text.h"
#include "forms/wrapping_row.h"
#include "platform/desktop.h"
#include "sortsearch/search_engine.h"

namespace quillbox {
namespace {

/// Characters across the inputs, so that a single input has room for a name and the window for its
/// caption.
constexpr int kSheetWidth = 60;

/// An input enabled only while both boxes are ticked; they may be the same box.
struct EnabledBy {
  const char* input;
  const char* box;
  const char* secondBox = box;
};

}  // namespace

/// The search form of an editor.
struct SearchForm {
  EditorForm editor;
  const char* name;
  const char* caption = nullptr;  ///< none: the caption depends on the media-file kind
  const char* beginName;
  const char* beginCaption = "&Begin Search";
  void (frmSearch::*begin)();  ///< under its name on this form
  const char* exitName = "cmdExit";
  const char* exitCaption = "E&xit Window";
  std::span<const EnabledBy> enabling = {};
};

namespace {

// Unlike the editor, the search form checks both boxes, whichever was clicked.
constexpr EnabledBy kLoan[] = {
    {.input = "txtBorrower", .box = "chkCurrLoaned"},
    {.input = "txtDateLoaned", .box = "chkCurrLoaned"},
    {.input = "txtDueDate", .box = "chkCurrLoaned"},
    {.input = "chkBookLoaned", .box = "chkCurrLoaned", .secondBox = "chkHasBook"},
};

constexpr SearchForm kForms[] = {
    {.editor = EditorForm::music,
     .name = "frmMusSearch",
     .caption = "Music Search",
     .beginName = "cmdSearch",
     .beginCaption = "Be&gin Search",
     .begin = &frmSearch::cmdSearch_Click,
     .exitCaption = "E&xit Search",
     .enabling = kLoan},
    {.editor = EditorForm::video,
     .name = "frmVideoSearch",
     .caption = "Video Tape Collection Manager",
     .beginName = "cmbBeginSearch",
     .begin = frmSearch::cmbBeginSearch_Click},
    {.editor = EditorForm::software,
     .name = "frmSoftwareSearch",
     .caption = "Software Collection Manager",
     .beginName = "cmdBeginSearch",
     .begin = frmSearch::cmdBeginSearch_Click},
    {.editor = EditorForm::comics,
     .name = "frmComicSearch",
     .caption = "Comic Search",
     .beginName = "cmdSearch",
     .beginCaption = "B&egin Search",
     .begin = &frmSearch::cmdSearch_Click},
    {.editor = EditorForm::books,
     .name = "frmBookSearch",
     .caption = "Book Search Data",
     .beginName = "cmdBeginSearch",
     .begin = frmSearch::cmdBeginSearch_Click,
     .exitName = "cmdExitWindow",
     .exitCaption = "E&xit Search"},
    {.editor = EditorForm::wave,
     .name = "frmWaveSearch",
     .beginName = "cmbBeginSearch",
     .begin = frmSearch::cmbBeginSearch_Click},
};

// By media code, from 1.
constexpr std::array<const char*, 4> kMediaCaptions = {
    "Wave Collection Manager", "MIDI Collection Manager", "Graphics Collection Manager",
    "MP3 Collection Manager"};

const SearchForm& formOf(const CollectionKind& kind) { return rowOf<kForms>(kind.editor); }

}  // namespace

frmSearch::frmSearch(Program& program, const CollectionKind& kind, const SearchPage& page,
                     Owner owner)
    : Form(program, formOf(kind).name),
      kind_(kind),
      form_(formOf(kind)),
      owner_(std::move(owner)),
      sheet_(new FieldSheet(page.inputs, page.headings, desktop())) {
  auto* central = new QWidget;
  auto* column = new QVBoxLayout(central);
  column->setContentsMargins({});
  column->addStrut(fontMetrics().averageCharWidth() * kSheetWidth);
  column->addWidget(sheet_);
  auto* hint = new QLabel(fromUtf8Text(searchRulesOf(kind).hint));
  hint->setObjectName(QStringLiteral("lblHint"));
  hint->setWordWrap(true);
  column->addWidget(hint);

  auto* begin =
      makeButton(QString::fromUtf8(form_.beginName), QString::fromUtf8(form_.beginCaption));
  onClick(*begin, [this, click = form_.begin] { (this->*click)(); });
  explain(*begin, QStringLiteral("Show the first item that has all of this"),
          QStringLiteral("Enter"));
  auto* exit = makeButton(QString::fromUtf8(form_.exitName), QString::fromUtf8(form_.exitCaption));
  onClick(*exit, [this] { owner_.leave(); });
  explain(*exit, QStringLiteral("Back to the collection"), QStringLiteral("Escape"));
  auto* row = new WrappingRow;
  row->addWidget(begin);
  row->addWidget(exit);
  layOut(central, row);
  actAsDialog(begin);
  setHelpPage("search.md");

  for (const EnabledBy& rule : form_.enabling)
    for (const char* box : {rule.box, rule.secondBox})
      sheet_->whenToggled(box, [this] { enableInputs(); });
  enableInputs();
}

void frmSearch::open(Form& editor, const FieldSheet& editorSheet) {
  const auto media = static_cast<std::size_t>(mediaCodeOf(state().kindCode));
  if (form_.caption != nullptr)
    setCaption(QString::fromUtf8(form_.caption));
  else if (media >= 1 && media <= kMediaCaptions.size())
    setCaption(QString::fromUtf8(kMediaCaptions.at(media - 1)));
  sheet_->takeChoices(editorSheet);
  showInsteadOf(editor);
  sheet_->focusFirst();
}

void frmSearch::cmdSearch_Click() {
  const Query query(kind_, sheet_->entered(), desktop().shortDateForm());
  if (const auto found = findItem(state().files, state(), kind_, query, program().board()))
    owner_.found(*found);
  else
    program().message(kDefaultTitle, searchRulesOf(kind_).notFound);
}

void frmSearch::enableInputs() {
  const auto isTicked = [this](const char* box) { return sheet_->checkBox(box).isChecked(); };
  for (const auto& [input, box, secondBox] : form_.enabling)
    sheet_->setInputEnabled(input, isTicked(box) && isTicked(secondBox));
}

}  // namespace quillbox
