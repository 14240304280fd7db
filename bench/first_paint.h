#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <utility>

namespace quillbox::bench {

/// Calls `painted` for every window after its first painting.
class FirstPaint : public QObject {
 public:
  using Painted = std::function<void(QWidget& window)>;

  explicit FirstPaint(Painted painted) : painted_(std::move(painted)) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint && watched->isWidgetType()) {
      QWidget* window = static_cast<QWidget*>(watched)->window();
      if (window->isVisible() && std::exchange(last_, window) != window)
        // A window is painted as a whole; the event loop continues when that is done.
        QTimer::singleShot(0, window, [this, window] { painted_(*window); });
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  Painted painted_;
  const QWidget* last_ = nullptr;  // only compared
};

}  // namespace quillbox::bench
