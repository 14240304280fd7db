#include "forms/icons.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <set>

#include "records/kinds.h"

namespace quillbox::test {
namespace {

constexpr int kSmall = 16;

QImage drawn(const QIcon& icon) {
  return icon.pixmap(kSmall).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// Points that are seen at all.
int inkOf(const QImage& image) {
  constexpr int half = 128;
  int ink = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (qAlpha(image.pixel(x, y)) >= half) ++ink;
  return ink;
}

TEST(Icons, AreDrawnAtSixteenPixels) {
  const QStringList files = QDir(":/icons").entryList({"*.svg"});
  ASSERT_FALSE(files.isEmpty());
  for (QString file : files) {
    const QImage image = drawn(ownIcon(file.chopped(4).toUtf8().constData()));
    EXPECT_EQ(image.size(), QSize(kSmall, kSmall)) << file.toStdString();
    EXPECT_GT(inkOf(image), kSmall) << file.toStdString();
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

}  // namespace
}  // namespace quillbox::test
