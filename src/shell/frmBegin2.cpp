#include "shell/frmBegin2.h"

#include <QAction>
#include <QLabel>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "forms/about.h"
#include "forms/qt_text.h"
#include "records/version.h"

namespace quillbox {
namespace {

struct ToolRow {
  const char* key;
  const char* caption;
  const char* themeIcon;
  QStyle::StandardPixmap icon;
  QKeySequence::StandardKey shortcut;
};

const ToolRow kTools[] = {
    {"N", "New Collection", "document-new", QStyle::SP_FileIcon, QKeySequence::New},
    {"O", "Open Collection", "document-open", QStyle::SP_DialogOpenButton, QKeySequence::Open},
    {"X", "Exit", "application-exit", QStyle::SP_DialogCancelButton, QKeySequence::Quit},
};

constexpr const char* kHelp =
    "Quillbox keeps lists of what you collect. Each collection is one file; its name ends in the "
    "kind of the collection, for example .MCS for music.\n\n"
    "Start Quillbox with the name of a collection to open it at once.";

}  // namespace

frmBegin2::frmBegin2(Program& program) : Form(program, "frmBegin2") {
  setCaption(fromUtf8Text(endingWithVersion("Quillbox V")));
  makeToolbar();
  makeMenus();
  makePage();
}

void frmBegin2::makeToolbar() {
  QToolBar* tbrBegin = addToolBar(QStringLiteral("Collections"));
  tbrBegin->setObjectName(QStringLiteral("tbrBegin"));
  tbrBegin->setMovable(false);
  tbrBegin->setContextMenuPolicy(Qt::PreventContextMenu);
  tbrBegin->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  // The toolkit's own button for what does not fit has no name by itself.
  if (auto* more = tbrBegin->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button")))
    more->setAccessibleName(QStringLiteral("More"));
  for (const ToolRow& tool : kTools) {
    QAction* action = tbrBegin->addAction(
        QIcon::fromTheme(QString::fromUtf8(tool.themeIcon), style()->standardIcon(tool.icon)),
        QString::fromUtf8(tool.caption));
    action->setObjectName(QString::fromUtf8(tool.key));
    action->setShortcut(tool.shortcut);
    onTriggered(*action, [this, key = tool.key] { tbrBegin_ButtonClick(key); });
    tbrBegin->widgetForAction(action)->setFocusPolicy(Qt::StrongFocus);
  }
  tbrBegin->setMinimumWidth(tbrBegin->sizeHint().width());
}

void frmBegin2::makeMenus() {
  const auto item = [this](const char* name, const char* caption, std::function<void()> click) {
    addMenuItem({"HelpBegin", "&Help", name, caption, std::move(click)});
  };
  item("ContentBegin", "&Contents",
       [this] { program().message("Quillbox Help", kHelp, MessageIcon::information); });
  item("AboutBegin", "&About", [this] { AboutBegin_Click(); });
}

void frmBegin2::makePage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  auto* name = new QLabel(QStringLiteral("Quillbox"));
  QFont font = name->font();
  font.setPointSizeF(2 * font.pointSizeF());
  font.setBold(true);
  name->setFont(font);
  auto* line = new QLabel(fromUtf8Text(kCredits));
  line->setWordWrap(true);
  column->addStretch(1);
  for (QLabel* label : {name, line}) {
    label->setAlignment(Qt::AlignHCenter);
    column->addWidget(label);
  }
  column->addStretch(2);
  // However small the window is made, both texts stay whole.
  const int narrowest = fontMetrics().averageCharWidth() * 40;
  page->setMinimumSize(narrowest, column->heightForWidth(narrowest));
  setCentralWidget(page);
  resize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 20);
}

void frmBegin2::tbrBegin_ButtonClick(std::string_view key) {
  if (key == "N") {
    hide();
    program().shell().showNewCollection();
  }
  if (key == "O") program().shell().FileOpen();
  if (key == "X") Form_Unload();
}

void frmBegin2::AboutBegin_Click() {
  program().message("About Quillbox", aboutText(), MessageIcon::information);
}

void frmBegin2::Form_Unload() {
  hide();
  program().end();
}

}  // namespace quillbox
