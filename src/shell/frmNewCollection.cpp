#include "shell/frmNewCollection.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "forms/controls.h"
#include "forms/elided_label.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "platform/paths.h"
#include "records/kinds.h"
#include "shell/IO.h"

namespace quillbox {
namespace {

/// An old font; without it, the font of everything else.
QFont optionFont(QFont font) {
  font.setFamilies({QStringLiteral("MS Sans Serif"), font.family()});
  return font;
}

}  // namespace

frmNewCollection::frmNewCollection(Program& program) : Form(program, "frmNewCollection") {
  setCaption(QStringLiteral("New Collection"));
  auto* page = new QWidget;
  setCentralWidget(page);
  auto* column = new QVBoxLayout(page);

  auto* row = new QHBoxLayout;
  txtColName_ = new QLineEdit;
  txtColName_->setMinimumWidth(fontMetrics().averageCharWidth() * 32);
  row->addWidget(
      makeCaption(*txtColName_, QStringLiteral("txtColName"), QStringLiteral("C&ollection Name:")));
  row->addWidget(txtColName_, 1);
  column->addLayout(row);

  options_ = new QVBoxLayout;
  column->addLayout(options_);
  column->addStretch(1);

  lblPath_ = new ElidedLabel(Qt::ElideMiddle);
  lblPath_->setObjectName(QStringLiteral("lblPath"));
  column->addWidget(lblPath_);
  connect(txtColName_, &QLineEdit::textChanged, this, [this] { showPath(); });

  auto* cmdNew = makeButton(QStringLiteral("cmdNew"), QStringLiteral("&Go"));
  onClick(*cmdNew, [this] { cmdNew_Click(); });
  explain(*cmdNew, QStringLiteral("Make the collection and open it"), QStringLiteral("Enter"));
  auto* cmdCancel = makeButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
  explain(*cmdCancel, QStringLiteral("Make nothing"), QStringLiteral("Escape"));
  onClick(*cmdCancel, [this] { Form_Unload(); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdNew);
  buttons->addWidget(cmdCancel);
  column->addLayout(buttons);
  actAsDialog(cmdNew);
  setHelpPage("first-collection.md");
}

void frmNewCollection::showWithOptions() {
  drawoptions();
  showPath();
  show();
  activateWindow();
  txtColName_->setFocus();
  txtColName_->selectAll();
}

void frmNewCollection::drawoptions() {
  undrawopt();
  QWidget* before = txtColName_;
  for (int element = 1; const CollectionKind& kind : collectionKinds()) {
    auto* option = new QRadioButton(fromUtf8Text(kind.words.option));
    option->setObjectName(controlName("optQBX", element++));
    option->setFont(optionFont(font()));
    option->setIcon(iconOf(kind));
    connect(option, &QRadioButton::toggled, this, [this] { showPath(); });
    options_->addWidget(option);
    setTabOrder(before, option);
    before = option;
    optQBX_.push_back(option);
  }
}

void frmNewCollection::undrawopt() {
  for (QRadioButton* option : optQBX_) delete option;
  optQBX_.clear();
}

const CollectionKind* frmNewCollection::selectedKind() const {
  for (std::size_t i = 0; i < optQBX_.size(); ++i)
    if (optQBX_[i]->isChecked()) return &collectionKinds()[i];
  return nullptr;
}

/// The name is used as typed.
std::string frmNewCollection::pathOf(const std::string& name, const CollectionKind* kind) {
  const std::string path = joinPath(state().dataFolder, name);
  return kind == nullptr ? path : std::string(path).append(".").append(kind->extension);
}

void frmNewCollection::showPath() {
  const std::string name = toPath(txtColName_->text());
  const CollectionKind* kind = selectedKind();
  std::string text = "Makes " + pathOf(name, kind);
  if (name.empty())
    text = "Makes a collection in " +
           (state().dataFolder.empty() ? pathOf({}, nullptr) : state().dataFolder);
  else if (kind == nullptr)
    text += " with the ending of its kind";
  lblPath_->showText(fromPath(text));
}

void frmNewCollection::cmdNew_Click() {
  const std::string name = toPath(txtColName_->text());
  if (name.empty()) {
    program().message("QBX - File Manager", "Must specify filename!");
    return;
  }
  const CollectionKind* kind = selectedKind();
  if (kind == nullptr) {
    lblPath_->showText(QStringLiteral("Choose a kind of collection first."));
    optQBX_.front()->setFocus();
    return;
  }
  const std::string path = pathOf(name, kind);
  IO::DelFile(program(), path);
  undrawopt();
  hide();
  openEditor(*kind, path);
}

void frmNewCollection::Form_Unload() {
  undrawopt();
  hide();
  program().shell().showStartScreen();
}

}  // namespace quillbox
