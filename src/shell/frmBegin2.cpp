#include "shell/frmBegin2.h"

#include <QAction>
#include <QLabel>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "forms/about.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "records/version.h"

namespace quillbox {
namespace {

/// The toolbar's images: the theme's name of each, and the program's own.
struct Image {
  const char* themeIcon;
  const char* ownIcon;
};
constexpr Image imgBegin[] = {
    {"document-new", "new"}, {"document-open", "open"}, {"application-exit", "exit"}};

struct ToolRow {
  const char* key;
  const char* caption;
  const Image& image;
  QKeySequence::StandardKey shortcut;
};
const ToolRow kTools[] = {
    {"N", "New Collection", imgBegin[0], QKeySequence::New},
    {"O", "Open Collection", imgBegin[1], QKeySequence::Open},
    {"X", "Exit", imgBegin[2], QKeySequence::Quit},
};

constexpr int kPictureLines = 5;  // of text, its height

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
    QAction* action = tbrBegin->addAction(icon(tool.image.themeIcon, tool.image.ownIcon),
                                          QString::fromUtf8(tool.caption));
    action->setObjectName(QString::fromUtf8(tool.key));
    action->setShortcut(tool.shortcut);
    onTriggered(*action, [this, key = tool.key] { tbrBegin_ButtonClick(key); });
    tbrBegin->widgetForAction(action)->setFocusPolicy(Qt::StrongFocus);
  }
  tbrBegin->setMinimumWidth(tbrBegin->sizeHint().width());
}

void frmBegin2::makeMenus() {
  const auto item = [this](const char* name, const char* caption, const QIcon& picture,
                           std::function<void()> click) {
    addMenuItem({"HelpBegin", "&Help", name, caption, std::move(click), picture});
  };
  item("ContentBegin", "&Contents", icon("help-contents", "help"), [this] { showHelp(); });
  item("AboutBegin", "&About", icon("help-about", "about"), [this] { AboutBegin_Click(); });
}

void frmBegin2::makePage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  auto* picture = new QLabel;
  const int side = fontMetrics().height() * kPictureLines;
  picture->setPixmap(
      ownIcon("org.quillbox.Quillbox").pixmap(QSize(side, side), devicePixelRatioF()));
  auto* name = new QLabel(QStringLiteral("Quillbox"));
  QFont font = name->font();
  font.setPointSizeF(2 * font.pointSizeF());
  font.setBold(true);
  name->setFont(font);
  auto* line = new QLabel(fromUtf8Text(kCredits));
  line->setWordWrap(true);
  column->addStretch(1);
  for (QLabel* label : {picture, name, line}) {
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
