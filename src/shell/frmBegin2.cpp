#include "shell/frmBegin2.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "forms/about.h"
#include "forms/controls.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "forms/recent_collections.h"
#include "forms/recent_list.h"
#include "records/version.h"

namespace quillbox {
namespace {

/// The toolbar's images: each one's name in the theme, and the program's own.
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

// The height of the picture in lines of text.
constexpr int kPictureLines = 5;
constexpr int kSmallPictureLines = 3;

// In average characters.
constexpr int kNarrowestPage = 40;
constexpr int kWidestPage = 96;

constexpr int kMostOfTheRoom = 1000;  // as a stretch

/// In the column, below the brand.
constexpr int kNoticesPlace = 3;

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
  // The toolkit's button for what does not fit has no name of its own.
  if (auto* more = tbrBegin->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button")))
    more->setAccessibleName(QStringLiteral("More"));
  for (const ToolRow& tool : kTools) {
    QAction* action = tbrBegin->addAction(icon(tool.image.themeIcon, tool.image.ownIcon),
                                          QString::fromUtf8(tool.caption));
    action->setObjectName(QString::fromUtf8(tool.key));
    action->setShortcut(tool.shortcut);
    onTriggered(*action, [this, key = tool.key] { tbrBegin_ButtonClick(key); });
    lastTool_ = tbrBegin->widgetForAction(action);
    lastTool_->setFocusPolicy(Qt::StrongFocus);
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

/// In a wide window the page has a readable width and is centred.
void frmBegin2::makePage() {
  page_ = new QWidget;
  auto* sides = new QHBoxLayout(page_);
  middle_ = new QWidget;
  middle_->setMaximumWidth(fontMetrics().averageCharWidth() * kWidestPage);
  sides->addStretch(1);
  sides->addWidget(middle_, kMostOfTheRoom);
  sides->addStretch(1);

  column_ = new QVBoxLayout(middle_);
  column_->setContentsMargins({});
  column_->addStretch(1);
  column_->addWidget(makeBrand());
  column_->addSpacing(column_->spacing());
  column_->addStretch(2);
  setCentralWidget(page_);
  resize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 20);
}

QWidget* frmBegin2::makeBrand() {
  brand_ = new QWidget;
  auto* row = new QBoxLayout(QBoxLayout::TopToBottom, brand_);
  row->setContentsMargins({});
  picture_ = new QLabel;
  name_ = new QLabel(QStringLiteral("Quillbox"));
  QFont font = name_->font();
  font.setPointSizeF(2 * font.pointSizeF());
  font.setBold(true);
  name_->setFont(font);
  line_ = new QLabel(fromUtf8Text(kCredits));
  line_->setWordWrap(true);
  auto* texts = new QVBoxLayout;
  texts->addWidget(name_);
  texts->addWidget(line_);
  row->addWidget(picture_);
  row->addLayout(texts, 1);
  return brand_;
}

/// Large and centred, or small and above the rest.
void frmBegin2::layOutBrand(bool isAlone) {
  isAlone_ = isAlone;
  static_cast<QBoxLayout*>(brand_->layout())
      ->setDirection(isAlone ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  const int side = fontMetrics().height() * (isAlone ? kPictureLines : kSmallPictureLines);
  picture_->setPixmap(
      ownIcon("org.quillbox.Quillbox").pixmap(QSize(side, side), devicePixelRatioF()));
  for (QLabel* label : {picture_, name_, line_})
    label->setAlignment(isAlone ? Qt::AlignHCenter : Qt::AlignLeft | Qt::AlignVCenter);
}

QWidget* frmBegin2::makeRecents() {
  recents_ = new QWidget;
  recents_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  auto* column = new QVBoxLayout(recents_);
  column->setContentsMargins({});
  list_ = new RecentList;
  list_->whenChosen = [this](const std::string& path) { program().run([&] { openRecent(path); }); };
  list_->whenRemoved = [this](const std::string& path) {
    program().run([&] { takeOffList(path); });
  };
  column->addSpacing(2 * column->spacing());
  column->addWidget(
      makeCaption(*list_, QStringLiteral("lstRecent"), QStringLiteral("&Recent collections:")));
  column->addWidget(list_);
  takeOff_ = makeButton(QStringLiteral("cmdTakeOff"), QStringLiteral("&Take Off the List"));
  explain(*takeOff_, QStringLiteral("The collection itself stays as it is"),
          QStringLiteral("Delete"));
  onClick(*takeOff_, [this] { takeOffList(list_->currentPath()); });
  column->addWidget(takeOff_, 0, Qt::AlignRight);
  recents_->hide();
  return recents_;
}

void frmBegin2::setVisible(bool visible) {
  if (visible) refresh();
  Form::setVisible(visible);
}

/// While another program was active, a collection may have moved.
void frmBegin2::changeEvent(QEvent* event) {
  Form::changeEvent(event);
  const bool isBack = event->type() == QEvent::ActivationChange && isActiveWindow();
  if (isBack && isVisible() && !program().isRunning()) refresh();
}

void frmBegin2::refresh() {
  const auto shown = notices ? notices() : std::vector<Notice>();
  const bool saysOther = showNotices(shown);
  const bool listsOther = showRecents();
  if (isFitted_ && !saysOther && !listsOther) return;
  layOutBrand(shown.empty() && (recents_ == nullptr || recents_->isHidden()));
  fitWindow();
}

/// Returns whether they have changed.
bool frmBegin2::showNotices(const std::vector<Notice>& shown) {
  while (noticeLines_.size() < shown.size()) {
    auto* line = new NoticeLine(static_cast<int>(noticeLines_.size()));
    onClick(line->button(), [this, line] {
      line->press()();
      refresh();
    });
    QWidget* before = noticeLines_.empty() ? lastTool_ : &noticeLines_.back()->button();
    column_->insertWidget(kNoticesPlace + static_cast<int>(noticeLines_.size()), line);
    setTabOrder(before, &line->button());
    noticeLines_.push_back(line);
  }
  for (std::size_t i = 0; i < noticeLines_.size(); ++i) {
    if (i < shown.size())
      noticeLines_.at(i)->show(shown.at(i));
    else
      noticeLines_.at(i)->hide();
  }
  std::vector<std::string> texts(shown.size());
  std::ranges::transform(shown, texts.begin(), &Notice::text);
  return std::exchange(said_, texts) != texts;
}

/// Returns whether they have changed.
bool frmBegin2::showRecents() {
  if (program().recents() == nullptr) return false;
  std::vector<RecentList::Row> rows;
  for (RecentCollection& recent : program().recents()->all()) {
    bool isThere = false;
    ignoringErrors([&] { isThere = program().shell().opens(recent.path); });
    rows.push_back({std::move(recent), isThere});
  }
  if (recents_ == nullptr && rows.empty()) return false;
  if (recents_ == nullptr) column_->insertWidget(column_->count() - 1, makeRecents());
  const bool isFirst = recents_->isHidden() && !rows.empty();
  const bool isOther = list_->show(rows);
  recents_->setVisible(!rows.empty());
  if (isFirst) list_->setFocus();
  return isOther;
}

/// However small the window becomes, all texts stay whole. Initially it is as large as its
/// contents, or as the screen.
void frmBegin2::fitWindow() {
  const int narrowest = fontMetrics().averageCharWidth() * kNarrowestPage;
  const auto height = [&](bool withBrand) {
    brand_->setVisible(withBrand);
    // From the inside out: nothing may depend on earlier contents of the page.
    for (QWidget* part : {brand_, recents_, middle_})
      if (part != nullptr) part->updateGeometry();
    QLayout* layout = page_->layout();
    return layout->hasHeightForWidth() ? layout->minimumHeightForWidth(narrowest)
                                       : layout->minimumSize().height();
  };
  page_->setMinimumSize(narrowest, height(isAlone_));
  if (!std::exchange(isFitted_, true)) {
    height(true);
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
    const QSize room = screen()->availableGeometry().size() - QSize(0, titleBar);
    resize(size().expandedTo(QSize(width(), sizeHint().height())).boundedTo(room));
  }
  showBrandIfItFits();
}

/// Decoration makes room first.
void frmBegin2::showBrandIfItFits() {
  const int needed = brand_->layout()->heightForWidth(middle_->width()) + column_->spacing();
  brand_->setVisible(isAlone_ || page_->height() >= page_->minimumHeight() + needed);
}

void frmBegin2::resizeEvent(QResizeEvent* event) {
  Form::resizeEvent(event);
  showBrandIfItFits();
}

/// The collection may be gone since the list was shown; opening would create it again.
void frmBegin2::openRecent(const std::string& path) {
  if (program().shell().opens(path))
    program().shell().open(path);
  else
    refresh();
}

void frmBegin2::takeOffList(const std::string& path) {
  program().recents()->remove(path);
  refresh();
}

void frmBegin2::tbrBegin_ButtonClick(std::string_view key) {
  if (key == "N") {
    hide();
    program().shell().showNewCollection();
  }
  if (key == "O") {
    program().shell().FileOpen();
    if (isVisible()) refresh();  // what could not be opened is now known
  }
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
