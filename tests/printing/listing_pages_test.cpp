#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/checked16.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "support/failing_files.h"
#include "support/fake_desktop.h"
#include "support/family_files.h"
#include "support/machine.h"
#include "support/music_files.h"
#include "support/test_folder.h"

namespace quillbox::test {
namespace {

/// A board that records the progress.
class BoardSteps : public NoBoard {
 public:
  void progress(int done, int total) override { steps.emplace_back(done, total); }

  std::vector<std::pair<int, int>> steps;
};

const std::string kSeparator = std::string(10, ' ') + std::string(70, '-') + "\r\n";
constexpr int kAtOnce = static_cast<int>(kRecordBlockBytes / kBooks.recordLength);  // items read
constexpr int kBlocksPerPage = 8;  // of books: 64 lines of 71

int countOf(std::string_view text, std::string_view part) {
  int found = 0;
  for (auto at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
    ++found;
  return found;
}

class ListingPages : public testing::Test {
 protected:
  ListingPages() { state_.currentPath = path_; }

  /// Opens a collection of books by these authors.
  void open(std::initializer_list<std::string_view> authors) {
    openBytes(static_cast<int>(authors.size()), familyFile(kBooks, authors));
  }
  void openBytes(int count, std::string_view bytes) {
    writeFile(path_, bytes);
    state_.Count = checked16(count);
    files_.forget();
    board_.steps.clear();
  }

  std::int16_t compose() {
    return composePages(state_.files, state_, kind_, listing_, print_mode::textFile, engine_,
                        board_);
  }

  /// Composes the pages and writes them to a text file; no name is suggested yet.
  std::string printed() {
    std::int16_t mode = print_mode::printer;
    desktop_.expectPrint(PrintChoice{.toFile = true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", std::nullopt, written_);
    engine_.OpenPrinter(mode);
    const std::int16_t pages = compose();
    engine_.PrintOut(mode, pages, "heading");
    return readFile(written_);
  }

  static std::string block(int item, int count, const std::string& author) {
    return "     Record #          :  " + std::to_string(item) + " of " + std::to_string(count) +
           "\r\n     Author            : " + author +
           "\r\n     Book Title        : \r\n     Publisher         : "
           "\r\n     Genre             : 0\r\n     Media Type        : 0"
           "\r\n     Notes             : \r\n" +
           kSeparator;
  }
  static std::string page(const std::string& blocks) {
    return "heading\r\nQuillbox V1.71   - Book Collection Printout Page # 1\r\n" + blocks + "\r\n";
  }

  void expectNothingOpen() const {
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_.files.isOpen(number)) << number;
  }

  TestFolder folder_;
  std::string path_ = folder_.path("mine.BCS");
  std::string written_ = folder_.path("list.txt");
  FailingFiles files_;
  AppState state_{files_};
  FakeDesktop desktop_;
  BoardSteps board_;
  const CollectionKind& kind_ = *kindOfExtension("BCS");
  PrintEngine engine_{state_, desktop_, board_};
  Listing listing_{kind_, {[](const Field&, int index) { return std::to_string(index); }, ""}};
};

TEST_F(ListingPages, EveryItemIsABlockBelowTheHeading) {
  open({"Mary Shelley", "DELETED", "Jules Verne"});
  EXPECT_EQ(printed(), page(block(1, 3, "Mary Shelley") + "     Record # 2 Has been deleted.\r\n" +
                            block(3, 3, "Jules Verne")));
  expectNothingOpen();
}

TEST_F(ListingPages, AnEmptyCollectionHasNoPages) {
  for (const CollectionKind& kind : collectionKinds()) {
    state_.Count = 0;
    const Listing listing(kind, {});
    EXPECT_EQ(
        composePages(state_.files, state_, kind, listing, print_mode::printer, engine_, board_), 0)
        << kind.extension;
  }
  EXPECT_TRUE(board_.steps.empty());
  expectNothingOpen();
}

TEST_F(ListingPages, OfTheCollectionsOfTheTestsOnlyTheEmptyOnesHaveNoPages) {
  for (const char* name : {"empty.MCS", "type1.MCS"}) {
    state_.currentPath = dataFile(name);
    state_.Count = headerOf(readFile(state_.currentPath)).Count;
    const CollectionKind& music = *kindOfExtension("MCS");
    EXPECT_EQ(composePages(state_.files, state_, music, Listing(music, {}), print_mode::printer,
                           engine_, board_),
              0)
        << name;
  }
}

TEST_F(ListingPages, PagesAreCountedFromOneAtEachPrintout) {
  std::string bytes = familyHeader(kBlocksPerPage + 1);
  bytes.resize(kBooks.recordLength);
  for (int n = 0; n <= kBlocksPerPage; ++n) bytes += familyItem(kBooks, "A");
  openBytes(kBlocksPerPage + 1, bytes);
  EXPECT_EQ(compose(), 2);
  EXPECT_EQ(compose(), 2);
  state_.Count = kBlocksPerPage;
  EXPECT_EQ(compose(), 1);
  state_.Count = 0;
  EXPECT_EQ(compose(), 0);
}

TEST_F(ListingPages, AnItemThatCannotBeReadIsBlank) {
  open({"A", "B", "C"});
  files_.damage = {path_, 3 * kBooks.recordLength - 1};
  EXPECT_EQ(printed(), page(block(1, 3, "A") + block(2, 3, "") + block(3, 3, "C")));
  expectNothingOpen();
}

TEST_F(ListingPages, ItemsThatCanBeReadTheSecondTimeAreListed) {
  open({"A", "B"});
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  const std::string text = printed();
  EXPECT_TRUE(files_.hasFailed());
  EXPECT_EQ(text, page(block(1, 2, "A") + block(2, 2, "B")));
}

TEST_F(ListingPages, OnlyWhereTheDiskIsDamagedItemsAreReadOneByOne) {
  constexpr int count = 3 * kAtOnce + 1;
  const auto name = [](int item) { return "Author " + std::to_string(item) + "."; };
  std::string bytes = familyHeader(count);
  bytes.resize(kBooks.recordLength);
  for (int item = 1; item <= count; ++item) bytes += familyItem(kBooks, name(item));
  openBytes(count, bytes);
  constexpr int damaged = 2 * kAtOnce;  // the last of the second block
  files_.damage = {path_, (damaged + 1) * kBooks.recordLength - 1};
  const std::string text = printed();
  for (int item = 1; item <= count; ++item)
    EXPECT_EQ(text.find(name(item)) != std::string::npos, item != damaged) << item;
  const auto reads =
      std::ranges::count(files_.operations(), OperationRecord{FileOperation::read, path_});
  EXPECT_EQ(reads, 4 + kAtOnce);
}

TEST_F(ListingPages, ItemsPastTheEndOfTheFileAreBlank) {
  openBytes(3, familyFile(kBooks, {"A"}));
  EXPECT_EQ(printed(), page(block(1, 3, "A") + block(2, 3, "") + block(3, 3, "")));
}

TEST_F(ListingPages, ItemsPastTheEndOfALongFileAreBlank) {
  std::string bytes = familyHeader(2 * kAtOnce);
  bytes.resize(kBooks.recordLength);
  for (int item = 0; item <= kAtOnce; ++item) bytes += familyItem(kBooks, "A");
  openBytes(2 * kAtOnce, bytes);
  const std::string text = printed();
  EXPECT_EQ(countOf(text, "Author            : A\r\n"), kAtOnce + 1);
  EXPECT_EQ(countOf(text, "Author            : \r\n"), kAtOnce - 1);
}

TEST_F(ListingPages, EveryItemOfACollectionThatIsGoneIsBlank) {
  open({"A", "B"});
  state_.book.Author = "on screen";
  std::filesystem::remove(path_);
  EXPECT_EQ(printed(), page(block(1, 2, "") + block(2, 2, "")));
  EXPECT_FALSE(std::filesystem::exists(path_));
  expectNothingOpen();
}

TEST_F(ListingPages, TheBoardHearsOfEveryItem) {
  open({"A", "DELETED", "C"});
  compose();
  EXPECT_EQ(board_.steps, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
  std::filesystem::remove(path_);
  board_.steps.clear();
  compose();
  EXPECT_EQ(board_.steps.size(), 3U);
}

TEST_F(ListingPages, TheCollectionAndThePositionsStayAsTheyWere) {
  open({"A", "B"});
  state_.CurRec = 2;
  state_.ListPos = 1;
  compose();
  EXPECT_TRUE(readFile(path_) == familyFile(kBooks, {"A", "B"}));
  EXPECT_EQ(state_.Count, 2);
  EXPECT_EQ(state_.CurRec, 2);
  EXPECT_EQ(state_.ListPos, 1);
  expectNothingOpen();
}

TEST_F(ListingPages, AFolderThatCannotBeWrittenHarmsNothing) {
  QUILLBOX_NEEDS(permissions);
  open({"A", "B"});
  std::filesystem::permissions(path_, std::filesystem::perms(0644));
  std::filesystem::permissions(folder_.path(), std::filesystem::perms(0555));
  {
    const OrdinaryUser user(folder_);
    EXPECT_EQ(compose(), 1);
  }
  EXPECT_EQ(board_.steps.size(), 2U);
  EXPECT_TRUE(readFile(path_) == familyFile(kBooks, {"A", "B"}));
  EXPECT_FALSE(std::filesystem::exists(folder_.path("printer.tmp")));
  expectNothingOpen();
}

TEST_F(ListingPages, AnyFailureIsIgnoredAndEveryItemTried) {
  for (int nth = 0;; ++nth) {
    SCOPED_TRACE("operation " + std::to_string(nth));
    open({"A", "B"});
    files_.failNth(nth, ErrorNumber::diskFull);
    EXPECT_EQ(compose(), 1);
    EXPECT_EQ(board_.steps.size(), 2U);
    EXPECT_TRUE(readFile(path_) == familyFile(kBooks, {"A", "B"}));
    if (!files_.hasFailed()) break;
  }
  expectNothingOpen();
}

}  // namespace
}  // namespace quillbox::test
