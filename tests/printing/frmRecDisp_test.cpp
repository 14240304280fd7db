#include "printing/frmRecDisp.h"

#include <QProgressBar>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class ProgressBoard : public FormTest {
 protected:
  ProgressBoard() { start(); }
  frmRecDisp& board() { return dynamic_cast<frmRecDisp&>(program_->board()); }
  std::string lines() { return board().findChild<QLabel*>("lblLines")->text().toStdString(); }
  QProgressBar& bar() { return *board().findChild<QProgressBar*>("barProgress"); }
};

/// Counts the times a widget is painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& watched) { watched.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return QObject::eventFilter(watched, event);
  }
};

TEST_F(ProgressBoard, HasItsDesignTimeCaptionUntilItIsLoaded) {
  EXPECT_EQ(board().windowTitle(), "Current Page");
  board().show();
  EXPECT_EQ(board().windowTitle(), "Printing Status...");
  board().setBoardCaption("Sorting...");
  board().hide();
  board().show();
  EXPECT_EQ(board().windowTitle(), "Sorting...") << "loaded once";
}

TEST_F(ProgressBoard, IsLoadedByItsFirstCaption) {
  board().setBoardCaption("Sorting...");
  board().show();
  EXPECT_EQ(board().windowTitle(), "Sorting...");
}

TEST_F(ProgressBoard, ShowsItsCaptionAndLines) {
  board().open("Loading Data");
  EXPECT_TRUE(board().isVisible());
  EXPECT_EQ(board().windowTitle(), "Loading Data");
  board().print("first <b>");
  board().print("last");
  EXPECT_TRUE(waitFor([&] { return lines() == "first <b>\nlast"; }));
  board().setBoardCaption("Writing File...");
  EXPECT_EQ(board().windowTitle(), "Writing File...");
  board().clear();
  board().print("again");
  EXPECT_TRUE(waitFor([&] { return lines() == "again"; }));
  board().close();
  EXPECT_FALSE(board().isVisible());
}

TEST_F(ProgressBoard, BeginsWithoutTheLinesOfTheWorkBefore) {
  board().open("Sorting...");
  board().print("old");
  board().progress(3, 12);
  board().close();
  board().open("Searching...");
  EXPECT_EQ(lines(), "");
  EXPECT_TRUE(bar().isHidden());
  board().print("new");
  EXPECT_TRUE(waitFor([this] { return lines() == "new"; })) << lines();
}

TEST_F(ProgressBoard, IsRepaintedOnlyAsOftenAsAnEyeCanFollow) {
  board().open("Reading");
  const Paints paints(*board().findChild<QLabel*>("lblLines"));
  QElapsedTimer elapsed;
  elapsed.start();
  constexpr int manyLines = 20'000;
  for (int i = 0; i < manyLines; ++i) board().print("line " + std::to_string(i));
  // One repaint for each thirtieth of a second, and one at the start.
  EXPECT_LE(paints.count, elapsed.elapsed() / 30 + 2);
  EXPECT_TRUE(waitFor([&] { return lines().ends_with("line 19999"); }))
      << "the last line is always shown";
}

TEST_F(ProgressBoard, IsRepaintedWhileTheWorkGoesOn) {
  board().open("Reading");
  const QDeadlineTimer tooLong(10'000);
  while (lines().empty() && !tooLong.hasExpired()) board().print("line");
  EXPECT_NE(lines(), "") << "not only when the work is over";
}

TEST_F(ProgressBoard, ShowsHowFarWorkOfAKnownLengthIs) {
  board().open("Loading Data");
  EXPECT_TRUE(bar().isHidden()) << "work of unknown length has no bar";
  board().progress(3, 12);
  EXPECT_TRUE(waitFor([&] { return !bar().isHidden(); }));
  EXPECT_EQ(bar().maximum(), 12);
  EXPECT_EQ(bar().value(), 3);
  EXPECT_FALSE(bar().accessibleName().isEmpty());
}

TEST_F(ProgressBoard, LeadsToTheStartScreenWhenTheUserClosesIt) {
  QMainWindow& start = form();
  program_->run([&] {
    board().open("Reading");
    start.hide();
  });
  board().QWidget::close();
  EXPECT_EQ(formName(), "frmBegin2");
}

}  // namespace
}  // namespace quillbox::test
