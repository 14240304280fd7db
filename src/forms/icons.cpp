#include "forms/icons.h"

#include <QIconEngine>
#include <QPixmap>
#include <functional>
#include <optional>
#include <utility>

#include "records/kinds.h"

namespace quillbox {
namespace {

/// By extension.
struct KindIcon {
  std::string_view extension;
  const char* name;
};

constexpr KindIcon kKindIcons[] = {
    {"MCS", "kind-music"},    {"VCS", "kind-video"},   {"CCS", "kind-comics"},
    {"SCS", "kind-software"}, {"BCS", "kind-books"},   {"WCS", "kind-wave"},
    {"ICS", "kind-midi"},     {"GCS", "kind-graphic"}, {"MPS", "kind-mp3"},
};

/// An icon that is read when it is first drawn: most are in menus that may never be opened, and
/// finding and reading all of them would delay the first window.
class LateIcon : public QIconEngine {
 public:
  explicit LateIcon(std::function<QIcon()> read) : read_(std::move(read)) {}

  void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode,
             QIcon::State state) override {
    icon().paint(painter, rectangle, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return icon().pixmap(size, 1, mode, state);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal scale) override {
    return icon().pixmap(size / scale, scale, mode, state);
  }
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return icon().actualSize(size, mode, state);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return icon().availableSizes(mode, state);
  }
  QIconEngine* clone() const override { return new LateIcon(*this); }

 private:
  const QIcon& icon() {
    if (!icon_) icon_ = read_();
    return *icon_;
  }

  std::function<QIcon()> read_;
  std::optional<QIcon> icon_;
};

#ifdef QUILLBOX_ICON_SIZES
/// Pictures of a drawing, created at build time; sizes in screen points.
QIcon read(const char* ownName) {
  QIcon icon;
  for (const int size : {QUILLBOX_ICON_SIZES})
    icon.addFile(QStringLiteral(":/icons/%1-%2.png").arg(QString::fromUtf8(ownName)).arg(size));
  return icon;
}
#else
QIcon read(const char* ownName) {
  return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(ownName)));
}
#endif

}  // namespace

QIcon ownIcon(const char* name) {
  return QIcon(new LateIcon([name] { return read(name); }));
}

QIcon icon(const char* themeName, const char* ownName) {
  return QIcon(new LateIcon([themeName, ownName] {
    return QIcon::fromTheme(QString::fromUtf8(themeName), read(ownName));
  }));
}

QIcon iconOf(const CollectionKind& kind) {
  for (const auto& [extension, name] : kKindIcons)
    if (kind.extension == extension) return ownIcon(name);
  return {};
}

}  // namespace quillbox
