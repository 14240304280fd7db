#include "forms/icons.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <set>

#include "records/kinds.h"

namespace quillbox::test {
namespace {

constexpr int kSmall = 16;

QImage drawn(const QIcon& icon) {
  return icon.pixmap(kSmall).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage painted(const QIcon& icon) {
  QImage image(kSmall, kSmall, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  icon.paint(&painter, image.rect());
  return image;
}

/// The number of visible pixels.
int inkOf(const QImage& image) {
  constexpr int half = 128;
  int ink = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qAlpha(image.pixel(x, y)) >= half) ++ink;
  return ink;
}

/// The name of every icon, whether the program contains the drawings or pictures of them.
std::set<QString> names() {
  std::set<QString> names;
  for (const QString& file :
       QDir(QStringLiteral(QUILLBOX_SOURCE_DIR "/src/icons")).entryList({QStringLiteral("*.svg")}))
    names.insert(file.chopped(4));
  return names;
}

TEST(Icons, AreDrawnAtSixteenPixels) {
  ASSERT_FALSE(names().empty());
  for (const QString& name : names()) {
    const QImage image = drawn(ownIcon(name.toUtf8().constData()));
    EXPECT_EQ(image.size(), QSize(kSmall, kSmall)) << name.toStdString();
    EXPECT_GT(inkOf(image), kSmall) << name.toStdString();
  }
}

TEST(Icons, AreSharpAtEverySizeAndScale) {
  for (const int size : {16, 24, 32, 48, 64}) {
    for (const qreal scale : {1.0, 2.0, 3.0}) {
      const QPixmap picture = ownIcon("org.quillbox.Quillbox").pixmap(QSize(size, size), scale);
      EXPECT_EQ(picture.width(), size * scale) << size << " " << scale;
      EXPECT_EQ(picture.devicePixelRatio(), scale) << size << " " << scale;
    }
  }
}

TEST(Icons, TellTheKindsApart) {
  std::set<QByteArray> different;
  for (const CollectionKind& kind : collectionKinds()) {
    const QImage image = drawn(iconOf(kind));
    EXPECT_GT(inkOf(image), kSmall) << kind.extension;
    different.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()),
                                static_cast<int>(image.sizeInBytes())));
  }
  EXPECT_EQ(different.size(), collectionKinds().size());
}

TEST(Icons, AreTheProgramsOwnWhereTheThemeHasNone) {
  EXPECT_EQ(drawn(icon("no-theme-has-this", "write")), drawn(ownIcon("write")));
}

TEST(Icons, AreDrawnAsTheirFilesInEveryStateAndScale) {
#ifdef QUILLBOX_ICON_SIZES
  QIcon file;
  for (const int size : {QUILLBOX_ICON_SIZES})
    file.addFile(QStringLiteral(":/icons/write-%1.png").arg(size));
#else
  const QIcon file(":/icons/write.svg");
#endif
  const QIcon late = ownIcon("write");
  for (const QIcon& each : {late, QIcon(late)}) {
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled, QIcon::Selected}) {
      for (const qreal scale : {1.0, 1.5, 2.0}) {
        const QPixmap drawn = each.pixmap(QSize(kSmall, kSmall), scale, mode);
        const QPixmap expected = file.pixmap(QSize(kSmall, kSmall), scale, mode);
        EXPECT_EQ(drawn.toImage(), expected.toImage()) << mode << " " << scale;
        EXPECT_EQ(drawn.devicePixelRatio(), expected.devicePixelRatio()) << scale;
      }
    }
    EXPECT_EQ(each.actualSize(QSize(kSmall, kSmall)), file.actualSize(QSize(kSmall, kSmall)));
    EXPECT_EQ(each.availableSizes(), file.availableSizes());
    EXPECT_FALSE(each.isNull());
    EXPECT_EQ(painted(each), painted(file));
  }
}

/// A theme with one red icon, while the object exists.
class OneIconTheme {
 public:
  OneIconTheme() {
    QDir().mkpath(folder_.filePath("red/16"));
    QFile index(folder_.filePath("red/index.theme"));
    EXPECT_TRUE(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=Red\nDirectories=16\n[16]\nSize=16\n");
    QImage red(kSmall, kSmall, QImage::Format_ARGB32);
    red.fill(Qt::red);
    EXPECT_TRUE(red.save(folder_.filePath("red/16/in-red.png")));
  }
  OneIconTheme(const OneIconTheme&) = delete;
  OneIconTheme& operator=(const OneIconTheme&) = delete;
  ~OneIconTheme() {
    QIcon::setThemeSearchPaths(pathsBefore_);
    QIcon::setThemeName(nameBefore_);
  }

  void choose() const {
    QIcon::setThemeSearchPaths({folder_.path()});
    QIcon::setThemeName("red");
  }

 private:
  QTemporaryDir folder_;
  QStringList pathsBefore_ = QIcon::themeSearchPaths();
  QString nameBefore_ = QIcon::themeName();
};

TEST(Icons, AreLookedForInTheThemeWhenTheyAreFirstDrawn) {
  const OneIconTheme theme;
  const QIcon made = icon("in-red", "write");
  theme.choose();
  EXPECT_EQ(drawn(made).pixelColor(0, 0), QColor(Qt::red));
}

}  // namespace
}  // namespace quillbox::test
