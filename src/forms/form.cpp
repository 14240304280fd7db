#include "forms/form.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "forms/help_window.h"
#include "forms/qt_text.h"
#include "forms/scrolling_page.h"
#include "forms/status_line.h"
#include "forms/window_places.h"
#include "forms/wrapping_row.h"

namespace quillbox {

Form::Form(Program& program, const char* name) : program_(program) {
  setObjectName(QString::fromUtf8(name));
  setAcceptDrops(true);  // see FileDrops
  program_.enter(*this);
}

Form::~Form() { program_.leave(*this); }

void Form::setCaption(const QString& text) {
  // The toolkit reads "[*]" as the place of its "modified" mark; doubled it is shown as it is.
  setWindowTitle(QString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void Form::layOut(QWidget* page, WrappingRow* buttons) {
  auto* holder = new QWidget;
  auto* column = new QVBoxLayout(holder);
  column->addWidget(new ScrollingPage(page), 1);
  column->addSpacing(column->spacing());
  column->addLayout(buttons);
  column->addWidget(makeStatusLine());
  setCentralWidget(holder);
  laidOut_ = holder;
}

QWidget* Form::makeStatusLine() {
  status_ = new StatusLine([this](QPushButton& button) {
    // Read when it is pressed: a command begins by clearing the status line.
    connect(&button, &QAbstractButton::clicked, this,
            [this] { program_.run(std::function(status_->click())); });
  });
  return status_;
}

void Form::showStatus(const QString& text) {
  if (status_ != nullptr) status_->show(text);
}

void Form::showStatus(const QString& text, StatusAction action) {
  if (status_ != nullptr) status_->show(text, std::move(action));
}

bool Form::offersAction() const { return status_ != nullptr && status_->click() != nullptr; }

void Form::clearStatus() {
  if (status_ != nullptr) status_->clear();
}

void Form::setVisible(bool visible) {
  if (visible == isVisible()) return;  // the focus stays where it is
  if (visible) {
    restorePlace();
    if (hasFrame_ && !isMaximized()) insistOnPlace();
  } else {
    focusWhenHidden_ = focusWidget();
    if (WindowPlaces* places = program_.windowPlaces()) places->remember(*this);
  }
  QMainWindow::setVisible(visible);
  hasFrame_ = true;
  if (visible && focusWhenHidden_) focusWhenHidden_->setFocus();
}

void Form::showInsteadOf(Form& other) {
  restorePlace();
  if (!isVisible()) placeAt(other);
  show();
  other.hide();
  activateWindow();
}

/// Only once: from then on the window keeps its place by itself. Without a stored place it is as
/// large as its contents, or as the screen.
void Form::restorePlace() {
  if (std::exchange(placeIsRestored_, true)) return;
  ensurePolished();
  if (laidOut_ != nullptr) {
    laidOut_->setMinimumSize(smallestPage());
    if (!testAttribute(Qt::WA_Resized)) resize(usualSize());
  }
  if (program_.windowPlaces() != nullptr) program_.windowPlaces()->restore(*this);
}

/// Wide enough for all menus, and high enough for the buttons wrapped to that width.
QSize Form::smallestPage() const {
  const QLayout& layout = *laidOut_->layout();
  const int width = std::max(layout.minimumSize().width(), menuBar()->sizeHint().width());
  return {width, layout.totalMinimumHeightForWidth(width)};
}

/// As large as the form's contents, as far as the screen allows.
QSize Form::usualSize() const {
  const QSize room = roomOnScreen();
  const QLayout& layout = *laidOut_->layout();
  QSize size = sizeHint();
  size.setWidth(std::min(size.width(), room.width()));
  // The buttons may wrap to a second line.
  size.rheight() += layout.totalHeightForWidth(size.width()) - layout.totalSizeHint().height();
  return size.boundedTo(room);
}

void Form::setSide(QWidget* side, bool grows) {
  QPointer<QWidget> focus = focusWidget();  // reparenting would clear it
  const QSize before = size();
  delete std::exchange(side_, side);
  if (laidOut_ != nullptr) laidOut_->show();
  if (side != nullptr) {
    if (split_ == nullptr) {
      split_ = new QSplitter;
      split_->setChildrenCollapsible(false);
      split_->addWidget(takeCentralWidget());
      setCentralWidget(split_);
      laidOut_->show();
    }
    split_->addWidget(side);
    split_->setStretchFactor(split_->indexOf(side), 1);  // the form keeps its width
    if (grows) growForSide();
    turnSide();
    shareRoom();
    layout()->activate();  // no window is smaller than its contents
    grown_ = size() - before;
  } else if (!grown_.isNull() && !isMaximized()) {
    layout()->activate();
    resize(size() - std::exchange(grown_, QSize(0, 0)));
  }
  if (focus) focus->setFocus();
}

/// To the right, if the screen has space for both; otherwise downwards. Either way only as far as
/// the screen goes.
void Form::growForSide() {
  if (isMaximized()) return;
  const QSize wanted = side_->sizeHint();
  const QSize most = roomOnScreen();
  const int inARow = width() + split_->handleWidth() + side_->minimumSizeHint().width();
  const bool isBeside = inARow <= most.width();
  const QSize both = isBeside
                         ? QSize(width() + wanted.width(), menuBar()->height() + wanted.height())
                         : QSize(width(), height() + wanted.height());
  resize(both.boundedTo(most).expandedTo(size()));
  // All of it on the screen, starting with its title bar.
  const QRect room = screen()->availableGeometry();
  const QPoint farthest =
      room.bottomRight() + QPoint(1, 1) - QPoint(frameGeometry().width(), frameGeometry().height());
  move(std::max(room.left(), std::min(x(), farthest.x())),
       std::max(room.top(), std::min(y(), farthest.y())));
}

/// Beside the form, below it or, on a screen too small for that, in its place.
void Form::turnSide() {
  if (side_ == nullptr) return;
  const QSize form = laidOut_->minimumSize();
  const QSize least = side_->minimumSizeHint();
  const int inARow = laidOut_->sizeHint().width() + split_->handleWidth() + least.width();
  const bool isBeside = width() >= inARow;
  const int inAll = menuBar()->height() + form.height() + split_->handleWidth() + least.height();
  const bool isOver = !isBeside && inAll > roomOnScreen().height();
  laidOut_->setVisible(!isOver);
  split_->setMinimumWidth(isOver ? std::max(form.width(), least.width()) : 0);  // for all menus
  const auto turned = isBeside ? Qt::Horizontal : Qt::Vertical;
  if (turned == split_->orientation()) return;
  split_->setOrientation(turned);
  shareRoom();
}

/// The form stays as wide as it was without the widget; in a narrow window it gets the height it
/// needs, up to a little more than half.
void Form::shareRoom() {
  const bool isBeside = split_->orientation() == Qt::Horizontal;
  const QSize usual = laidOut_->sizeHint();
  const int form = isBeside ? usual.width() : std::min(usual.height(), height() * 11 / 20);
  split_->setSizes({form, (isBeside ? width() : height()) - form});
}

void Form::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  turnSide();
}

/// Without the window's frame, or the frame's likely size according to the style.
QSize Form::roomOnScreen() const {
  const QSize frame = frameGeometry().size() - geometry().size();
  const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, this);
  return screen()->availableGeometry().size() -
         QSize(frame.width(), std::max(frame.height(), titleBar));
}

/// A window manager may have moved a hidden window, and is told of a position only if it is a new
/// one.
void Form::insistOnPlace() {
  QWindow& window = *windowHandle();
  const QRect place = window.geometry();
  window.setGeometry(place.translated(1, 0));
  window.setGeometry(place);
}

/// The width of a frame is unknown until a window is shown. Until then the area inside the frames
/// is used.
void Form::placeAt(const Form& other) {
  if (hasFrame_)
    move(other.pos());
  else
    setGeometry(QRect(other.geometry().topLeft(), size()));
}

std::function<void()> Form::dropHandler(const std::string& path) {
  if (!program_.shell().opens(path)) return {};
  return [this, path] { program_.shell().open(path); };
}

void Form::showHelp() { program_.help().open(QString::fromUtf8(helpPage_)); }

void Form::addMenuItem(const MenuItem& item) {
  const QString menuName = QString::fromUtf8(item.menu);
  QAction* action = nullptr;
  if (item.name == nullptr) {
    action = menuBar()->addAction(QString::fromUtf8(item.menuCaption));
    action->setObjectName(menuName);
  } else {
    auto* menu = menuBar()->findChild<QMenu*>(menuName);
    if (menu == nullptr) {
      menu = menuBar()->addMenu(QString::fromUtf8(item.menuCaption));
      menu->setObjectName(menuName);
      menu->menuAction()->setObjectName(menuName);
    }
    action = menu->addAction(QString::fromUtf8(item.caption));
    action->setObjectName(QString::fromUtf8(item.name));
    action->setShortcut(item.keys);
    action->setIcon(item.icon);  // on the menu bar it would replace the caption
  }
  action->setEnabled(item.click != nullptr);
  if (item.click) onTriggered(*action, item.click);
}

void Form::onClick(QAbstractButton& button, std::function<void()> handler) {
  connect(&button, &QAbstractButton::clicked, this,
          [this, handler = std::move(handler)] { program_.run(handler); });
}

void Form::onTriggered(QAction& action, std::function<void()> handler) {
  connect(&action, &QAction::triggered, this,
          [this, handler = std::move(handler)] { program_.run(handler); });
}

void Form::onKeys(const QKeySequence& keys, const std::function<void()>& handler) {
  if (keys.isEmpty()) return;
  auto* shortcut = new QShortcut(keys, this);
  shortcut->setAutoRepeat(false);
  connect(shortcut, &QShortcut::activated, this, handler);
}

void Form::actAsDialog(QAbstractButton* onEnter) {
  isDialog_ = true;
  onEnter_ = onEnter;
}

void Form::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && onEnter_ != nullptr)
    onEnter_->click();
  else if (event->key() == Qt::Key_Escape && isDialog_)
    close();
  else if (event->key() == Qt::Key_F1)
    showHelp();
  else
    QMainWindow::keyPressEvent(event);
}

void Form::closeEvent(QCloseEvent* event) {
  event->setAccepted(!program_.isRunning());
  if (program_.isRunning()) return closeWhileBusy();
  program_.run([this] { Form_Unload(); });
}

}  // namespace quillbox
