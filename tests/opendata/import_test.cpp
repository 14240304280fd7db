#include "opendata/import.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "opendata/csv_reader.h"
#include "opendata/export_text.h"
#include "opendata/json_reader.h"
#include "support/collection_path.h"
#include "support/machine.h"
#include "support/opendata_support.h"

namespace quillbox::test {
namespace {

class ImportInto : public testing::TestWithParam<int> {
 protected:
  const CollectionKind& kind() const { return *kindOfCode(GetParam()); }
  std::string path() const { return folder_.path("mine." + extensionIn(kind())); }

  /// Items with those first texts, the marker for deleted ones.
  void put(const std::vector<std::string>& firsts) {
    std::vector<std::string> items;
    for (const std::string& first : firsts) items.push_back(plainItem(kind(), first));
    writeFile(path(), plainCollection(kind(), items));
  }

  ImportResult bringIn(const std::string& csv, ImportOptions options = {}) {
    return importCsv(files_, path(), csv, options, watcher_);
  }

  std::string whyNot(const std::string& csv) {
    return dataErrorOf([&] { bringIn(csv); });
  }

  std::string exported() {
    const CollectionFile collection = readCollectionFile(files_, path());
    const Values values(collection);
    KeptText text;
    exportCsv({files_, collection, values}, text, CsvFor::programs);
    return text.kept;
  }

  std::string firstColumn() const { return std::string(kind().fields.front().name); }
  std::string item(int number) const {
    const std::size_t length = kind().recordLength;
    return readFile(path()).substr(static_cast<std::size_t>(number) * length, length);
  }

  TestFolder folder_;
  FailingFiles files_;
  ToldChanges watcher_;
};

TEST_P(ImportInto, AnUnchangedExportWritesNothing) {
  put({"a", std::string(kind().rules.deletion.marker), "c"});
  const std::string before = readFile(path());
  const std::string csv = exported();
  files_.forget();
  const ImportResult result = bringIn(csv);
  EXPECT_EQ(result.rows, 3);
  EXPECT_EQ(result.changed + result.added + result.wrong, 0);
  EXPECT_EQ(files_.countOf(FileOperation::make), 0);
  EXPECT_EQ(files_.countOf(FileOperation::write), 0);
  EXPECT_TRUE(readFile(path()) == before);
}

TEST_P(ImportInto, AChangedTextTouchesNothingElse) {
  put({"a", "b", "c"});
  // What no text can express: after a zero byte, and everywhere else in the item.
  std::string bytes = readFile(path());
  const std::size_t length = kind().recordLength;
  bytes.replace(2 * length, 5, std::string("b\0xyz", 5));
  bytes.back() = '\x01';
  writeFile(path(), bytes);
  const ImportResult result = bringIn("Item," + firstColumn() + "\n2,b\n3,changed\n1,a\n");
  EXPECT_EQ(result.changed, 1);
  std::string expected = bytes;
  const std::size_t width = kind().fields.front().width;
  std::string text = "changed";
  text.resize(width, ' ');
  expected.replace(3 * length, width, text);
  std::string found = readFile(path());
  if (tendsHeader(kind())) {  // their item writes put the program's version there
    expected.replace(0, 12, plainHeader(kind(), 3));
  }
  EXPECT_TRUE(found == expected);
  EXPECT_EQ(result.keptAs, path() + "~");
  EXPECT_TRUE(readFile(path() + "~") == bytes);
}

TEST_P(ImportInto, ADryRunTellsTheSameAndWritesNothing) {
  put({"a", "b"});
  const std::string before = readFile(path());
  const std::string csv = "Item," + firstColumn() + "\n2,x\n,new\n";
  files_.forget();
  ImportOptions options;
  options.dryRun = true;
  bringIn(csv, options);
  EXPECT_EQ(files_.countOf(FileOperation::make) + files_.countOf(FileOperation::write), 0);
  EXPECT_TRUE(readFile(path()) == before);
  const auto told = std::exchange(watcher_.told, {});
  EXPECT_EQ(told.size(), 2U);
  bringIn(csv);
  EXPECT_EQ(watcher_.told, told);
}

TEST_P(ImportInto, NewItemsBeginAsUntouchedFormsDo) {
  put({"a"});
  bringIn(firstColumn() + "\nnew\n");
  const CollectionFile collection = readCollectionFile(files_, path());
  EXPECT_EQ(collection.count, 2);
  const std::string record = item(2);
  const auto bytes = std::as_bytes(std::span(record));
  for (const Field& field : kind().fields) {
    if (field.type == FieldType::choice) {
      EXPECT_EQ(wholeOf(field, bytes), -1);
    }
    if (field.type == FieldType::date) {
      EXPECT_EQ(realOf(field, bytes), 29221);
    }
    if (field.type == FieldType::money) {
      EXPECT_EQ(moneyOf(field, bytes), 0);
    }
  }
}

TEST_P(ImportInto, ABlankPlaceAtTheEndStaysBlank) {
  put({"a", "b"});
  std::filesystem::resize_file(path(), 2 * kind().recordLength);  // the last item is missing
  bringIn("Item," + firstColumn() + "\n1,x\n,new\n");
  EXPECT_EQ(item(2), plainItem(kind(), ""));
  EXPECT_EQ(item(3).substr(0, 4), "new ");
}

TEST_P(ImportInto, AShorterFileIsLeftAlone) {
  put({"a", "b", "c"});
  std::filesystem::resize_file(path(), 2 * kind().recordLength + 7);
  const std::string before = readFile(path());
  EXPECT_EQ(bringIn(exported()).changed, 0);
  EXPECT_EQ(whyNot("Item," + firstColumn() + "\n1,x\n"),
            "the file ends at item 2 of 3; it was left alone");
  EXPECT_TRUE(readFile(path()) == before);
}

TEST_P(ImportInto, GivesUpAfterAHundredMistakes) {
  put({"a"});
  std::string csv = "Item," + firstColumn() + "\n";
  for (int row = 0; row < 99; ++row) csv += "7,x\n";
  EXPECT_EQ(bringIn(csv).wrong, 99);
  EXPECT_EQ(whyNot(csv + "7,x\n"), "there is too much wrong to go on");
}

TEST_P(ImportInto, KeepsThePermissions) {
  QUILLBOX_NEEDS(permissions);
  put({"a"});
  using std::filesystem::perms;
  const perms own = perms::owner_read | perms::owner_write;
  std::filesystem::permissions(path(), own);
  bringIn("Item," + firstColumn() + "\n1,x\n");
  EXPECT_EQ(std::filesystem::status(path()).permissions(), own);
  EXPECT_EQ(std::filesystem::status(path() + "~").permissions(), own);
}

using ImportBesideOthers = ImportInto;

TEST_P(ImportBesideOthers, AnotherProgramsChangeIsLeftAlone) {
  put({"a", "b", "c"});
  std::string theirs = readFile(path());
  theirs.replace(kind().recordLength, 6, "theirs");
  for (int read = 0; read < 30; ++read) {
    put({"a", "b", "c"});
    // At each of the reads, one after another.
    int countdown = read;
    std::function<void()> interfere = [&] {
      if (countdown-- == 0)
        writeFile(path(), theirs);
      else
        files_.beforeRead = interfere;
    };
    files_.beforeRead = interfere;
    const std::string why = whyNot("Item," + firstColumn() + "\n3,ours\n");
    files_.beforeRead = nullptr;
    if (countdown >= 0) return;  // there are no further reads
    const std::string found = readFile(path());
    // The other program's item is there in any case: untouched, or read before the copy.
    EXPECT_EQ(found.substr(kind().recordLength, 6), "theirs") << "read " << read;
    if (found.find("ours ") == std::string::npos) {
      EXPECT_TRUE(found == theirs);
      EXPECT_EQ(why, "another program has changed the collection meanwhile; it was left alone");
    }
  }
  ADD_FAILURE() << "there are more reads than that";
}

INSTANTIATE_TEST_SUITE_P(Kinds, ImportInto, testing::Range(1, 10));
INSTANTIATE_TEST_SUITE_P(Kinds, ImportBesideOthers, testing::Values(1, 5));

}  // namespace
}  // namespace quillbox::test
