#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <string>
#include <vector>

#include "panel/item_list.h"
#include "support/failing_files.h"
#include "support/overview_model.h"
#include "support/panel_fixture.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

/// The list without a form around it, which reads one item after another.
class ItemListInPieces : public testing::Test {
 protected:
  ItemListInPieces() { collection_.currentPath = folder_.path("mine.BCS"); }

  /// A collection of books of these authors.
  void put(const std::vector<std::string>& authors) {
    std::vector<std::string> items;
    for (const std::string& author : authors) items.push_back(familyItem(kBooks, author));
    writeFile(collection_.currentPath, collectionOf(kBooks, items));
  }
  void start(const std::vector<std::string>& authors) {
    put(authors);
    list_.start(static_cast<int>(authors.size()));
  }
  bool readPiece() {
    return list_.readOn([] { return true; });
  }
  void readAll() {
    while (readPiece()) {
    }
  }
  std::string told() {
    return list_.findChild<QLabel*>("lblItems")->accessibleName().toStdString();
  }
  QTableView& table() { return *list_.findChild<QTableView*>(); }
  Texts listed() {
    Texts texts;
    for (int row = 0; row < table().model()->rowCount(); ++row)
      texts.push_back(table().model()->index(row, 1).data().toString().toStdString());
    return texts;
  }

  TestFolder folder_;
  FailingFiles files_;
  OpenFiles open_{files_};
  OpenCollection collection_;
  int asked_ = 0;
  ItemList list_{{open_, collection_, kBooks.row(), overviewTexts()},
                 {.show = [](int) {},
                  .run = [](const std::function<void()>& command) { command(); },
                  .leave = [] {},
                  .moreToRead = [this] { ++asked_; }},
                 nullptr};
};

TEST_F(ItemListInPieces, ListsWhatIsReadAndSaysHowMuch) {
  start({"C", "A", "B"});
  EXPECT_EQ(asked_, 1);
  EXPECT_EQ(told(), "0 of 3 items read");
  EXPECT_TRUE(readPiece());
  EXPECT_EQ(told(), "1 of 3 items read");
  EXPECT_EQ(listed(), Texts{"C"});
  EXPECT_TRUE(readPiece());
  EXPECT_EQ(told(), "2 of 3 items read");
  EXPECT_EQ(listed(), (Texts{"C", "A"}));
  EXPECT_FALSE(readPiece());
  EXPECT_EQ(told(), "3 books");
  EXPECT_EQ(listed(), (Texts{"C", "A", "B"}));
}

TEST_F(ItemListInPieces, IsInOrderOnceAllIsReadAgain) {
  start({"C", "A", "B"});
  readAll();
  asked_ = 0;
  Q_EMIT table().horizontalHeader()->sectionClicked(1);
  EXPECT_EQ(asked_, 1);
  for (int piece = 1; piece < 3; ++piece) {
    EXPECT_TRUE(readPiece());
    EXPECT_EQ(listed(), (Texts{"C", "A", "B"})) << "not before";
  }
  EXPECT_FALSE(readPiece());
  EXPECT_EQ(listed(), (Texts{"A", "B", "C"}));
  EXPECT_FALSE(readPiece());
}

TEST_F(ItemListInPieces, StaysInOrderWhenItemsAreAddedAndTakenAway) {
  start({"C", "A"});
  Q_EMIT table().horizontalHeader()->sectionClicked(1);
  readAll();
  EXPECT_EQ(listed(), (Texts{"A", "C"}));
  put({"C", "A", "B"});
  list_.setCount(3);
  readAll();
  EXPECT_EQ(listed(), (Texts{"A", "B", "C"}));
  put({"C", "A"});
  list_.setCount(2);
  EXPECT_EQ(listed(), (Texts{"A", "C"}));
  readAll();
  EXPECT_EQ(listed(), (Texts{"A", "C"}));
}

TEST_F(ItemListInPieces, PutsAnItemThatIsAddedInItsPlace) {
  start({"C", "A"});
  Q_EMIT table().horizontalHeader()->sectionClicked(1);
  readAll();
  put({"C", "A", "B"});
  list_.take(3, recordOf(familyItem(kBooks, "B")));
  readAll();
  EXPECT_EQ(listed(), (Texts{"A", "B", "C"}));
  EXPECT_EQ(told(), "3 books");
}

TEST_F(ItemListInPieces, KeepsItsOrderForAnotherCollection) {
  start({"C", "A"});
  Q_EMIT table().horizontalHeader()->sectionClicked(1);
  readAll();
  start({"F", "D", "E"});
  EXPECT_EQ(listed(), Texts{});
  readAll();
  EXPECT_EQ(listed(), (Texts{"D", "E", "F"}));
}

}  // namespace
}  // namespace quillbox::test
