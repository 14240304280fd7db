#include "forms/form.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "forms/help_window.h"
#include "forms/qt_text.h"
#include "forms/window_places.h"

namespace quillbox {

Form::Form(Program& program, const char* name) : program_(program) {
  setObjectName(QString::fromUtf8(name));
  setAcceptDrops(true);  // see FileDrops
  program_.enter(*this);
}

Form::~Form() { program_.leave(*this); }

void Form::setCaption(const QString& text) {
  // The toolkit takes "[*]" for the place of its "modified" mark; doubled it stands for itself.
  setWindowTitle(QString(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void Form::setVisible(bool visible) {
  WindowPlaces* places = program_.windowPlaces();
  if (visible) restorePlace();
  if (!visible && isVisible()) {
    focusWhenHidden_ = focusWidget();
    if (places != nullptr) places->remember(*this);
  }
  QMainWindow::setVisible(visible);
  if (visible && focusWhenHidden_) focusWhenHidden_->setFocus();
}

void Form::showInsteadOf(Form& other) {
  restorePlace();
  if (!isVisible()) move(other.pos());
  show();
  other.hide();
  activateWindow();
}

/// Only once: from then on the window keeps its place by itself.
void Form::restorePlace() {
  if (std::exchange(placeIsRestored_, true) || program_.windowPlaces() == nullptr) return;
  program_.windowPlaces()->restore(*this);
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
    action->setIcon(item.icon);  // on the bar itself it would stand for the caption
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
