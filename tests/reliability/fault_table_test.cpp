#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "records/music_file.h"
#include "support/collection_path.h"
#include "support/counting_store.h"
#include "support/machine.h"
#include "support/music_files.h"

namespace quillbox::test {
namespace {

constexpr std::size_t kHeaderLength = 12;

std::span<const std::byte> bytesIn(const std::string& text) {
  return std::as_bytes(std::span(text));
}

std::string markerOf(const CollectionKind& kind) {
  return kind.editor == EditorForm::music ? "DETELED" : "DELETED";
}

std::string deletedOf(const CollectionKind& kind, std::string item) {
  if (!tendsHeader(kind)) item.assign(item.size(), '\0');
  setText(kind.fields.front(), std::as_writable_bytes(std::span(item)), markerOf(kind));
  return item;
}

/// A path that replaces one item in a collection of three.
class ItemPath : public CollectionPath {
 public:
  void expectDone() const override {
    EXPECT_TRUE(collection() == after_);
    EXPECT_EQ(state_.Count, after_.front());
  }
  void expectSafe(const Fault& fault, const Failure& failure) const override {
    expectOnlyPiecesChanged(
        collection(), before_, after_,
        {{0, kHeaderLength}, {static_cast<std::size_t>(slot_) * kind_.recordLength, length()}},
        fault.isShort);
    EXPECT_EQ(state_.Count, failure.number == 0 ? after_.front() : before_.front());
  }

 protected:
  ItemPath(const CollectionKind& kind, std::vector<std::string> items, int slot)
      : CollectionPath(kind, items), slot_(slot), after_(before_) {}

  /// Sets what the path writes.
  void becomes(const std::string& item, int count = 3) {
    item_ = item;
    const std::size_t at = static_cast<std::size_t>(slot_) * kind_.recordLength;
    after_.resize(std::max(after_.size(), at + item.size()));
    after_.replace(at, item.size(), item);
    if (tendsHeader(kind_) || count != 3)
      after_.replace(0, kHeaderLength, plainHeader(kind_, count));
  }

  static std::vector<std::string> threeItems(const CollectionKind& kind) {
    return {std::string(kind.recordLength, 'a'), std::string(kind.recordLength, 'b'),
            std::string(kind.recordLength, 'c')};
  }
  std::string newItem() const { return std::string(kind_.recordLength, 'N'); }
  std::size_t length() const { return item_.size(); }

  CountingStore store_{state_, kind_};
  int slot_;
  std::string item_;
  std::string after_;
};

class WriteInPlace : public ItemPath {
 public:
  explicit WriteInPlace(const CollectionKind& kind) : ItemPath(kind, threeItems(kind), 2) {
    becomes(newItem());
  }
  void run() override { store_.WriteRecord(slot_, bytesIn(item_), state_.Count); }
};

class Append : public ItemPath {
 public:
  explicit Append(const CollectionKind& kind) : ItemPath(kind, threeItems(kind), 4) {
    becomes(newItem(), 4);
  }
  void run() override { store_.writeNewItem(bytesIn(item_)); }
};

class ReuseOfADeletedSlot : public ItemPath {
 public:
  explicit ReuseOfADeletedSlot(const CollectionKind& kind)
      : ItemPath(kind, withADeletedItem(kind), 2) {
    becomes(newItem());
  }
  void run() override { store_.writeNewItem(bytesIn(item_)); }

 private:
  static std::vector<std::string> withADeletedItem(const CollectionKind& kind) {
    auto items = threeItems(kind);
    items[1] = deletedOf(kind, items[1]);
    return items;
  }
};

class Delete : public ItemPath {
 public:
  explicit Delete(const CollectionKind& kind) : ItemPath(kind, threeItems(kind), 2) {
    becomes(deletedOf(kind, std::string(kind.recordLength, 'b')));
  }
  void run() override { EXPECT_TRUE(store_.writeDeleted(slot_, bytesIn(item_))); }
};

class HeaderWrite : public ItemPath {
 public:
  explicit HeaderWrite(const CollectionKind& kind) : ItemPath(kind, threeItems(kind), 0) {
    after_.replace(0, kHeaderLength, plainHeader(kind, 3));
  }
  void run() override { store_.WriteHeader(state_.Count, kind_.rules.fileType); }
};

/// A collection that does not exist yet.
class NewFile : public CollectionPath {
 public:
  explicit NewFile(const CollectionKind& kind) : CollectionPath(kind, "", 7) {
    std::filesystem::remove(path_);
  }
  void run() override { store_.WriteHeader(0, kind_.rules.fileType, OpenMode::create); }
  void expectDone() const override { EXPECT_EQ(collection(), plainHeader(kind_, 0)); }
  void expectSafe(const Fault& fault, const Failure& failure) const override {
    expectOnlyPiecesChanged(collection(), "", plainHeader(kind_, 0), {{0, kHeaderLength}},
                            fault.isShort);
    EXPECT_TRUE(state_.Count == 7 || failure.number == 0);
  }

 protected:
  CountingStore store_{state_, kind_};
};

class OpenNewMusicFile : public NewFile {
 public:
  explicit OpenNewMusicFile(const CollectionKind& kind) : NewFile(kind) {}
  /// A file that could be neither written nor removed is refused, like any empty file.
  void run() override {
    isLeftOver_ = std::filesystem::exists(path_) && collection().empty();
    EXPECT_EQ(openMusicFile(state_.files, state_),
              isLeftOver_ ? MusicFileState::refused : MusicFileState::current);
  }
  /// A truncated version is completed with the first item.
  void expectDone() const override {
    if (isLeftOver_) return;
    EXPECT_EQ(collection().substr(0, 4), plainHeader(kind_, 0).substr(0, 4));
    EXPECT_EQ(state_.Count, 0);
  }

 private:
  bool isLeftOver_ = false;
};

/// The upgrade of a type-4 collection of four items.
class Upgrade : public CollectionPath {
 public:
  explicit Upgrade(const CollectionKind& kind)
      : CollectionPath(kind, oldFile(), 4), backup_(folder_.path("mine.BAK")) {
    state_.music.MediaType = 3;
    after_ = plainHeader(kind, 4);
    after_.resize(kind.recordLength);
    for (std::size_t number = 1; number < 4; ++number) {
      MusicRecord item = itemOf(before_, number);
      item.MediaType = 3;
      item.Genre = -1;
      item.BarCode = "Bar Code/ID Here...";
      after_.append(reinterpret_cast<const char*>(&item), sizeof item);
    }
  }
  void run() override { upgradeMusicFile(state_.files, state_); }
  void expectDone() const override {
    EXPECT_TRUE(collection() == after_);
    EXPECT_TRUE(bytesAt(backup()) == before_);
    EXPECT_EQ(state_.Count, 4);
  }
  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    const bool underItsName = collection() == before_;
    const bool underBackup = bytesAt(backup()) == before_;
    EXPECT_NE(underItsName, underBackup);
    EXPECT_EQ(state_.Count, 4);
  }
  /// The old file, which was read, is closed with a report.
  bool endsWith(std::size_t nth) const override {
    return CollectionPath::endsWith(nth) || operationAt(nth).path == backup();
  }
  void putInOrder() override {
    if (bytesAt(backup_) != before_) return;
    std::filesystem::remove(path_);
    std::filesystem::rename(backup_, path_);
  }

 protected:
  /// If it could not be moved to its usual backup, the file is in its own folder.
  std::string backup() const {
    const std::string besideTheFile = folder_.path("elsewhere/BAK");
    return std::filesystem::exists(besideTheFile) ? besideTheFile : backup_;
  }

  std::string backup_;

 private:
  static std::string oldFile() {
    return musicFile(4, music_file_type::upgradable,
                     {album("A", "one"), album("B", "two"), album("C", "three"), album("D")},
                     kMusicRecordType4Length);
  }
  static MusicRecord itemOf(std::string_view old, std::size_t number) {
    MusicRecord item;
    const std::string_view bytes =
        old.substr(number * kMusicRecordType4Length, kMusicRecordType4Length);
    std::ranges::copy(std::as_bytes(std::span(bytes)), bytesOf(item).begin());
    return item;
  }

  std::string after_;
};

/// The same where the collection is behind a link in another folder.
class UpgradeBehindALink : public Upgrade {
 public:
  explicit UpgradeBehindALink(const CollectionKind& kind) : Upgrade(kind) {
    std::filesystem::create_directory("elsewhere");
    std::filesystem::rename(path_, file_);
    std::filesystem::create_symlink("elsewhere/real", path_);
  }
  void expectDone() const override {
    Upgrade::expectDone();
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
  }
  void putInOrder() override {
    if (bytesAt(backup()) != before_) return;
    std::filesystem::remove(file_);
    std::filesystem::rename(backup(), file_);
  }

 private:
  std::string file_ = folder_.path("elsewhere/real");
};

/// A new collection whose name is a link that leads to no file yet.
class OpenNewMusicFileBehindALink : public OpenNewMusicFile {
 public:
  explicit OpenNewMusicFileBehindALink(const CollectionKind& kind) : OpenNewMusicFile(kind) {
    std::filesystem::create_directory("elsewhere");
    std::filesystem::create_symlink("elsewhere/real", path_);
  }
  void expectDone() const override {
    OpenNewMusicFile::expectDone();
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
  }
  void expectSafe(const Fault& fault, const Failure& failure) const override {
    OpenNewMusicFile::expectSafe(fault, failure);
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
  }
};

/// The same where a backup of an earlier upgrade is in the way.
class UpgradeOverABackup : public Upgrade {
 public:
  explicit UpgradeOverABackup(const CollectionKind& kind) : Upgrade(kind) {
    writeFile(backup_, kEarlier);
  }
  void expectSafe(const Fault& fault, const Failure& failure) const override {
    Upgrade::expectSafe(fault, failure);
    const std::string backup = bytesAt(backup_);
    const bool isEarlier = backup == kEarlier;
    const bool isGone = backup.empty() && !std::filesystem::exists(backup_);
    EXPECT_TRUE(isEarlier || isGone || backup == before_);
  }

 private:
  static constexpr std::string_view kEarlier = "an earlier backup";
};

std::vector<FaultPathRow> everyRow() {
  const auto isMusic = [](const CollectionKind& kind) { return kind.code == 1; };
  const auto isMusicBehindALink = [&](const CollectionKind& kind) {
    return isMusic(kind) && kMachine.links == nullptr;
  };
  return joined({rowsOf<WriteInPlace>("WriteInPlace"), rowsOf<Append>("Append"),
                 rowsOf<ReuseOfADeletedSlot>("ReuseOfADeletedSlot", tendsHeader),
                 rowsOf<Delete>("Delete"), rowsOf<HeaderWrite>("HeaderWrite"),
                 rowsOf<NewFile>("NewFile"), rowsOf<OpenNewMusicFile>("OpenNewFile", isMusic),
                 rowsOf<OpenNewMusicFileBehindALink>("OpenNewFileBehindALink", isMusicBehindALink),
                 rowsOf<Upgrade>("Upgrade", isMusic),
                 rowsOf<UpgradeBehindALink>("UpgradeBehindALink", isMusicBehindALink),
                 rowsOf<UpgradeOverABackup>("UpgradeOverABackup", isMusic)});
}

class FaultTable : public testing::TestWithParam<FaultPathRow> {};

TEST_P(FaultTable, NoFaultOfAnyOperationCostsAnItem) { runFaultTable(GetParam().make); }

INSTANTIATE_TEST_SUITE_P(Paths, FaultTable, testing::ValuesIn(everyRow()), nameOfPath);

}  // namespace
}  // namespace quillbox::test
