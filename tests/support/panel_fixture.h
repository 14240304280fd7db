#pragma once

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTabWidget>
#include <QTableView>
#include <string>
#include <vector>

#include "support/form_fixture.h"

namespace quillbox::test {

/// The texts of the rows of a list, in UTF-8.
using Texts = std::vector<std::string>;

/// An editor with its panel: all items of its collection in a list, worked with mouse and keys.
class PanelTest : public EditorTest {
 protected:
  explicit PanelTest(const ModelKind& kind) : EditorTest(kind) {}

  QTableView& table() { return control<QTableView>("tblItems"); }
  QAbstractItemModel& rows() { return *table().model(); }

  /// Opens the panel, and reads everything.
  void openPanel() {
    QTest::keyClick(&form(), Qt::Key_F9);
    read();
  }
  bool isPanelOpen() { return form().findChild<QTabWidget*>(QStringLiteral("Panel")) != nullptr; }

  /// Until everything has been read.
  void read() {
    EXPECT_TRUE(waitFor([&] { return !told().ends_with(" read"); }));
    for (int turn = 0; turn < 20; ++turn) QApplication::processEvents();
  }
  /// What the panel says, and not only what it has room for.
  std::string told() { return control<QLabel>("lblItems").accessibleName().toStdString(); }

  std::string cell(int row, int column) {
    return rows().data(rows().index(row, column)).toString().toStdString();
  }
  /// The texts of the kind's first column, row by row.
  Texts listed() {
    Texts texts;
    for (int row = 0; row < rows().rowCount(); ++row) texts.push_back(cell(row, 1));
    return texts;
  }
  int chosenRow() { return table().currentIndex().row(); }

  void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QRect place = table().visualRect(rows().index(row, 1));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, place.center());
    QApplication::processEvents();
  }
  void clickHeader(int section) {
    QHeaderView& header = *table().horizontalHeader();
    const QPoint at(header.sectionViewportPosition(section) + 8, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    read();
  }
  void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(form().focusWidget(), static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  void findItems(const char* text) {
    key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    read();
    type("txtFindItems", text);
  }
};

}  // namespace quillbox::test
