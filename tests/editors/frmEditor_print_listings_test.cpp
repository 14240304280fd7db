// What Print List prints on paper and to a text file, for each kind of collection, with the texts
// of the editors' own lists.

#include <utility>
#include <vector>

#include "platform/checked16.h"
#include "support/form_fixture.h"
#include "text/windows1252.h"

namespace quillbox::test {
namespace {

using Texts = std::vector<std::string>;

/// The lines of a listing in tests/data, with the program's line ends.
std::string listing(const std::string& name) {
  std::string text;
  for (const char character : readFile(dataFile("listings/" + name))) {
    if (character == '\n') text += '\r';
    text += character;
  }
  return text;
}

/// The sheets of such a listing, which are separated by lines of their own.
Texts sheetsOfListing(const std::string& name) {
  const std::string text = listing(name);
  Texts sheets;
  std::size_t at = 0;
  for (;;) {
    const std::string mark = "=== sheet " + std::to_string(sheets.size() + 1) + " ===\r\n";
    if (text.compare(at, mark.size(), mark) != 0) break;
    at += mark.size();
    const std::size_t end =
        text.find("=== sheet " + std::to_string(sheets.size() + 2) + " ===\r\n", at);
    sheets.push_back(text.substr(at, end - at));
    if (end == std::string::npos) break;
    at = end;
  }
  return sheets;
}

class Listings : public FormTest {
 protected:
  /// Opens a copy of a collection from the start screen.
  void openCopy(const std::string& name) {
    writeFile(path(name), readFile(dataFile(name)));
    openHere(name);
  }
  void openHere(const std::string& name) {
    start();
    desktop_.tolerateOpen = path(name);
    choose("O");
    desktop_.tolerateOpen.reset();
    editor_ = formName();
    ASSERT_NE(editor_, "frmBegin2");
  }
  void printOnPaper(const std::string& pages) {
    desktop_.expectPrint(PrintChoice{false});
    desktop_.expectInput("Starting Page", "Printer Data", "1", "1");
    desktop_.expectInput("Ending Page", "Printer Data", pages, pages);
    print();
  }
  void printToFile(const std::string& name) {
    desktop_.expectPrint(PrintChoice{true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", std::nullopt, path(name));
    print();
  }
  void print() {
    choose("PrintList");
    desktop_.expectNothingLeft();
    EXPECT_EQ(formName(), editor_);
    EXPECT_EQ(state_->CurRec, 1);
  }
  const Texts& sheets() const { return desktop_.fakePrinter.sheets; }

  std::string editor_;
};

class ListingOf : public Listings, public testing::WithParamInterface<const char*> {};

std::string collectionName(const testing::TestParamInfo<const char*>& info) {
  std::string name = info.param;
  std::erase(name, '.');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Kinds, ListingOf,
                         testing::Values("albums.MCS", "tapes.VCS", "disks.SCS", "longbox.CCS",
                                         "blanks.CCS", "shelf.BCS", "sounds.WCS", "tunes.ICS",
                                         "pictures.GCS", "songs.MPS"),
                         collectionName);

TEST_P(ListingOf, OnPaperIsWhatItAlwaysWas) {
  const Texts expected = sheetsOfListing(std::string(GetParam()) + ".sheets.txt");
  ASSERT_FALSE(expected.empty());
  openCopy(GetParam());
  printOnPaper(std::to_string(expected.size()));
  EXPECT_EQ(sheets(), expected);
  EXPECT_EQ(file(GetParam()), readFile(dataFile(GetParam())));
}

TEST_P(ListingOf, InATextFileIsWhatItAlwaysWas) {
  openCopy(GetParam());
  printToFile("list.txt");
  EXPECT_EQ(toUtf8(file("list.txt")), listing(std::string(GetParam()) + ".text.txt"));
  EXPECT_EQ(file(GetParam()), readFile(dataFile(GetParam())));
}

TEST_F(Listings, ATextFileHoldsNothingOfALongerOneBefore) {
  openCopy("shelf.BCS");
  writeFile(path("list.txt"), std::string(20'000, 'x'));
  printToFile("list.txt");
  EXPECT_EQ(toUtf8(file("list.txt")), listing("shelf.BCS.text.txt"));
}

// ---- Music

TEST_F(Listings, MediaTypesAreThoseOfTheUsersOwnFile) {
  MusicRecord own = album("A");
  own.MediaType = 7;
  MusicRecord beyond = album("B");
  beyond.MediaType = 8;
  writeFile(path(), musicFile({own, beyond}));
  writeFile(path("QBX Music.ini"),
            "[MEDIA]\r\nMD,Mini\xA0"
            "Disc \x80\r\n");
  openHere("jazz.MCS");
  printOnPaper("1");
  ASSERT_EQ(sheets().size(), 1U);
  EXPECT_NE(sheets().front().find("Media Type        : Mini\u00A0Disc \u20AC\r\n"),
            std::string::npos)
      << sheets().front();
  EXPECT_NE(sheets().front().find("Media Type        : \r\n"), std::string::npos)
      << "the list has no entry there";
}

// ---- Media files

TEST_F(Listings, MediaFilesOfAnUnknownKindAreNotPrinted) {
  openCopy("sounds.WCS");
  press("cmdNext");
  for (const int code : {0, 5, 10, -1}) {
    SCOPED_TRACE(code);
    state_->kindCode = checked16(code);
    desktop_.expectPrint(PrintChoice{false});
    print();
    EXPECT_EQ(label("lblRec"), "Record #: 1 of 3");
    EXPECT_EQ(shown("txtFileName"), "CHIMES.WAV");
    desktop_.expectPrint(PrintChoice{true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt",
                        code == 0 ? "sounds.txt" : path("list.txt"), path("list.txt"));
    print();
    EXPECT_FALSE(std::filesystem::exists(path("list.txt")));
  }
  EXPECT_EQ(sheets(), Texts{});
}

// ---- From one editor to the next

TEST_F(Listings, TheLastNameIsOfferedInEveryEditor) {
  openCopy("shelf.BCS");
  printToFile("books.old");
  writeFile(path("tapes.VCS"), readFile(dataFile("tapes.VCS")));
  desktop_.tolerateOpen = path("tapes.VCS");
  choose("OpenFile");
  desktop_.tolerateOpen.reset();
  editor_ = "frmVideo";
  desktop_.expectPrint(PrintChoice{true});
  desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", path("books.txt"),
                      path("tapes.txt"));
  print();
  EXPECT_EQ(toUtf8(file("tapes.txt")), listing("tapes.VCS.text.txt"));
  EXPECT_EQ(toUtf8(file("books.old")), listing("shelf.BCS.text.txt"));
}

}  // namespace
}  // namespace quillbox::test
