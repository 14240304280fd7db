#include "forms/file_drops.h"

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <utility>

#include "forms/form.h"
#include "forms/program.h"
#include "forms/qt_text.h"

namespace quillbox {
namespace {

/// Posted when a drop was accepted.
constexpr auto kAfterDrop = QEvent::User;

bool holdsOnlyFiles(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  return !urls.isEmpty() && std::ranges::all_of(urls, &QUrl::isLocalFile);
}

/// Never a move: a file manager deletes what was moved.
Qt::DropAction actionOf(const QDropEvent& drop) {
  for (const auto action : {Qt::CopyAction, Qt::LinkAction})
    if (drop.possibleActions().testFlag(action)) return action;
  return Qt::IgnoreAction;
}

}  // namespace

FileDrops::FileDrops(Program& program) : program_(program) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool FileDrops::event(QEvent* event) {
  if (event->type() != kAfterDrop) return QObject::event(event);
  program_.run(std::exchange(dropped_, nullptr));
  return true;
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
  const auto* widget = qobject_cast<QWidget*>(watched);
  auto* form = widget == nullptr ? nullptr : dynamic_cast<Form*>(widget->window());
  auto& drop = static_cast<QDropEvent&>(*event);
  if (form == nullptr || !holdsOnlyFiles(*drop.mimeData())) return false;
  take(*form, drop, type == QEvent::Drop);
  return true;
}

void FileDrops::take(Form& form, QDropEvent& drop, bool isDropped) {
  drop.ignore();
  const QList<QUrl> urls = drop.mimeData()->urls();
  const Qt::DropAction action = actionOf(drop);
  if (urls.size() != 1 || action == Qt::IgnoreAction || program_.isRunning()) return;
  std::function<void()> handler;
  ignoringErrors([&] { handler = form.dropHandler(toNativePath(urls.front().toLocalFile())); });
  if (!handler) return;
  drop.setDropAction(action);
  drop.accept();
  // After the drop is over: its source must not wait for our message boxes.
  if (!isDropped) return;
  dropped_ = std::move(handler);
  QCoreApplication::postEvent(this, new QEvent(kAfterDrop));
}

}  // namespace quillbox
