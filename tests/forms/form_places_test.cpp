// The positions of windows, and how their parts share the space: nothing moves under the mouse.

#include <QScrollArea>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class FormPlaces : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  FormPlaces() : EditorTest(GetParam()) {}

  QRect placeOf(const char* name) {
    const auto& widget = control<QWidget>(name);
    return {widget.mapTo(&form(), QPoint()), widget.size()};
  }
};

TEST_P(FormPlaces, AnotherFormStandsWhereTheEditorStood) {
  open({item("One")});
  for (int round = 1; round <= 3; ++round) {
    form().move(120 + 10 * round, 130);
    QApplication::processEvents();
    const QPoint place = form().geometry().topLeft();
    for (const ModelSide& side : {kind().sort, kind().search}) {
      openSideForm(side);
      QApplication::processEvents();
      EXPECT_EQ(form().geometry().topLeft(), place);
      leaveSideForm(side);
      QApplication::processEvents();
      EXPECT_EQ(form().geometry().topLeft(), place);
    }
  }
}

TEST_P(FormPlaces, TheEditorStandsWhereAnotherFormWasMovedTo) {
  open({item("One")});
  for (const ModelSide& side : {kind().sort, kind().search}) {
    openSideForm(side);
    form().move(form().pos() + QPoint(20, 10));
    QApplication::processEvents();
    const QPoint place = form().geometry().topLeft();
    leaveSideForm(side);
    QApplication::processEvents();
    EXPECT_EQ(form().geometry().topLeft(), place);
  }
}

TEST_P(FormPlaces, TheIndicatorHasRoomForTheLargestCount) {
  std::string many = collection({item("One")});
  const std::int16_t most = INT16_MAX;
  std::memcpy(many.data(), &most, sizeof most);
  open({item("One"), item("Two")});
  const QSize window = form().size();
  const QRect next = placeOf(kind().buttons.next);
  writeFile(path("large." + std::string(kind().extension)), many);
  openHere(path("large." + std::string(kind().extension)));
  desktop_.expectInput("Record #", "Go To Record", "32766");
  press(kind().buttons.goTo);
  type(kind().otherBox(), "Typed");
  QApplication::processEvents();
  EXPECT_EQ(form().size(), window);
  EXPECT_EQ(placeOf(kind().buttons.next), next);
  const auto& indicator = control<QLabel>(kind().indicator);
  EXPECT_GE(indicator.width(), indicator.sizeHint().width());
}

TEST_P(FormPlaces, AStatusMovesNothing) {
  open({item("One"), item("Two")});
  const QSize window = form().size();
  const QRect next = placeOf(kind().buttons.next);
  type(kind().otherBox(), "Typed");
  press(kind().buttons.write);
  QApplication::processEvents();
  EXPECT_EQ(form().size(), window);
  EXPECT_EQ(placeOf(kind().buttons.next), next);
}

TEST_P(FormPlaces, ButtonsWrapAndThePageScrollsInASmallWindow) {
  open({item("One")});
  form().resize(1, 1);
  QApplication::processEvents();
  EXPECT_LE(form().width(), 480);
  EXPECT_LE(form().height(), 300);
  for (const auto* made : form().findChildren<QPushButton*>()) {
    const QRect place(made->mapTo(&form(), QPoint()), made->size());
    EXPECT_TRUE(form().rect().contains(place)) << made->text().toStdString();
  }
  auto* page = form().findChild<QScrollArea*>();
  const auto boxes = page->findChildren<QLineEdit*>();
  boxes.back()->setFocus();
  QApplication::processEvents();
  const QPoint corner = boxes.back()->mapTo(page->viewport(), QPoint());
  EXPECT_TRUE(page->viewport()->rect().contains(corner));
}

TEST_P(FormPlaces, BoxesStayReadableInAWideWindow) {
  open({item("One")});
  form().resize(3000, 1000);
  QApplication::processEvents();
  const int character = form().fontMetrics().averageCharWidth();
  for (const auto* made : form().findChildren<QLineEdit*>())
    EXPECT_LE(made->width(), 160 * character) << made->objectName().toStdString();
  EXPECT_GE(placeOf(kind().otherBox()).width(), 30 * character);
}

TEST_P(FormPlaces, AnErrorLeavesTheFocusWhereItWas) {
  open({item("One"), item("Two")});
  openSideForm(kind().sort);  // the editor is hidden once, with the focus on its first box
  leaveSideForm(kind().sort);
  button(kind().buttons.next).setFocus();
  files_.failNth(0, ErrorNumber::permissionDenied);
  desktop_.tolerateMessages = true;
  QTest::keyClick(&button(kind().buttons.next), Qt::Key_Space);
  EXPECT_EQ(form().focusWidget(), &button(kind().buttons.next));
}

INSTANTIATE_TEST_SUITE_P(Editors, FormPlaces, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace quillbox::test
