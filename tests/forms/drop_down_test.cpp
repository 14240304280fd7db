#include "forms/drop_down.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

/// Turns the wheel over a widget by one notch towards the user, as the window system reports it.
void turnWheel(QWidget& over) {
  constexpr int notch = 120;
  const QPoint middle = over.rect().center();
  QWheelEvent event(middle, over.mapToGlobal(middle), {}, {0, -notch}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(&over, &event);
}

/// A list on a form that scrolls.
class DropDownTest : public testing::Test {
 protected:
  DropDownTest() {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    list_ = new DropDown;
    list_->addItems({"Rock", "Jazz", "Folk"});
    list_->setCurrentIndex(0);
    other_ = new QLineEdit;
    column->addWidget(list_);
    column->addWidget(other_);
    page->setMinimumHeight(1000);
    area_.setWidget(page);
    area_.resize(200, 200);
    area_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&area_));
  }

  QScrollArea area_;
  DropDown* list_;
  QLineEdit* other_;
};

TEST_F(DropDownTest, WithoutTheFocusTheWheelScrollsTheFormAndChoosesNothing) {
  other_->setFocus();
  turnWheel(*list_);
  EXPECT_EQ(list_->currentIndex(), 0);
  EXPECT_GT(area_.verticalScrollBar()->value(), 0);
}

TEST_F(DropDownTest, WithTheFocusTheWheelChoosesAndTheFormStays) {
  list_->setFocus();
  turnWheel(*list_);
  EXPECT_EQ(list_->currentIndex(), 1);
  EXPECT_EQ(area_.verticalScrollBar()->value(), 0);
}

TEST_F(DropDownTest, TheWheelDoesNotBringTheFocus) {
  other_->setFocus();
  turnWheel(*list_);
  turnWheel(*list_);
  EXPECT_TRUE(other_->hasFocus());
  EXPECT_EQ(list_->currentIndex(), 0);
}

class WheelOnForm : public FormTest {};

TEST_F(WheelOnForm, LeavesTheItemAsItIs) {
  writeFile(path(), musicFile({album("A")}));
  start({path()});
  box("txtArtist").setFocus();
  for (const char* name : {"cmbGenre", "cmbMediaType"}) {
    const int before = list(name).currentIndex();
    turnWheel(list(name));
    EXPECT_EQ(list(name).currentIndex(), before) << name;
    EXPECT_TRUE(box("txtArtist").hasFocus());
  }
  EXPECT_TRUE(control<QLabel>("lblNotWritten").isHidden());
}

}  // namespace
}  // namespace quillbox::test
