#include "sortsearch/frmSearch.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cassert>
#include <utility>

#include "forms/controls.h"
#include "forms/qt_text.h"
#include "printing/frmRecDisp.h"
#include "sortsearch/search_engine.h"

namespace quillbox {
namespace {

/// Characters across the inputs, so that a lone one has room for a name and the window for its
/// caption.
constexpr int kSheetWidth = 60;

/// An input that can be used only while boxes are ticked.
struct EnabledBy {
  const char* input;
  const char* box;
  const char* secondBox = nullptr;
};

}  // namespace

/// The search form of an editor.
struct SearchForm {
  EditorForm editor;
  const char* name;
  const char* caption;  ///< none: by media-file kind
  const char* beginName;
  const char* beginCaption;
  const char* exitName;
  const char* exitCaption;
  std::span<const EnabledBy> enabling = {};
};

namespace {

// Unlike the editor, the search form looks at both boxes whichever was clicked.
constexpr EnabledBy kLoan[] = {
    {"txtBorrower", "chkCurrLoaned"},
    {"txtDateLoaned", "chkCurrLoaned"},
    {"txtDueDate", "chkCurrLoaned"},
    {"chkBookLoaned", "chkCurrLoaned", "chkHasBook"},
};

constexpr SearchForm kForms[] = {
    {EditorForm::music, "frmMusSearch", "Music Search", "cmdSearch", "Be&gin Search", "cmdExit",
     "E&xit Search", kLoan},
    {EditorForm::video, "frmVideoSearch", "Video Tape Collection Manager", "cmbBeginSearch",
     "&Begin Search", "cmdExit", "E&xit Window"},
    {EditorForm::software, "frmSoftwareSearch", "Software Collection Manager", "cmdBeginSearch",
     "&Begin Search", "cmdExit", "E&xit Window"},
    {EditorForm::comics, "frmComicSearch", "Comic Search", "cmdSearch", "B&egin Search", "cmdExit",
     "E&xit Window"},
    {EditorForm::books, "frmBookSearch", "Book Search Data", "cmdBeginSearch", "&Begin Search",
     "cmdExitWindow", "E&xit Search"},
    {EditorForm::wave, "frmWaveSearch", nullptr, "cmbBeginSearch", "&Begin Search", "cmdExit",
     "E&xit Window"},
};

// By media code, from 1.
constexpr std::array<const char*, 4> kMediaCaptions = {
    "Wave Collection Manager", "MIDI Collection Manager", "Graphics Collection Manager",
    "MP3 Collection Manager"};

const SearchForm& formOf(const CollectionKind& kind) {
  const auto* const form = std::ranges::find(kForms, kind.editor, &SearchForm::editor);
  assert(form != std::end(kForms));
  return *form;
}

}  // namespace

frmSearch::frmSearch(Program& program, const CollectionKind& kind, const SearchPage& page,
                     Owner owner)
    : Form(program, formOf(kind).name),
      kind_(kind),
      form_(formOf(kind)),
      owner_(std::move(owner)),
      sheet_(new FieldSheet(page.inputs, page.headings, desktop())) {
  auto* central = new QWidget;
  setCentralWidget(central);
  auto* column = new QVBoxLayout(central);
  column->addStrut(fontMetrics().averageCharWidth() * kSheetWidth);
  column->addWidget(sheet_);
  column->addStretch(1);
  column->addSpacing(column->spacing());

  auto* begin =
      makeButton(QString::fromUtf8(form_.beginName), QString::fromUtf8(form_.beginCaption));
  onClick(*begin, [this] { cmdSearch_Click(); });
  auto* exit = makeButton(QString::fromUtf8(form_.exitName), QString::fromUtf8(form_.exitCaption));
  onClick(*exit, [this] { owner_.leave(); });
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  row->addWidget(begin);
  row->addWidget(exit);
  column->addLayout(row);
  actAsDialog(begin);
  setHelpPage("search.md");

  for (QCheckBox* box : sheet_->findChildren<QCheckBox*>())
    onClick(*box, [this] { enableInputs(); });
  enableInputs();
}

void frmSearch::open(Form& editor, const FieldSheet& editorSheet) {
  const auto media = static_cast<std::size_t>(state().mediaCode);
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
  if (const auto item = findItem(state(), kind_, query, program().form<frmRecDisp>()))
    owner_.found(*item);
  else
    program().message(kDefaultTitle, searchRulesOf(kind_).notFound);
}

void frmSearch::enableInputs() {
  for (const auto& [input, box, secondBox] : form_.enabling) {
    const bool second = secondBox == nullptr || sheet_->checkBox(secondBox).isChecked();
    sheet_->setInputEnabled(input, second && sheet_->checkBox(box).isChecked());
  }
}

}  // namespace quillbox
