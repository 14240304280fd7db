// What only the book editor does: nothing can be deleted, and 20 reserved bytes are kept.

#include "records/book_record.h"
#include "support/family_steps.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kReservedAt = 204;
const std::string kZeros(20, '\0');

BookRecord book(std::string_view author, std::string_view reserved = "") {
  auto record = blankRecord<BookRecord>(kBookFields);
  record.Author = author;
  record.Reserved = reserved;
  return record;
}

class BookEditor : public FamilySteps {
 protected:
  BookEditor() : FamilySteps(kBooks) {}

  BookRecord item(int n) { return recordIn<BookRecord>(bytes(), n); }
  std::string reserved(int n) { return stored(n).substr(kReservedAt); }
  std::vector<std::string> entries(const char* name) {
    std::vector<std::string> found;
    for (int i = 0; i < list(name).count(); ++i)
      found.push_back(list(name).itemText(i).toStdString());
    return found;
  }
};

TEST_F(BookEditor, WritesTheFormOverTheItem) {
  openBytes(fileOf({book("A"), book("B")}));
  pressNext();
  type("txtBooks_0", "Mary Shelley");
  type("txtBooks_1", "Frankenstein");
  type("txtBooks_2", "Lackington");
  pick("cmbGenre", 1);
  pick("cmbMedia", 2);
  type("txtBooks_3", "Three volumes");
  pressWrite();
  const std::string record = stored(2);
  EXPECT_EQ(textAt(record, 0), "Mary Shelley");
  EXPECT_EQ(textAt(record, 50), "Frankenstein");
  EXPECT_EQ(textAt(record, 100), "Lackington");
  EXPECT_EQ(item(2).Genre, 1);
  EXPECT_EQ(item(2).MediaType, 2);
  EXPECT_EQ(textAt(record, 154), "Three volumes");
}

TEST_F(BookEditor, ShowsTheWholeItem) {
  BookRecord shownItem = book("Mary Shelley");
  shownItem.Title = "Frankenstein";
  shownItem.Publisher = "Lackington";
  shownItem.Genre = 5;
  shownItem.MediaType = 3;
  shownItem.Notes = "Three volumes";
  openBytes(fileOf({shownItem}));
  EXPECT_EQ(shown("txtBooks_0"), "Mary Shelley");
  EXPECT_EQ(shown("txtBooks_1"), "Frankenstein");
  EXPECT_EQ(shown("txtBooks_2"), "Lackington");
  EXPECT_EQ(shown("txtBooks_3"), "Three volumes");
  EXPECT_EQ(list("cmbGenre").currentText(), "Science Fiction");
  EXPECT_EQ(list("cmbMedia").currentText(), "Paperback");
}

TEST_F(BookEditor, TheListsHoldTheirEntriesInOrder) {
  open({"A"});
  EXPECT_EQ(entries("cmbGenre"),
            (std::vector<std::string>{"Fantasy", "Horror", "Periodical", "Reference", "Romance",
                                      "Science Fiction"}));
  EXPECT_EQ(entries("cmbMedia"),
            (std::vector<std::string>{"Audio Books", "Brail", "Hardcover", "Paperback"}));
}

TEST_F(BookEditor, OffersNoWayToDelete) {
  open({"A"});
  EXPECT_EQ(form().findChild<QPushButton*>("cmdDelete"), nullptr);
  for (const QPushButton* each : form().findChildren<QPushButton*>())
    EXPECT_FALSE(each->text().remove('&').contains("Delete"));
  for (const QAction* each : form().findChildren<QAction*>())
    EXPECT_FALSE(each->text().remove('&').contains("Delete"));
}

TEST_F(BookEditor, HasNoSecondPage) {
  open({"A"});
  EXPECT_EQ(form().findChild<QAction*>("EditTitles"), nullptr);
}

TEST_F(BookEditor, ABookByDeletedIsABookLikeAnyOther) {
  openBytes(fileOf({book("A"), book("DELETED"), book("C")}));
  pressNext();
  EXPECT_EQ(first(), "DELETED");
  EXPECT_EQ(indicator(), "Record # 2 of 3");
  pressNext();
  pressPrevious();
  EXPECT_EQ(first(), "DELETED");
  pressClear();
  typeFirst("New");
  pressWrite();
  EXPECT_EQ(storedFirst(2), "DELETED");
  EXPECT_EQ(storedFirst(4), "New");
}

TEST_F(BookEditor, StaysReadyForTheNextNewItem) {
  start({collectionPath()});
  for (const char* author : {"A", "B"}) {
    typeFirst(author);
    type("txtBooks_3", "note");
    pick("cmbGenre", 2);
    pressWrite();
    EXPECT_EQ(state_->CurRec, kNewItem);
    EXPECT_EQ(first(), "");
    EXPECT_EQ(shown("txtBooks_3"), "");
    EXPECT_EQ(list("cmbGenre").currentIndex(), 2);
  }
  EXPECT_EQ(storedFirst(2), "B");
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(2));
}

// ---- The reserved bytes

TEST_F(BookEditor, ReservedBytesAreZerosAfterTheStart) {
  start({collectionPath()});
  typeFirst("A");
  pressWrite();
  EXPECT_EQ(reserved(1), kZeros);
}

TEST_F(BookEditor, ReservedBytesStayInPlace) {
  openBytes(fileOf({book("A", "one"), book("B", "two, all 20 bytes!!!")}));
  typeFirst("Changed");
  pressWrite();
  EXPECT_EQ(reserved(1), "one" + std::string(17, ' '));
  pressNext();
  typeFirst("Changed");
  pressWrite();
  EXPECT_EQ(reserved(2), "two, all 20 bytes!!!");
  EXPECT_EQ(reserved(1), "one" + std::string(17, ' '));
}

TEST_F(BookEditor, ReservedBytesOfANewItemAreThoseOfTheLastOneRead) {
  openBytes(fileOf({book("A", "one"), book("B", "two"), book("C", "three")}));
  pressNext();
  pressClear();
  typeFirst("New");
  pressWrite();
  typeFirst("Newer");
  pressWrite();
  EXPECT_EQ(reserved(4), "two" + std::string(17, ' '));
  EXPECT_EQ(reserved(5), "two" + std::string(17, ' '));
}

TEST_F(BookEditor, ReservedBytesAreCarriedIntoAnotherCollection) {
  openBytes(fileOf({book("A", "one")}));
  openHere(path("other.BCS"));
  EXPECT_EQ(indicator(), "New File");
  typeFirst("New");
  pressWrite();
  EXPECT_EQ(itemBytes(kBooks, readFile(path("other.BCS")), 1).substr(kReservedAt),
            "one" + std::string(17, ' '));
}

TEST_F(BookEditor, AFailedReadLeavesTheReservedBytes) {
  openBytes(fileOf({book("A", "one"), book("B", "two")}));
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  expectFileError("'57':\n\nDevice I/O error");
  pressNext();
  pressWrite();
  EXPECT_EQ(reserved(1), "one" + std::string(17, ' '));
}

}  // namespace
}  // namespace quillbox::test
