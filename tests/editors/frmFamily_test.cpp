// What the editors of video, software, comics and books have in common, with real keys, down to
// the bytes of the file.

#include <QAccessible>
#include <QGuiApplication>
#include <cctype>
#include <map>
#include <random>

#include "editors/frmBooks.h"
#include "editors/frmComics.h"
#include "editors/frmSoftware.h"
#include "editors/frmVideo.h"
#include "records/kinds.h"
#include "support/family_steps.h"
#include "support/machine.h"
#include "support/odd_names.h"

namespace quillbox::test {
namespace {

const std::string kDeviceError = "'57':\n\nDevice I/O error";
const std::string kDiskFull = "'61':\n\nDisk full";
const std::string kBadRecordNumber = "'63':\n\nBad record number";
const std::string kDenied = "'70':\n\nPermission denied";

class FamilyEditor : public FamilySteps, public testing::WithParamInterface<ModelKind> {
 protected:
  FamilyEditor() : FamilySteps(GetParam()) {}

  /// The fields of the kind's drop-down lists.
  std::vector<const Field*> choices() const {
    std::vector<const Field*> found;
    for (const Field& field : kind().row().fields)
      if (field.type == FieldType::choice) found.push_back(&field);
    return found;
  }

  /// The position the editor steps by.
  std::int16_t& position() { return kind().hidesDeleted() ? state_->ListPos : state_->CurRec; }

  /// Every text is empty and every box unticked.
  void expectEmptyForm() {
    for (const QLineEdit* cleared : form().findChildren<QLineEdit*>())
      EXPECT_EQ(cleared->text(), "") << cleared->objectName().toStdString();
    for (const QCheckBox* cleared : form().findChildren<QCheckBox*>())
      EXPECT_FALSE(cleared->isChecked()) << cleared->objectName().toStdString();
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, FamilyEditor, testing::Values(kVideo, kSoftware, kComics, kBooks),
                         nameOfKind);

// ---- Opening

TEST_P(FamilyEditor, OpensFromTheCommandLineOnItemOne) {
  open({"A", "B", "C"});
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(caption(), std::string(kind().caption) + name() + ")");
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_EQ(first(), "A");
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_EQ(position(), 1);
  EXPECT_FALSE(previousEnabled());
  EXPECT_TRUE(nextEnabled());
  EXPECT_EQ(bytes(), familyFile(kind(), {"A", "B", "C"})) << "opening writes nothing";
}

TEST_P(FamilyEditor, AnExtensionInSmallLettersIsTheSame) {
  std::string small = name();
  for (char& c : small) c = static_cast<char>(std::tolower(c));
  writeFile(path(small), familyFile(kind(), {"A"}));
  start({path(small)});
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(caption(), std::string(kind().caption) + small + ")");
  EXPECT_EQ(indicator(), "Record # 1 of 1");
}

TEST_P(FamilyEditor, ShowsTheCaptionExactly) {
  for (const std::string& begin : kOddNames) {
    const std::string file = begin + std::string(kind().extension);
    writeFile(path(file), familyFile(kind(), {"A"}));
    start({path(file)});
    EXPECT_EQ(caption(), std::string(kind().caption) + file + ")");
  }
}

TEST_P(FamilyEditor, ASingleItemHasNowhereToStepTo) {
  open({"A"});
  EXPECT_FALSE(previousEnabled());
  EXPECT_FALSE(nextEnabled());
}

TEST_P(FamilyEditor, MakesTheCollectionWhenThereIsNone) {
  start({collectionPath()});
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(caption(), std::string(kind().caption) + name() + ")");
  EXPECT_EQ(indicator(), "New File");
  EXPECT_EQ(bytes(), std::string("\0\0\1\0001.71    ", 12));
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_FALSE(previousEnabled());
  EXPECT_FALSE(nextEnabled());
  expectEmptyForm();
  typeFirst("First");
  pressWrite();
  expectEmptyForm();
  EXPECT_EQ(storedFirst(1), "First");
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(1));
}

TEST_P(FamilyEditor, ANewCollectionOfTheDialogTakesItemsAtOnce) {
  open({"A"});
  const std::string made = path("made." + std::string(kind().extension));
  openHere(made, true);
  EXPECT_EQ(readFile(made), familyHeader(0));
  EXPECT_FALSE(state_->newCollection) << "cleared once the file is made";
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->CurRec, kNewItem);
  expectEmptyForm();
  typeFirst("First");
  pressWrite();
  EXPECT_EQ(readFile(made).substr(0, 12), familyHeader(1));
  EXPECT_EQ(textAt(itemBytes(kind(), readFile(made), 1), 0), "First");
}

TEST_P(FamilyEditor, ANewCollectionOverAnOldOneLeavesItsItemsUncounted) {
  open({"A", "B"});
  const std::string before = bytes();
  openHere(collectionPath(), true);
  EXPECT_EQ(bytes(), familyHeader(0) + before.substr(12));
}

TEST_P(FamilyEditor, AnEmptyCollectionIsAtPositionZero) {
  openBytes(familyHeader(0));
  EXPECT_EQ(indicator(), "Record #: 0");
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(position(), 0);
  EXPECT_FALSE(previousEnabled());
  EXPECT_FALSE(nextEnabled());
  expectEmptyForm();
  EXPECT_EQ(bytes(), familyHeader(0));
}

TEST_P(FamilyEditor, OpeningAnEmptyCollectionForgetsWhereTheLastOneWas) {
  open({"A", "B", "C"});
  pressNext();
  const std::string empty = path("empty." + std::string(kind().extension));
  writeFile(empty, familyHeader(0));
  openHere(empty);
  EXPECT_EQ(indicator(), "Record #: 0");
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(position(), 0);
  EXPECT_FALSE(previousEnabled()) << "each load starts with both disabled";
  EXPECT_FALSE(nextEnabled());
  expectEmptyForm();
}

TEST_P(FamilyEditor, AFreshLoadSetsTheListsToNone) {
  open({"A", "B"});
  for (QComboBox* each : form().findChildren<QComboBox*>())
    pick(each->objectName().toUtf8().constData(), 2);
  // Choices outside their lists leave the selection as the load set it.
  std::string item = familyItem(kind(), "A");
  for (const Field* choice : choices()) item.replace(choice->offset, 2, "\x63\0", 2);
  std::string collection = familyFile(kind(), {"A"});
  collection.replace(kind().recordLength, item.size(), item);
  writeFile(collectionPath(), collection);
  openHere(collectionPath());
  EXPECT_EQ(indicator(), "Record # 1 of 1");
  for (const QComboBox* each : form().findChildren<QComboBox*>())
    EXPECT_EQ(each->currentIndex(), -1) << each->objectName().toStdString();
}

TEST_P(FamilyEditor, AFailedLoadEndsOnTheStartScreen) {
  const std::string before = familyFile(kind(), {"A", "B"});
  writeFile(collectionPath(), before);
  for (const FileOperation operation : {FileOperation::open, FileOperation::read})
    for (const int nth : {0, 1}) {
      SCOPED_TRACE(nth);
      files_.failNth(operation, nth, ErrorNumber::permissionDenied);
      expectFileError(kDenied);
      start({collectionPath()});
      EXPECT_TRUE(files_.hasFailed());
      EXPECT_EQ(formName(), "frmBegin2");
      EXPECT_EQ(bytes(), before);
    }
}

TEST_P(FamilyEditor, ACollectionThatCannotBeMadeEndsOnTheStartScreen) {
  for (const FileOperation operation : {FileOperation::open, FileOperation::write}) {
    files_.failNth(operation, 0, ErrorNumber::diskFull);
    expectFileError(kDiskFull);
    std::filesystem::remove(collectionPath());
    start({collectionPath()});
    EXPECT_EQ(formName(), "frmBegin2");
  }
}

// ---- Stepping

TEST_P(FamilyEditor, StepsOneUpAndOneDown) {
  open({"A", "B", "C"});
  pressNext();
  EXPECT_EQ(indicator(), "Record # 2 of 3");
  EXPECT_EQ(first(), "B");
  EXPECT_TRUE(previousEnabled());
  EXPECT_TRUE(nextEnabled());
  pressNext();
  EXPECT_EQ(indicator(), "Record # 3 of 3");
  EXPECT_EQ(first(), "C");
  EXPECT_TRUE(previousEnabled());
  EXPECT_FALSE(nextEnabled());
  pressPrevious();
  pressPrevious();
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_EQ(first(), "A");
  EXPECT_FALSE(previousEnabled()) << "no way round to the last item";
}

TEST_P(FamilyEditor, StepsOntoDeletedItems) {
  open({"A", "DELETED", "DELETED", "D"});
  pressNext();
  EXPECT_EQ(position(), 2);
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(first(), kind().hidesDeleted() ? "A" : "DELETED");
  EXPECT_EQ(indicator(), kind().hidesDeleted() ? "Record # 1 of 4" : "Record # 2 of 4");
  pressNext();
  EXPECT_EQ(position(), 3);
  pressNext();
  EXPECT_EQ(indicator(), "Record # 4 of 4");
  EXPECT_EQ(first(), "D");
  EXPECT_FALSE(nextEnabled());
  pressPrevious();
  EXPECT_EQ(position(), 3);
  EXPECT_EQ(first(), kind().hidesDeleted() ? "D" : "DELETED");
}

TEST_P(FamilyEditor, TheFirstItemIsTheOneEvenWhenItIsDeleted) {
  open({"DELETED", "B", "C"});
  EXPECT_EQ(position(), 1);
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_EQ(first(), kind().hidesDeleted() ? "" : "DELETED");
  EXPECT_FALSE(previousEnabled());
  EXPECT_EQ(nextEnabled(), !kind().hidesDeleted());
}

TEST_P(FamilyEditor, TheMarkerMustBeWhole) {
  open({"A", "DELETED DISK", "deleted"});
  pressNext();
  EXPECT_EQ(first(), "DELETED DISK");
  pressNext();
  EXPECT_EQ(first(), "deleted");
  EXPECT_EQ(indicator(), "Record # 3 of 3");
}

TEST_P(FamilyEditor, NextBeyondTheCountShowsWhatIsOnDiskThenBlanks) {
  openBytes(familyFile(kind(), 2, {"A", "B", "Beyond"}));
  pressNext();
  button(kind().buttons.next).setEnabled(true);
  pressNext();
  EXPECT_EQ(first(), "Beyond");
  EXPECT_EQ(indicator(), "Record # 3 of 2");
  pressNext();
  EXPECT_EQ(first(), "");
  EXPECT_EQ(other(), "");
  EXPECT_EQ(indicator(), "Record # 4 of 2");
  EXPECT_EQ(state_->CurRec, 4);
}

TEST_P(FamilyEditor, NextWithNothingShownStopsAndDisablesItself) {
  openBytes(familyHeader(0));
  button(kind().buttons.next).setEnabled(true);
  button(kind().buttons.previous).setEnabled(true);
  pressNext();
  EXPECT_FALSE(nextEnabled());
  EXPECT_EQ(indicator(), "Record #: 0");
  EXPECT_EQ(position(), 0);
  pressPrevious();
  EXPECT_EQ(indicator(), "Record #: 0") << "the header is no item";
  EXPECT_EQ(position(), 0);
}

TEST_P(FamilyEditor, PreviousFromNothingSetsOutFromTheCount) {
  start({collectionPath()});
  for (const char* each : {"A", "B", "C"}) {
    typeFirst(each);
    pressWrite();
  }
  button(kind().buttons.previous).setEnabled(true);
  pressPrevious();
  EXPECT_EQ(indicator(), "Record # 2 of 3");
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(state_->CurRec, 2);
}

TEST_P(FamilyEditor, PreviousFromNothingOfASingleItemStaysOnIt) {
  start({collectionPath()});
  typeFirst("A");
  pressWrite();
  button(kind().buttons.previous).setEnabled(true);
  pressPrevious();
  EXPECT_EQ(indicator(), "Record # 1 of 1");
  EXPECT_EQ(first(), "A");
}

TEST_P(FamilyEditor, AStepBeyond16BitsIsAnOverflowAndLeavesTheForm) {
  open({"A", "B"});
  position() = INT16_MAX;
  expectError(kOverflow);
  pressNext();
  EXPECT_EQ(position(), INT16_MAX);
  EXPECT_EQ(first(), "A");
}

TEST_P(FamilyEditor, AFailedStepLeavesTheFormAndThePosition) {
  open({"A", "B", "C"});
  pressNext();
  typeOther("typed");
  for (const char* step : {kind().buttons.next, kind().buttons.previous}) {
    files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
    expectFileError(kDeviceError);
    press(step);
    EXPECT_EQ(indicator(), "Record # 2 of 3");
    EXPECT_EQ(position(), 2);
    EXPECT_EQ(state_->CurRec, 2);
    EXPECT_EQ(other(), "typed");
  }
}

TEST_P(FamilyEditor, EnterPressesTheButtonThatHasTheFocus) {
  open({"A", "B", "C"});
  button(kind().buttons.next).setFocus();
  QTest::keyClick(&button(kind().buttons.next), Qt::Key_Return);
  QTest::keyClick(&button(kind().buttons.next), Qt::Key_Return);
  EXPECT_EQ(indicator(), "Record # 3 of 3");
  EXPECT_EQ(form().focusWidget(), &button(kind().buttons.previous)) << "not on to the next command";
}

TEST_P(FamilyEditor, TextsAreShownTrimmedAndUpToTheirFirstNul) {
  const std::string cut("Kino\0Video", 10);
  std::string collection = familyFile(kind(), {"  A  B "});
  collection.replace(kind().recordLength + kind().inputs[1].offset, cut.size(), cut);
  openBytes(collection);
  EXPECT_EQ(first(), "  A  B");
  EXPECT_EQ(other(), "Kino");
}

// ---- Go To

TEST_P(FamilyEditor, GoesToAnItem) {
  open({"A", "B", "C"});
  pressGoTo("3");
  EXPECT_EQ(indicator(), "Record # 3 of 3");
  EXPECT_EQ(first(), "C");
  EXPECT_TRUE(previousEnabled());
  EXPECT_FALSE(nextEnabled());
  pressGoTo(" 1 ");
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_FALSE(previousEnabled());
  pressGoTo("2.5");
  EXPECT_EQ(indicator(), "Record # 2 of 3") << "an exact half goes to the even number";
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(position(), 2);
}

TEST_P(FamilyEditor, GoesToADeletedItem) {
  open({"A", "DELETED", "C"});
  pressGoTo("2");
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(position(), 2);
  EXPECT_EQ(first(), kind().hidesDeleted() ? "A" : "DELETED");
  EXPECT_EQ(indicator(), kind().hidesDeleted() ? "Record # 1 of 3" : "Record # 2 of 3");
}

TEST_P(FamilyEditor, GoToRefusesWhatIsNoItem) {
  open({"A", "B", "C"});
  pressNext();
  typeOther("typed");
  for (const char* answer : {"0", "4", "-1", "0.5", "32767", "-32768"}) {
    SCOPED_TRACE(answer);
    goToInvalid(answer);
    EXPECT_EQ(indicator(), "Record # 2 of 3");
    EXPECT_EQ(position(), 2);
    EXPECT_EQ(other(), "typed");
  }
}

TEST_P(FamilyEditor, GoToEndsOnARunTimeErrorForWhatIsNoNumber) {
  open({"A", "B", "C"});
  pressNext();
  typeOther("typed");
  const std::vector<std::pair<const char*, std::string>> answers = {
      {"two", kTypeMismatch}, {"", kTypeMismatch},   {"  ", kTypeMismatch}, {"1x", kTypeMismatch},
      {"40000", kOverflow},   {"-32769", kOverflow}, {"32768", kOverflow},  {"1e300", kOverflow}};
  for (const auto& [answer, error] : answers) {
    SCOPED_TRACE(answer);
    desktop_.expectInput("Record #", "Go To Record", answer);
    expectError(error);
    press(kind().buttons.goTo);
    EXPECT_EQ(formName(), kind().formName);
    EXPECT_EQ(indicator(), "Record # 2 of 3");
    EXPECT_EQ(position(), 2);
    EXPECT_EQ(state_->CurRec, 2);
    EXPECT_EQ(other(), "typed");
  }
}

TEST_P(FamilyEditor, GoToCancelledChangesNothing) {
  open({"A", "B"});
  typeOther("typed");
  pressGoTo(std::nullopt);
  EXPECT_EQ(indicator(), "Record # 1 of 2");
  EXPECT_EQ(other(), "typed");
}

TEST_P(FamilyEditor, GoToInAnEmptyCollectionIsAlwaysInvalid) {
  openBytes(familyHeader(0));
  goToInvalid("1");
  EXPECT_EQ(indicator(), "Record #: 0");
}

// ---- Write Data

TEST_P(FamilyEditor, WritesInPlaceAndLeavesTheHeaderAlone) {
  std::string collection = familyFile(kind(), {"A", "B", "C"});
  collection.replace(2, 10, std::string("\7\0odd 9.9 ", 10));
  openBytes(collection);
  pressNext();
  typeFirst("Changed");
  typeOther("Somebody");
  pressWrite();
  EXPECT_EQ(indicator(), "Record # 2 of 3") << "the item stays on screen";
  EXPECT_EQ(first(), "Changed");
  const std::string after = bytes();
  EXPECT_EQ(after.size(), collection.size());
  EXPECT_EQ(after.substr(0, 2 * kind().recordLength), collection.substr(0, 2 * kind().recordLength))
      << "the header and item 1";
  EXPECT_EQ(storedFirst(2), "Changed");
  EXPECT_EQ(textAt(stored(2), kind().inputs[1].offset), "Somebody");
  EXPECT_EQ(stored(3), familyItem(kind(), "C"));
}

TEST_P(FamilyEditor, AppendsNewItemsAndClearsTheFormAfterEach) {
  openBytes(familyHeader(0));
  pressClear();
  EXPECT_EQ(indicator(), "New Record");
  int count = 0;
  for (const char* each : {"A", "B", "C"}) {
    typeFirst(each);
    typeOther("Somebody");
    pressWrite();
    EXPECT_EQ(indicator(), "New Record");
    EXPECT_EQ(state_->CurRec, kNewItem);
    EXPECT_EQ(state_->Count, ++count);
    EXPECT_EQ(bytes().substr(0, 12), familyHeader(count));
    EXPECT_EQ(bytes().size(), static_cast<std::size_t>(count + 1) * kind().recordLength);
    expectEmptyForm();
    EXPECT_EQ(QGuiApplication::focusObject(), &box(kind().firstBox())) << "ready for the next item";
  }
  EXPECT_EQ(storedFirst(1), "A");
  EXPECT_EQ(storedFirst(2), "B");
  EXPECT_EQ(storedFirst(3), "C");
  EXPECT_EQ(textAt(stored(3), kind().inputs[1].offset), "Somebody");
  pressGoTo("3");
  EXPECT_EQ(first(), "C");
  EXPECT_EQ(indicator(), "Record # 3 of 3");
}

TEST_P(FamilyEditor, AppendingWritesTheHeaderOfTheRunningProgram) {
  std::string collection = familyFile(kind(), {"A"});
  collection.replace(2, 10, std::string("\7\0odd 9.9 ", 10));
  openBytes(collection);
  pressClear();
  typeFirst("B");
  pressWrite();
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(2));
  EXPECT_EQ(bytes().substr(12, kind().recordLength - 12), std::string(kind().recordLength - 12, 0))
      << "only the 12 bytes of the header are written";
  EXPECT_EQ(stored(1), familyItem(kind(), "A"));
}

TEST_P(FamilyEditor, AnUntouchedListOfANewItemStoresNone) {
  start({collectionPath()});
  typeFirst("A");
  pressWrite();
  for (const Field* choice : choices())
    EXPECT_EQ(stored(1).substr(choice->offset, 2), "\xFF\xFF") << choice->name;
}

TEST_P(FamilyEditor, ClearDataEmptiesTheFormAndLeavesTheLists) {
  open({"A", "B"});
  for (QComboBox* each : form().findChildren<QComboBox*>())
    pick(each->objectName().toUtf8().constData(), 3);
  for (QCheckBox* each : form().findChildren<QCheckBox*>())
    tick(each->objectName().toUtf8().constData());
  pressNext();
  for (QComboBox* each : form().findChildren<QComboBox*>())
    pick(each->objectName().toUtf8().constData(), 2);
  for (QCheckBox* each : form().findChildren<QCheckBox*>())
    tick(each->objectName().toUtf8().constData());
  pressClear();
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(QGuiApplication::focusObject(), &box(kind().firstBox()));
  expectEmptyForm();
  for (const QComboBox* each : form().findChildren<QComboBox*>())
    EXPECT_EQ(each->currentIndex(), 2) << each->objectName().toStdString();
  typeFirst("C");
  pressWrite();
  for (const Field* choice : choices())
    EXPECT_EQ(stored(3).substr(choice->offset, 2), std::string("\2\0", 2)) << choice->name;
  for (const QComboBox* each : form().findChildren<QComboBox*>())
    EXPECT_EQ(each->currentIndex(), 2) << "after a new item too";
  EXPECT_EQ(stored(2), familyItem(kind(), "B")) << "what was not written";
}

TEST_P(FamilyEditor, ClearDataLeavesTheButtonsAsTheyAre) {
  open({"A", "B", "C"});
  pressClear();
  EXPECT_FALSE(previousEnabled());
  EXPECT_TRUE(nextEnabled());
}

TEST_P(FamilyEditor, ADeletedSlotIsNeverReused) {
  open({"DELETED", "B", "DELETED"});
  const std::string before = bytes();
  pressClear();
  typeFirst("New");
  pressWrite();
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(4));
  EXPECT_EQ(bytes().substr(12, before.size() - 12), before.substr(12));
  EXPECT_EQ(storedFirst(4), "New");
}

TEST_P(FamilyEditor, WritingWithNothingShownSaysWhyAndEndsTheProgram) {
  openBytes(familyHeader(0));
  typeFirst("Typed");
  desktop_.expectMessage("QBX - Music Manager",
                         "No item is shown. Choose Clear Data to start a new item.");
  pressWrite();
  EXPECT_TRUE(desktop_.endedAtOnce);
  EXPECT_EQ(bytes(), familyHeader(0));
}

TEST_P(FamilyEditor, AFullCollectionTakesNoMore) {
  const std::string before = familyFile(kind(), INT16_MAX, {"A"});
  openBytes(before);
  EXPECT_EQ(indicator(), "Record # 1 of 32767");
  pressClear();
  typeFirst("One more");
  expectError(kOverflow);
  pressWrite();
  EXPECT_EQ(first(), "One more");
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->Count, INT16_MAX);
  EXPECT_EQ(bytes(), before);
}

TEST_P(FamilyEditor, AFailedWriteLeavesEverythingSoThatItCanBeTriedAgain) {
  // Each operation of storing a new item fails once, completely and half-way.
  const auto typeNewItem = [this] {
    open({"A", "B"});
    pressClear();
    typeFirst("New");
  };
  typeNewItem();
  const int operations = files_.operationsOf([this] { pressWrite(); });
  for (const bool shortWrites : {false, true})
    for (int nth = 0; nth < operations; ++nth) {
      SCOPED_TRACE(nth);
      typeNewItem();
      files_.shortWrites = shortWrites;
      files_.failNth(nth, ErrorNumber::diskFull);
      expectFileError(kDiskFull);
      pressWrite();
      EXPECT_TRUE(files_.hasFailed());
      EXPECT_EQ(state_->Count, 2);
      EXPECT_EQ(state_->CurRec, kNewItem);
      EXPECT_EQ(indicator(), "New Record");
      EXPECT_EQ(first(), "New");
      pressWrite();
      EXPECT_EQ(first(), "");
      EXPECT_EQ(bytes().size(), 4 * kind().recordLength);
      EXPECT_EQ(bytes().substr(0, 12), familyHeader(3));
      EXPECT_EQ(stored(1), familyItem(kind(), "A"));
      EXPECT_EQ(stored(2), familyItem(kind(), "B"));
      EXPECT_EQ(storedFirst(3), "New");
    }
}

TEST_P(FamilyEditor, AFailedWriteInPlaceKeepsTheForm) {
  open({"A", "B"});
  const int operations = files_.operationsOf([this] { pressWrite(); });
  for (int nth = 0; nth < operations; ++nth) {
    SCOPED_TRACE(nth);
    open({"A", "B"});
    typeFirst("Changed");
    files_.failNth(nth, ErrorNumber::deviceIo);
    expectFileError(kDeviceError);
    pressWrite();
    EXPECT_TRUE(files_.hasFailed());
    EXPECT_EQ(first(), "Changed");
    EXPECT_EQ(indicator(), "Record # 1 of 2");
    pressWrite();
    EXPECT_EQ(storedFirst(1), "Changed");
    EXPECT_EQ(stored(2), familyItem(kind(), "B"));
    EXPECT_EQ(bytes().substr(0, 12), familyHeader(2));
  }
}

TEST_P(FamilyEditor, AWriteToACollectionThatIsGoneMakesNoNewOne) {
  open({"A"});
  std::filesystem::remove(collectionPath());
  expectFileError("'53':\n\nFile not found");
  pressWrite();
  EXPECT_FALSE(std::filesystem::exists(collectionPath()));
  EXPECT_EQ(first(), "A");
}

TEST_P(FamilyEditor, TextsAreCutAtTheWidthOfTheirField) {
  open({"A"});
  const std::string sixty = std::string(49, 'x') + "yz" + std::string(9, 'z');
  typeFirst(sixty);
  typeOther(sixty);
  EXPECT_EQ(first(), sixty.substr(0, 50));
  pressWrite();
  EXPECT_EQ(storedFirst(1), sixty.substr(0, 50));
  EXPECT_EQ(textAt(stored(1), kind().inputs[1].offset), sixty.substr(0, 50));
}

TEST_P(FamilyEditor, StoresWindows1252AndAQuestionMarkForTheRest) {
  open({"A"});
  typeFirst("Björk – 久石譲 €");
  pressWrite();
  EXPECT_EQ(storedFirst(1), "Bj\xF6rk \x96 ??? \x80");
  pressGoTo("1");
  EXPECT_EQ(first(), "Björk – ??? €");
}

TEST_P(FamilyEditor, AnItemThatWasOnlyVisitedIsWrittenAsItWas) {
  const std::map<std::string_view, const char*> files = {
      {"VCS", "tapes.VCS"}, {"SCS", "disks.SCS"}, {"CCS", "longbox.CCS"}, {"BCS", "shelf.BCS"}};
  const std::string before = readFile(dataFile(files.at(kind().extension)));
  openBytes(before);
  ASSERT_GT(state_->Count, 0);
  for (int item = 1; item <= state_->Count; ++item) {
    SCOPED_TRACE(item);
    if (storedFirst(item) == "DELETED") continue;
    pressGoTo(std::to_string(item));
    for (QLineEdit* visited : form().findChildren<QLineEdit*>()) {
      visited->setFocus();
      QTest::keyClick(visited, Qt::Key_End);
    }
    pressWrite();
    EXPECT_EQ(stored(item), itemBytes(kind(), before, item));
  }
  EXPECT_EQ(bytes(), before);
}

TEST_P(FamilyEditor, TextsFullOfControlCharactersAreShownAndWrittenBackAsTheyWere) {
  std::string controls;
  for (char c = 1; c < 32; ++c) controls += c;
  open({controls + "\x7F\x81\x8D\x8F\x90\x9D"});
  typeOther("Somebody");
  pressWrite();
  EXPECT_EQ(storedFirst(1), controls + "\x7F\x81\x8D\x8F\x90\x9D");
}

// ---- Delete

class FamilyDelete : public FamilyEditor {};

INSTANTIATE_TEST_SUITE_P(Kinds, FamilyDelete, testing::Values(kVideo, kSoftware, kComics),
                         nameOfKind);

TEST_P(FamilyDelete, NoSaysAndChangesNothing) {
  open({"A", "B"});
  typeOther("typed");
  const std::string before = bytes();
  pressDelete(Answer::no);
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(indicator(), "Record # 1 of 2");
  EXPECT_EQ(other(), "typed");
}

TEST_P(FamilyDelete, WritesTheMarkerAndZerosAndStartsANewItem) {
  std::string collection = familyFile(kind(), {"A", "B", "C"});
  collection.replace(2, 10, std::string("\7\0odd 9.9 ", 10));
  openBytes(collection);
  pressNext();
  typeOther("typed, not written");
  pressDelete(Answer::yes);
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->CurRec, kNewItem);
  expectEmptyForm();
  EXPECT_TRUE(previousEnabled()) << "the buttons stay as they are";
  EXPECT_TRUE(nextEnabled());
  std::string expected = collection;
  expected.replace(2 * kind().recordLength, kind().recordLength, deletedItem(kind()));
  EXPECT_EQ(bytes(), expected) << "header and count included";
  const auto buffer = kind().row().buffer(*state_);
  EXPECT_EQ(static_cast<char>(buffer.front()), 'B') << "the record in memory stays";
}

TEST_P(FamilyDelete, TheNextNewItemGoesToTheEnd) {
  open({"A", "B", "C"});
  pressNext();
  pressDelete(Answer::yes);
  typeFirst("New");
  pressWrite();
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(4));
  EXPECT_EQ(stored(2), deletedItem(kind()));
  EXPECT_EQ(stored(3), familyItem(kind(), "C"));
  EXPECT_EQ(storedFirst(4), "New");
}

TEST_P(FamilyDelete, WithNoItemShownItNeverTouchesTheHeader) {
  for (const std::string& before : {familyHeader(0), familyFile(kind(), {"A", "B"})}) {
    openBytes(before);
    if (state_->Count > 0) pressClear();
    pressDelete(Answer::no);
    EXPECT_EQ(bytes(), before);
    expectFileError(kBadRecordNumber);
    desktop_.expectQuestion("QBX - Music Manager", "Do you really want to delete this?!",
                            Answer::yes);
    desktop_.moveLastToFront();
    press(kind().buttons.remove);
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(state_->CurRec, state_->Count > 0 ? kNewItem : 0);
  }
}

TEST_P(FamilyDelete, AFailureLeavesTheItemOnScreen) {
  open({"A", "B"});
  const int operations = files_.operationsOf([this] { pressDelete(Answer::yes); });
  open({"A", "B"});
  for (int nth = 0; nth < operations; ++nth) {
    SCOPED_TRACE(nth);
    files_.failNth(nth, ErrorNumber::permissionDenied);
    expectFileError(kDenied);
    desktop_.expectQuestion("QBX - Music Manager", "Do you really want to delete this?!",
                            Answer::yes);
    desktop_.moveLastToFront();
    press(kind().buttons.remove);
    EXPECT_TRUE(files_.hasFailed());
    EXPECT_EQ(indicator(), "Record # 1 of 2");
    EXPECT_EQ(first(), "A");
    EXPECT_EQ(state_->CurRec, 1);
  }
  pressDelete(Answer::yes);
  EXPECT_EQ(stored(1), deletedItem(kind()));
  EXPECT_EQ(stored(2), familyItem(kind(), "B"));
}

// ---- Menus and leaving

TEST_P(FamilyEditor, ClosingTheWindowIsExitCollection) {
  open({"A"});
  typeFirst("typed, not written");
  const int left = state_->files.open(file_number::collection, collectionPath(), OpenMode::read);
  close();
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(state_->files.isOpen(left)) << "every open file is closed";
  EXPECT_EQ(bytes(), familyFile(kind(), {"A"}));
  EXPECT_FALSE(desktop_.quitAsked);
}

TEST_P(FamilyEditor, ExitCollectionReturnsToTheStartScreen) {
  open({"A"});
  choose(kind().menu.exitCollection);
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_P(FamilyEditor, NewFileWritesTheHeaderBackAndAsksForTheNewOne) {
  std::string collection = familyFile(kind(), {"A", "B"});
  collection.replace(2, 10, std::string("\7\0odd 9.9 ", 10));
  openBytes(collection);
  choose("NewFile");
  EXPECT_EQ(bytes(), familyFile(kind(), {"A", "B"}));
  EXPECT_EQ(formName(), "frmNewCollection");
}

TEST_P(FamilyEditor, AFailedNewFileKeepsTheEditor) {
  open({"A"});
  files_.failNth(0, ErrorNumber::permissionDenied);
  expectFileError(kDenied);
  choose("NewFile");
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(indicator(), "Record # 1 of 1");
}

TEST_P(FamilyEditor, HasAnotherCaptionAndIndicatorBeforeACollectionIsOpen) {
  start();
  PrintEngine engine(*state_, desktop_, program_->board());
  std::unique_ptr<frmEditor> made;
  if (kind().isVideo()) made = std::make_unique<frmVideo>(*program_, engine);
  if (kind().code == kSoftware.code) made = std::make_unique<frmSoftware>(*program_, engine);
  if (kind().code == kComics.code) made = std::make_unique<frmComics>(*program_, engine);
  if (kind().isBooks()) made = std::make_unique<frmBooks>(*program_, engine);
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->windowTitle().toStdString(), kind().designCaption);
  const auto* shown = made->findChild<QLabel*>(QString::fromUtf8(kind().indicator));
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->text(), kind().isBooks() ? "No Data" : "Record #:");
}

TEST_P(FamilyEditor, FitsASmallScreen) {
  open({"A"});
  EXPECT_LE(form().minimumSizeHint().width(), 1024);
  EXPECT_LE(form().minimumSizeHint().height(), 700);
}

// ---- Controls by name and caption

struct InputLook {
  const char* name;
  const char* caption;
  const char* captionName = nullptr;  ///< of its label, if that has a name
};

/// Everything that can be reached on an editor.
struct FamilyLook {
  ModelKind kind;
  std::vector<InputLook> inputs;                             ///< in tab order
  std::vector<std::pair<const char*, const char*>> buttons;  ///< in tab order
};

void PrintTo(const FamilyLook& look, std::ostream* out) { *out << look.kind.name; }

const FamilyLook kVideoLook = {kVideo,
                               {{"txtVidTitle", "&Label Text:", "lblVidTitle"},
                                {"txtPublisher", "&Publisher:"},
                                {"cmbMediaType", "&Media Type:", "lblMedia"},
                                {"chkCommercial", "C&ommercially Recorded"},
                                {"txtPurPrice", "&Purchase Price:", "lblPurPrice"},
                                {"txtCurrPrice", "&Current Price:"},
                                {"txtAquireDate", "A&quisition Date:", "lblAquireDate"},
                                {"txtNotes", "&Notes:", "lblNotes"}},
                               {{"cmdPrev", "Pre&vious Item"},
                                {"cmdNext", "&Next Item"},
                                {"Command1", "&GoTo"},
                                {"cmdClear", "Cle&ar Data"},
                                {"cmdDelete", "&Delete Item"},
                                {"cmdUpdate", "&Write Data"}}};

const FamilyLook kSoftwareLook = {kSoftware,
                                  {{"txtSftWare_0", "&Disk Label:", "lblSftWare_0"},
                                   {"txtSftWare_1", "P&ublisher:", "lblSftWare_1"},
                                   {"cmbMediaType", "&Media Type:", "lblMedia"},
                                   {"chkCommercial", "C&ommercial"},
                                   {"chkShareWare", "&Shareware"},
                                   {"chkCDRequired", "CD R&equired"},
                                   {"txtSftWare_2", "&Purchase Price", "lblSftWare_2"},
                                   {"txtSftWare_3", "&Current Price", "lblSftWare_3"},
                                   {"txtSftWare_4", "&Notes:", "lblSftWare_4"}},
                                  {{"cmdPrevious", "Pre&vious Item"},
                                   {"cmdNext", "Ne&xt Item"},
                                   {"cmdGoTo", "&GoTo"},
                                   {"cmdClear", "C&lear Data"},
                                   {"cmdDelete", "De&lete Item"},
                                   {"cmdUpdate", "&Write Data"}}};

const FamilyLook kComicsLook = {kComics,
                                {{"txtCmic_0", "&Book Title:", "lblCmic_0"},
                                 {"txtCmic_1", "&Comic Title:", "lblCmic_1"},
                                 {"txtCmic_2", "&Artists:", "lblCmic_2"},
                                 {"txtCmic_3", "&Hero(es):", "lblCmic_3"},
                                 {"txtCmic_4", "&Villan(s)", "lblCmic_4"},
                                 {"txtCmic_5", "F&irst Appearance Of:", "lblCmic_5"},
                                 {"txtCmic_6", "P&ublisher:", "lblCmic_6"},
                                 {"txtCmic_7", "Purc&hase Price:", "lblCmic_7"},
                                 {"txtCmic_8", "Cu&rrent Price:", "lblCmic_8"},
                                 {"txtCmic_9", "A&quisition Date:", "lblCmic_9"},
                                 {"chkBagged", "Ba&gged"},
                                 {"chkBoarded", "B&oarded"}},
                                {{"cmdPrevious", "Pre&vious Item"},
                                 {"cmdNext", "&Next Item"},
                                 {"cmdGoTo", "&GoTo"},
                                 {"cmdClearData", "C&lear Data"},
                                 {"cmdDelete", "&Delete Data"},
                                 {"cmdUpdate", "&Write Data"}}};

const FamilyLook kBooksLook = {kBooks,
                               {{"txtBooks_0", "&Author:", "lblbooks_0"},
                                {"txtBooks_1", "&Title:", "lblbooks_1"},
                                {"txtBooks_2", "&Publisher:", "lblbooks_2"},
                                {"cmbGenre", "&Genre:"},
                                {"cmbMedia", "&Media Type:"},
                                {"txtBooks_3", "&Notes:", "lblbooks_3"}},
                               {{"cmdPrevious", "Pre&vious"},
                                {"cmdNext", "&Next"},
                                {"cmdGoTo", "G&oTo"},
                                {"cmdClearData", "&Clear Data"},
                                {"cmdWriteData", "&WriteData"}}};

class FamilyControls : public FamilySteps, public testing::WithParamInterface<FamilyLook> {
 protected:
  FamilyControls() : FamilySteps(GetParam().kind) {}

  static std::string spoken(const QWidget& input) {
    return QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&input))
        ->text(QAccessible::Name)
        .toStdString();
  }
  static std::string withoutAmpersand(std::string caption) {
    std::erase(caption, '&');
    return caption;
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, FamilyControls,
                         testing::Values(kVideoLook, kSoftwareLook, kComicsLook, kBooksLook),
                         [](const auto& look) { return look.param.kind.name; });

TEST_P(FamilyControls, ButtonsComeByNameAndCaption) {
  open({"A"});
  EXPECT_EQ(form().findChildren<QPushButton*>().size(),
            static_cast<qsizetype>(GetParam().buttons.size()));
  for (const auto& [name, text] : GetParam().buttons) {
    EXPECT_EQ(button(name).text().toStdString(), text);
    EXPECT_EQ(spoken(button(name)), withoutAmpersand(text));
  }
}

TEST_P(FamilyControls, EveryInputCarriesItsCaptionAsItsName) {
  open({"A"});
  EXPECT_EQ(form().findChildren<QLineEdit*>().size() + form().findChildren<QCheckBox*>().size() +
                form().findChildren<QComboBox*>().size(),
            static_cast<qsizetype>(GetParam().inputs.size()));
  for (const auto& [name, text, captionName] : GetParam().inputs) {
    SCOPED_TRACE(name);
    auto& input = control<QWidget>(name);
    EXPECT_EQ(spoken(input), withoutAmpersand(text));
    if (const auto* ticked = dynamic_cast<QCheckBox*>(&input)) {
      EXPECT_EQ(ticked->text().toStdString(), text);
      continue;
    }
    const QLabel* captioned = nullptr;
    for (const QLabel* found : form().findChildren<QLabel*>())
      if (found->buddy() == &input) captioned = found;
    ASSERT_NE(captioned, nullptr);
    EXPECT_EQ(captioned->text().toStdString(), text);
    const std::string labelName = captioned->objectName().toStdString();
    EXPECT_EQ(labelName, captionName != nullptr ? captionName : labelName);
  }
}

TEST_P(FamilyControls, TabGoesFromInputToInputAndOnToTheButtons) {
  open({"A", "B", "C"});
  pressNext();  // every button is enabled
  std::vector<std::string> order;
  for (const InputLook& input : GetParam().inputs) order.emplace_back(input.name);
  for (const auto& row : GetParam().buttons) order.emplace_back(row.first);
  box(kind().firstBox()).setFocus();
  for (const std::string& name : order) {
    EXPECT_EQ(form().focusWidget()->objectName().toStdString(), name);
    QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
  }
}

TEST_P(FamilyControls, ClickingACaptionMovesTheFocusInTheSoftwareEditorOnly) {
  open({"A"});
  for (const auto& [name, text, captionName] : GetParam().inputs) {
    if (captionName == nullptr) continue;
    SCOPED_TRACE(captionName);
    button(kind().buttons.write).setFocus();
    QTest::mouseClick(&control<QLabel>(captionName), Qt::LeftButton);
    QWidget* expected = &button(kind().buttons.write);
    if (kind().code == kSoftware.code) expected = &control<QWidget>(name);
    EXPECT_EQ(form().focusWidget(), expected);
  }
}

// ---- Files that are not what they should be

class FamilyBadFiles : public FamilyEditor {
 protected:
  /// Steps through whatever was opened; the program must survive.
  void useWithoutCrashing() {
    for (const char* step : {kind().buttons.next, kind().buttons.next, kind().buttons.previous})
      if (formName() == kind().formName && button(step).isEnabled()) press(step);
    if (formName() == kind().formName) close();
    EXPECT_EQ(formName(), "frmBegin2");
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, FamilyBadFiles, testing::Values(kVideo, kSoftware, kComics, kBooks),
                         nameOfKind);

TEST_P(FamilyBadFiles, AHeaderOfAnyLengthIsAnEmptyCollection) {
  for (const std::size_t length : {std::size_t{0}, std::size_t{12}, kind().recordLength}) {
    SCOPED_TRACE(length);
    std::string header = familyHeader(0);
    header.resize(length);
    openBytes(header);
    EXPECT_EQ(indicator(), "Record #: 0");
    close();
    EXPECT_EQ(bytes(), header);
  }
}

TEST_P(FamilyBadFiles, AFolderIsNoCollection) {
  std::filesystem::create_directory(collectionPath());
  expectFileError("'75':\n\nPath/File access error");
  start({collectionPath()});
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_P(FamilyBadFiles, AMissingFolderIsAnError) {
  const std::string gone = path("gone/" + name());
  expectError("'76':\n\nPath not found\n" + gone);
  start({gone});
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_P(FamilyBadFiles, AFileThatMayNotBeReadIsAnError) {
  QUILLBOX_NEEDS(permissions);
  writeFile(collectionPath(), familyFile(kind(), {"A"}));
  std::filesystem::permissions(collectionPath(), std::filesystem::perms::none);
  const OrdinaryUser user(folder_);
  expectFileError(kDenied);
  start({collectionPath()});
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_P(FamilyBadFiles, AFileThatMayNotBeWrittenCanBeRead) {
  QUILLBOX_NEEDS(readOnlyFiles);
  const std::string before = familyFile(kind(), {"A", "B"});
  writeFile(collectionPath(), before);
  std::filesystem::permissions(collectionPath(), kReadOnly);
  const OrdinaryUser user(folder_);
  start({collectionPath()});
  pressNext();
  EXPECT_EQ(indicator(), "Record # 2 of 2");
  typeFirst("typed");
  expectFileError(kDenied);
  pressWrite();
  EXPECT_EQ(first(), "typed");
  EXPECT_EQ(bytes(), before);
}

TEST_P(FamilyBadFiles, ACountLargerThanTheFileShowsBlanksBeyondIt) {
  openBytes(familyFile(kind(), 1000, {"A"}));
  EXPECT_EQ(indicator(), "Record # 1 of 1000");
  pressGoTo("999");
  EXPECT_EQ(indicator(), "Record # 999 of 1000");
  EXPECT_EQ(first(), "");
  useWithoutCrashing();
}

TEST_P(FamilyBadFiles, ANegativeCountIsAnEmptyCollection) {
  openBytes(familyFile(kind(), -3, {"A"}));
  EXPECT_EQ(indicator(), "Record #: 0");
  EXPECT_EQ(state_->Count, 0);
  pressClear();
  typeFirst("First");
  pressWrite();
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(1));
  EXPECT_EQ(storedFirst(1), "First");
}

TEST_P(FamilyBadFiles, ARecordCutOffByTheEndOfTheFileIsBlankBeyondIt) {
  const std::string whole = familyFile(kind(), {"A", "Cut off here"});
  openBytes(whole.substr(0, 2 * kind().recordLength + 7));
  pressNext();
  EXPECT_EQ(first(), "Cut off");
  EXPECT_EQ(other(), "");
  EXPECT_EQ(indicator(), "Record # 2 of 2");
}

TEST_P(FamilyBadFiles, ATruncatedFileShowsWhatIsThere) {
  const std::string whole = familyFile(kind(), {"A", "B"});
  for (std::size_t length = 0; length < whole.size(); length += 53) {
    SCOPED_TRACE(length);
    openBytes(whole.substr(0, length));
    useWithoutCrashing();
  }
}

TEST_P(FamilyBadFiles, RandomBytesNeverCrashTheProgram) {
  constexpr unsigned seed = 20'261'122;
  std::mt19937 random(seed);
  for (int round = 0; round < 40; ++round) {
    SCOPED_TRACE(round);
    std::string collection(std::uniform_int_distribution<std::size_t>(0, 4000)(random), '\0');
    for (char& byte : collection) byte = static_cast<char>(random());
    if (collection.size() > 2 && round % 2 == 0) collection[1] = '\0';  // a low count
    desktop_.tolerateMessages = true;
    openBytes(collection);
    useWithoutCrashing();
  }
}

}  // namespace
}  // namespace quillbox::test
