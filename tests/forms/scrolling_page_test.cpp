#include "forms/scrolling_page.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QScrollBar>

#include "support/keys.h"

namespace quillbox::test {
namespace {

class ScrollingPageTest : public testing::Test {
 protected:
  ScrollingPageTest() : page_(new QWidget), view_(page_) {}

  /// A box on a page that is larger than the view.
  QLineEdit& boxAt(const QRect& place) {
    page_->setMinimumSize(900, 700);
    auto* box = new QLineEdit(page_);
    box->setGeometry(place);
    return *box;
  }
  /// The part of the page that is in view once the box has the focus.
  QRect inViewAt(QLineEdit& box) {
    view_.resize(300, 200);
    view_.show();
    view_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view_));
    box.setFocus();
    return {QPoint(view_.horizontalScrollBar()->value(), view_.verticalScrollBar()->value()),
            view_.viewport()->size()};
  }

  QWidget* page_;
  ScrollingPage view_;
};

TEST_F(ScrollingPageTest, NoPageIsWiderThan160Characters) {
  view_.resize(3000, 400);
  view_.show();
  EXPECT_EQ(page_->width(), 160 * view_.fontMetrics().averageCharWidth());
  EXPECT_EQ(page_->pos(), QPoint(0, 0)) << "on the left, at the top";
}

TEST_F(ScrollingPageTest, ScrollsNoFartherThanToTheEndOfABox) {
  const QRect box(600, 400, 100, 20);
  EXPECT_EQ(inViewAt(boxAt(box)).bottomRight(), box.bottomRight());
}

TEST_F(ScrollingPageTest, ShowsTheBeginningOfABoxThatIsLargerThanTheView) {
  const QRect box(400, 300, 350, 250);
  EXPECT_EQ(inViewAt(boxAt(box)).topLeft(), box.topLeft());
}

TEST_F(ScrollingPageTest, KeepsABoxNearTheLeftBesideItsCaption) {
  const QRect view = inViewAt(boxAt({100, 400, 500, 20}));
  EXPECT_EQ(view.left(), 0);
  EXPECT_EQ(view.bottom(), 419);
}

TEST_F(ScrollingPageTest, KeepsTheBoxInViewWhenTheWindowShrinks) {
  const QRect place(20, 150, 100, 20);
  QLineEdit& box = boxAt(place);
  EXPECT_EQ(inViewAt(box).top(), 0);
  view_.resize(300, 100);
  EXPECT_EQ(view_.verticalScrollBar()->value() + view_.viewport()->height(), place.bottom() + 1);
}

}  // namespace
}  // namespace quillbox::test
