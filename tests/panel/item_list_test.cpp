// The list of all items in the panel of each editor.

#include "panel/item_list.h"

#include <QClipboard>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>
#include <filesystem>
#include <tuple>

#include "forms/panel_settings.h"
#include "support/overview_model.h"
#include "support/panel_fixture.h"

namespace quillbox::test {
namespace {

class EachItemList : public PanelTest, public testing::WithParamInterface<ModelKind> {
 protected:
  EachItemList() : PanelTest(GetParam()) {}

  /// Enter on the first bar of the summary that counts so many items.
  void showOnly(int items) {
    auto& panel = control<QTabWidget>("Panel");
    panel.setCurrentIndex(panel.count() - 1);
    auto& tree = *panel.currentWidget()->findChild<QTreeView*>();
    const QAbstractItemModel& bars = *tree.model();
    ASSERT_TRUE(waitFor([&] { return bars.rowCount() > 0; }));
    int row = 0;
    while (row < bars.rowCount() && bars.index(row, 2).data().toInt() != items) ++row;
    tree.setCurrentIndex(bars.index(row, 0));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(panel.currentIndex(), 0);
    read();
  }
};

INSTANTIATE_TEST_SUITE_P(Editors, EachItemList, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(EachItemList, SaysWhatItsControlsDo) {
  open({item("One")});
  openPanel();
  EXPECT_EQ(box("txtFindItems").accessibleName(), "Find:");
  EXPECT_EQ(box("txtFindItems").placeholderText(), "Words anywhere in an item");
  EXPECT_EQ(box("txtFindItems").toolTip(), "Find items as you type (Ctrl+Shift+F)");
  EXPECT_EQ(table().accessibleName(), "Items");
  EXPECT_EQ(table().horizontalHeader()->toolTip(),
            "Click: order by this column. Right click: choose columns");
  const std::tuple<const char*, const char*, const char*> buttons[] = {
      {"chkDeleted", "Deleted", "List deleted items, too, struck through"},
      {"cmdColumns", "Columns", "Choose the columns and the order"},
      {"cmdShowAll", "Show All", "List all items again (Escape)"}};
  for (const auto& [name, caption, toolTip] : buttons) {
    EXPECT_EQ(control<QAbstractButton>(name).text(), caption);
    EXPECT_EQ(control<QAbstractButton>(name).accessibleName(), caption);
    EXPECT_EQ(control<QAbstractButton>(name).toolTip(), toolTip);
  }
}

TEST_P(EachItemList, ItsLinesAreAsWideAsItsTable) {
  open({item("One")});
  openPanel();
  showOnly(1);
  const auto placeOf = [](const QWidget& control) {
    return QRect(control.mapToGlobal(QPoint(0, 0)), control.size());
  };
  QLabel* caption = nullptr;
  for (auto* label : form().findChildren<QLabel*>())
    if (label->buddy() == &box("txtFindItems")) caption = label;
  ASSERT_NE(caption, nullptr);
  EXPECT_EQ(caption->text(), "Find:");
  const QRect wide = placeOf(table());
  for (const QWidget* first : {static_cast<QWidget*>(caption), &control<QWidget>("lblOnly"),
                               &control<QWidget>("lblItems")})
    EXPECT_EQ(placeOf(*first).left(), wide.left()) << first->objectName().toStdString();
  for (const char* last : {"cmdColumns", "cmdShowAll", "lblItems"})
    EXPECT_EQ(placeOf(control<QWidget>(last)).right(), wide.right()) << last;
}

TEST_P(EachItemList, ItsColumnsHaveRoomForUsualTexts) {
  open({item("One")});
  openPanel();
  form().resize(2500, 900);
  const int count = rows().columnCount();
  for (int section = 0; section < count; ++section) {
    const QString header = rows().headerData(section, Qt::Horizontal).toString();
    const bool isText = rows()
                            .data(rows().index(0, section), Qt::TextAlignmentRole)
                            .value<Qt::Alignment>()
                            .testFlag(Qt::AlignLeft);
    const char* text = section == 0 ? "32767" : isText ? "A title of usual length" : "11/21/2026";
    EXPECT_GE(table().columnWidth(section), table().fontMetrics().horizontalAdvance(text))
        << header.toStdString();
  }
}

TEST_P(EachItemList, ItsCellsHaveNoRowsBelow) {
  open({item("One")});
  openPanel();
  EXPECT_GT(rows().columnCount(), 1);
  EXPECT_EQ(rows().rowCount(rows().index(0, 0)), 0);
  EXPECT_EQ(rows().columnCount(rows().index(0, 0)), 0);
}

TEST_P(EachItemList, ListsTheItemsOfABarAlone) {
  open({item("Ann"), item(kind().marker()), item("Bob"), item("Anna")});
  openPanel();
  showOnly(3);
  EXPECT_EQ(listed(), (Texts{"Ann", "Bob", "Anna"}));
  EXPECT_TRUE(control<QWidget>("lblOnly").isVisible());
  EXPECT_TRUE(told().starts_with("3 of 3 ")) << told();
  findItems("ann");
  EXPECT_EQ(listed(), (Texts{"Ann", "Anna"}));
  key(Qt::Key_Escape);
  EXPECT_EQ(listed(), (Texts{"Ann", "Bob", "Anna"}));
  EXPECT_TRUE(control<QWidget>("lblOnly").isVisible());
  key(Qt::Key_Escape);
  EXPECT_FALSE(control<QWidget>("lblOnly").isVisible());
  EXPECT_TRUE(told().starts_with("3 ")) << told();
  EXPECT_TRUE(box("txtFindItems").hasFocus());
  key(Qt::Key_Escape);
  EXPECT_FALSE(box("txtFindItems").hasFocus());
}

TEST_P(EachItemList, ShowAllListsAllItemsAgain) {
  open({item("One"), item("Two")});
  openPanel();
  showOnly(2);
  EXPECT_TRUE(told().starts_with("2 of 2 ")) << told();
  button("cmdShowAll").setFocus();
  QTest::keyClick(&button("cmdShowAll"), Qt::Key_Space);
  EXPECT_TRUE(told().starts_with("2 ")) << told();
  EXPECT_FALSE(told().starts_with("2 of ")) << told();
  EXPECT_TRUE(box("txtFindItems").hasFocus());
  showOnly(2);
  table().setFocus();
  button("cmdShowAll").click();
  EXPECT_TRUE(table().hasFocus());
  showOnly(2);
  openHere(collectionPath());
  read();
  EXPECT_FALSE(control<QWidget>("lblOnly").isVisible());
  EXPECT_FALSE(told().starts_with("2 of ")) << told();
}

TEST_P(EachItemList, HidesDeletedItemsUnlessAskedForThem) {
  const std::string deleted(kind().marker());
  open({item("One"), item(deleted), item("Three")});
  openPanel();
  EXPECT_EQ(listed(), (Texts{"One", "Three"}));
  EXPECT_TRUE(told().ends_with(", 1 deleted")) << told();
  tick("chkDeleted");
  EXPECT_EQ(listed(), (Texts{"One", deleted, "Three"}));
  EXPECT_TRUE(rows().data(rows().index(1, 1), Qt::FontRole).value<QFont>().strikeOut());
  EXPECT_FALSE(rows().data(rows().index(0, 1), Qt::FontRole).isValid());
  EXPECT_EQ(rows().data(rows().index(1, 1), Qt::AccessibleDescriptionRole), "deleted");
  EXPECT_EQ(rows().data(rows().index(0, 1), Qt::AccessibleDescriptionRole), "");
}

TEST_P(EachItemList, HeadersStandOverTheirColumns) {
  open({item("One")});
  openPanel();
  for (int section = 0; section < rows().columnCount(); ++section) {
    const QVariant header = rows().headerData(section, Qt::Horizontal, Qt::TextAlignmentRole);
    EXPECT_EQ(header, rows().data(rows().index(0, section), Qt::TextAlignmentRole)) << section;
    EXPECT_TRUE(header.value<Qt::Alignment>().testFlag(Qt::AlignVCenter)) << section;
  }
  const auto alignment = [&](int section) {
    return rows().headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
  };
  EXPECT_TRUE(alignment(0).testFlag(Qt::AlignRight)) << "the number";
  EXPECT_TRUE(alignment(1).testFlag(Qt::AlignLeft)) << "a text";
}

TEST_P(EachItemList, FindsItemsAsTheUserTypes) {
  open({item("One"), item("Two"), item("Dv\xF8r\xE1k")});
  findItems("DVOR");
  EXPECT_EQ(listed(), Texts{"Dv\xC3\xB8r\xC3\xA1k"});
  EXPECT_TRUE(told().starts_with("1 of 3 ")) << told();
  key(Qt::Key_Escape);
  EXPECT_EQ(shown("txtFindItems"), "");
  EXPECT_EQ(listed().size(), 3U);
  type("txtFindItems", "o");
  EXPECT_EQ(listed(), (Texts{"One", "Two", "Dv\xC3\xB8r\xC3\xA1k"}));
  type("txtFindItems", "o nowhere");
  EXPECT_EQ(listed(), Texts{});
  EXPECT_EQ(told(), "No item has all of this");
  type("txtFindItems", "two");
  key(Qt::Key_Down);
  EXPECT_TRUE(table().hasFocus());
  key(Qt::Key_Return);
  EXPECT_EQ(first(), "Two");
  key(Qt::Key_Escape);
  EXPECT_TRUE(box("txtFindItems").hasFocus());
  key(Qt::Key_Escape);
  key(Qt::Key_Escape);
  EXPECT_TRUE(box(kind().firstBox()).hasFocus());
}

TEST_P(EachItemList, WordsThatFindTheSameItemsDrawEveryColumnAgain) {
  open({item("One"), item("Once")});
  openPanel();
  bool isWhole = false;
  const QObject connected;
  QObject::connect(
      &rows(), &QAbstractItemModel::dataChanged, &connected,
      [&](const QModelIndex& from, const QModelIndex& to) {
        isWhole = isWhole || (from == rows().index(0, 0) &&
                              to == rows().index(rows().rowCount() - 1, rows().columnCount() - 1));
      });
  findItems("on");
  EXPECT_EQ(listed().size(), 2U);
  EXPECT_TRUE(isWhole);
}

TEST_P(EachItemList, DownGoesToTheFirstItemWhereTheShownOneIsNotListed) {
  open({item("One"), item("Two"), item("Two again")});
  findItems("two");
  key(Qt::Key_Down);
  EXPECT_TRUE(table().selectionModel()->isRowSelected(0));
  key(Qt::Key_Return);
  EXPECT_EQ(first(), "Two");
}

TEST_P(EachItemList, AClickClearsTheWords) {
  open({item("One"), item("Two")});
  findItems("two");
  EXPECT_EQ(listed(), Texts{"Two"});
  auto* clear = box("txtFindItems").findChild<QToolButton*>();
  ASSERT_NE(clear, nullptr);
  QTest::mouseClick(clear, Qt::LeftButton);
  EXPECT_EQ(shown("txtFindItems"), "");
  EXPECT_EQ(listed(), (Texts{"One", "Two"}));
}

TEST_P(EachItemList, TabLeavesTheTable) {
  open({item("One"), item("Two")});
  openPanel();
  for (const auto modifiers : {Qt::NoModifier, Qt::ShiftModifier}) {
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Tab, modifiers);
    EXPECT_FALSE(table().hasFocus());
  }
}

TEST_P(EachItemList, GoesFromMatchToMatch) {
  open({item("Ann"), item("Bob"), item("Anna")});
  findItems("ann");
  key(Qt::Key_F3);
  EXPECT_EQ(first(), "Anna");
  key(Qt::Key_F3);
  EXPECT_EQ(first(), "Ann");
}

TEST_P(EachItemList, OrdersTheViewAndNotTheFile) {
  open({item("Vol. 10"), item("vol. 2"), item("Alpha")});
  openPanel();
  const std::string before = bytes();
  clickHeader(1);
  EXPECT_EQ(listed(), (Texts{"Alpha", "vol. 2", "Vol. 10"}));
  EXPECT_EQ(chosenRow(), 2);
  type(kind().firstBox(), "Beta");
  press(kind().buttons.write);
  EXPECT_EQ(listed(), (Texts{"Alpha", "Beta", "vol. 2"}));
  clickHeader(1);
  EXPECT_EQ(listed(), (Texts{"vol. 2", "Beta", "Alpha"}));
  press("cmdUndoWrite");
  clickHeader(0);
  EXPECT_EQ(listed(), (Texts{"Vol. 10", "vol. 2", "Alpha"}));
  EXPECT_EQ(bytes(), before);
}

TEST_P(EachItemList, OrdersByTheMenuAsByAHeader) {
  open({item("B"), item("C"), item("A")});
  openPanel();
  Q_EMIT control<QMenu>("ColumnMenu").aboutToShow();
  const auto& menu = control<QMenu>("OrderMenu");
  EXPECT_EQ(menu.title(), "Order By");
  const QList<QAction*> entries = control<QMenu>("ColumnMenu").actions();
  EXPECT_EQ(entries.last(), menu.menuAction());
  EXPECT_TRUE(entries.at(entries.size() - 2)->isSeparator());
  QStringList names;
  for (const QAction* action : menu.actions()) names << action->text();
  QStringList headers;
  for (int section = 0; section < rows().columnCount(); ++section)
    headers << rows().headerData(section, Qt::Horizontal).toString();
  EXPECT_EQ(names, headers);
  EXPECT_EQ(names.first(), "No.");
  menu.actions().at(1)->trigger();
  read();
  EXPECT_EQ(listed(), (Texts{"A", "B", "C"}));
  menu.actions().at(1)->trigger();
  read();
  EXPECT_EQ(listed(), (Texts{"C", "B", "A"}));
  menu.actions().at(0)->trigger();
  read();
  EXPECT_EQ(listed(), (Texts{"B", "C", "A"}));
}

TEST_P(EachItemList, SaysWhyItCannotOrderAndTriesAgain) {
  open({item("Two"), item("One")});
  openPanel();
  std::filesystem::rename(collectionPath(), path("away"));
  clickHeader(1);
  EXPECT_TRUE(told().starts_with("Not all items could be read: ")) << told();
  EXPECT_EQ(listed(), (Texts{"Two", "One"}));
  std::filesystem::rename(path("away"), collectionPath());
  press(kind().buttons.next);
  read();
  EXPECT_EQ(listed(), (Texts{"One", "Two"}));
  EXPECT_TRUE(told().starts_with("2 ")) << told();
}

TEST_P(EachItemList, ShowsTheColumnsThatTheUserChooses) {
  PanelSettings settings(QString::fromStdString(path("panel.ini")));
  open({item("One")});
  program_->setPanelSettings(settings);
  openPanel();
  const int before = rows().columnCount();
  auto& menu = control<QMenu>("ColumnMenu");
  Q_EMIT menu.aboutToShow();
  QAction* first = menu.actions().constFirst();
  ASSERT_TRUE(first->isChecked());
  first->trigger();
  EXPECT_EQ(rows().columnCount(), before - 1);
  QTest::keyClick(&form(), Qt::Key_F9);
  openPanel();
  EXPECT_EQ(rows().columnCount(), before - 1);
}

TEST_P(EachItemList, CopiesWhatIsSelectedForASpreadsheet) {
  open({item("One"), item("Two"), item("Three")});
  openPanel();
  clickRow(0);
  clickRow(2, Qt::ControlModifier);
  EXPECT_EQ(first(), "One");
  EXPECT_TRUE(told().starts_with("2 items selected")) << told();
  table().setFocus();
  key(Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  ASSERT_EQ(lines.size(), 4);
  EXPECT_TRUE(lines[0].startsWith(QStringLiteral("No.\t")));
  EXPECT_TRUE(lines[1].startsWith(QStringLiteral("1\tOne\t")));
  EXPECT_TRUE(lines[2].startsWith(QStringLiteral("3\tThree\t")));
  EXPECT_EQ(lines[0].count(QLatin1Char('\t')), lines[1].count(QLatin1Char('\t')));
}

TEST_P(EachItemList, AnEmptyCollectionSaysSo) {
  open({});
  openPanel();
  EXPECT_EQ(told(), "No items yet");
  EXPECT_EQ(listed(), Texts{});
}

TEST_P(EachItemList, ACopiedCellIsOneCellAndOneLine) {
  open({item("Line\r\nand\tcell")});
  openPanel();
  table().selectAll();
  table().setFocus();
  key(Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
  ASSERT_EQ(lines.size(), 3);
  EXPECT_TRUE(lines[1].startsWith(QStringLiteral("1\tLine  and cell\t"))) << lines[1].toStdString();
  EXPECT_EQ(lines[2], "");
}

class MusicItemList : public PanelTest {
 protected:
  MusicItemList() : PanelTest(kMusic) {}
};

TEST_F(MusicItemList, FindsSongs) {
  open({item("One"), item("Two")});
  findItems("two 39");
  EXPECT_EQ(listed(), Texts{"Two"});
}

TEST_F(MusicItemList, SumsWhatIsSelected) {
  open({item("One"), item("Two")});
  openPanel();
  table().selectAll();
  EXPECT_EQ(told(), "2 items selected: Aquisiton Cost 3, Current Cost 3");
}

}  // namespace
}  // namespace quillbox::test
