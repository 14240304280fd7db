#include "shell/frmNewCollection.h"

#include <QFile>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "forms/controls.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "platform/paths.h"
#include "records/kinds.h"
#include "shell/IO.h"

namespace quillbox {
namespace {

/// A font of the old days; where there is none of that name, the one that all else is written in.
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

  auto* cmdNew = makeButton(QStringLiteral("cmdNew"), QStringLiteral("&Go"));
  onClick(*cmdNew, [this] { cmdNew_Click(); });
  column->addWidget(cmdNew, 0, Qt::AlignRight);
  actAsDialog(cmdNew);
  setHelpPage("first-collection.md");
}

void frmNewCollection::showWithOptions() {
  drawoptions();
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

void frmNewCollection::cmdNew_Click() {
  const std::string name = QFile::encodeName(txtColName_->text()).toStdString();
  if (name.empty()) {
    program().message("QBX - File Manager", "Must specify filename!");
    return;
  }
  const CollectionKind* kind = selectedKind();
  if (kind == nullptr) return;
  const std::string path = joinPath(state().dataFolder, name).append(".").append(kind->extension);
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
