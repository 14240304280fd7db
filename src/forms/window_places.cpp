#include "forms/window_places.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QStringList>
#include <QStyle>
#include <QWidget>
#include <algorithm>
#include <array>
#include <optional>

namespace quillbox {
namespace {

/// Beyond this, a position or size is invalid: the settings file is damaged.
constexpr int kFarthest = 32'767;

QString maximizedKey(const QWidget& window) {
  return window.objectName() + QStringLiteral("Maximized");
}

/// "left top width height"
QString textOf(const QRect& place) {
  return QStringLiteral("%1 %2 %3 %4")
      .arg(place.left())
      .arg(place.top())
      .arg(place.width())
      .arg(place.height());
}

std::optional<QRect> placeOf(const QString& text) {
  std::array<int, 4> numbers{};
  const QStringList parts = text.split(QLatin1Char(' '));
  if (parts.size() != static_cast<qsizetype>(numbers.size())) return std::nullopt;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    bool isNumber = false;
    numbers.at(i) = parts.at(static_cast<qsizetype>(i)).toInt(&isNumber);
    if (!isNumber || numbers.at(i) < -kFarthest || numbers.at(i) > kFarthest) return std::nullopt;
  }
  const auto [left, top, width, height] = numbers;
  if (width < 1 || height < 1) return std::nullopt;
  return QRect(left, top, width, height);
}

/// The place, moved and cut as little as possible to be all visible, title bar included.
QRect onScreen(QRect place, const QWidget& window) {
  const QScreen* screen = QGuiApplication::screenAt(place.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  const QRect room = screen->availableGeometry().adjusted(0, titleBar, 0, 0);
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
  const auto kept = placeOf(settings_.value(window.objectName()).toString());
  if (!kept) return;
  window.setGeometry(onScreen(*kept, window));
  if (settings_.value(maximizedKey(window)).toBool())
    window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void WindowPlaces::remember(const QWidget& window) {
  const QRect place = window.isMaximized() ? window.normalGeometry() : window.geometry();
  settings_.setValue(window.objectName(), textOf(place));
  settings_.setValue(maximizedKey(window), window.isMaximized());
}

}  // namespace quillbox
