// Stepping, writing, clearing and deleting in the music editor, with real keys, down to the bytes.

#include <QAccessible>
#include <QGuiApplication>

#include "support/form_fixture.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

constexpr const char* kDeleteQuestion = "Do you really want to delete this?!";

class MusicEditor : public FormTest {
 protected:
  void open(std::initializer_list<MusicRecord> items) { openBytes(musicFile(items)); }
  void openBytes(std::string_view bytes) {
    writeFile(path(), bytes);
    start({path()});
    ASSERT_EQ(formName(), "frmMusic");
  }

  std::string artist() {
    return std::string(withoutTrailingBlanks(std::string_view(shown("txtArtist"))));
  }
  void goTo(const char* answer) {
    desktop_.expectInput("Record #", "Go To Record", answer);
    press("cmdGoto");
  }
  void goToInvalid(const char* answer) {
    desktop_.expectInput("Record #", "Go To Record", answer);
    desktop_.expectMessage(kEditorMessages, "Invalid input?!");
    press("cmdGoto");
  }
  void deleteItem() {
    desktop_.expectQuestion(kEditorMessages, kDeleteQuestion, Answer::yes);
    desktop_.expectMessage(kEditorMessages, "Deleted.");
    press("cmdDelete");
  }
  bool previousEnabled() { return button("cmdPrevious").isEnabled(); }
  bool nextEnabled() { return button("cmdNext").isEnabled(); }
};

// ---- Opening and stepping

TEST_F(MusicEditor, OpensOnItemOne) {
  open({album("A"), album("B"), album("C")});
  EXPECT_EQ(label(), "Record #: 1 Of 3");
  EXPECT_EQ(artist(), "A");
  EXPECT_FALSE(previousEnabled());
  EXPECT_TRUE(nextEnabled());
  EXPECT_TRUE(state_->files.fileSystem().exists(path()));
}

TEST_F(MusicEditor, OpensOnItemOneEvenWhenItIsDeleted) {
  open({album("DETELED"), album("B")});
  EXPECT_EQ(label(), "Record #: 1 Of 2");
  EXPECT_EQ(artist(), "DETELED");
}

TEST_F(MusicEditor, ASingleItemHasNowhereToStepTo) {
  open({album("A")});
  EXPECT_FALSE(previousEnabled());
  EXPECT_FALSE(nextEnabled());
}

TEST_F(MusicEditor, StepsOverDeletedItems) {
  open({album("A"), album("DETELED"), album("DETELED"), album("D"), album("E")});
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 4 Of 5");
  EXPECT_EQ(artist(), "D");
  EXPECT_TRUE(previousEnabled());
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 5 Of 5");
  EXPECT_FALSE(nextEnabled());
  press("cmdPrevious");
  press("cmdPrevious");
  EXPECT_EQ(label(), "Record #: 1 Of 5");
  EXPECT_FALSE(previousEnabled());
}

TEST_F(MusicEditor, KnowsOnlyItsOwnSpellingOfTheMarker) {
  open({album("A"), album("DELETED"), album("C")});
  press("cmdNext");
  EXPECT_EQ(artist(), "DELETED");
}

TEST_F(MusicEditor, TakesATypedMarkerForDeleted) {
  open({album("A"), album("B"), album("C")});
  press("cmdNext");
  type("txtArtist", "DETELED");
  press("cmdWriteData");
  press("cmdPrevious");
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 3 Of 3");
}

TEST_F(MusicEditor, PreviousWrapsPastADeletedFirstItem) {
  open({album("DETELED"), album("B"), album("C"), album("DETELED")});
  press("cmdNext");
  ASSERT_EQ(label(), "Record #: 2 Of 4");
  press("cmdPrevious");
  EXPECT_EQ(label(), "Record #: 3 Of 4");
}

TEST_F(MusicEditor, NextRunsPastTheCountOverDeletedItemsAndShowsABlank) {
  open({album("A"), album("DETELED")});
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 3 Of 2");
  EXPECT_EQ(artist(), "");
  EXPECT_EQ(shown("txtArtist").size(), 50U);
  EXPECT_EQ(shown("txtAquireCost"), "0");
}

TEST_F(MusicEditor, NextShowsWhatIsOnDiskBeyondTheCount) {
  openBytes(musicFile(2, 5, {album("A"), album("DETELED"), album("Beyond")}));
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 3 Of 2");
  EXPECT_EQ(artist(), "Beyond");
}

TEST_F(MusicEditor, NextStopsAndDisablesItselfWhenNoItemIsShown) {
  open({album("A"), album("B")});
  press("cmdClearData");
  ASSERT_TRUE(nextEnabled()) << "Clear Data leaves the buttons as they are";
  press("cmdNext");
  EXPECT_FALSE(nextEnabled());
  EXPECT_EQ(label(), "New Record");
}

TEST_F(MusicEditor, PreviousFromANewItemSetsOutFromTheCount) {
  open({album("A"), album("B"), album("C")});
  press("cmdNext");
  press("cmdClearData");
  press("cmdPrevious");
  EXPECT_EQ(label(), "Record #: 2 Of 3");
}

TEST_F(MusicEditor, ReadsARecordCutOffByTheEndOfTheFile) {
  std::string bytes = musicFile({album("A"), album("Cut off", "Album")});
  bytes.resize(2 * sizeof(MusicRecord) + 60);
  openBytes(bytes);
  press("cmdNext");
  EXPECT_EQ(artist(), "Cut off");
  EXPECT_EQ(shown("txtAlbum"), std::string("Album").append(45, ' '));
  EXPECT_EQ(shown("txtCurrCost"), " 0");
}

TEST_F(MusicEditor, StepsBeyond16BitsAreAnOverflowAndLeaveTheForm) {
  open({album("A")});
  state_->CurRec = INT16_MAX;
  button("cmdNext").setEnabled(true);
  desktop_.expectMessage("Quillbox", "Run-time error '6':\n\nOverflow");
  press("cmdNext");
  EXPECT_EQ(state_->CurRec, INT16_MAX);
  EXPECT_EQ(artist(), "A");
}

TEST_F(MusicEditor, PreviousSearchesOnWhileEveryItemIsDeletedUntilItIsClosed) {
  open({album("DETELED"), album("DETELED")});
  press("cmdNext");
  ASSERT_EQ(label(), "Record #: 3 Of 2");
  bool disabled = false;
  desktop_.onRest = [&] {
    if (desktop_.rests < 3) return;
    QMainWindow& editor = form();
    disabled = !editor.centralWidget()->isEnabled() && !editor.menuBar()->isEnabled();
    editor.close();
  };
  press("cmdPrevious");
  EXPECT_EQ(desktop_.rests, 3) << "one rest a lap";
  EXPECT_TRUE(disabled);
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(desktop_.quitAsked);
}

TEST_F(MusicEditor, PreviousGoesOnWhenAnItemTurnsUpWhileItSearches) {
  open({album("DETELED"), album("DETELED")});
  press("cmdNext");
  desktop_.onRest = [&] { writeFile(path(), musicFile({album("DETELED"), album("Back")})); };
  press("cmdPrevious");
  EXPECT_EQ(artist(), "Back");
  EXPECT_EQ(label(), "Record #: 2 Of 2");
  EXPECT_TRUE(form().centralWidget()->isEnabled());
  EXPECT_TRUE(form().menuBar()->isEnabled());
}

TEST_F(MusicEditor, AReadThatFailsInTheSearchGivesTheControlsBack) {
  open({album("DETELED"), album("DETELED")});
  press("cmdNext");
  desktop_.onRest = [&] { files_.failNth(0, ErrorNumber::deviceIo); };
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\n" + path());
  press("cmdPrevious");
  EXPECT_TRUE(form().centralWidget()->isEnabled());
  EXPECT_EQ(label(), "Record #: 3 Of 2");
}

TEST_F(MusicEditor, AFailedStepLeavesTheFormAndThePosition) {
  open({album("A"), album("DETELED"), album("C")});
  type("txtAlbum", "typed");
  files_.failNth(FileOperation::read, 1, ErrorNumber::deviceIo);
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\n" + path());
  press("cmdNext");
  EXPECT_EQ(label(), "Record #: 1 Of 3");
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_EQ(shown("txtAlbum"), "typed");
}

// ---- Go To

TEST_F(MusicEditor, GoesToAnItemDeletedOrNot) {
  open({album("A"), album("DETELED"), album("C")});
  goTo("2");
  EXPECT_EQ(label(), "Record #: 2 Of 3");
  EXPECT_EQ(artist(), "DETELED");
  goTo(" 3 ");
  EXPECT_EQ(label(), "Record #: 3 Of 3");
  EXPECT_FALSE(nextEnabled());
  goTo("1");
  EXPECT_FALSE(previousEnabled());
}

TEST_F(MusicEditor, GoToRoundsAFractionAnExactHalfToTheEvenNumber) {
  open({album("A"), album("B"), album("C"), album("D")});
  goTo("2.5");
  EXPECT_EQ(label(), "Record #: 2 Of 4");
  goTo("3.5");
  EXPECT_EQ(label(), "Record #: 4 Of 4");
  goTo("0.6");
  EXPECT_EQ(label(), "Record #: 1 Of 4");
}

TEST_F(MusicEditor, GoToRefusesWhatIsNoItem) {
  open({album("A"), album("B")});
  press("cmdNext");
  for (const char* answer :
       {"0", "3", "-1", "", "  ", "two", "1x", "32768", "99999999999", "0.5"}) {
    SCOPED_TRACE(answer);
    goToInvalid(answer);
    EXPECT_EQ(label(), "Record #: 2 Of 2");
  }
}

TEST_F(MusicEditor, GoToCancelledChangesNothing) {
  open({album("A"), album("B")});
  type("txtAlbum", "typed");
  desktop_.expectInput("Record #", "Go To Record", std::nullopt);
  press("cmdGoto");
  EXPECT_EQ(label(), "Record #: 1 Of 2");
  EXPECT_EQ(shown("txtAlbum"), "typed");
}

TEST_F(MusicEditor, GoToInAnEmptyCollectionIsAlwaysInvalid) {
  open({});
  goToInvalid("1");
  EXPECT_EQ(label(), "Record #: 0");
}

// ---- Write Data

TEST_F(MusicEditor, WritesTheFormOverTheItem) {
  open({album("A"), album("B")});
  press("cmdNext");
  type("txtArtist", "Miles Davis");
  type("txtAlbum", "Kind of Blue");
  type("txtRecordCo", "Columbia");
  type("txtAquireDate", "3/14/1998");
  type("txtAquireCost", "11.99");
  type("txtCurrCost", "14.5");
  pick("cmbMediaType", 3);
  tick("chkHasBook");
  tick("chkCurrLoaned");
  type("txtBorrower", "Ann");
  type("txtDateLoaned", "1/2/2001");
  type("txtDueDate", "2/2/2001");
  tick("chkBookLoaned");
  type("txtNotes", "Mono");
  pick("cmbGenre", 11);
  type("txtBarCode", "CS 8163");
  press("cmdWriteData");
  EXPECT_EQ(label(), "Record #: 2 Of 2") << "the item stays on screen";

  const std::string bytes = file();
  EXPECT_EQ(bytes.size(), 3 * sizeof(MusicRecord));
  EXPECT_EQ(text(itemOf(bytes, 1).Artist), "A");
  const MusicRecord item = itemOf(bytes, 2);
  EXPECT_EQ(text(item.Artist), "Miles Davis");
  EXPECT_EQ(text(item.Album), "Kind of Blue");
  EXPECT_EQ(text(item.RecordCo), "Columbia");
  EXPECT_EQ(text(item.AquireDate), "3/14/1998");
  EXPECT_EQ(item.AquireCost, 119'900);
  EXPECT_EQ(item.CurrCost, 145'000);
  EXPECT_EQ(item.MediaType, 3);
  EXPECT_EQ(item.HasBook, 1);
  EXPECT_EQ(item.CurrLoaned, 1);
  EXPECT_EQ(text(item.Borrower), "Ann");
  EXPECT_EQ(text(item.DateLoaned), "1/2/2001");
  EXPECT_EQ(text(item.DueDate), "2/2/2001");
  EXPECT_EQ(item.BookLoaned, 1);
  EXPECT_EQ(text(item.Notes), "Mono");
  EXPECT_EQ(item.Genre, 11);
  EXPECT_EQ(text(item.BarCode), "CS 8163");
}

TEST_F(MusicEditor, AnItemThatWasOnlyVisitedIsWrittenAsItWas) {
  writeFile(path(), readFile(dataFile("albums.MCS")));
  start({path()});
  const std::string before = file();
  for (int item = 1; item <= state_->Count; ++item) {
    goTo(std::to_string(item).c_str());
    for (QLineEdit* box : form().findChildren<QLineEdit*>()) {
      box->setFocus();
      QTest::keyClick(box, Qt::Key_End);
    }
    press("cmdWriteData");
  }
  EXPECT_EQ(file(), before);
}

TEST_F(MusicEditor, EveryWriteMarksTheFileAsCurrent) {
  std::string bytes = musicFile(1, 7, {album("A")});
  bytes.replace(4, 8, "9.99    ");
  openBytes(bytes);
  press("cmdWriteData");
  EXPECT_EQ(headerOf(file()).FileType, 5);
  EXPECT_EQ(headerOf(file()).Version.view(), "1.71    ");
  EXPECT_EQ(headerOf(file()).Count, 1);
}

TEST_F(MusicEditor, AppendsNewItemsAndClearsTheFormAfterEach) {
  open({});
  EXPECT_EQ(label(), "Record #: 0");
  press("cmdClearData");
  for (const char* name : {"A", "B", "C"}) {
    type("txtArtist", name);
    press("cmdWriteData");
    EXPECT_EQ(label(), "New Record");
    EXPECT_EQ(shown("txtArtist"), "");
    EXPECT_EQ(QGuiApplication::focusObject(), &box("txtArtist")) << "ready for the next item";
  }
  const std::string bytes = file();
  EXPECT_EQ(bytes.size(), 4 * sizeof(MusicRecord));
  EXPECT_EQ(headerOf(bytes).Count, 3);
  EXPECT_EQ(text(itemOf(bytes, 3).Artist), "C");
  goTo("3");
  EXPECT_EQ(artist(), "C");
}

TEST_F(MusicEditor, ANewItemTakesTheLowestDeletedSlot) {
  open({album("A"), album("B"), album("C")});
  goTo("3");
  deleteItem();
  goTo("2");
  deleteItem();
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(shown("txtArtist"), "");
  type("txtArtist", "New");
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 2).Artist), "New");
  EXPECT_EQ(text(itemOf(file(), 3).Artist), "DETELED");
  EXPECT_EQ(headerOf(file()).Count, 3);
  EXPECT_EQ(file().size(), 4 * sizeof(MusicRecord));
}

TEST_F(MusicEditor, LooksForASlotWithoutTouchingTheNewItem) {
  open({album("A", "Not mine"), album("DETELED")});
  press("cmdClearData");
  type("txtArtist", "New");
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 2).Artist), "New");
  EXPECT_EQ(text(itemOf(file(), 2).Album), "");
}

TEST_F(MusicEditor, WritingWithNothingShownSaysWhyAndEndsTheProgram) {
  open({});
  const std::string before = file();
  desktop_.expectMessage(kEditorMessages,
                         "No item is shown. Choose Clear Data to start a new item.");
  press("cmdWriteData");
  EXPECT_TRUE(desktop_.endedAtOnce);
  EXPECT_EQ(file(), before);
}

TEST_F(MusicEditor, AFullCollectionTakesNoMore) {
  openBytes(musicFile(INT16_MAX, 5, {album("A")}));
  const std::string before = file();
  press("cmdClearData");
  type("txtArtist", "One more");
  desktop_.expectMessage("Quillbox", "Run-time error '6':\n\nOverflow");
  press("cmdWriteData");
  EXPECT_EQ(shown("txtArtist"), "One more");
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(file(), before);
}

TEST_F(MusicEditor, AFailedWriteLeavesEverythingSoThatItCanBeTriedAgain) {
  // Each operation of storing a new item fails once, completely and half-way.
  const auto typeNewItem = [this] {
    writeFile(path(), musicFile({album("A"), album("B")}));
    start({path()});
    press("cmdClearData");
    type("txtArtist", "New");
  };
  typeNewItem();
  const int operations = files_.operationsOf([this] { press("cmdWriteData"); });
  // The first file that is closed was only read, so its failure does not matter.
  const auto closed =
      std::ranges::find(files_.operations(), FileOperation::close, &OperationRecord::operation);
  const auto closeAfterReading = closed - files_.operations().begin();
  for (const bool shortWrites : {false, true}) {
    for (int nth = 0; nth < operations; ++nth) {
      if (nth == closeAfterReading) continue;
      SCOPED_TRACE(nth);
      typeNewItem();
      files_.shortWrites = shortWrites;
      desktop_.expectMessage("Quillbox", "Run-time error '61':\n\nDisk full\n" + path());
      files_.failNth(nth, ErrorNumber::diskFull);
      press("cmdWriteData");
      EXPECT_TRUE(files_.hasFailed());
      EXPECT_EQ(state_->Count, 2);
      EXPECT_EQ(state_->CurRec, kNewItem);
      EXPECT_EQ(label(), "New Record");
      EXPECT_EQ(shown("txtArtist"), "New");
      EXPECT_EQ(text(itemOf(file(), 1).Artist), "A");
      EXPECT_EQ(text(itemOf(file(), 2).Artist), "B");
      press("cmdWriteData");
      EXPECT_EQ(file().size(), 4 * sizeof(MusicRecord));
      EXPECT_EQ(text(itemOf(file(), 3).Artist), "New");
      EXPECT_EQ(headerOf(file()).Count, 3);
    }
  }
}

TEST_F(MusicEditor, AFailedWriteInPlaceKeepsTheForm) {
  open({album("A"), album("B")});
  type("txtArtist", "Changed");
  files_.failNth(FileOperation::write, 1, ErrorNumber::deviceIo);
  desktop_.expectMessage("Quillbox", "Run-time error '57':\n\nDevice I/O error\n" + path());
  press("cmdWriteData");
  EXPECT_EQ(shown("txtArtist"), "Changed");
  EXPECT_EQ(label(), "Record #: 1 Of 2");
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 1).Artist), "Changed");
  EXPECT_EQ(text(itemOf(file(), 2).Artist), "B");
}

TEST_F(MusicEditor, AWriteToACollectionThatIsGoneMakesNoNewOne) {
  open({album("A")});
  std::filesystem::remove(path());
  desktop_.expectMessage("Quillbox", "Run-time error '53':\n\nFile not found\n" + path());
  press("cmdWriteData");
  EXPECT_FALSE(std::filesystem::exists(path()));
  EXPECT_EQ(artist(), "A");
}

// ---- From the form to the record

TEST_F(MusicEditor, AnEmptyAcquisitionDateBecomesTodays) {
  open({});
  press("cmdClearData");
  type("txtArtist", "A");
  press("cmdWriteData");
  const MusicRecord item = itemOf(file(), 1);
  EXPECT_EQ(text(item.AquireDate), "11/21/2026");
  EXPECT_EQ(text(item.DateLoaned), "");
  EXPECT_EQ(text(item.DueDate), "");
}

TEST_F(MusicEditor, ABlankDateThatWasOnlyVisitedStaysBlankAndAnErasedOneDoesNot) {
  open({album("A")});
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 1).AquireDate), "");
  type("txtAquireDate", "");
  press("cmdWriteData");
  EXPECT_EQ(shown("txtAquireDate"), "11/21/2026");
  EXPECT_EQ(text(itemOf(file(), 1).AquireDate), "11/21/2026");
}

TEST_F(MusicEditor, CostsAreTheNumberTheyBeginWith) {
  open({album("A")});
  type("txtAquireCost", "12.50 dollars");
  type("txtCurrCost", "unknown");
  press("cmdWriteData");
  EXPECT_EQ(itemOf(file(), 1).AquireCost, 125'000);
  EXPECT_EQ(itemOf(file(), 1).CurrCost, 0);
}

TEST_F(MusicEditor, ShowsTheTwoCostsDifferently) {
  MusicRecord item = album("A");
  item.AquireCost = 125'000;
  item.CurrCost = 5'000;
  MusicRecord other = album("B");
  other.AquireCost = -12'500;
  other.CurrCost = -12'500;
  open({item, other});
  EXPECT_EQ(shown("txtAquireCost"), "12.5");
  EXPECT_EQ(shown("txtCurrCost"), " 0.5");
  press("cmdNext");
  EXPECT_EQ(shown("txtAquireCost"), "-1.25");
  EXPECT_EQ(shown("txtCurrCost"), "-1.25");
}

TEST_F(MusicEditor, AmountsDoNotFollowTheLocale) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::German));
  MusicRecord item = album("A");
  item.AquireCost = 12'345'678;
  open({item});
  EXPECT_EQ(shown("txtAquireCost"), "1234.5678");
  type("txtAquireCost", "1,5");
  press("cmdWriteData");
  EXPECT_EQ(itemOf(file(), 1).AquireCost, 10'000);
  QLocale::setDefault(before);
}

TEST_F(MusicEditor, ACostBeyondItsRangeIsAnOverflowAndNothingIsWritten) {
  open({album("A")});
  const std::string before = file();
  type("txtArtist", "Changed");
  type("txtAquireDate", "");
  type("txtCurrCost", "1e30");
  desktop_.expectMessage("Quillbox", "Run-time error '6':\n\nOverflow");
  press("cmdWriteData");
  EXPECT_EQ(file(), before);
  EXPECT_EQ(shown("txtArtist"), "Changed");
  EXPECT_EQ(shown("txtCurrCost"), "1e30");
  EXPECT_EQ(shown("txtAquireDate"), "") << "the form stays as the user left it";
  EXPECT_EQ(text(state_->music.Artist), "A");
}

TEST_F(MusicEditor, TextBoxesTakeAtMostTheWidthOfTheirField) {
  open({album("A")});
  const std::string sixty(60, 'x');
  type("txtArtist", sixty.c_str());
  type("txtAquireDate", sixty.c_str());
  type("txtBarCode", sixty.c_str());
  EXPECT_EQ(shown("txtArtist"), sixty.substr(0, 50));
  EXPECT_EQ(shown("txtAquireDate"), sixty.substr(0, 20));
  EXPECT_EQ(shown("txtBarCode"), sixty.substr(0, 36));
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 1).Artist), sixty.substr(0, 50));
  EXPECT_EQ(text(itemOf(file(), 1).Album), "");
}

TEST_F(MusicEditor, StoresWindows1252AndAQuestionMarkForTheRest) {
  open({album("A")});
  type("txtArtist", "Björk – 久石譲 €");
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 1).Artist), "Bj\xF6rk \x96 ??? \x80");
}

TEST_F(MusicEditor, ShowsTextsUpToTheirFirstNul) {
  MusicRecord item = album("A");
  item.Album = std::string_view("Blue\0Train", 10);
  open({item});
  EXPECT_EQ(shown("txtAlbum"), "Blue");
}

TEST_F(MusicEditor, TextsFullOfControlCharactersAreShownAndWrittenBackAsTheyWere) {
  std::string controls;
  for (char c = 1; c < 32; ++c) controls += c;
  open({album(controls, "\x7F\x81\x8D\x8F\x90\x9D")});
  const std::string before = file();
  press("cmdWriteData");
  EXPECT_EQ(file(), before);
}

TEST_F(MusicEditor, PaddingNeverCostsTheUserACharacter) {
  open({album("Blue")});
  QLineEdit& artistBox = box("txtArtist");
  artistBox.setFocus();
  QTest::keyClick(&artistBox, Qt::Key_End);
  QTest::keyClicks(&artistBox, QString(60, 'x'));
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 1).Artist), "Blue" + std::string(46, 'x'));
}

// ---- Lists and check boxes

TEST_F(MusicEditor, AnUntouchedListOfANewItemStoresNone) {
  open({});
  press("cmdClearData");
  type("txtArtist", "A");
  press("cmdWriteData");
  EXPECT_EQ(itemOf(file(), 1).MediaType, -1);
  EXPECT_EQ(itemOf(file(), 1).Genre, -1);
}

TEST_F(MusicEditor, AnIndexBeyondTheListLeavesTheSelection) {
  MusicRecord known = album("A");
  known.MediaType = 2;
  known.Genre = 4;
  MusicRecord unknown = album("B");
  unknown.MediaType = 8;
  unknown.Genre = 15;
  MusicRecord none = album("C");
  none.MediaType = -1;
  none.Genre = -7;
  open({known, unknown, none});
  EXPECT_EQ(list("cmbMediaType").currentIndex(), 2);
  press("cmdNext");
  EXPECT_EQ(list("cmbMediaType").currentIndex(), 2);
  EXPECT_EQ(list("cmbGenre").currentIndex(), 4);
  press("cmdNext");
  EXPECT_EQ(list("cmbMediaType").currentIndex(), -1);
  EXPECT_EQ(list("cmbGenre").currentIndex(), -1);
}

TEST_F(MusicEditor, FocusOnTheMediaTypesSelectsTheSameAgain) {
  MusicRecord item = album("A");
  item.MediaType = 5;
  open({item});
  std::vector<int> selected;
  QObject::connect(&list("cmbMediaType"), &QComboBox::currentIndexChanged,
                   [&selected](int index) { selected.push_back(index); });
  list("cmbMediaType").setFocus();
  EXPECT_EQ(selected, (std::vector{-1, 5}));
  EXPECT_EQ(list("cmbMediaType").currentIndex(), 5);
  box("txtNotes").setFocus();
  EXPECT_EQ(selected, (std::vector{-1, 5, -1, 5}));
  EXPECT_EQ(list("cmbMediaType").currentText(), "4-Track");
}

TEST_F(MusicEditor, ListsHoldTheirFixedEntries) {
  open({});
  QStringList genres;
  for (int i = 0; i < list("cmbGenre").count(); ++i) genres << list("cmbGenre").itemText(i);
  EXPECT_EQ(genres.join('|').toStdString(),
            "Alternative|Big Band/Swing|Cast Recordings|Classic Rock|Classical|Country|Folk|Hard "
            "Rock|Heavy Metal|Oldies|Parody|Popular/Top 40|Rap|Rock|Soundtrack");
}

TEST_F(MusicEditor, TheLoanFieldsAreEnabledWhileTheItemIsOnLoan) {
  open({album("A")});
  const auto loanFields = [this] {
    return std::vector<bool>{box("txtBorrower").isEnabled(), box("txtDateLoaned").isEnabled(),
                             box("txtDueDate").isEnabled()};
  };
  const std::vector<bool> off(3, false);
  const std::vector<bool> on(3, true);
  EXPECT_EQ(loanFields(), off);
  tick("chkCurrLoaned");
  EXPECT_EQ(loanFields(), on);
  type("txtBorrower", "Ann");
  tick("chkCurrLoaned");
  EXPECT_EQ(loanFields(), off);
  press("cmdWriteData");
  EXPECT_EQ(text(itemOf(file(), 1).Borrower), "Ann") << "what was typed stays and is saved";
}

TEST_F(MusicEditor, TheBookletBoxFollowsTheLoanOnlyWhenThereIsABooklet) {
  MusicRecord withBooklet = album("A");
  withBooklet.HasBook = 1;
  open({withBooklet, album("B")});
  EXPECT_FALSE(check("chkBookLoaned").isEnabled());
  tick("chkCurrLoaned");
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  tick("chkHasBook");
  EXPECT_FALSE(check("chkBookLoaned").isEnabled()) << "no booklet, on loan";
  tick("chkHasBook");
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  press("cmdNext");  // no booklet, not on loan: the box is unchanged
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  tick("chkHasBook");
  EXPECT_TRUE(check("chkBookLoaned").isEnabled()) << "not on loan: left alone";
}

TEST_F(MusicEditor, TheLoanRuleRunsHoweverABoxIsToggled) {
  MusicRecord withBooklet = album("A");
  withBooklet.HasBook = 1;
  open({withBooklet});
  toggle("chkCurrLoaned");
  EXPECT_TRUE(box("txtBorrower").isEnabled());
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  toggle("chkHasBook");
  EXPECT_FALSE(check("chkBookLoaned").isEnabled()) << "no booklet, on loan";
  check("chkHasBook").toggle();
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  check("chkCurrLoaned").toggle();
  EXPECT_FALSE(box("txtBorrower").isEnabled());
  EXPECT_FALSE(check("chkBookLoaned").isEnabled());
}

TEST_F(MusicEditor, ShowingAnotherItemIsNoClickOfItsBooklet) {
  MusicRecord lent = album("A");
  lent.HasBook = 1;
  lent.CurrLoaned = 1;
  MusicRecord plain = album("B");
  plain.CurrLoaned = 1;
  open({lent, plain});
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
  press("cmdNext");  // a click that unticks the booklet would disable the box
  EXPECT_TRUE(check("chkBookLoaned").isEnabled()) << "without a booklet it is left alone";
  press("cmdClearData");
  EXPECT_TRUE(check("chkBookLoaned").isEnabled());
}

TEST_F(MusicEditor, StoredFlagsOtherThanZeroAreTicked) {
  MusicRecord item = album("A");
  item.HasBook = -1;
  item.CurrLoaned = 1;
  open({item});
  EXPECT_TRUE(check("chkHasBook").isChecked());
  EXPECT_TRUE(box("txtBorrower").isEnabled());
}

// ---- Clear Data and Delete

TEST_F(MusicEditor, ClearDataEmptiesTheFormForANewItem) {
  MusicRecord item = album("A", "B");
  item.HasBook = 1;
  item.CurrLoaned = 1;
  item.MediaType = 3;
  item.Genre = 4;
  item.Borrower = "Ann";
  open({item});
  press("cmdClearData");
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(state_->CurRec, kNewItem);
  for (const QLineEdit* cleared : form().findChildren<QLineEdit*>())
    EXPECT_EQ(cleared->text(), "") << cleared->objectName().toStdString();
  for (const QCheckBox* cleared : form().findChildren<QCheckBox*>())
    EXPECT_FALSE(cleared->isChecked()) << cleared->objectName().toStdString();
  for (const QComboBox* cleared : form().findChildren<QComboBox*>())
    EXPECT_EQ(cleared->currentIndex(), -1) << cleared->objectName().toStdString();
  EXPECT_FALSE(box("txtBorrower").isEnabled()) << "the loan rule is applied";
}

TEST_F(MusicEditor, DeleteAsksFirst) {
  open({album("A"), album("B")});
  const std::string before = file();
  desktop_.expectQuestion(kEditorMessages, kDeleteQuestion, Answer::no);
  desktop_.expectMessage(kEditorMessages, "Aborted.");
  press("cmdDelete");
  EXPECT_EQ(file(), before);
  EXPECT_EQ(label(), "Record #: 1 Of 2");
}

TEST_F(MusicEditor, DeleteWritesTheMarkerAndKeepsTheCount) {
  open({album("A"), album("B", "Album")});
  press("cmdNext");
  type("txtAlbum", "typed, not written");
  deleteItem();
  EXPECT_EQ(label(), "New Record");
  EXPECT_EQ(shown("txtArtist"), "");
  const std::string bytes = file();
  EXPECT_EQ(headerOf(bytes).Count, 2);
  EXPECT_EQ(text(itemOf(bytes, 2).Artist), "DETELED");
  EXPECT_EQ(text(itemOf(bytes, 2).Album), "Album") << "the record as read, not the form";
}

TEST_F(MusicEditor, DeleteWithNoItemShownNeverTouchesTheHeader) {
  open({});
  const std::string before = file();
  for (const char* where : {"empty", "new"}) {
    SCOPED_TRACE(where);
    desktop_.expectQuestion(kEditorMessages, kDeleteQuestion, Answer::yes);
    desktop_.expectMessage("Quillbox", "Run-time error '63':\n\nBad record number\n" + path());
    press("cmdDelete");
    EXPECT_EQ(file(), before);
    press("cmdClearData");
  }
}

TEST_F(MusicEditor, ADeleteThatDoesNotReadBackEndsTheProgram) {
  open({album("A"), album("B")});
  files_.beforeRead = [this] { writeFile(path(), musicFile({album("A"), album("B")})); };
  desktop_.expectQuestion(kEditorMessages, kDeleteQuestion, Answer::yes);
  desktop_.expectMessage(kEditorMessages, "Deletion failure!");
  press("cmdDelete");
  EXPECT_TRUE(desktop_.endedAtOnce);
}

TEST_F(MusicEditor, AFailedDeleteLeavesTheItemOnScreen) {
  const auto deleteFirst = [this](const std::string& title, const std::string& said) {
    desktop_.expectQuestion(kEditorMessages, kDeleteQuestion, Answer::yes);
    desktop_.expectMessage(title, said);
    press("cmdDelete");
  };
  open({album("A"), album("B")});
  files_.forget();
  deleteFirst(kEditorMessages, "Deleted.");
  const int operations = files_.operationsThatMatter();
  open({album("A"), album("B")});
  for (int nth = 0; nth < operations; ++nth) {
    SCOPED_TRACE(nth);
    files_.failNth(nth, ErrorNumber::permissionDenied);
    deleteFirst("Quillbox", "Run-time error '70':\n\nPermission denied\n" + path());
    EXPECT_EQ(label(), "Record #: 1 Of 2");
    EXPECT_EQ(artist(), "A");
    EXPECT_EQ(text(itemOf(file(), 2).Artist), "B");
  }
  deleteFirst(kEditorMessages, "Deleted.");
  EXPECT_EQ(label(), "New Record");
}

// ---- Menus and leaving

TEST_F(MusicEditor, ClosingTheWindowIsExitCollection) {
  open({album("A")});
  const int left = state_->files.open(file_number::collection, path(), OpenMode::read);
  close();
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(state_->files.isOpen(left)) << "every open file is closed";
}

TEST_F(MusicEditor, ExitCollectionReturnsToTheStartScreen) {
  open({album("A")});
  choose("ExitCollection");
  EXPECT_EQ(formName(), "frmBegin2");
}

TEST_F(MusicEditor, NewFileLeavesTheFileMarkedForTheUpgradeAsItAlwaysHas) {
  open({album("A"), album("B")});
  choose("NewFile");
  EXPECT_EQ(headerOf(file()).FileType, 4);
  EXPECT_EQ(headerOf(file()).Count, 2);
  EXPECT_EQ(file().substr(12), musicFile({album("A"), album("B")}).substr(12));
  EXPECT_EQ(formName(), "frmNewCollection");
}

TEST_F(MusicEditor, AFailedNewFileKeepsTheEditor) {
  open({album("A")});
  files_.failNth(0, ErrorNumber::permissionDenied);
  desktop_.expectMessage("Quillbox", "Run-time error '70':\n\nPermission denied\n" + path());
  choose("NewFile");
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(MusicEditor, PrinterSetupHasADialogOfItsOwn) {
  open({album("A")});
  choose("PrintSetup");
  EXPECT_EQ(desktop_.dialogName, "cdlQBXMusic");
}

TEST_F(MusicEditor, HasItsButtonsByNameAndCaption) {
  open({album("A")});
  const std::vector<std::pair<const char*, const char*>> buttons = {
      {"cmdWriteData", "&Write Data"},
      {"cmdClearData", "&Clear Data"},
      {"cmdNext", "&Next Item"},
      {"cmdPrevious", "&Previous Item"},
      {"cmdGoto", "Go&To"},
      {"cmdDelete", "&Delete Item"}};
  for (const auto& [name, text] : buttons) EXPECT_EQ(button(name).text().toStdString(), text);
}

TEST_F(MusicEditor, ItsIndicatorIsBareBeforeACollectionIsOpen) {
  start();
  PrintEngine engine(*state_, desktop_, program_->board());
  const frmMusic editor(*program_, engine);
  EXPECT_EQ(editor.findChild<QLabel*>("lblIndex")->text(), "Record #:");
}

TEST_F(MusicEditor, MediaTypesIsNoCommandOfItsOwn) {
  open({album("A"), album("B")});
  press("cmdNext");
  type("txtArtist", "typed");
  const std::string before = file();
  files_.forget();
  choose("MediaMenu");
  desktop_.expectNothingLeft();
  EXPECT_EQ(files_.operations(), std::vector<OperationRecord>{});
  EXPECT_EQ(file(), before);
  EXPECT_EQ(formName(), "frmMusic");
  EXPECT_EQ(helpPage(), "");
  EXPECT_EQ(shown("txtArtist"), "typed");
  EXPECT_EQ(label(), "Record #: 2 Of 2");
}

TEST_F(MusicEditor, ContentsOpensItsPageOfTheManual) {
  open({album("A")});
  EXPECT_EQ(control<QAction>("MusicContents").text(), "&Contents");
  choose("MusicContents");
  EXPECT_EQ(helpPage(), "music.md");
  EXPECT_EQ(formName(), "frmMusic");
}

TEST_F(MusicEditor, EveryInputCarriesItsCaptionAsItsNameAndComesInTabOrder) {
  open({album("On loan")});
  tick("chkCurrLoaned");
  const std::vector<std::pair<std::string, std::string>> inputs = {
      {"txtArtist", "&Artist:"},
      {"txtAlbum", "A&lbum:"},
      {"txtRecordCo", "&Record Co:"},
      {"txtAquireDate", "A&quisition Date:"},
      {"txtAquireCost", "Aq&uisiton Cost:"},
      {"txtCurrCost", "&Current Cost:"},
      {"cmbMediaType", "&Media Type:"},
      {"chkHasBook", "Has &Booklet"},
      {"chkCurrLoaned", "Currently On &Loan"},
      {"txtBorrower", "B&orrower:"},
      {"txtDateLoaned", "Da&te Borrowed:"},
      {"txtDueDate", "D&ue Date:"},
      {"chkBookLoaned", "B&ook Loaned"},
      {"txtNotes", "&Notes:"},
      {"cmbGenre", "&Genre:"},
      {"txtBarCode", "Bar Code/&ID:"}};
  box("txtArtist").setFocus();
  for (const auto& [name, caption] : inputs) {
    SCOPED_TRACE(name);
    auto& input = control<QWidget>(name.c_str());
    QString spoken = QString::fromStdString(caption);
    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&input);
    EXPECT_EQ(accessible->text(QAccessible::Name), spoken.remove('&'));
    EXPECT_EQ(form().focusWidget(), &input);
    QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
    if (const auto* ticked = dynamic_cast<QCheckBox*>(&input)) {
      EXPECT_EQ(ticked->text().toStdString(), caption);
      continue;
    }
    bool captioned = false;
    for (const QLabel* found : form().findChildren<QLabel*>())
      captioned |= found->buddy() == &input && found->text().toStdString() == caption;
    EXPECT_TRUE(captioned);
  }
  for (const char* name : {"cmdNext", "cmdGoto", "cmdClearData", "cmdDelete", "cmdWriteData"}) {
    if (!button(name).isEnabled()) continue;
    EXPECT_EQ(form().focusWidget(), &button(name)) << name;
    QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(MusicEditor, EnterPressesTheButtonThatHasTheFocus) {
  open({album("A"), album("B"), album("C")});
  button("cmdNext").setFocus();
  QTest::keyClick(&button("cmdNext"), Qt::Key_Return);
  QTest::keyClick(&button("cmdNext"), Qt::Key_Return);
  EXPECT_EQ(label(), "Record #: 3 Of 3");
  EXPECT_EQ(form().focusWidget(), &button("cmdPrevious")) << "not on to the next command";
}

TEST_F(MusicEditor, FitsASmallScreen) {
  open({album("A")});
  EXPECT_LE(form().minimumSizeHint().width(), 1024);
  EXPECT_LE(form().minimumSizeHint().height(), 700);
}

}  // namespace
}  // namespace quillbox::test
