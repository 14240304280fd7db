#include "forms/live_hint.h"

#include <gtest/gtest.h>

#include <QLineEdit>

namespace quillbox::test {
namespace {

/// Boxes at the top and at the bottom of a sheet.
class LiveHintTest : public testing::Test {
 protected:
  LiveHintTest() : top_(&sheet_), bottom_(&sheet_), hint_(new LiveHint(sheet_)) {
    sheet_.resize(400, 300);
    top_.setGeometry(20, 10, 200, 30);
    bottom_.setGeometry(20, 270, 200, 30);
    sheet_.show();
  }

  QWidget sheet_;
  QLineEdit top_;
  QLineEdit bottom_;
  LiveHint* hint_;
};

TEST_F(LiveHintTest, StandsBelowItsBoxAndWithoutRoomThereAboveIt) {
  hint_->show(top_, "1 January 1980");
  EXPECT_TRUE(hint_->isVisible());
  EXPECT_EQ(hint_->text(), "1 January 1980");
  EXPECT_EQ(hint_->pos(), QPoint(20, 40));
  EXPECT_EQ(hint_->size(), hint_->sizeHint());
  hint_->show(bottom_, "<b>");
  EXPECT_EQ(hint_->text(), "<b>");
  EXPECT_EQ(hint_->textFormat(), Qt::PlainText);
  EXPECT_EQ(hint_->geometry().bottomLeft(), QPoint(20, 269));
  EXPECT_EQ(hint_->size(), hint_->sizeHint());
}

TEST_F(LiveHintTest, IsWhatTheBoxSaysToAssistiveTechnology) {
  hint_->show(top_, "1 January 1980");
  EXPECT_EQ(top_.accessibleDescription(), "1 January 1980");
  hint_->show(top_, {});
  EXPECT_EQ(top_.accessibleDescription(), "");
  EXPECT_FALSE(hint_->isVisible());
}

TEST_F(LiveHintTest, LiesOverTheOtherBoxesAndLetsTheMouseThrough) {
  QLineEdit& below = bottom_;
  below.setGeometry(20, 40, 200, 30);
  hint_->show(top_, "1 January 1980");
  EXPECT_EQ(sheet_.children().last(), hint_) << "the last to be drawn";
  EXPECT_EQ(sheet_.childAt(30, 45), &below);
}

}  // namespace
}  // namespace quillbox::test
