#include <QRadioButton>
#include <filesystem>
#include <string>
#include <vector>

#include "support/fault_table.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class OverwriteFaults : public FormTest, public testing::WithParamInterface<ModelKind> {
 protected:
  std::string name() const { return std::string("Things.") + GetParam().extension; }
  std::string bytes() const { return bytesAt(path(name())); }

  /// Writes the old collection and fills in the dialog.
  void openDialog() {
    writeFile(path(name()), kOld);
    start();
    fillIn();
  }
  void fillIn() {
    if (formName() != "frmNewCollection") choose("N");
    type("txtColName", "Things");
    control<QRadioButton>(("optQBX_" + std::to_string(GetParam().option)).c_str()).click();
  }
  void expectQuestion(Answer answer) {
    desktop_.expectQuestion("QBX - File Manager", "Overwrite Existing Collection?", answer);
  }
  void go() {
    press("cmdNew");
    desktop_.expectNothingLeft();
  }

  /// The final result of the dialog.
  void expectMade() {
    EXPECT_EQ(formName(), GetParam().formName);
    EXPECT_EQ(state_->Count, 0);
    EXPECT_TRUE(bytes().starts_with(header_));
  }

  /// The operations from Go to the editor.
  std::vector<OperationRecord> operationsOf(Answer answer) {
    openDialog();
    files_.forget();
    expectQuestion(answer);
    go();
    expectMade();
    EXPECT_EQ(bytes(), answer == Answer::yes ? header_ : header_ + kOld.substr(header_.size()));
    return files_.operations();
  }

  bool failsInCell(std::size_t nth, FileOperation operation, const Fault& fault, Answer answer) {
    openDialog();
    files_.shortWrites = fault.isShort;
    files_.forget();
    files_.failNth(static_cast<int>(nth), fault.error);
    if (operation != FileOperation::exists) expectQuestion(answer);
    desktop_.expectMessage("Quillbox", RunTimeError(fault.error, path(name())).message());
    go();
    const bool hasFailed = files_.hasFailed() && files_.operations().at(nth).operation == operation;
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_->files.isOpen(number)) << number;

    const bool isBeforeTheEditor =
        operation == FileOperation::exists || operation == FileOperation::remove;
    EXPECT_EQ(formName(), isBeforeTheEditor ? "frmNewCollection" : "frmBegin2");
    if (isBeforeTheEditor) {
      EXPECT_EQ(bytes(), kOld);
    } else {
      EXPECT_FALSE(state_->newCollection);
      expectOnlyPiecesChanged(
          bytes(), answer == Answer::yes ? "" : kOld,
          answer == Answer::yes ? header_ : header_ + kOld.substr(header_.size()),
          {{0, header_.size()}}, fault.isShort);
    }
    expectTheNextTryToDo();
    return hasFailed;
  }

  void expectTheNextTryToDo() {
    files_.failNth(-1, ErrorNumber::deviceIo);
    files_.shortWrites = false;
    fillIn();
    if (std::filesystem::exists(path(name()))) expectQuestion(Answer::yes);
    go();
    expectMade();
  }

  const std::string kOld = "the header and the items of an old collection";
  const std::string header_ = std::string{0, 0, 1, 0} + "1.71    ";
};

TEST_P(OverwriteFaults, NoFaultCostsACollectionThatWasToStayOrTheNextTry) {
  std::size_t cells = 0;
  std::size_t failed = 0;
  for (const Answer answer : {Answer::yes, Answer::no}) {
    const auto operations = operationsOf(answer);
    for (std::size_t nth = 0; nth < operations.size(); ++nth) {
      if (operations[nth].path != path(name())) continue;  // the list of media types
      for (const Fault& fault : faultsOf(operations[nth].operation)) {
        if (fault.lasts) continue;  // the dialog gives up at the first failure
        SCOPED_TRACE("operation " + std::to_string(nth) + ", error " +
                     std::to_string(static_cast<int>(fault.error)));
        ++cells;
        if (failsInCell(nth, operations[nth].operation, fault, answer)) ++failed;
      }
    }
  }
  EXPECT_GT(cells, 0U);
  EXPECT_EQ(failed, cells);
  RecordProperty("cells", static_cast<int>(cells));
}

INSTANTIATE_TEST_SUITE_P(Kinds, OverwriteFaults, testing::ValuesIn(kModelKinds), nameOfKind);

/// A missing collection on the command line is created. (Music is created without a form, see
/// FaultTable.)
class MissingFileFaults : public FormTest, public testing::WithParamInterface<ModelKind> {
 protected:
  std::string collection() const { return path(std::string("Things.") + GetParam().extension); }

  std::vector<OperationRecord> operations() {
    files_.forget();
    start({collection()});
    expectOpened();
    EXPECT_EQ(bytesAt(collection()), header_);
    return files_.operations();
  }

  bool failsInCell(std::size_t nth, FileOperation operation, const Fault& fault) {
    std::filesystem::remove(collection());
    files_.shortWrites = fault.isShort;
    files_.forget();
    files_.failNth(static_cast<int>(nth), fault.error);
    desktop_.expectMessage("Quillbox", RunTimeError(fault.error, collection()).message());
    start({collection()});
    desktop_.expectNothingLeft();
    const bool hasFailed = files_.hasFailed() && files_.operations().at(nth).operation == operation;
    EXPECT_EQ(formName(), "frmBegin2");
    for (int number = 1; number <= 255; ++number)
      EXPECT_FALSE(state_->files.isOpen(number)) << number;
    expectOnlyPiecesChanged(bytesAt(collection()), "", header_, {{0, header_.size()}},
                            fault.isShort);

    files_.failNth(-1, ErrorNumber::deviceIo);
    files_.shortWrites = false;
    start({collection()});
    expectOpened();
    return hasFailed;
  }

  void expectOpened() {
    EXPECT_EQ(formName(), GetParam().formName);
    EXPECT_EQ(state_->Count, 0);
  }

  const std::string header_ = std::string{0, 0, 1, 0} + "1.71    ";
};

TEST_P(MissingFileFaults, NoFaultOfMakingItIsInTheWayOfTheNextTry) {
  std::size_t cells = 0;
  std::size_t failed = 0;
  const auto all = operations();
  for (std::size_t nth = 0; nth < all.size(); ++nth)
    for (const Fault& fault : faultsOf(all[nth].operation)) {
      if (fault.lasts) continue;  // the editor gives up at the first failure
      SCOPED_TRACE("operation " + std::to_string(nth) + ", error " +
                   std::to_string(static_cast<int>(fault.error)));
      ++cells;
      if (failsInCell(nth, all[nth].operation, fault)) ++failed;
    }
  EXPECT_GT(cells, 0U);
  EXPECT_EQ(failed, cells);
  RecordProperty("cells", static_cast<int>(cells));
}

INSTANTIATE_TEST_SUITE_P(Kinds, MissingFileFaults,
                         testing::Values(kVideo, kComics, kSoftware, kBooks), nameOfKind);

}  // namespace
}  // namespace quillbox::test
