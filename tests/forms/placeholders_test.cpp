#include "forms/placeholders.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QStyle>
#include <algorithm>

#include "support/contrast.h"
#include "support/keys.h"

namespace quillbox::test {
namespace {

/// Between the colours of a picture: the background, and what differs most from it.
double drawnContrast(const QWidget& box) {
  const QImage picture = const_cast<QWidget&>(box).grab().toImage();
  const QRect inside = picture.rect().marginsRemoved(QMargins(4, 4, 4, 4));
  const double ground = luminance(box.palette().color(QPalette::Base));
  double highest = 1;
  for (int y = inside.top(); y <= inside.bottom(); ++y)
    for (int x = inside.left(); x <= inside.right(); ++x)
      highest = std::max(highest, contrast(ground, luminance(picture.pixelColor(x, y))));
  return highest;
}

/// As on many desktops: every colour except that of placeholders, which stays the toolkit's.
QPalette darkWithoutPlaceholder() {
  QPalette dark = QApplication::style()->standardPalette();
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase,
                          QPalette::Button, QPalette::ToolTipBase})
    dark.setColor(role, QColor(30, 30, 30));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
    dark.setColor(role, QColor(230, 230, 230));
  return dark;
}

class PlaceholdersTest : public testing::Test {
 protected:
  PlaceholdersTest() : before_(QApplication::palette()) {
    box_.setPlaceholderText("HHHHHHHHHH");
    box_.resize(300, 40);
    box_.show();
    other_.show();  // takes the focus, so that no caret is drawn
  }
  ~PlaceholdersTest() override { QApplication::setPalette(before_); }

  double contrast() {
    QApplication::processEvents();
    return drawnContrast(box_);
  }

  QPalette before_;
  QLineEdit box_;
  QWidget other_;
};

TEST_F(PlaceholdersTest, AreReadableInADarkPaletteThatNamesNoColourForThem) {
  QApplication::setPalette(darkWithoutPlaceholder());
  EXPECT_LT(contrast(), 3) << "as the toolkit has it";
  const ReadablePlaceholders readable;
  EXPECT_GE(contrast(), 3);
}

TEST_F(PlaceholdersTest, StayReadableWhenThePaletteChanges) {
  const ReadablePlaceholders readable;
  for (const QPalette& next : {darkWithoutPlaceholder(), before_, darkWithoutPlaceholder()}) {
    QApplication::setPalette(next);
    EXPECT_GE(contrast(), 3);
    EXPECT_EQ(QApplication::palette().color(QPalette::Text), next.color(QPalette::Text));
  }
}

TEST_F(PlaceholdersTest, DifferFromWhatIsTyped) {
  const QPalette readable = withReadablePlaceholders(darkWithoutPlaceholder());
  EXPECT_NE(readable.color(QPalette::PlaceholderText), readable.color(QPalette::Text));
}

TEST_F(PlaceholdersTest, AreHalfTheirTextsColourOrAsManyTenthsMoreAsMakeThemReadable) {
  const auto placeholders = [](const QColor& text, const QColor& ground) {
    QPalette dark = darkWithoutPlaceholder();
    dark.setColor(QPalette::Text, text);
    dark.setColor(QPalette::Base, ground);
    return withReadablePlaceholders(dark).color(QPalette::PlaceholderText).name().toStdString();
  };
  EXPECT_EQ(placeholders(Qt::white, Qt::black), "#808080") << "a half";
  EXPECT_EQ(placeholders(QColor(230, 230, 230), QColor(30, 30, 30)), "#969696") << "six tenths";
}

TEST_F(PlaceholdersTest, ReadableColoursAreTheUsersOwn) {
  const QPalette light = QApplication::style()->standardPalette();
  EXPECT_EQ(withReadablePlaceholders(light), light);
  QPalette dark = darkWithoutPlaceholder();
  dark.setColor(QPalette::PlaceholderText, QColor(180, 140, 90));
  EXPECT_EQ(withReadablePlaceholders(dark), dark);
}

TEST_F(PlaceholdersTest, ColoursNearEachOtherAreGivenAllThatTheyHave) {
  QPalette faint = darkWithoutPlaceholder();
  faint.setColor(QPalette::Text, QColor(70, 70, 70));
  EXPECT_EQ(withReadablePlaceholders(faint).color(QPalette::PlaceholderText), QColor(70, 70, 70));
}

}  // namespace
}  // namespace quillbox::test
