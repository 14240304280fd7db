#include "forms/list_paste.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "forms/text_box.h"
#include "support/keys.h"

namespace quillbox::test {
namespace {

constexpr int kWidth = 10;
constexpr std::size_t kBoxes = 4;

using Texts = std::vector<std::string>;

/// A list of four boxes, and one beside it.
class ListPasteTest : public testing::Test {
 protected:
  ListPasteTest() {
    auto* column = new QVBoxLayout(&window_);
    for (std::size_t box = 0; box < kBoxes; ++box) boxes_.push_back(new TextBox(kWidth));
    beside_ = new TextBox(kWidth);
    for (TextBox* box : boxes_) column->addWidget(box);
    column->addWidget(beside_);
    paste_ = std::make_unique<ListPaste>(boxes_, [this](TextBox& into, const QString& text) {
      saidFor_ = &into;
      said_ = text.toStdString();
    });
    paste_->alsoIn(*beside_, 1);
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }
  ~ListPasteTest() override { QApplication::clipboard()->clear(); }

  void paste(TextBox& into, const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    into.setFocus(Qt::MouseFocusReason);  // selects nothing
    QTest::keyClick(&into, Qt::Key_V, Qt::ControlModifier);
  }
  static void undo(TextBox& box) { QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier); }
  Texts texts() const {
    Texts all;
    for (const TextBox* box : boxes_) all.push_back(box->text().trimmed().toStdString());
    return all;
  }
  QMenu& menuOf(TextBox& box) {
    QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, box.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&box, &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) throw std::runtime_error("no menu");
    return *menu;
  }

  /// What the box does with dropped data.
  static Qt::DropAction drop(TextBox& box, const QMimeData& data) {
    const auto actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enters({5, 5}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &enters);
    QDropEvent dropped({5, 5}, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &dropped);
    return dropped.dropAction();
  }
  static QAction& itemOf(const QMenu& menu, const char* text) {
    for (QAction* action : menu.actions())
      if (action->text().startsWith(text)) return *action;
    throw std::runtime_error("no such item");
  }

  QWidget window_;
  std::vector<TextBox*> boxes_;
  TextBox* beside_;
  std::unique_ptr<ListPaste> paste_;
  TextBox* saidFor_ = nullptr;
  std::string said_;
};

TEST_F(ListPasteTest, PutsTitlesIntoTheEmptyBoxesFromThatOneOn) {
  boxes_[2]->setText("taken");
  paste(*boxes_[1], "1. a 3:20\n\n2. b 4:05");
  EXPECT_EQ(texts(), (Texts{"", "a", "taken", "b"}));
  EXPECT_EQ(saidFor_, boxes_[1]);
  EXPECT_EQ(said_, "2 lines pasted. Ctrl+Z takes them back.");
}

TEST_F(ListPasteTest, OneUndoTakesAllOfItBack) {
  boxes_[2]->setText("taken");
  paste(*boxes_[1], "a\nb");
  undo(*boxes_[1]);
  EXPECT_EQ(texts(), (Texts{"", "", "taken", ""}));
  EXPECT_EQ(said_, "");
  undo(*boxes_[1]);
  EXPECT_EQ(texts(), (Texts{"", "", "taken", ""}));
}

TEST_F(ListPasteTest, ABoxWithATextIsNotOverwritten) {
  boxes_[0]->setText("taken");
  paste(*boxes_[0], "a\nb");
  EXPECT_EQ(texts(), (Texts{"taken", "a", "b", ""}));
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"taken", "", "", ""}));
}

TEST_F(ListPasteTest, ABoxWhoseTextIsSelectedIs) {
  boxes_[0]->setText("taken");
  boxes_[1]->setText("stays");
  boxes_[0]->setFocus();
  boxes_[0]->selectAll();
  paste(*boxes_[0], "a\nb");
  EXPECT_EQ(texts(), (Texts{"a", "stays", "b", ""}));
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"taken", "stays", "", ""}));
}

TEST_F(ListPasteTest, APartOfATextIsNotGivenUp) {
  boxes_[0]->setText("taken");
  boxes_[0]->setFocus();
  boxes_[0]->setSelection(0, 2);
  paste(*boxes_[0], "a\nb");
  EXPECT_EQ(texts(), (Texts{"taken", "a", "b", ""}));
}

TEST_F(ListPasteTest, SaysWhatFoundNoPlace) {
  boxes_[3]->setText("taken");
  paste(*boxes_[1], "a\nb\nc\nd");
  EXPECT_EQ(texts(), (Texts{"", "a", "b", "taken"}));
  EXPECT_EQ(said_, "No place for 2 lines, from \"c\" on; 2 lines pasted. Ctrl+Z takes them back.");
  boxes_[2]->clear();
  paste(*boxes_[1], "e\nf");
  EXPECT_EQ(said_, "No place for 1 line, from \"f\" on; 1 line pasted. Ctrl+Z takes it back.");
  paste(*boxes_[3], "e\nf");
  EXPECT_EQ(texts(), (Texts{"", "a", "e", "taken"}));
  EXPECT_EQ(said_, "No place for 2 lines, from \"e\" on; nothing pasted.");
}

TEST_F(ListPasteTest, ABoxBesideTheListFillsItFromItsFirst) {
  beside_->setText("typed");
  paste(*beside_, "a\nb");
  EXPECT_EQ(texts(), (Texts{"", "a", "b", ""}));
  EXPECT_EQ(beside_->text(), "typed");
  undo(*beside_);
  EXPECT_EQ(texts(), (Texts{"", "", "", ""}));
  EXPECT_EQ(beside_->text(), "typed");
}

TEST_F(ListPasteTest, WhatWasChangedSinceStays) {
  paste(*boxes_[0], "a\nb\nc");
  boxes_[1]->setFocus();
  QTest::keyClicks(boxes_[1], "!");
  const std::string changed = texts()[1];
  EXPECT_NE(changed, "b");
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"", changed, "", ""}));
}

TEST_F(ListPasteTest, WhatWasTypedSinceIsUndoneFirst) {
  paste(*boxes_[0], "a\nb");
  QTest::keyClicks(boxes_[0], "xy");
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"a", "b", "", ""}));
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"", "", "", ""}));
}

TEST_F(ListPasteTest, WhatWasTypedBeforeCanStillBeUndone) {
  boxes_[0]->setFocus();
  QTest::keyClicks(boxes_[0], "typed");
  boxes_[0]->selectAll();
  paste(*boxes_[0], "a\nb");
  EXPECT_EQ(texts(), (Texts{"a", "b", "", ""}));
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"typed", "", "", ""}));
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"", "", "", ""}));
}

TEST_F(ListPasteTest, WhatIsForgottenIsNotTakenBack) {
  paste(*beside_, "a\nb");
  paste_->forget();
  undo(*beside_);
  EXPECT_EQ(texts(), (Texts{"", "a", "b", ""}));
}

TEST_F(ListPasteTest, ATextOfOneLineIsPastedAsEverWithoutItsLineBreak) {
  boxes_[0]->setText("ab");
  boxes_[0]->setCursorPosition(1);
  paste(*boxes_[0], "1. x\n");
  EXPECT_EQ(texts()[0], "a1. xb");
  paste(*boxes_[1], "plain");
  EXPECT_EQ(texts()[1], "plain");
  paste(*boxes_[2], "\n \n");
  EXPECT_EQ(boxes_[2]->text(), "");
  EXPECT_EQ(said_, "");
}

TEST_F(ListPasteTest, PaddedBoxesAreEmptyAndCanBeTypedIntoAfterwards) {
  for (TextBox* box : boxes_) box->showPadded(QString(kWidth, ' '));
  paste(*boxes_[0], "a\nb");
  EXPECT_EQ(texts(), (Texts{"a", "b", "", ""}));
  undo(*boxes_[0]);
  EXPECT_EQ(texts(), (Texts{"", "", "", ""}));
  EXPECT_EQ(boxes_[1]->text(), QString(kWidth, ' ')) << "as it was, to the blank";
  boxes_[1]->setFocus();
  QTest::keyClicks(boxes_[1], "0123456789");
  EXPECT_EQ(boxes_[1]->text(), "0123456789");
}

TEST_F(ListPasteTest, ABoxThatIsOnlyReadTakesNoListAndKeepsItsOtherKeys) {
  boxes_[0]->setText("read");
  boxes_[0]->setReadOnly(true);
  paste(*boxes_[0], "a\nb");
  EXPECT_EQ(texts(), (Texts{"read", "", "", ""}));
  EXPECT_EQ(said_, "");
  QTest::keyClick(boxes_[0], Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(boxes_[0]->selectedText(), "read");
}

TEST_F(ListPasteTest, ALongTitleIsCutAsIfItWereTyped) {
  paste(*boxes_[0], "012345678901\nb");
  EXPECT_EQ(texts(), (Texts{"0123456789", "b", "", ""}));
}

TEST_F(ListPasteTest, TakesATextByEveryWayItIsPasted) {
  const std::pair<const char*, std::function<void(TextBox&)>> ways[] = {
      {"key", [](TextBox& box) { QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier); }},
      {"other key", [](TextBox& box) { QTest::keyClick(&box, Qt::Key_Insert, Qt::ShiftModifier); }},
      {"menu",
       [this](TextBox& box) {
         QMenu& menu = menuOf(box);
         itemOf(menu, "&Paste").trigger();
         menu.close();
       }},
      {"drop",
       [](TextBox& box) {
         QMimeData data;
         data.setText(QApplication::clipboard()->text());
         EXPECT_EQ(drop(box, data), Qt::CopyAction);
       }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    for (TextBox* box : boxes_) box->clear();
    QApplication::clipboard()->setText("a\r\nb");
    boxes_[1]->setFocus();
    way(*boxes_[1]);
    EXPECT_EQ(texts(), (Texts{"", "a", "b", ""}));
  }
}

TEST_F(ListPasteTest, TheMenuPastesOneLineAndUndoesAll) {
  QApplication::clipboard()->setText("plain");
  boxes_[0]->setFocus();
  QMenu& first = menuOf(*boxes_[0]);
  itemOf(first, "&Paste").trigger();
  first.close();
  EXPECT_EQ(texts(), (Texts{"plain", "", "", ""}));
  paste(*boxes_[1], "a\nb");
  QMenu& second = menuOf(*boxes_[1]);
  ASSERT_TRUE(itemOf(second, "&Undo").isEnabled());
  itemOf(second, "&Undo").trigger();
  second.close();
  EXPECT_EQ(texts(), (Texts{"plain", "", "", ""}));
}

TEST_F(ListPasteTest, FilesAreNoList) {
  QMimeData data;
  data.setUrls({QUrl("file:///a.MCS"), QUrl("file:///b.MCS")});
  drop(*boxes_[0], data);
  EXPECT_EQ(texts()[1], "");
}

}  // namespace
}  // namespace quillbox::test
