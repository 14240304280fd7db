// The result of a search, with and without a hit: the positions, the editor's screen, the record
// behind it and the file.

#include "printing/frmRecDisp.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class SearchingEditor : public EditorTest, public testing::WithParamInterface<ModelKind> {
 protected:
  SearchingEditor() : EditorTest(GetParam()) {}

  bool isBooks() const { return kind().isBooks(); }
  bool isVideo() const { return kind().isVideo(); }

  void openSearch() { openSideForm(kind().search); }
  void leaveSearch() { leaveSideForm(kind().search); }
  void begin() {
    press(kind().search.begin);
    desktop_.expectNothingLeft();
  }
  void beginInVain() {
    int boxes = 0;
    desktop_.onBox = [&](const std::string&, const std::string&) {
      EXPECT_EQ(formName(), kind().search.formName) << "the board is gone by then";
      ++boxes;
    };
    desktop_.expectMessage("Quillbox", isBooks() ? "Not Found" : "Data Not Found...");
    begin();
    desktop_.onBox = nullptr;
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(formName(), kind().search.formName);
  }
  void searchFor(const std::string& first) {
    openSearch();
    type(kind().firstBox(), first.c_str());
    begin();
    EXPECT_EQ(formName(), kind().formName);
  }
  void searchInVain() {
    openSearch();
    type(kind().firstBox(), "nowhere");
    beginInVain();
  }

  /// The item with every flag set.
  std::string flagged(std::string item) const {
    for (const Field& each : kind().row().fields)
      if (each.type == FieldType::flag) setWhole(each, std::as_writable_bytes(std::span(item)), 1);
    return item;
  }
  void expectWriteChangesNothing() {
    const std::string before = bytes();
    press(kind().buttons.write);
    EXPECT_EQ(bytes(), before);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, SearchingEditor, testing::ValuesIn(kModelEditors),
                         [](const auto& editor) { return editor.param.name; });

// ---- Hits

TEST_P(SearchingEditor, AHitShowsTheItem) {
  const std::string before = collection({item("A"), item("B"), item("C")});
  openBytes(before);
  type(kind().otherBox(), "typed for another item");
  state_->ListPos = 7;
  searchFor("C");
  EXPECT_EQ(state_->CurRec, 3);
  EXPECT_EQ(state_->ListPos, isBooks() ? 7 : 3);
  EXPECT_EQ(indicator(), kind().label(3, 3));
  EXPECT_EQ(first(), "C");
  EXPECT_FALSE(button(kind().buttons.next).isEnabled());
  EXPECT_EQ(bytes(), before) << "a search writes nothing";
  expectWriteChangesNothing();
}

TEST_P(SearchingEditor, AHitEndsANewItem) {
  open({item("A"), item("B")});
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  searchFor("B");
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(indicator(), kind().label(2, 2));
  expectWriteChangesNothing();
}

TEST_P(SearchingEditor, EverySearchStartsAtItemOne) {
  open({item("A"), item("B"), item("B")});
  searchFor("B");
  EXPECT_EQ(state_->CurRec, 2);
  openSearch();
  begin();
  EXPECT_EQ(state_->CurRec, 2);
  press(kind().buttons.next);
  EXPECT_EQ(state_->CurRec, 3);
  openSearch();
  begin();
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(first(), "B");
}

TEST_P(SearchingEditor, WithNothingEnteredTheFirstItemWithoutFlagsIsFound) {
  open({flagged(item("A")), flagged(item("B")), item("C"), item("D")});
  press(kind().buttons.next);
  openSearch();
  const bool asksForFlags = !form().findChildren<QCheckBox*>().empty();
  begin();
  EXPECT_EQ(state_->CurRec, asksForFlags ? 3 : 1);
}

TEST_P(SearchingEditor, WithNothingEnteredItemOneIsFound) {
  open({item("A"), item("B")});
  press(kind().buttons.next);
  openSearch();
  begin();
  EXPECT_EQ(state_->CurRec, 1);
  EXPECT_EQ(first(), "A");
}

TEST_P(SearchingEditor, FindsDeletedItems) {
  const std::string marker(kind().marker());
  open({item("A"), item(marker), item("C")});
  type(kind().otherBox(), "typed");
  searchFor(marker);
  EXPECT_EQ(state_->CurRec, 2);
  // A deleted video leaves the screen unchanged.
  EXPECT_EQ(first(), isVideo() ? "A" : marker);
  EXPECT_EQ(other() == "typed", isVideo());
  EXPECT_EQ(indicator(), kind().label(isVideo() ? 1 : 2, 3));
  EXPECT_EQ(state_->ListPos, isBooks() ? 0 : 2);
  press(kind().buttons.next);
  EXPECT_EQ(first(), "C");
}

// ---- Misses

TEST_P(SearchingEditor, AMissKeepsTheSearchFormWithItsInputs) {
  open({item("A"), item("B")});
  searchInVain();
  EXPECT_EQ(shown(kind().firstBox()), "nowhere");
  EXPECT_EQ(state_->CurRec, 1);
  beginInVain();
}

TEST_P(SearchingEditor, AMissLeavesTheEditorAsItWas) {
  const std::string before = collection({item("A"), item("B"), item("C")});
  openBytes(before);
  press(kind().buttons.next);
  type(kind().otherBox(), "typed");
  const auto listPos = state_->ListPos;
  searchInVain();
  leaveSearch();
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(state_->ListPos, listPos);
  EXPECT_EQ(indicator(), kind().label(2, 3));
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(other(), "typed");
  EXPECT_EQ(bytes(), before);
}

TEST_P(SearchingEditor, WriteDataAfterAMissChangesNothing) {
  open({item("A"), item("B"), item("C")});
  press(kind().buttons.next);
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    searchInVain();
    leaveSideForm(kind().search, way);
    expectWriteChangesNothing();
  }
}

TEST_P(SearchingEditor, ANewItemOutlivesAMiss) {
  open({item("A"), item("B")});
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  type(kind().otherBox(), "typed");
  const std::string label = indicator();
  searchInVain();
  leaveSearch();
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(indicator(), label);
  EXPECT_EQ(first(), "New");
  EXPECT_EQ(other(), "typed");
  press(kind().buttons.write);
  EXPECT_EQ(headerOf(bytes()).Count, 3);
  EXPECT_EQ(bytes().substr(3 * kind().recordLength, 4), "New ");
}

TEST_P(SearchingEditor, NothingIsFoundInAnEmptyCollection) {
  open({});
  openSearch();
  beginInVain();
  leaveSearch();
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(indicator(), kind().labels.empty);
}

// ---- Failures

TEST_P(SearchingEditor, ACollectionThatIsGoneIsAnErrorOnTheSearchForm) {
  open({item("A"), item("B")});
  press(kind().buttons.next);
  type(kind().otherBox(), "typed");
  std::filesystem::remove(collectionPath());
  openSearch();
  type(kind().firstBox(), "A");
  expectError("'53':\n\nFile not found\n" + collectionPath());
  begin();
  EXPECT_EQ(formName(), kind().search.formName);
  EXPECT_EQ(shown(kind().firstBox()), "A");
  EXPECT_FALSE(dynamic_cast<frmRecDisp&>(program_->board()).isVisible());
  EXPECT_FALSE(desktop_.endedAtOnce);
  leaveSearch();
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(other(), "typed");
}

TEST_P(SearchingEditor, AnItemThatCannotBeReadLeavesTheRecordThatIsShown) {
  open({item("A"), item("B"), item("C")});
  openSearch();
  type(kind().firstBox(), "C");
  files_.failNth(FileOperation::read, 0, ErrorNumber::deviceIo);
  expectError("'57':\n\nDevice I/O error\n" + collectionPath());
  begin();
  EXPECT_EQ(formName(), kind().search.formName);
  EXPECT_FALSE(dynamic_cast<frmRecDisp&>(program_->board()).isVisible());
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
  type(kind().firstBox(), "C");
  expectError("'63':\n\nBad record number\n" + collectionPath());
  begin();
  EXPECT_EQ(formName(), kind().search.formName);
  leaveSearch();
  EXPECT_EQ(first(), "A");
  EXPECT_EQ(state_->CurRec, 1);
  expectWriteChangesNothing();
}

// ---- Numbers beyond their range

/// Bytes of an item that no input shows, and that Write Data stores as they were read.
struct HiddenBytes {
  const ModelKind& editor;
  std::size_t offset;
  std::size_t width;
};

void PrintTo(const HiddenBytes& hidden, std::ostream* out) { *out << hidden.editor.name; }

class SearchedHiddenBytes : public EditorTest, public testing::WithParamInterface<HiddenBytes> {
 protected:
  SearchedHiddenBytes() : EditorTest(GetParam().editor) {}

  std::string hiding(const std::string& first) const {
    std::string hidden(GetParam().width, first.front());
    return item(first).replace(GetParam().offset, hidden.size(), hidden);
  }
  /// Their first characters, item by item.
  std::string allHidden() {
    const std::string file = bytes();
    std::string all;
    for (std::size_t at = kind().recordLength; at < file.size(); at += kind().recordLength) {
      const std::string hidden = file.substr(at + GetParam().offset, GetParam().width);
      EXPECT_EQ(hidden, std::string(hidden.size(), hidden.front()));
      all += hidden.front();
    }
    return all;
  }
  void writeChanged() {
    type(kind().otherBox(), "changed");
    press(kind().buttons.write);
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, SearchedHiddenBytes,
                         testing::Values(HiddenBytes{kBooks, 204, 20}, HiddenBytes{kWaves, 192, 8}),
                         [](const auto& hidden) { return hidden.param.editor.name; });

TEST_P(SearchedHiddenBytes, AreThoseOfTheHit) {
  open({hiding("A"), hiding("B"), hiding("C"), hiding("D")});
  openSideForm(kind().search);
  type(kind().firstBox(), "C");
  press(kind().search.begin);
  ASSERT_EQ(first(), "C");
  writeChanged();
  EXPECT_EQ(allHidden(), "ABCD");
  press(kind().buttons.clear);
  writeChanged();
  EXPECT_EQ(allHidden(), "ABCDC") << "and of a new item made from it";
}

TEST_P(SearchedHiddenBytes, AreThoseOfTheItemShownWhenTheFormIsLeftWithoutAHit) {
  open({hiding("A"), hiding("B"), hiding("C")});
  press(kind().buttons.next);
  for (const bool searches : {false, true}) {
    openSideForm(kind().search);
    type(kind().firstBox(), "nowhere");
    if (searches) {
      desktop_.expectMessage("Quillbox", kind().notFound);
      press(kind().search.begin);
    }
    leaveSideForm(kind().search);
    writeChanged();
    EXPECT_EQ(allHidden(), "ABC");
  }
  press(kind().buttons.clear);
  writeChanged();
  EXPECT_EQ(allHidden(), "ABCB");
}

struct BigNumber {
  const ModelKind& editor;
  const char* input;
  const char* typed;
};

void PrintTo(const BigNumber& number, std::ostream* out) { *out << number.input; }

class SearchedNumber : public EditorTest, public testing::WithParamInterface<BigNumber> {
 protected:
  SearchedNumber() : EditorTest(GetParam().editor) {}
};

INSTANTIATE_TEST_SUITE_P(Inputs, SearchedNumber,
                         testing::Values(BigNumber{kSoftware, "txtSftWare_2", "70000"},
                                         BigNumber{kSoftware, "txtSftWare_3", "-32769"},
                                         BigNumber{kMusic, "txtAquireCost", "1e30"},
                                         BigNumber{kVideo, "txtCurrPrice", "1e30"},
                                         BigNumber{kComics, "txtCmic_7", "1e30"}),
                         [](const auto& number) { return std::string(number.param.input); });

TEST_P(SearchedNumber, BeyondItsRangeIsAnOverflowAndTheFormStaysAsTyped) {
  open({item("A"), item("B")});
  openSideForm(kind().search);
  type(kind().firstBox(), "B");
  type(GetParam().input, GetParam().typed);
  expectError(kOverflow);
  press(kind().search.begin);
  EXPECT_EQ(formName(), kind().search.formName);
  EXPECT_EQ(shown(kind().firstBox()), "B");
  EXPECT_EQ(shown(GetParam().input), GetParam().typed);
  leaveSideForm(kind().search);
  EXPECT_EQ(state_->CurRec, 1);
}

// ---- Deleting after a search

struct DeletingEditor {
  const ModelKind& editor;
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
                         testing::Values(DeletingEditor{kMusic, "QBX - Music Manager",
                                                        "QBX - Music Manager"},
                                         DeletingEditor{kWaves, "QBX - waves Manager",
                                                        "QBX - Wave/Midi/Graphic Manager"}),
                         [](const auto& deleting) { return deleting.param.editor.name; });

TEST_P(DeleteAfterSearch, KeepsTheRestOfTheItemThatIsShown) {
  open({item("A"), item("B"), item("C")});
  press(kind().buttons.next);
  openSideForm(kind().search);
  type(kind().firstBox(), "nowhere");
  desktop_.expectMessage("Quillbox", "Data Not Found...");
  press(kind().search.begin);
  leaveSideForm(kind().search);
  desktop_.expectQuestion(GetParam().questionTitle, "Do you really want to delete this?!",
                          Answer::yes);
  desktop_.expectMessage(GetParam().deletedTitle, "Deleted.");
  press("cmdDelete");
  std::string deleted = item("B");
  setText(kind().row().fields.front(), std::as_writable_bytes(std::span(deleted)), kind().marker());
  EXPECT_EQ(bytes(), collection({item("A"), deleted, item("C")}));
}

}  // namespace
}  // namespace quillbox::test
