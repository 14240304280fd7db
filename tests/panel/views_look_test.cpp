// The look of the views with groups of rows: complete captions, and accessible names.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>

#include "panel/doubles_view.h"
#include "panel/loans_view.h"
#include "panel/summary_view.h"
#include "support/form_fixture.h"
#include "support/panel_views.h"

namespace quillbox::test {
namespace {

class ViewsLook : public FormTest {
 protected:
  ViewsLook() {
    writeFile(path(), musicFile({album("A")}));
    start({path()});
    const auto owner = asked_.owner();
    const RecordTexts texts = overviewTexts();
    views_.push_back(std::make_unique<LoansView>(kMusic.row(), desktop_, owner));
    for (const ModelKind& kind : kModelKinds) {
      views_.push_back(std::make_unique<DoublesView>(kind.row(), texts, owner));
      views_.push_back(std::make_unique<SummaryView>(kind.row(), texts, *program_, owner));
    }
    for (const auto& view : views_) {
      std::string item = familyItem(kMusic, "Same");
      item = withNumber(kMusic, item, "chkCurrLoaned", 1);
      takeAll(*view, {item, item});
    }
  }

  AskedOwner asked_;
  std::vector<std::unique_ptr<PanelView>> views_;
};

TEST_F(ViewsLook, ShowsEverythingWhole) {
  for (const auto& view : views_) {
    view->resize(view->minimumSizeHint());
    showWindow(*view);
    const QTreeView& tree = treeOf(*view);
    SCOPED_TRACE(tree.objectName().toStdString());
    for (int column = 0; column < tree.model()->columnCount(); ++column)
      EXPECT_GE(tree.header()->sectionSize(column), tree.header()->sectionSizeHint(column))
          << column;
    for (const auto* button : view->findChildren<QPushButton*>()) {
      EXPECT_GE(button->width(), button->minimumSizeHint().width());
      EXPECT_GE(button->height(), button->minimumSizeHint().height());
      EXPECT_TRUE(view->rect().contains(button->geometry()));
    }
    view->hide();
  }
}

TEST_F(ViewsLook, TheBarsTakeWhatTheOtherColumnsLeave) {
  for (const auto& view : views_) {
    if (dynamic_cast<SummaryView*>(view.get()) == nullptr) continue;
    view->resize(1200, 300);
    showWindow(*view);
    const QTreeView& tree = treeOf(*view);
    EXPECT_EQ(tree.header()->length(), tree.viewport()->width());
    const int bars = tree.columnWidth(1);
    view->resize(1300, 300);
    EXPECT_EQ(tree.columnWidth(1), bars + 100);
    view->hide();
  }
}

TEST_F(ViewsLook, RowsHaveRoomForTheirTexts) {
  for (const auto& view : views_) {
    showWindow(*view);
    const QTreeView& tree = treeOf(*view);
    if (tree.isVisible()) {
      EXPECT_GE(tree.visualRect(rowAt(tree, 0, 0)).height(), tree.fontMetrics().height());
    }
    view->hide();
  }
}

TEST_F(ViewsLook, TheFocusMarksAWholeRow) {
  for (const auto& view : views_) EXPECT_TRUE(treeOf(*view).allColumnsShowFocus());
}

TEST_F(ViewsLook, WhereThereIsNothingTheMiddleSaysSo) {
  for (const auto& view : views_) {
    view->start();
    view->showTaken();
    view->resize(view->minimumSizeHint().width(), 300);
    showWindow(*view);
    const QString name = "lblNo" + treeOf(*view).objectName().mid(3);
    const auto& label = *view->findChild<QLabel*>(name);
    SCOPED_TRACE(name.toStdString());
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.alignment(), Qt::AlignCenter);
    EXPECT_LT(label.minimumSizeHint().width(), label.fontMetrics().horizontalAdvance(label.text()))
        << "it is wrapped where the view is narrow";
    EXPECT_GE(label.height(), label.heightForWidth(label.width()));
    view->hide();
  }
}

TEST_F(ViewsLook, EveryControlHasANameToBeFoundAndToBeHeard) {
  for (const auto& view : views_) {
    for (QWidget* control : view->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
      SCOPED_TRACE(control->metaObject()->className());
      EXPECT_FALSE(control->objectName().isEmpty());
      if (control->focusPolicy() == Qt::NoFocus) continue;
      QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(control);
      EXPECT_FALSE(heard->text(QAccessible::Name).isEmpty());
    }
  }
}

TEST_F(ViewsLook, ATreeHasTheNameOfItsTab) {
  for (const auto& view : views_)
    EXPECT_EQ("tre" + treeOf(*view).accessibleName(), treeOf(*view).objectName());
}

TEST_F(ViewsLook, RowsBeginAtTheEdge) {
  for (const auto& view : views_) {
    showWindow(*view);
    const QTreeView& tree = treeOf(*view);
    EXPECT_EQ(tree.visualRect(tree.model()->index(0, 0)).left(), 0);
    EXPECT_EQ(tree.visualRect(tree.model()->index(1, 0)).left(), 0);
    view->hide();
  }
}

TEST_F(ViewsLook, NoButtonTakesAnAccessKeyFromTheForm) {
  for (const auto& view : views_)
    for (const auto* button : view->findChildren<QPushButton*>())
      EXPECT_TRUE(button->shortcut().isEmpty()) << button->text().toStdString();
}

}  // namespace
}  // namespace quillbox::test
