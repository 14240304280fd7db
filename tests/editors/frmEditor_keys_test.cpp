// Commands by keys, besides the access keys of their captions.

#include <QShortcut>
#include <set>

#include "editors/frmEditor_commands.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

struct Keys {
  const char* keys;
  Command command;
};

constexpr Keys kKeys[] = {
    {"Ctrl+S", Command::write},
    {"Ctrl+PgUp", Command::previous},
    {"Ctrl+PgDown", Command::next},
    {"Ctrl+G", Command::goTo},
    {"Ctrl+F", Command::search},
    {"Ctrl+N", Command::clear},
    {"Ctrl+Shift+Del", Command::deleteItem},
    {"Ctrl+O", Command::openFile},
    {"Ctrl+Shift+N", Command::newFile},
    {"Ctrl+P", Command::printList},
    {"Ctrl+Shift+E", Command::exportData},
    {"Ctrl+L", Command::editSubList},
    {"Ctrl+W", Command::exitCollection},
    {"Ctrl+D", Command::duplicate},
    {"Ctrl+Shift+B", Command::bringBack},
};

TEST(CommandKeys, AreTheirOwn) {
  std::set<QString> all;
  for (const auto& [keys, command] : kKeys) {
    EXPECT_EQ(keysOf(command), QKeySequence(QLatin1String(keys))) << keys;
    EXPECT_TRUE(all.insert(keysOf(command).toString()).second) << keys;
  }
}

/// Undo and redo, the clipboard, and keys that move, select or delete by letters, words and lines.
TEST(CommandKeys, LeaveATextBoxItsKeys) {
  for (int key = QKeySequence::UnknownKey; key <= QKeySequence::Cancel; ++key) {
    const auto standard = static_cast<QKeySequence::StandardKey>(key);
    const bool edits =
        standard == QKeySequence::Undo || standard == QKeySequence::Redo ||
        standard == QKeySequence::Cut || standard == QKeySequence::Copy ||
        standard == QKeySequence::Paste || standard == QKeySequence::SelectAll ||
        (standard >= QKeySequence::MoveToNextChar && standard <= QKeySequence::DeleteEndOfLine);
    if (!edits) continue;
    for (const QKeySequence& used : QKeySequence::keyBindings(standard))
      for (const auto& [keys, command] : kKeys)
        EXPECT_NE(keysOf(command), used) << keys << " edits text: " << key;
  }
}

class EachKeys : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  EachKeys() : EditorTest(GetParam()) {}

  /// In a text box, where the focus usually is.
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(form().focusWidget(), key, modifiers);
    QApplication::processEvents();
  }
  static constexpr Qt::KeyboardModifiers kShifted = Qt::ControlModifier | Qt::ShiftModifier;
};

TEST_P(EachKeys, DoWhatTheButtonsDo) {
  open({item("One"), item("Two")});
  key(Qt::Key_PageDown);
  EXPECT_EQ(first(), "Two");
  key(Qt::Key_PageUp);
  EXPECT_EQ(first(), "One");
  type(kind().otherBox(), "Typed");
  key(Qt::Key_S);
  EXPECT_NE(bytes().find("Typed"), std::string::npos);
  desktop_.expectInput("Record #", "Go To Record", "2");
  key(Qt::Key_G);
  EXPECT_EQ(first(), "Two");
  key(Qt::Key_N);
  EXPECT_EQ(first(), "");
  EXPECT_EQ(state_->CurRec, kNewItem);
}

TEST_P(EachKeys, AreDisabledWithTheirButtons) {
  open({item("One")});
  ASSERT_FALSE(button(kind().buttons.next).isEnabled());
  type(kind().otherBox(), "Typed");
  key(Qt::Key_PageDown);
  key(Qt::Key_PageUp);
  EXPECT_EQ(other(), "Typed");
}

TEST_P(EachKeys, Delete) {
  if (kind().buttons.remove == nullptr) GTEST_SKIP() << "nothing is deleted here";
  open({item("One"), item("Two")});
  desktop_.expectQuestion(kind().titles.question, "Do you really want to delete this?!",
                          Answer::no);
  if (kind().titles.aborted != nullptr) desktop_.expectMessage(kind().titles.aborted, "Aborted.");
  key(Qt::Key_Delete, kShifted);
}

TEST_P(EachKeys, ChooseMenuItems) {
  open({item("One"), item("Two")});
  key(Qt::Key_F);
  EXPECT_EQ(formName(), kind().search.formName);
  leaveSideForm(kind().search);
  if (*kind().list.action != '\0') {
    key(Qt::Key_L);
    EXPECT_NE(formName(), kind().formName);
    key(Qt::Key_W);
    EXPECT_EQ(formName(), kind().formName);
  }
  desktop_.expectPrint(std::nullopt);
  key(Qt::Key_P);
  desktop_.expectOpen("Open Collection", kOpenFilter, std::nullopt);
  key(Qt::Key_O);
  openBytes(bytes());
  key(Qt::Key_W);
  EXPECT_EQ(formName(), "frmBegin2");
  openBytes(bytes());
  key(Qt::Key_N, kShifted);
  EXPECT_EQ(formName(), "frmNewCollection");
}

TEST_P(EachKeys, AreToldByToolTips) {
  open({item("One")});
  for (const QPushButton* made : form().findChildren<QPushButton*>()) {
    EXPECT_TRUE(made->toolTip().contains(QStringLiteral("(Ctrl+"))) << made->text().toStdString();
    EXPECT_FALSE(made->toolTip().startsWith(QLatin1Char(' '))) << made->text().toStdString();
  }
  for (const QAction* made : form().findChildren<QAction*>())
    if (made->text().contains(QStringLiteral("Open"))) {
      EXPECT_EQ(made->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
    }
}

TEST_P(EachKeys, NeverClash) {
  open({item("One")});
  std::set<QString> all;
  for (const QShortcut* made : form().findChildren<QShortcut*>())
    EXPECT_TRUE(all.insert(made->key().toString()).second) << made->key().toString().toStdString();
  for (const QAction* made : form().findChildren<QAction*>())
    if (!made->shortcut().isEmpty()) {
      EXPECT_TRUE(all.insert(made->shortcut().toString()).second) << made->text().toStdString();
    }
  EXPECT_GE(all.size(), std::size(kKeys) - 3);  // not every kind deletes, has a list and exports
}

INSTANTIATE_TEST_SUITE_P(Editors, EachKeys, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace quillbox::test
