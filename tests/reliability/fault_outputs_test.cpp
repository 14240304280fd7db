#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "editors/media_loader.h"
#include "printing/export.h"
#include "printing/listing.h"
#include "printing/print_engine.h"
#include "support/collection_path.h"
#include "support/fake_desktop.h"
#include "support/loading.h"

namespace quillbox::test {
namespace {

constexpr const char* kSpool = "printer.tmp";
constexpr const char* kHeading = "Things";

/// A number of items, each with a long name of its own.
std::vector<std::string> manyItems(const CollectionKind& kind, int count) {
  std::vector<std::string> items;
  for (int n = 0; n < count; ++n)
    items.push_back(plainItem(kind, std::to_string(n) + std::string(40, 'x')));
  return items;
}

/// A collection whose listing has more than one page, and a complete listing to compare with. With
/// short sheets few items are enough.
class ListedPath : public CollectionPath {
 public:
  explicit ListedPath(const CollectionKind& kind) : CollectionPath(kind, manyItems(kind, kItems)) {
    desktop_.fakePrinter.height = kSheetOf30Lines;
  }

  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    expectCollectionUntouched();
    EXPECT_EQ(state_.Count, kItems);
  }

 protected:
  static constexpr int kItems = 6;
  static constexpr double kSheetOf30Lines = 350;

  std::int16_t compose(std::int16_t mode) {
    return composePages(state_.files, state_, kind_, listing_, mode, engine_, board_);
  }
  void chooseTextFile() {
    desktop_.expectPrint(PrintChoice{.toFile = true});
    desktop_.expectSave("Print to FileName", "Text File (*.txt)|*.txt", offered_, target_);
    offered_ = target_;
    std::int16_t mode = print_mode::printer;
    engine_.OpenPrinter(mode);
    EXPECT_EQ(mode, print_mode::textFile);
  }
  void writeText(std::int16_t pages) { engine_.PrintOut(print_mode::textFile, pages, kHeading); }

  std::string target_ = folder_.path("list.txt");
  std::optional<std::string> offered_;  // by the next save dialog
  FakeDesktop desktop_;
  NoBoard board_;
  PrintEngine engine_{state_, desktop_, board_};
  Listing listing_{kind_, {[](const Field&, int index) { return std::to_string(index); }, ""}};
};

/// Only the spool, where every failure is ignored.
class Spooling : public ListedPath {
 public:
  explicit Spooling(const CollectionKind& kind) : ListedPath(kind) {
    pages_ = compose(print_mode::printer);
    spool_ = readFile(kSpool);
    EXPECT_GT(pages_, 1);
  }

  void run() override { composed_ = compose(print_mode::printer); }
  bool endsWith(std::size_t) const override { return false; }
  bool ignoresFailures() const override { return true; }
  void expectDone() const override {
    EXPECT_EQ(composed_, pages_);
    EXPECT_TRUE(readFile(kSpool) == spool_);
    expectCollectionUntouched();
  }

 private:
  std::int16_t pages_ = 0;
  std::int16_t composed_ = 0;
  std::string spool_;
};

/// Composed pages are written to a text file.
class TextFile : public ListedPath {
 public:
  explicit TextFile(const CollectionKind& kind) : ListedPath(kind) {
    chooseTextFile();
    writeText(compose(print_mode::textFile));
    text_ = readFile(target_);
    writeFile(target_, "the last listing");
    pages_ = compose(print_mode::textFile);
    EXPECT_GT(pages_, 1);
  }

  void run() override { writeText(pages_); }
  void expectDone() const override {
    EXPECT_TRUE(readFile(target_) == text_);
    EXPECT_FALSE(std::filesystem::exists(kSpool));
    expectCollectionUntouched();
  }
  /// The pages remain until the text file is complete.
  void expectSafe(const Fault& fault, const Failure& failure) const override {
    ListedPath::expectSafe(fault, failure);
    if (failure.number != 0) {
      EXPECT_TRUE(std::filesystem::exists(kSpool));
    }
  }
  bool endsWith(std::size_t) const override { return true; }

 protected:
  std::int16_t pages_ = 0;
  std::string text_;
};

/// A listing from its first block to the text file, as the editors make it: without reporting
/// failures.
class WholeListing : public TextFile {
 public:
  explicit WholeListing(const CollectionKind& kind) : TextFile(kind) {}

  void run() override {
    ignoringErrors([this] { writeText(compose(print_mode::textFile)); });
  }
  bool endsWith(std::size_t) const override { return false; }
  bool ignoresFailures() const override { return true; }
};

/// Composed pages are printed on paper.
class Paper : public ListedPath {
 public:
  explicit Paper(const CollectionKind& kind) : ListedPath(kind) {
    pages_ = compose(print_mode::printer);
    EXPECT_GT(pages_, 1);
  }

  void run() override {
    desktop_.fakePrinter.sheets.clear();
    desktop_.expectInput("Starting Page", "Printer Data", "1", "1");
    desktop_.expectInput("Ending Page", "Printer Data", std::to_string(pages_),
                         std::to_string(pages_));
    engine_.PrintOut(print_mode::printer, pages_, kHeading);
  }
  void expectDone() const override {
    EXPECT_EQ(desktop_.fakePrinter.sheets.size(), static_cast<std::size_t>(pages_));
    EXPECT_FALSE(std::filesystem::exists(kSpool));
    expectCollectionUntouched();
  }
  void expectSafe(const Fault& fault, const Failure& failure) const override {
    ListedPath::expectSafe(fault, failure);
    EXPECT_TRUE(std::filesystem::exists(kSpool));
  }
  bool endsWith(std::size_t) const override { return true; }

 private:
  std::int16_t pages_ = 0;
};

/// More than the writer and the reader handle at once, for most kinds.
class ExportPath : public CollectionPath {
 public:
  explicit ExportPath(const CollectionKind& kind) : CollectionPath(kind, manyItems(kind, kItems)) {
    EXPECT_EQ(failureOf([this] { run(); }), ExportPath::usualFailure());
    exported_ = readFile(target_);
    writeFile(target_, "the last export");
  }

  void run() override { exportCollection(state_.files, state_, kind_, target_); }

  /// The names of media files cannot be exported.
  Failure usualFailure() const override { return {kind_.editor == EditorForm::wave ? 13 : 0, ""}; }
  /// A failure at the end is hidden by the one before.
  bool endsWith(std::size_t nth) const override {
    const auto operation = operationAt(nth).operation;
    const bool isAtTheEnd = operation == FileOperation::write || operation == FileOperation::close;
    if (kind_.editor == EditorForm::wave && isAtTheEnd) return false;
    return CollectionPath::endsWith(nth);
  }
  void expectDone() const override {
    EXPECT_TRUE(readFile(target_) == exported_);
    expectCollectionUntouched();
  }
  void expectSafe(const Fault& /*fault*/, const Failure& /*failure*/) const override {
    expectCollectionUntouched();
    EXPECT_EQ(state_.Count, kItems);
  }

 private:
  static constexpr int kItems = 40;

  std::string target_ = folder_.path("out.txt");
  std::string exported_;
};

/// Files for more than one write are loaded into a collection that has one of them.
class LoadFolder : public CollectionPath {
 public:
  explicit LoadFolder(const CollectionKind& kind)
      : CollectionPath(kind, {plainItem(kind, fileName(kind, kKnown))}) {
    std::filesystem::create_directory("folder");
    after_ = before_;
    for (const char name : kNames) {
      writeFile("folder/" + fileName(kind, name), "");
      if (name != kKnown) after_ += loaded(name);
    }
    after_.replace(0, kHeaderLength, plainHeader(kind, static_cast<int>(kNames.size())));
  }

  void run() override {
    const LoaderRow& row = loaderRow(kind_.mediaCode);
    auto names = filesToLoad(files_, kFolder, loaderPatterns(row.filter));
    std::ranges::sort(names);
    loadAndCount(state_, kind_, kFolder, names, board_);
  }
  void expectDone() const override {
    EXPECT_TRUE(collection() == after_);
    EXPECT_EQ(state_.Count, kNames.size());
  }
  /// What is counted exists, in the file and in the state. Only a header that was half written,
  /// and cannot be read back, counts more than the state: the items of one write.
  void expectSafe(const Fault& fault, const Failure& /*failure*/) const override {
    const std::size_t length = kind_.recordLength;
    const std::string now = collection();
    const int counted = now.front();
    const int inDoubt = fault.isShort && fault.lasts ? kItemsAtOnce : 0;
    EXPECT_GE(counted, state_.Count);
    EXPECT_LE(counted, state_.Count + inDoubt);
    const std::size_t end = static_cast<std::size_t>(counted + 1) * length;
    EXPECT_TRUE(now.substr(length, end - length) == after_.substr(length, end - length));
    // What follows is all or a part of one write.
    EXPECT_TRUE(now.substr(length) == after_.substr(length, now.size() - length));
    std::string header = before_;
    expectOnlyPiecesChanged(
        now.substr(0, length), header.replace(0, 1, 1, now.front()).substr(0, length),
        now.substr(0, 1) + after_.substr(1, length - 1), {{0, kHeaderLength}}, fault.isShort);
  }

 private:
  static constexpr std::size_t kHeaderLength = 12;
  static constexpr int kItemsAtOnce = 8;
  static constexpr const char* kFolder = "folder";
  static constexpr std::string_view kNames = "abcdefghijk";
  static constexpr char kKnown = 'b';

  static std::string fileName(const CollectionKind& kind, char name) {
    const std::string pattern = loaderPatterns(loaderRow(kind.mediaCode).filter).front();
    return name + pattern.substr(1);
  }
  std::string loaded(char name) const {
    std::string item = plainItem(kind_, fileName(kind_, name));
    setText(kind_.fields[1], std::as_writable_bytes(std::span(item)), kFolder);
    return item;
  }

  NoBoard board_;
  std::string after_;
};

bool isMediaFiles(const CollectionKind& kind) { return kind.editor == EditorForm::wave; }

std::vector<FaultPathRow> everyOutput() {
  return joined({rowsOf<Spooling>("Spooling"), rowsOf<TextFile>("TextFile"),
                 rowsOf<WholeListing>("WholeListing"), rowsOf<Paper>("Paper"),
                 rowsOf<ExportPath>("Export"), rowsOf<LoadFolder>("LoadFolder", isMediaFiles)});
}

class FaultTableOfOutputs : public testing::TestWithParam<FaultPathRow> {};

TEST_P(FaultTableOfOutputs, NoFaultOfAnyOperationCostsAnItem) { runFaultTable(GetParam().make); }

INSTANTIATE_TEST_SUITE_P(Paths, FaultTableOfOutputs, testing::ValuesIn(everyOutput()), nameOfPath);

}  // namespace
}  // namespace quillbox::test
