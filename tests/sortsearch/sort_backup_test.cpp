#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/failure.h"
#include "support/machine.h"
#include "support/sort_model.h"

namespace quillbox::test {
namespace {

class SortBackup : public SortFixture, public testing::TestWithParam<ModelKind> {
 protected:
  const ModelKind& kind() const { return GetParam(); }
};

TEST_P(SortBackup, ABackupInTheWayIsNotTouched) {
  putNamed(kind(), {"B", "A"});
  writeFile(backup_, "precious");
  EXPECT_EQ(messageOf(kind().everyTick()),
            "Run-time error '58':\n\nFile already exists\n" + backup_);
  EXPECT_EQ(readFile(backup_), "precious");
  EXPECT_TRUE(file() == old_);
  EXPECT_EQ(state_.Count, 2);
  expectNothingOpen();
}

TEST_P(SortBackup, AMissingCollectionIsAnError) {
  putNamed(kind(), {"B", "A"});
  std::filesystem::remove(state_.currentPath);
  EXPECT_EQ(messageOf(kind().everyTick()),
            "Run-time error '53':\n\nFile not found\n" + state_.currentPath);
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
  EXPECT_EQ(state_.Count, 2);
}

TEST_P(SortBackup, AFileShorterThanItsCountIsOnlyUnderItsBackupsName) {
  for (const std::size_t missing :
       {std::size_t{1}, kind().recordLength - 1, kind().recordLength + 1, 2 * kind().recordLength,
        3 * kind().recordLength - 12}) {
    SCOPED_TRACE(std::to_string(missing) + " bytes missing");
    putNamed(kind(), {"B", "A"});
    putBytes(state_.currentPath, old_.substr(0, old_.size() - missing));
    EXPECT_EQ(messageOf(kind().everyTick()),
              "Run-time error '63':\n\nBad record number\n" + backup_ + noteOf(backup_));
    expectOnlyTheBackup();
    EXPECT_EQ(state_.Count, 2);
    expectNothingOpen();
  }
}

TEST_P(SortBackup, ALastItemThatIsMissingIsBlankAndSortedFirst) {
  if (kind().isBooks()) return;  // sorting books ends the program
  putNamed(kind(), {"B", "A"});
  const std::string whole = file();
  state_.Count = 3;
  sort(kind().everyTick());
  EXPECT_EQ(state_.Count, 3);
  std::string expected = whole.substr(0, 12);
  expected[0] = 3;
  expected.resize(kind().recordLength);
  const auto blank = blankRecord(kind().row());
  expected.append(reinterpret_cast<const char*>(blank.data()), blank.size());
  expected.append(whole, 2 * kind().recordLength)
      .append(whole, kind().recordLength, kind().recordLength);
  EXPECT_TRUE(file() == expected);
}

TEST_P(SortBackup, ACountWithoutRoomForTwoMoreIsAnError) {
  for (const int count : {32766, 32767}) {
    putNamed(kind(), {"B", "A"});
    state_.Count = static_cast<std::int16_t>(count);
    const std::string message = messageOf(kind().everyTick());
    EXPECT_TRUE(message.starts_with("Run-time error '6':\n\nOverflow")) << message;
    EXPECT_TRUE(message.ends_with(noteOf(backup_))) << message;
    expectOnlyTheBackup();
    EXPECT_EQ(state_.Count, count);
    expectNothingOpen();
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, SortBackup, testing::ValuesIn(kModelKinds), nameOfKind);

class SortPaths : public SortFixture, public testing::Test {
 protected:
  Failure failureOfSort(const std::vector<bool>& ticked) {
    return failureOf([&] { sort(ticked); });
  }
};

TEST_F(SortPaths, TheBackupsNameIsCutAtTheFirstDotOfThePath) {
  std::filesystem::create_directory("MY.DIR");
  std::filesystem::create_directory("plain");
  const std::pair<std::string, std::string> rows[] = {
      {folder_.path("COLL.MCS"), folder_.path("COLL.bak")},
      {folder_.path("a.b.MCS"), folder_.path("a.bak")},
      {folder_.path("MY.DIR/COLL.MCS"), folder_.path("MY.bak")},
      {folder_.path("plain/COLL.MCS"), folder_.path("plain/COLL.bak")},
      {folder_.path("plain/COLLMCS"), folder_.path("bak")},
      {"COLL.MCS", folder_.path("COLL.bak")},
      {"plain/COLL.MCS", folder_.path("plain/COLL.bak")},
      {"COLLMCS", folder_.path("bak")},
  };
  putNamed(kMusic, {"B", "A"});
  const std::string whole = old_;
  for (const auto& [path, backup] : rows) {
    backup_ = backup;
    putBytes(path, whole);
    sort(kMusic.ticks({0}));
    EXPECT_EQ(fillers(), "ba") << path;
    EXPECT_FALSE(std::filesystem::exists(backup));

    putBytes(path, whole.substr(0, whole.size() - 1));
    EXPECT_EQ(messageOf(kMusic.ticks({0})),
              "Run-time error '63':\n\nBad record number\n" + backup + noteOf(backup));
    expectOnlyTheBackup();

    putBytes(path, whole);
    writeFile(backup, "precious");
    EXPECT_EQ(failureOfSort(kMusic.ticks({0})), (Failure{58, backup}));
    EXPECT_TRUE(file() == whole);
    EXPECT_EQ(readFile(backup), "precious");
  }
}

TEST_F(SortPaths, AFolderOfTheBackupsNameIsInTheWayToo) {
  put(kVideo, {named(kVideo, "A", 'a')});
  std::filesystem::create_directory(backup_);
  EXPECT_EQ(failureOfSort(kVideo.everyTick()), (Failure{58, backup_}));
  EXPECT_TRUE(file() == old_);
  EXPECT_TRUE(std::filesystem::is_directory(backup_));
}

TEST_F(SortPaths, ACollectionThatMayNotBeRenamedStaysAsItIs) {
  QUILLBOX_NEEDS(permissions);
  putNamed(kMusic, {"B", "A"});
  std::filesystem::create_directory("closed");
  const std::string path = folder_.path("closed/things.MCS");
  backup_ = folder_.path("closed/things.bak");
  putBytes(path, old_);
  using std::filesystem::perms;
  std::filesystem::permissions(
      "closed", perms::owner_read | perms::owner_exec | perms::group_read | perms::group_exec);
  const OrdinaryUser user(folder_);
  EXPECT_EQ(messageOf(kMusic.everyTick()), "Run-time error '70':\n\nPermission denied\n" + path);
  expectOnlyTheCollection(old_);
}

}  // namespace
}  // namespace quillbox::test
