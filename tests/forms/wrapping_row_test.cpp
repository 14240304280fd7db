#include "forms/wrapping_row.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace quillbox::test {
namespace {

/// A leading label, two buttons and, a little apart from them, a third.
class WrappingRowTest : public testing::Test {
 protected:
  WrappingRowTest() : lead_(part(30, 10)), buttons_{part(50, 20), part(50, 20), part(50, 20)} {
    row_->setSpacing(10);
    row_->addLead(lead_);
    row_->addWidget(buttons_[0]);
    row_->addWidget(buttons_[1]);
    row_->addGap();
    row_->addWidget(buttons_[2]);
    window_.setLayout(row_);
  }

  QWidget* part(int width, int height) {
    auto* made = new QWidget(&window_);
    made->setFixedSize(width, height);
    return made;
  }
  void layOut(int width) { row_->setGeometry({0, 0, width, row_->heightForWidth(width)}); }

  QWidget window_;
  WrappingRow* row_ = new WrappingRow;
  QWidget* lead_;
  QWidget* buttons_[3];
};

TEST_F(WrappingRowTest, PutsTheLeadOnTheLeftAndTheButtonsOnTheRight) {
  layOut(300);
  EXPECT_EQ(lead_->geometry(), QRect(0, 5, 30, 10)) << "in the middle of the line";
  EXPECT_EQ(buttons_[0]->geometry(), QRect(110, 0, 50, 20));
  EXPECT_EQ(buttons_[1]->geometry(), QRect(170, 0, 50, 20));
  EXPECT_EQ(buttons_[2]->geometry(), QRect(250, 0, 50, 20)) << "another group";
}

TEST_F(WrappingRowTest, WrapsWhatHasNoRoom) {
  layOut(229);
  EXPECT_EQ(lead_->geometry(), QRect(0, 5, 30, 10));
  EXPECT_EQ(buttons_[0]->geometry(), QRect(119, 0, 50, 20));
  EXPECT_EQ(buttons_[1]->geometry(), QRect(179, 0, 50, 20));
  EXPECT_EQ(buttons_[2]->geometry(), QRect(179, 30, 50, 20));
}

TEST_F(WrappingRowTest, KnowsTheRoomItNeeds) {
  EXPECT_EQ(row_->sizeHint(), QSize(230, 20)) << "all in one line";
  EXPECT_EQ(row_->minimumSize(), QSize(50, 20)) << "the widest alone";
  EXPECT_EQ(row_->heightForWidth(230), 20);
  EXPECT_EQ(row_->heightForWidth(229), 50);
  EXPECT_EQ(row_->heightForWidth(50), 100) << "the lead alone is lower";
}

TEST_F(WrappingRowTest, LeavesNoHoleWhereAButtonWasDeleted) {
  delete buttons_[2];
  EXPECT_EQ(row_->count(), 3);
  layOut(300);
  EXPECT_EQ(lead_->geometry(), QRect(0, 5, 30, 10));
  EXPECT_EQ(buttons_[0]->geometry(), QRect(190, 0, 50, 20));
  EXPECT_EQ(buttons_[1]->geometry(), QRect(250, 0, 50, 20));
}

TEST_F(WrappingRowTest, HasNothingBesideItsItems) {
  for (const int index : {-1, 4}) {
    EXPECT_EQ(row_->itemAt(index), nullptr);
    EXPECT_EQ(row_->takeAt(index), nullptr);
  }
  EXPECT_EQ(row_->count(), 4);
}

}  // namespace
}  // namespace quillbox::test
