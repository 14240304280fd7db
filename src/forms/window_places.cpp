#include "forms/window_places.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QWidget>
#include <algorithm>

namespace quillbox {
namespace {

/// Farther out, or larger, is no window's place: the settings file is damaged.
constexpr int kFarthest = 32'767;

QString maximizedKey(const QWidget& window) {
  return window.objectName() + QStringLiteral("Maximized");
}

bool isPlausible(const QRect& place) {
  const auto [left, right] = std::minmax({place.x(), place.y(), place.width(), place.height()});
  return !place.isEmpty() && left >= -kFarthest && right <= kFarthest;
}

/// That place, moved and cut as little as makes all of it visible.
QRect onScreen(QRect place) {
  const QScreen* screen = QGuiApplication::screenAt(place.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  place.setSize(place.size().boundedTo(room.size()));
  place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
  place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - place.height()));
  return place;
}

}  // namespace

WindowPlaces::WindowPlaces(const QString& settingsFile)
    : settings_(settingsFile, QSettings::IniFormat) {}

QString WindowPlaces::userFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/quillbox/windows.ini");
}

void WindowPlaces::restore(QWidget& window) const {
  const QRect kept = settings_.value(window.objectName()).toRect();
  if (!isPlausible(kept)) return;
  const QRect place = onScreen(kept);
  window.resize(place.size());
  window.move(place.topLeft());
  if (settings_.value(maximizedKey(window)).toBool())
    window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void WindowPlaces::remember(const QWidget& window) {
  const QRect place =
      window.isMaximized() ? window.normalGeometry() : QRect(window.pos(), window.size());
  settings_.setValue(window.objectName(), place);
  settings_.setValue(maximizedKey(window), window.isMaximized());
}

}  // namespace quillbox
