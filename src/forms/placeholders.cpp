#include "forms/placeholders.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <cmath>

namespace quillbox {
namespace {

/// The contrast that the Web Content Accessibility Guidelines require for large letters, and for
/// all others. A colour with less than the first is replaced by one with the second.
constexpr double kLowest = 3;
constexpr double kReadable = 4.5;

// Relative luminance and contrast as defined there.

double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

/// One colour at that opacity over another.
QColor mixed(const QColor& front, const QColor& back, float share) {
  const auto part = [share](float one, float other) { return share * one + (1 - share) * other; };
  return QColor::fromRgbF(part(front.redF(), back.redF()), part(front.greenF(), back.greenF()),
                          part(front.blueF(), back.blueF()));
}

/// As close to the background as is readable, so that it does not look typed.
QColor readable(const QColor& text, const QColor& ground) {
  constexpr int steps = 10;
  for (int step = steps / 2; step < steps; ++step) {
    const QColor color = mixed(text, ground, static_cast<float>(step) / steps);
    if (contrast(color, ground) >= kReadable) return color;
  }
  return text;
}

}  // namespace

QPalette withReadablePlaceholders(QPalette palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const QColor ground = palette.color(group, QPalette::Base);
    const QColor now = palette.color(group, QPalette::PlaceholderText);
    if (contrast(mixed(now, ground, now.alphaF()), ground) < kLowest)
      palette.setColor(group, QPalette::PlaceholderText,
                       readable(palette.color(group, QPalette::Text), ground));
  }
  return palette;
}

ReadablePlaceholders::ReadablePlaceholders() {
  adjust();
  QCoreApplication::instance()->installEventFilter(this);
}

/// A readable palette is left to the desktop.
void ReadablePlaceholders::adjust() {
  const QPalette now = QApplication::palette();
  const QPalette readable = withReadablePlaceholders(now);
  if (readable != now) QApplication::setPalette(readable);
}

bool ReadablePlaceholders::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance())
    adjust();
  return false;
}

}  // namespace quillbox
