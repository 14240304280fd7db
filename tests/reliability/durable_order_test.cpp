#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "editors/media_loader.h"
#include "platform/checked16.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "records/music_file.h"
#include "support/collection_path.h"
#include "support/fake_desktop.h"
#include "support/loading.h"
#include "support/music_files.h"
#include "support/sort_model.h"

namespace quillbox::test {
namespace {

using Texts = std::vector<std::string>;

const char* nameOf(FileOperation operation) {
  switch (operation) {
    case FileOperation::open:
      return "open";
    case FileOperation::make:
      return "make";
    case FileOperation::read:
      return "read";
    case FileOperation::write:
      return "write";
    case FileOperation::flush:
      return "flush";
    case FileOperation::close:
      return "close";
    case FileOperation::exists:
      return "exists";
    case FileOperation::linkTarget:
      return "linkTarget";
    case FileOperation::remove:
      return "remove";
    case FileOperation::rename:
      return "rename";
    case FileOperation::list:
      return "list";
    case FileOperation::resolve:
      return "resolve";
  }
  return "";
}

class DurableOrder : public testing::Test {
 protected:
  void open(const std::string& name, const std::string& bytes, int count) {
    state_.currentPath = folder_.path(name);
    writeFile(state_.currentPath, bytes);
    state_.Count = checked16(count);
    files_.forget();
  }

  /// "write mine.MCS", ... Consecutive repetitions are listed once.
  Texts told() const {
    Texts all;
    for (const auto& [operation, path] : files_.operations()) {
      const std::string line = std::string(nameOf(operation)).append(" ").append(fileNameOf(path));
      if (all.empty() || all.back() != line) all.push_back(line);
    }
    return all;
  }

  TestFolder folder_;
  FailingFiles files_;
  AppState state_{files_};
  NoBoard board_;
};

TEST_F(DurableOrder, ASortRemovesTheBackupWhenTheNewFileIsOnTheDiskAndClosed) {
  for (const ModelKind& kind : kModelKinds) {
    if (kind.endsProgram) continue;
    SCOPED_TRACE(kind.name);
    const std::string name = "mine." + std::string(kind.extension);
    open(name, sortFile(kind, {named(kind, "B", 'b'), named(kind, "A", 'a')}), 2);
    state_.Count = sortCollection(state_.files, state_, kind.row(), kind.everyTick(), board_);
    EXPECT_EQ(told(), (Texts{"linkTarget " + name, "rename " + name, "open mine.bak",
                             "read mine.bak", "close mine.bak", "make " + name, "write " + name,
                             "flush " + name, "close " + name, "remove mine.bak"}));
  }
}

TEST_F(DurableOrder, ASortOfBooksWritesAndRemovesNothing) {
  const ModelKind& kind = kBooks;
  open("mine.BCS", sortFile(kind, {named(kind, "B", 'b'), named(kind, "A", 'a')}), 2);
  EXPECT_THROW(sortCollection(state_.files, state_, kind.row(), kind.everyTick(), board_),
               ProgramEnd);
  EXPECT_EQ(told(), (Texts{"linkTarget mine.BCS", "rename mine.BCS", "open mine.bak",
                           "read mine.bak", "close mine.bak"}));
}

TEST_F(DurableOrder, AnUpgradeRemovesAnEarlierBackupWhenTheCollectionIsOnTheDisk) {
  const std::string old = musicFile(3, music_file_type::upgradable,
                                    {album("A"), album("B"), album("C")}, kMusicRecordType4Length);
  for (const bool hasBackup : {false, true}) {
    writeFile(folder_.path("mine.BAK"), "an earlier backup");
    if (!hasBackup) std::filesystem::remove("mine.BAK");
    open("mine.MCS", old, 3);
    upgradeMusicFile(state_.files, state_);
    Texts expected = {"linkTarget mine.MCS", "rename mine.MCS"};
    if (hasBackup)
      expected.insert(expected.end(), {"list ", "open mine.MCS", "flush mine.MCS",
                                       "remove mine.BAK", "rename mine.MCS"});
    expected.insert(
        expected.end(),
        {"open mine.BAK", "make mine.MCS", "read mine.BAK", "write mine.MCS", "read mine.BAK",
         "write mine.MCS", "close mine.BAK", "write mine.MCS", "flush mine.MCS", "close mine.MCS"});
    EXPECT_EQ(told(), expected);
  }
}

/// With a "current" header before the items, half a file would pass for a whole one.
TEST_F(DurableOrder, AnUpgradeWritesTheHeaderLast) {
  open("mine.MCS",
       musicFile(3, music_file_type::upgradable, {album("A"), album("B"), album("C")},
                 kMusicRecordType4Length),
       3);
  files_.failNth(FileOperation::write, 2, ErrorNumber::diskFull);
  EXPECT_THROW(upgradeMusicFile(state_.files, state_), RunTimeError);
  EXPECT_EQ(readFile("mine.MCS").substr(0, 12), std::string(12, '\0'));
  EXPECT_EQ(readFile("mine.MCS").size(), 3 * sizeof(MusicRecord));
}

TEST_F(DurableOrder, ATextListingRemovesTheSpoolWhenTheTextFileIsClosed) {
  const CollectionKind& kind = *kindOfExtension("BCS");
  open("mine.BCS", plainCollection(kind, {plainItem(kind, "A"), plainItem(kind, "B")}), 2);
  FakeDesktop desktop;
  desktop.expectPrint(PrintChoice{.toFile = true});
  desktop.expectSave("Print to FileName", "Text File (*.txt)|*.txt", std::nullopt,
                     folder_.path("list.txt"));
  PrintEngine engine(state_, desktop, board_);
  std::int16_t mode = print_mode::printer;
  engine.OpenPrinter(mode);
  const Listing listing(kind, {[](const Field&, int) { return ""; }, ""});
  const std::int16_t pages =
      composePages(state_.files, state_, kind, listing, mode, engine, board_);
  files_.forget();
  engine.PrintOut(mode, pages, "Books");
  EXPECT_EQ(told(), (Texts{"open list.txt", "open printer.tmp", "read printer.tmp",
                           "write list.txt", "close list.txt", "close printer.tmp",
                           "exists printer.tmp", "remove printer.tmp"}));
}

TEST_F(DurableOrder, ALoadedFolderCountsNoItemThatIsNotThere) {
  const CollectionKind& kind = *kindOfExtension("WCS");
  std::vector<std::string> names;
  for (int n = 0; n < 20; ++n) names.push_back(std::to_string(n) + ".wav");
  for (std::size_t failing = 0; failing < 6; ++failing) {  // items, header, items, ...
    open("mine.WCS", plainCollection(kind, {}), 0);
    files_.failNth(failing, {ErrorNumber::diskFull, false, true}, FileOperation::write);
    EXPECT_THROW(loadAndCount(state_, kind, "/music", names, board_), RunTimeError);
    files_.heal();
    EXPECT_EQ(headerOf(readFile("mine.WCS")).Count, failing / 2 * 8);
    EXPECT_EQ(state_.Count, failing / 2 * 8);
  }
}

}  // namespace
}  // namespace quillbox::test
