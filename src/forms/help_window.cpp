#include "forms/help_window.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "forms/accessible_role.h"
#include "forms/controls.h"
#include "forms/help_page.h"
#include "forms/icons.h"
#include "forms/window_places.h"

namespace quillbox {
namespace {

constexpr int kPageWidth = 100;  // in characters
constexpr int kPageHeight = 40;  // in lines

QString inWords(HelpPage::Found found, bool backward) {
  switch (found) {
    case HelpPage::Found::here:
      return {};
    case HelpPage::Found::fromTheOtherEnd:
      return backward ? QStringLiteral("Found from the end again")
                      : QStringLiteral("Found from the beginning again");
    case HelpPage::Found::nowhere:
      return QStringLiteral("Not on this page");
  }
  return {};
}

}  // namespace

HelpWindow::HelpWindow(WindowPlaces* places) : places_(places), page_(new HelpPage) {
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(QStringLiteral("Quillbox Help"));
  setAccessibleRole(*this, QAccessible::Window);
  nameControl(*page_, QStringLiteral("txtPage"), QStringLiteral("Help page"));
  auto* column = new QVBoxLayout(this);
  makeButtons();
  column->addWidget(page_, 1);
  makeFindLine();
  addKeys();
  resize(fontMetrics().averageCharWidth() * kPageWidth, fontMetrics().height() * kPageHeight);
  if (places_ != nullptr) places_->restore(*this);
}

void HelpWindow::makeButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* name, const char* caption, const QIcon& picture,
                       const char* what, const char* keys = "") {
    auto* made = makeButton(QString::fromUtf8(name), QString::fromUtf8(caption));
    made->setIcon(picture);
    explain(*made, QString::fromUtf8(what), QString::fromUtf8(keys));
    row->addWidget(made);
    return made;
  };
  auto* back = add("cmdBack", "&Back", icon("go-previous", "previous"), "The page before this one");
  auto* forward =
      add("cmdForward", "&Forward", icon("go-next", "next"), "The page you came back from");
  auto* all =
      add("cmdAllPages", "&All Pages", icon("help-contents", "help"), "All pages of the manual");
  row->addStretch(1);
  auto* find =
      add("cmdFind", "F&ind", icon("edit-find", "search"), "Find a text on this page", "Ctrl+F");
  auto* close = add("cmdClose", "&Close", {}, "Close the manual", "Escape");
  for (auto* button : {back, forward}) button->setEnabled(false);
  connect(back, &QPushButton::clicked, page_, &QTextBrowser::backward);
  connect(forward, &QPushButton::clicked, page_, &QTextBrowser::forward);
  connect(all, &QPushButton::clicked, this, [this] { open(QStringLiteral("index.md")); });
  connect(find, &QPushButton::clicked, this, &HelpWindow::openFindLine);
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void HelpWindow::makeFindLine() {
  findLine_ = new QWidget;
  auto* row = new QHBoxLayout(findLine_);
  row->setContentsMargins({});
  txtFind_ = new QLineEdit;
  row->addWidget(
      makeCaption(*txtFind_, QStringLiteral("txtFind"), QStringLiteral("Find &on this page:")));
  row->addWidget(txtFind_, 1);
  const auto add = [&](const char* name, const char* caption, const char* what, const char* keys,
                       void (HelpWindow::*handler)()) {
    auto* made = makeButton(QString::fromUtf8(name), QString::fromUtf8(caption));
    explain(*made, QString::fromUtf8(what), QString::fromUtf8(keys));
    connect(made, &QPushButton::clicked, this, handler);
    row->addWidget(made);
  };
  add("cmdFindNext", "&Next", "The next place on this page", "Enter or F3", &HelpWindow::findNext);
  add("cmdFindPrevious", "&Previous", "The place before", "Shift+F3", &HelpWindow::findPrevious);
  lblFound_ = new QLabel;
  lblFound_->setObjectName(QStringLiteral("lblFound"));
  row->addWidget(lblFound_, 1);
  findLine_->hide();
  static_cast<QVBoxLayout*>(layout())->addWidget(findLine_);
  connect(txtFind_, &QLineEdit::textEdited, this, &HelpWindow::findTyped);
}

void HelpWindow::addKeys() {
  const auto add = [this](const QKeySequence& keys, auto* receiver, auto handler) {
    connect(new QShortcut(keys, this), &QShortcut::activated, receiver, handler);
  };
  add(QKeySequence(Qt::CTRL | Qt::Key_F), this, &HelpWindow::openFindLine);
  add(QKeySequence(Qt::Key_F3), this, &HelpWindow::findNext);
  add(QKeySequence(Qt::SHIFT | Qt::Key_F3), this, &HelpWindow::findPrevious);
  // Plus is on a key with Shift, or has a key of its own; "=" is the same key on many keyboards.
  add(QKeySequence(Qt::CTRL | Qt::Key_Plus), page_, &HelpPage::enlarge);
  add(QKeySequence(Qt::CTRL | Qt::Key_Equal), page_, &HelpPage::enlarge);
  add(QKeySequence(Qt::CTRL | Qt::Key_Minus), page_, &HelpPage::shrink);
  add(QKeySequence(Qt::CTRL | Qt::Key_0), page_, &HelpPage::resetZoom);
}

void HelpWindow::open(const QString& page) {
  show();  // before the page, whose pictures depend on the window's width
  page_->open(page);
  raise();
  activateWindow();
  page_->setFocus();
}

void HelpWindow::openFindLine() {
  findLine_->show();
  txtFind_->setFocus();
  txtFind_->selectAll();
}

void HelpWindow::closeFindLine() {
  findLine_->hide();
  page_->setFocus();
}

void HelpWindow::findNext() { look(HelpPage::From::next); }
void HelpWindow::findPrevious() { look(HelpPage::From::previous); }
void HelpWindow::findTyped() { look(HelpPage::From::here); }

/// Without a text to search for, the line asks for one.
void HelpWindow::look(HelpPage::From from) {
  const QString text = txtFind_->text();
  if (text.isEmpty()) {
    say({});
    if (!findLine_->isVisible()) openFindLine();
    return;
  }
  findLine_->show();
  say(inWords(page_->search(text, from), from == HelpPage::From::previous));
}

void HelpWindow::say(const QString& text) {
  lblFound_->setText(text);
  lblFound_->setAccessibleName(text);
  QAccessibleEvent said(lblFound_, QAccessible::Alert);
  if (!text.isEmpty()) QAccessible::updateAccessibility(&said);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && txtFind_->hasFocus())
    look(event->modifiers().testFlag(Qt::ShiftModifier) ? HelpPage::From::previous
                                                        : HelpPage::From::next);
  else if (event->key() != Qt::Key_Escape)
    QWidget::keyPressEvent(event);
  else if (findLine_->isVisible())
    closeFindLine();
  else
    close();
}

void HelpWindow::hideEvent(QHideEvent* event) {
  if (places_ != nullptr) places_->remember(*this);
  QWidget::hideEvent(event);
}

}  // namespace quillbox
