#include "panel/missing_view.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "support/failing_files.h"
#include "support/panel_views.h"
#include "support/test_folder.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

class MissingViewTest : public testing::Test {
 protected:
  MissingViewTest() {
    view_.resize(900, 400);
    showWindow(view_);
    writeFile(folder_.path("here.mp3"), "");
  }

  /// An item of that file in the test's folder.
  std::string item(std::string_view name) {
    return itemWith(kMp3, {{"txtFileName", name}, {"txtPath", folder_.path()}});
  }
  QTreeView& tree() { return treeOf(view_); }
  std::string line() { return shownLabel(view_, "lblMissing"); }
  std::string nothing() { return shownLabel(view_, "lblNoMissing"); }

  TestFolder folder_;
  FailingFiles files_;
  AskedOwner asked_;
  MissingView view_{files_, kMp3.row(), asked_.owner()};
};

TEST_F(MissingViewTest, ListsTheItemsWhoseFilesAreGone) {
  takeAll(view_, {item("a.mp3"), item("here.mp3"), item("caf\xE9.mp3")});
  EXPECT_EQ(headersOf(tree()), "No.|File");
  EXPECT_EQ(shownRows(tree()), "[Not there any more] 1|" + folder_.path("a.mp3") + " 3|" +
                                   folder_.path("caf\xC3\xA9.mp3") + " ");
  EXPECT_EQ(line(), "Not there any more: 2");
  EXPECT_EQ(nothing(), "");
  EXPECT_EQ(tree().accessibleName(), "Missing Files");
}

TEST_F(MissingViewTest, SaysWhenEveryFileIsThere) {
  takeAll(view_, {item("here.mp3")});
  EXPECT_EQ(nothing(), "Every file is where its item says");
  EXPECT_EQ(line(), "Not there any more: 0");
  EXPECT_FALSE(tree().isVisible());
}

TEST_F(MissingViewTest, AClickOrEnterShowsTheItem) {
  takeAll(view_, {item("here.mp3"), item("a.mp3"), item("b.mp3")});
  clickRow(tree(), rowAt(tree(), 0, 1, 1));
  clickRow(tree(), rowAt(tree(), 0, -1));
  QTest::keyClick(&tree(), Qt::Key_Down);
  QTest::keyClick(&tree(), Qt::Key_Return);
  EXPECT_EQ(asked_.shown, (std::vector{3, 2}));
}

TEST_F(MissingViewTest, MarksTheItemOfTheForm) {
  takeAll(view_, {item("here.mp3"), item("a.mp3"), item("b.mp3")});
  view_.mark(3);
  EXPECT_EQ(markedRow(tree()), "3");
  view_.mark(1);
  EXPECT_EQ(markedRow(tree()), "");
}

TEST_F(MissingViewTest, FollowsWhatChanges) {
  takeAll(view_, {item("a.mp3"), item("here.mp3"), item("b.mp3")});
  tree().setCurrentIndex(rowAt(tree(), 0, 1));
  view_.take(1, recordOf(item("here.mp3")));
  view_.showTaken();
  EXPECT_EQ(shownRows(tree()), "[Not there any more] 3|" + folder_.path("b.mp3") + " ");
  EXPECT_EQ(tree().currentIndex(), rowAt(tree(), 0, 0));
  view_.cutTo(2);
  view_.showTaken();
  EXPECT_EQ(line(), "Not there any more: 0");
  view_.start();
  EXPECT_EQ(line(), "");
  EXPECT_EQ(nothing(), "");
}

}  // namespace
}  // namespace quillbox::test
