// What a search leaves, whether it finds something or not: the positions, the editor's screen, the
// record behind it and the file.

#include "printing/frmRecDisp.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class SearchingEditor : public EditorTest, public testing::WithParamInterface<EditorKind> {
 protected:
  SearchingEditor() : EditorTest(GetParam()) {}

  bool isBooks() const { return kind().extension == "BCS"; }
  bool isVideo() const { return kind().extension == "VCS"; }

  void openSearch() { openSideForm(editor().search); }
  void leaveSearch() { leaveSideForm(editor().search); }
  void begin() {
    press(editor().search.begin);
    desktop_.expectNothingLeft();
  }
  void beginInVain() {
    desktop_.expectMessage("Quillbox", isBooks() ? "Not Found" : "Data Not Found...");
    begin();
    EXPECT_EQ(formName(), editor().search.formName);
  }
  void searchFor(const std::string& first) {
    openSearch();
    type(editor().firstBox, first.c_str());
    begin();
    EXPECT_EQ(formName(), editor().formName);
  }
  void searchInVain() {
    openSearch();
    type(editor().firstBox, "nowhere");
    beginInVain();
  }

  /// The item with every flag set.
  std::string flagged(std::string item) const {
    for (const Field& each : kind().fields)
      if (each.type == FieldType::flag) setWhole(each, std::as_writable_bytes(std::span(item)), 1);
    return item;
  }
  void expectWriteChangesNothing() {
    const std::string before = bytes();
    press(editor().write);
    EXPECT_EQ(bytes(), before);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, SearchingEditor,
                         testing::Values(kMusicEditor, kVideoEditor, kSoftwareEditor, kComicEditor,
                                         kBookEditor, kMediaEditor),
                         [](const auto& editor) { return editor.param.name; });

// ---- Hits

TEST_P(SearchingEditor, AHitShowsTheItem) {
  const std::string before = collection({item("A"), item("B"), item("C")});
  openBytes(before);
  type(editor().otherBox, "typed for another item");
  state_->ListPos = 7;
  searchFor("C");
  EXPECT_EQ(state_->CurRec, 3);
  EXPECT_EQ(state_->ListPos, isBooks() ? 7 : 3);
  EXPECT_EQ(indicator(), recordLabel(kind(), 3, 3));
  EXPECT_EQ(first(), "C");
  EXPECT_FALSE(button(editor().next).isEnabled());
  EXPECT_EQ(bytes(), before) << "a search writes nothing";
  expectWriteChangesNothing();
}

TEST_P(SearchingEditor, AHitEndsANewItem) {
  open({item("A"), item("B")});
  press(editor().clear);
  type(editor().firstBox, "New");
  searchFor("B");
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(indicator(), recordLabel(kind(), 2, 2));
  expectWriteChangesNothing();
}

TEST_P(SearchingEditor, EverySearchStartsAtItemOne) {
  open({item("A"), item("B"), item("B")});
  searchFor("B");
  EXPECT_EQ(state_->CurRec, 2);
  openSearch();
  begin();
  EXPECT_EQ(state_->CurRec, 2);
  press(editor().next);
  EXPECT_EQ(state_->CurRec, 3);
  openSearch();
  begin();
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(first(), "B");
}

TEST_P(SearchingEditor, WithNothingEnteredTheFirstItemWithoutFlagsIsFound) {
  open({flagged(item("A")), flagged(item("B")), item("C"), item("D")});
  press(editor().next);
  openSearch();
  const bool asksForFlags = !form().findChildren<QCheckBox*>().empty();
  begin();
  EXPECT_EQ(state_->CurRec, asksForFlags ? 3 : 1);
}

TEST_P(SearchingEditor, WithNothingEnteredItemOneIsFound) {
  open({item("A"), item("B")});
  press(editor().next);
  openSearch();
  begin();
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_EQ(first(), "A");
}

TEST_P(SearchingEditor, FindsDeletedItems) {
  const std::string marker(kind().rules.deletion.marker);
  open({item("A"), item(marker), item("C")});
  type(editor().otherBox, "typed");
  searchFor(marker);
  EXPECT_EQ(state_->CurRec, 2);
  // A deleted video leaves the screen as it was.
  EXPECT_EQ(first(), isVideo() ? "A" : marker);
  EXPECT_EQ(other() == "typed", isVideo());
  EXPECT_EQ(indicator(), recordLabel(kind(), isVideo() ? 1 : 2, 3));
  EXPECT_EQ(state_->ListPos, isBooks() ? 0 : 2);
  press(editor().next);
  EXPECT_EQ(first(), "C");
}

// ---- Misses

TEST_P(SearchingEditor, AMissKeepsTheSearchFormWithItsInputs) {
  open({item("A"), item("B")});
  searchInVain();
  EXPECT_EQ(shown(editor().firstBox), "nowhere");
  EXPECT_EQ(state_->CurRec, 1);
  beginInVain();
}

TEST_P(SearchingEditor, AMissLeavesTheEditorAsItWas) {
  const std::string before = collection({item("A"), item("B"), item("C")});
  openBytes(before);
  press(editor().next);
  type(editor().otherBox, "typed");
  const auto listPos = state_->ListPos;
  searchInVain();
  leaveSearch();
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(state_->ListPos, listPos);
  EXPECT_EQ(indicator(), recordLabel(kind(), 2, 3));
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(other(), "typed");
  EXPECT_EQ(bytes(), before);
}

TEST_P(SearchingEditor, WriteDataAfterAMissChangesNothing) {
  open({item("A"), item("B"), item("C")});
  press(editor().next);
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    searchInVain();
    leaveSideForm(editor().search, way);
    expectWriteChangesNothing();
  }
}

TEST_P(SearchingEditor, ANewItemOutlivesAMiss) {
  open({item("A"), item("B")});
  press(editor().clear);
  type(editor().firstBox, "New");
  type(editor().otherBox, "typed");
  const std::string label = indicator();
  searchInVain();
  leaveSearch();
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(indicator(), label);
  EXPECT_EQ(first(), "New");
  EXPECT_EQ(other(), "typed");
  press(editor().write);
  EXPECT_EQ(headerOf(bytes()).Count, 3);
  EXPECT_EQ(bytes().substr(3 * kind().recordLength, 4), "New ");
}

TEST_P(SearchingEditor, NothingIsFoundInAnEmptyCollection) {
  open({});
  openSearch();
  beginInVain();
  leaveSearch();
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(indicator(), kind().rules.label.empty);
}

// ---- Failures

TEST_P(SearchingEditor, ACollectionThatIsGoneIsAnErrorOnTheSearchForm) {
  open({item("A"), item("B")});
  press(editor().next);
  type(editor().otherBox, "typed");
  std::filesystem::remove(collectionPath());
  openSearch();
  type(editor().firstBox, "A");
  expectError("'53':\n\nFile not found\n" + collectionPath());
  begin();
  EXPECT_EQ(formName(), editor().search.formName);
  EXPECT_EQ(shown(editor().firstBox), "A");
  EXPECT_FALSE(program_->form<frmRecDisp>().isVisible());
  EXPECT_FALSE(desktop_.endedAtOnce);
  leaveSearch();
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(other(), "typed");
}

TEST_P(SearchingEditor, AnItemThatCannotBeReadLeavesTheRecordThatIsShown) {
  open({item("A"), item("B"), item("C")});
  openSearch();
  type(editor().firstBox, "C");
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  expectError("'57':\n\nDevice I/O error\n" + collectionPath());
  begin();
  EXPECT_EQ(formName(), editor().search.formName);
  EXPECT_FALSE(program_->form<frmRecDisp>().isVisible());
  leaveSearch();
  EXPECT_EQ(first(), "A");
  EXPECT_EQ(state_->CurRec, 1);
  expectWriteChangesNothing();
}

TEST_P(SearchingEditor, AFileShorterThanItsCountIsAnErrorOnTheSearchForm) {
  open({item("A"), item("B"), item("C")});
  const std::string whole = bytes();
  writeFile(collectionPath(), whole.substr(0, whole.size() - 1));
  openSearch();
  type(editor().firstBox, "C");
  expectError("'63':\n\nBad record number\n" + collectionPath());
  begin();
  EXPECT_EQ(formName(), editor().search.formName);
  leaveSearch();
  EXPECT_EQ(first(), "A");
  EXPECT_EQ(state_->CurRec, 1);
  expectWriteChangesNothing();
}

// ---- Numbers beyond their range

struct BigNumber {
  const EditorKind& editor;
  const char* input;
  const char* typed;
};

void PrintTo(const BigNumber& number, std::ostream* out) { *out << number.input; }

class SearchedNumber : public EditorTest, public testing::WithParamInterface<BigNumber> {
 protected:
  SearchedNumber() : EditorTest(GetParam().editor) {}
};

INSTANTIATE_TEST_SUITE_P(Inputs, SearchedNumber,
                         testing::Values(BigNumber{kSoftwareEditor, "txtSftWare_2", "70000"},
                                         BigNumber{kSoftwareEditor, "txtSftWare_3", "-32769"},
                                         BigNumber{kMusicEditor, "txtAquireCost", "1e30"},
                                         BigNumber{kVideoEditor, "txtCurrPrice", "1e30"},
                                         BigNumber{kComicEditor, "txtCmic_7", "1e30"}),
                         [](const auto& number) { return std::string(number.param.input); });

TEST_P(SearchedNumber, BeyondItsRangeIsAnOverflowAndTheFormStaysAsTyped) {
  open({item("A"), item("B")});
  openSideForm(editor().search);
  type(editor().firstBox, "B");
  type(GetParam().input, GetParam().typed);
  expectError("'6':\n\nOverflow");
  press(editor().search.begin);
  EXPECT_EQ(formName(), editor().search.formName);
  EXPECT_EQ(shown(editor().firstBox), "B");
  EXPECT_EQ(shown(GetParam().input), GetParam().typed);
  leaveSideForm(editor().search);
  EXPECT_EQ(state_->CurRec, 1);
}

// ---- Deleting after a search

struct DeletingEditor {
  const EditorKind& editor;
  const char* questionTitle;
  const char* deletedTitle;
};

void PrintTo(const DeletingEditor& deleting, std::ostream* out) { *out << deleting.editor.name; }

/// The editors whose Delete keeps the rest of the record.
class DeleteAfterSearch : public EditorTest, public testing::WithParamInterface<DeletingEditor> {
 protected:
  DeleteAfterSearch() : EditorTest(GetParam().editor) {}
};

INSTANTIATE_TEST_SUITE_P(Kinds, DeleteAfterSearch,
                         testing::Values(DeletingEditor{kMusicEditor, "QBX - Music Manager",
                                                        "QBX - Music Manager"},
                                         DeletingEditor{kMediaEditor, "QBX - waves Manager",
                                                        "QBX - Wave/Midi/Graphic Manager"}),
                         [](const auto& deleting) { return deleting.param.editor.name; });

TEST_P(DeleteAfterSearch, KeepsTheRestOfTheItemThatIsShown) {
  open({item("A"), item("B"), item("C")});
  press(editor().next);
  openSideForm(editor().search);
  type(editor().firstBox, "nowhere");
  desktop_.expectMessage("Quillbox", "Data Not Found...");
  press(editor().search.begin);
  leaveSideForm(editor().search);
  desktop_.expectQuestion(GetParam().questionTitle, "Do you really want to delete this?!",
                          Answer::yes);
  desktop_.expectMessage(GetParam().deletedTitle, "Deleted.");
  press("cmdDelete");
  std::string deleted = item("B");
  setText(kind().fields.front(), std::as_writable_bytes(std::span(deleted)),
          kind().rules.deletion.marker);
  EXPECT_EQ(bytes(), collection({item("A"), deleted, item("C")}));
}

}  // namespace
}  // namespace quillbox::test
