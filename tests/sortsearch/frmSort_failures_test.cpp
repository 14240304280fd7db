// A sort that fails ends the program with the complete collection under one of its two names; a
// sort of books always ends like that.

#include <QGuiApplication>
#include <utility>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class FailedSort : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  FailedSort() : EditorTest(GetParam()) {}

  void begin() {
    openSideForm(kind().sort);
    press(kind().sort.begin);
    desktop_.expectNothingLeft();
    EXPECT_TRUE(desktop_.endedAtOnce);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  }
  std::string underBackupsName() const {
    return "\n\nThe collection is now under its backup's name:\n" + backup();
  }
  /// The collection exists only under the backup's name.
  void expectOnlyBackup(const std::string& before) {
    EXPECT_FALSE(std::filesystem::exists(collectionPath()));
    EXPECT_EQ(readFile(backup()), before);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, FailedSort, testing::ValuesIn(kModelEditors), nameOfKind);

TEST_P(FailedSort, ABackupInTheWayIsLeftAloneAndSoIsTheCollection) {
  const std::string before = collection({item("b"), item("a")});
  openBytes(before);
  writeFile(backup(), "somebody's");
  expectError("'58':\n\nFile already exists\n" + backup());
  begin();
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(readFile(backup()), "somebody's");
}

TEST_P(FailedSort, AMissingCollectionIsAnError) {
  open({item("b"), item("a")});
  std::filesystem::remove(collectionPath());
  expectError("'53':\n\nFile not found\n" + collectionPath());
  begin();
  EXPECT_FALSE(std::filesystem::exists(backup()));
}

TEST_P(FailedSort, AnItemThatCannotBeReadLeavesTheBackup) {
  const std::string before = collection({item("b"), item("a")});
  openBytes(before);
  files_.failNth(FileOperation::read, 1, ErrorNumber::deviceIo);
  expectError("'57':\n\nDevice I/O error\n" + backup() + underBackupsName());
  begin();
  expectOnlyBackup(before);
}

TEST_P(FailedSort, AFileShorterThanItsCountLeavesTheBackup) {
  const std::string before = collection({item("b"), item("a")});
  openBytes(before);
  const std::string cut = before.substr(0, before.size() - 1);
  writeFile(collectionPath(), cut);
  expectError("'63':\n\nBad record number\n" + backup() + underBackupsName());
  begin();
  expectOnlyBackup(cut);
}

/// Books are never written.
class FailedWriting : public FailedSort {};

INSTANTIATE_TEST_SUITE_P(Kinds, FailedWriting,
                         testing::Values(kMusic, kVideo, kSoftware, kComics, kWaves), nameOfKind);

TEST_P(FailedWriting, HalfAFileIsNeverLeftUnderTheCollectionsName) {
  const std::string before = collection({item("b"), item("a")});
  // The file that was read is closed first.
  for (const auto& [operation, nth] :
       {std::pair{FileOperation::write, 2}, std::pair{FileOperation::flush, 0},
        std::pair{FileOperation::close, 1}}) {
    SCOPED_TRACE(static_cast<int>(operation));
    openBytes(before);
    desktop_.endedAtOnce = false;
    files_.failNth(operation, nth, ErrorNumber::diskFull);
    expectError("'61':\n\nDisk full\n" + collectionPath() + underBackupsName());
    begin();
    expectOnlyBackup(before);
    std::filesystem::remove(backup());
  }
}

TEST_P(FailedWriting, ABackupThatCannotBeDeletedIsAnErrorWithTheCollectionSorted) {
  open({item("b"), item("a")});
  openSideForm(kind().sort);
  if (const auto boxes = form().findChildren<QCheckBox*>(); !boxes.empty())
    tick(boxes.front()->objectName().toUtf8().constData());
  files_.failNth(FileOperation::remove, 0, ErrorNumber::permissionDenied);
  expectError("'70':\n\nPermission denied\n" + backup());
  press(kind().sort.begin);
  EXPECT_TRUE(desktop_.endedAtOnce);
  EXPECT_EQ(bytes(), collection({item("a"), item("b")}));
  EXPECT_EQ(readFile(backup()), collection({item("b"), item("a")}));
}

// ---- Books

class SortedBooks : public EditorTest {
 protected:
  SortedBooks() : EditorTest(kBooks) {}
};

TEST_F(SortedBooks, EndTheProgramUnderTheirBackupsNameWithoutAWord) {
  const std::string before = collection({item("b"), item("a")});
  for (const char* box : {"", "chkBsort_0", "chkBsort_1", "chkBsort_2", "chkBsort_3"}) {
    SCOPED_TRACE(box);
    openBytes(before);
    desktop_.endedAtOnce = false;
    openSideForm(kind().sort);
    if (*box != '\0') tick(box);
    press(kind().sort.begin);
    EXPECT_TRUE(desktop_.endedAtOnce);
    EXPECT_FALSE(desktop_.quitAsked);
    EXPECT_FALSE(std::filesystem::exists(collectionPath()));
    EXPECT_EQ(readFile(backup()), before);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    std::filesystem::remove(backup());
  }
}

}  // namespace
}  // namespace quillbox::test
