// The panel with all items of a collection, beside the form of each editor.

#include <QAccessible>
#include <QSplitter>
#include <QTabBar>
#include <QToolButton>
#include <filesystem>

#include "forms/panel_settings.h"
#include "support/family_files.h"
#include "support/panel_fixture.h"

namespace quillbox::test {
namespace {

class EachPanel : public PanelTest, public testing::WithParamInterface<ModelKind> {
 protected:
  EachPanel() : PanelTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Editors, EachPanel, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(EachPanel, IsClosedAtFirstAndListsAllItems) {
  open({item("One"), item("Two"), item("Three")});
  const QWidget* const focus = form().focusWidget();
  EXPECT_FALSE(isPanelOpen());
  openPanel();
  EXPECT_EQ(listed(), (Texts{"One", "Two", "Three"}));
  EXPECT_EQ(cell(1, 0), "2");
  EXPECT_EQ(chosenRow(), 0);
  EXPECT_TRUE(told().starts_with("3 ")) << told();
  EXPECT_EQ(form().focusWidget(), focus);
  EXPECT_TRUE(control<QToolButton>("cmdPanel").isChecked());
  QTest::keyClick(&form(), Qt::Key_F9);
  EXPECT_FALSE(isPanelOpen());
  EXPECT_EQ(form().focusWidget(), focus);
  control<QToolButton>("cmdPanel").click();
  EXPECT_TRUE(isPanelOpen());
}

TEST_P(EachPanel, HasATabForEachView) {
  open({item("One")});
  openPanel();
  QStringList tabs = {"Items", "Doubles", "Summary"};
  if (kind().isMusic()) tabs.insert(1, "Loans");
  if (kind().isMedia()) tabs = {"Items", "Preview", "Missing Files", "Doubles", "Summary"};
  const auto& panel = control<QTabWidget>("Panel");
  QStringList shown;
  for (int tab = 0; tab < panel.count(); ++tab) shown << panel.tabText(tab);
  EXPECT_EQ(shown, tabs) << shown.join('|').toStdString();
  EXPECT_EQ(panel.currentIndex(), 0);
  EXPECT_EQ(panel.accessibleName(), "All Items");
}

TEST_P(EachPanel, ItsViewsFollowTheCollection) {
  open({item("One"), item("Two")});
  openPanel();
  auto& panel = control<QTabWidget>("Panel");
  const auto summed = [&](const char* start) {
    return waitFor([&] { return label("lblSummary").starts_with(start); });
  };
  panel.setCurrentIndex(panel.count() - 1);
  EXPECT_TRUE(summed("2 "));
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  press(kind().buttons.write);
  EXPECT_TRUE(summed("3 "));
  panel.setCurrentIndex(0);
  press(kind().buttons.clear);
  type(kind().firstBox(), "Newer");
  press(kind().buttons.write);
  panel.setCurrentIndex(panel.count() - 1);
  EXPECT_TRUE(summed("4 "));
  writeFile(collectionPath(), collection({item("Three")}));
  openHere(collectionPath());
  EXPECT_TRUE(summed("1 "));
}

TEST_P(EachPanel, GivesTheRoomBackThatItTook) {
  open({item("One")});
  const QSize before = form().size();
  openPanel();
  QTest::keyClick(&form(), Qt::Key_F9);
  EXPECT_EQ(form().size(), before);
}

TEST_P(EachPanel, HasRoomForAllItsTabsAndForManyRows) {
  open({item("One")});
  openPanel();
  auto& panel = control<QTabWidget>("Panel");
  EXPECT_GE(panel.minimumSizeHint().width(), panel.tabBar()->sizeHint().width());
  EXPECT_GE(panel.sizeHint().height(), 20 * form().fontMetrics().lineSpacing());
  form().resize(2500, 900);
  EXPECT_GE(panel.width(), panel.tabBar()->sizeHint().width());
}

TEST_P(EachPanel, StandsBesideTheFormWhereTheWindowIsWideEnough) {
  open({item("One")});
  openPanel();
  const auto& split = *form().findChild<QSplitter*>();
  form().resize(1900, 700);
  EXPECT_EQ(split.orientation(), Qt::Horizontal);
  EXPECT_GE(split.sizes().at(0), split.widget(0)->sizeHint().width());
  form().resize(600, 700);
  EXPECT_EQ(split.orientation(), Qt::Vertical);
  EXPECT_GT(split.sizes().at(1), 100);
}

/// With letters so large that form and panel do not both fit on the screen.
TEST_P(EachPanel, TakesTheFormsPlaceOnASmallScreen) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSizeF(4 * QFontInfo(before).pointSizeF());
  QApplication::setFont(large);
  open({item("One"), item("Two")});
  openPanel();
  EXPECT_FALSE(box(kind().firstBox()).isVisible());
  table().setFocus();
  key(Qt::Key_Down);
  key(Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_FALSE(isPanelOpen());
  EXPECT_TRUE(box(kind().firstBox()).isVisible());
  EXPECT_EQ(first(), "Two");
  QApplication::setFont(before);
}

TEST_P(EachPanel, IsRememberedForItsKindAlone) {
  PanelSettings settings(QString::fromStdString(path("panel.ini")));
  open({item("One")});
  program_->setPanelSettings(settings);
  EXPECT_FALSE(settings.isOpen(kind().row()));
  openPanel();
  for (const CollectionKind& each : collectionKinds())
    EXPECT_EQ(settings.isOpen(each), &each == &kind().row()) << each.extension;
  openHere(collectionPath());
  EXPECT_TRUE(isPanelOpen());
  QTest::keyClick(&form(), Qt::Key_F9);
  openHere(collectionPath());
  EXPECT_FALSE(isPanelOpen());
}

TEST_P(EachPanel, ShowsAnItemAsGoToDoes) {
  open({item("One"), item("Two"), item("Three")});
  openPanel();
  type(kind().otherBox(), "Typed");
  clickRow(2);
  EXPECT_EQ(first(), "Three");
  EXPECT_EQ(state_->CurRec, 3);
  EXPECT_EQ(label("lblStatus"), "Item 1 was left with text that is not written");
  table().setFocus();
  key(Qt::Key_Up);
  EXPECT_EQ(first(), "Three");
  key(Qt::Key_Return);
  EXPECT_EQ(first(), "Two");
  EXPECT_EQ(bytes(), collection({item("One"), item("Two"), item("Three")}));
}

TEST_P(EachPanel, MarksTheItemThatTheFormShows) {
  open({item("One"), item("Two"), item("Three")});
  openPanel();
  press(kind().buttons.next);
  EXPECT_EQ(chosenRow(), 1);
  press(kind().buttons.previous);
  EXPECT_EQ(chosenRow(), 0);
  press(kind().buttons.clear);
  EXPECT_EQ(chosenRow(), -1);
}

TEST_P(EachPanel, ShowsAtOnceWhatIsWritten) {
  open({item("One"), item("Two")});
  openPanel();
  type(kind().firstBox(), "Changed");
  press(kind().buttons.write);
  EXPECT_EQ(listed(), (Texts{"Changed", "Two"}));
  press("cmdUndoWrite");
  EXPECT_EQ(listed(), (Texts{"One", "Two"}));
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  press(kind().buttons.write);
  EXPECT_EQ(listed(), (Texts{"One", "Two", "New"}));
  EXPECT_TRUE(told().starts_with("3 ")) << told();
}

TEST_P(EachPanel, ShowsWhatAFailedWriteHasLeftInTheFile) {
  open({item("One"), item("Two")});
  openPanel();
  type(kind().firstBox(), "Changed");
  desktop_.tolerateMessages = true;
  files_.shortWrites = true;
  files_.failNth(FileOperation::write, kind().skipsDeleted() ? 1 : 0, ErrorNumber::diskFull);
  press(kind().buttons.write);
  ASSERT_TRUE(files_.hasFailed());
  ASSERT_NE(bytes().find("Changed"), std::string::npos) << "half of the item is written";
  EXPECT_EQ(listed(), (Texts{"Changed", "Two"}));
  press(kind().buttons.write);
  EXPECT_EQ(listed(), (Texts{"Changed", "Two"}));
}

TEST_P(EachPanel, ListsWhatIsDeletedNoMore) {
  if (kind().buttons.remove == nullptr) GTEST_SKIP() << "nothing is deleted here";
  open({item("One"), item("Two")});
  openPanel();
  desktop_.expectQuestion(kind().titles.question, "Do you really want to delete this?!",
                          Answer::yes);
  if (kind().titles.deleted != nullptr) desktop_.expectMessage(kind().titles.deleted, "Deleted.");
  press(kind().buttons.remove);
  EXPECT_EQ(listed(), (Texts{"Two"}));
  press("cmdUndoDelete");
  EXPECT_EQ(listed(), (Texts{"One", "Two"}));
}

TEST_P(EachPanel, SaysWhyItemsCannotBeRead) {
  open({item("One"), item("Two")});
  std::filesystem::rename(collectionPath(), path("away"));
  openPanel();
  EXPECT_TRUE(told().starts_with("Not all items could be read: ")) << told();
  EXPECT_NE(told().find("mine."), std::string::npos);
  std::filesystem::rename(path("away"), collectionPath());
  press(kind().buttons.next);
  read();
  EXPECT_EQ(listed(), (Texts{"One", "Two"}));
}

/// Another program may change the file in any way while its items are listed.
TEST_P(EachPanel, StaysWithAFileThatGrowsIsCutAndVanishes) {
  constexpr int count = 300;
  std::string many = familyHeader(count, kind().fileType());
  many.resize(kind().recordLength);
  for (int nth = 1; nth <= count; ++nth) many += item(std::to_string(nth));
  openBytes(many);
  openPanel();
  const auto whole = std::filesystem::file_size(collectionPath());
  std::filesystem::resize_file(collectionPath(), whole + kind().recordLength);
  EXPECT_EQ(rows().rowCount(), count);
  EXPECT_EQ(cell(count - 1, 1), "300");

  std::filesystem::resize_file(collectionPath(), whole / 2);
  EXPECT_EQ(cell(count - 2, 1), "") << "what the file does not hold is blank";
  EXPECT_EQ(cell(count - 1, 1), "300") << "what was shown stays";
  findItems("299");
  EXPECT_EQ(rows().rowCount(), 1) << "what was read is found";
  key(Qt::Key_Escape);

  std::filesystem::rename(collectionPath(), path("away"));
  EXPECT_EQ(cell(100, 1), "");
  EXPECT_EQ(cell(0, 1), "1");
  key(Qt::Key_F9);
  openPanel();
  EXPECT_TRUE(told().starts_with("Not all items could be read: ")) << told();
  std::filesystem::rename(path("away"), collectionPath());
  press(kind().buttons.next);
  read();
  EXPECT_EQ(cell(1, 1), "2");
}

TEST_P(EachPanel, ReadsNothingWhileACommandRuns) {
  open({item("One"), item("Two")});
  control<QToolButton>("cmdPanel").click();
  std::size_t operations = 1;
  desktop_.onBox = [&](const std::string&, const std::string&) {
    files_.forget();
    QTest::qWait(100);
    operations = files_.operations().size();
  };
  desktop_.expectInput("Record #", "Go To Record", std::nullopt);
  button(kind().buttons.goTo).click();
  EXPECT_EQ(operations, 0U);
  desktop_.onBox = nullptr;
  read();
  EXPECT_EQ(listed(), (Texts{"One", "Two"}));
}

TEST_P(EachPanel, ListsTheCollectionThatIsOpen) {
  open({item("One"), item("Two")});
  openPanel();
  writeFile(collectionPath(), collection({item("Three"), item("Four"), item("Five")}));
  openHere(collectionPath());
  read();
  EXPECT_EQ(listed(), (Texts{"Three", "Four", "Five"}));
}

TEST_P(EachPanel, ItsButtonIsFoundByAssistiveTechnologyAtTheEndOfTheMenuBar) {
  open({item("One")});
  const auto& button = control<QToolButton>("cmdPanel");
  const QAccessibleInterface& window = *QAccessible::queryAccessibleInterface(&form());
  bool isFound = false;
  for (int nth = 0; nth < window.childCount(); ++nth)
    isFound = isFound || window.child(nth)->object() == &button;
  EXPECT_TRUE(isFound);
  for (const int width : {700, 1500}) {
    form().resize(width, form().height());
    QApplication::processEvents();
    const QRect bar = form().menuWidget()->geometry();
    EXPECT_TRUE(bar.contains(button.geometry()));
    EXPECT_LE(bar.right() - button.geometry().right(), 2);
  }
  QTest::mouseClick(form().childAt(button.geometry().center()), Qt::LeftButton);
  EXPECT_TRUE(isPanelOpen());
  auto& told = *QAccessible::queryAccessibleInterface(&control<QToolButton>("cmdPanel"));
  for (const bool opens : {false, true}) {
    told.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(isPanelOpen(), opens);
    EXPECT_EQ(button.isChecked(), opens);
  }
}

TEST_P(EachPanel, EverythingInItHasAName) {
  open({item("One")});
  openPanel();
  auto& panel = control<QTabWidget>("Panel");
  for (const QWidget* each : panel.findChildren<QWidget*>()) {
    const bool takesKeys = each->isVisible() && each->focusPolicy() != Qt::NoFocus &&
                           !each->objectName().startsWith(QStringLiteral("qt_"));
    if (takesKeys && qobject_cast<const QTabBar*>(each) == nullptr &&
        qobject_cast<const QHeaderView*>(each) == nullptr) {
      EXPECT_FALSE(each->accessibleName().isEmpty()) << each->metaObject()->className();
    }
  }
}

class MusicPanel : public PanelTest {
 protected:
  MusicPanel() : PanelTest(kMusic) {}
};

TEST_F(MusicPanel, ListsTheOrderOfASort) {
  open({item("B"), item("A")});
  openPanel();
  openSideForm(kind().sort);
  tick((std::string(kind().sort.boxes) + "_0").c_str());
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  press(kind().sort.begin);
  read();
  EXPECT_EQ(listed(), (Texts{"A", "B"}));
}

}  // namespace
}  // namespace quillbox::test
