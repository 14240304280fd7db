// The result of a successful sort: the file, the positions and the editor's screen.

#include <QGuiApplication>
#include <utility>

#include "platform/checked16.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

/// The boxes of a sort form: their name without the number, and the field that each sorts by.
struct SortKeys {
  const ModelKind& editor;
  const char* box;
  std::vector<const char*> fields;
};

void PrintTo(const SortKeys& keys, std::ostream* out) { *out << keys.editor.name; }

const SortKeys kMusicKeys = {
    kMusic, "chkMusSort_", {"Artist", "Album", "RecordCo", "MediaType", "Genre"}};
const SortKeys kVideoKeys = {kVideo, "chkSort_", {"Label", "Publisher", "MediaType", "Commercial"}};
const SortKeys kSoftwareKeys = {
    kSoftware, "chkSort_", {"DiskLabel", "Publisher", "MediaType", "Commercial"}};
const SortKeys kComicKeys = {kComics, "chkSort_", {"BookTitle", "ComicTitle", "Artists"}};
const SortKeys kMediaKeys = {kWaves, "", {}};  // always by the file's name

/// What every sort form that finishes its work does. That of books never does.
class SortedEditor : public EditorTest, public testing::WithParamInterface<SortKeys> {
 protected:
  SortedEditor() : EditorTest(GetParam().editor) {}

  bool isMusic() const { return kind().isMusic(); }
  bool isVideo() const { return kind().isVideo(); }
  bool hasBoxes() const { return !GetParam().fields.empty(); }

  void tickBox(std::size_t number) { tick((GetParam().box + std::to_string(number)).c_str()); }
  void openSort() { openSideForm(kind().sort); }
  void begin() {
    desktop_.expectMessage("Quillbox", "Sorting complete.");
    desktop_.onBox = [this](const std::string&, const std::string&) {
      EXPECT_EQ(formName(), kind().sort.formName) << "the editor comes back behind the message";
    };
    press(kind().sort.begin);
    desktop_.onBox = nullptr;
    desktop_.expectNothingLeft();
    EXPECT_FALSE(desktop_.endedAtOnce);
    EXPECT_EQ(formName(), kind().formName);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  }
  void sortByNothing() {
    openSort();
    begin();
  }
  void sortByFirst() {
    openSort();
    if (hasBoxes()) tickBox(0);
    begin();
  }
  void goTo(int item) {
    for (int n = 1; n < item; ++n) press(kind().buttons.next);
    ASSERT_EQ(state_->CurRec, item);
  }

  /// That item is on screen, and Write Data does not change it.
  void expectShown(int position, const std::string& text) {
    EXPECT_EQ(indicator(), kind().label(position, state_->Count));
    EXPECT_EQ(state_->CurRec, position);
    EXPECT_EQ(first(), text);
    const std::string before = bytes();
    press(kind().buttons.write);
    EXPECT_EQ(bytes(), before);
  }
  void expectEmptyForm() {
    for (const QLineEdit* each : form().findChildren<QLineEdit*>())
      EXPECT_EQ(each->text(), "") << each->objectName().toStdString();
    for (const QCheckBox* each : form().findChildren<QCheckBox*>())
      EXPECT_FALSE(each->isChecked()) << each->objectName().toStdString();
    for (const QComboBox* each : form().findChildren<QComboBox*>())
      EXPECT_EQ(each->currentIndex(), -1) << each->objectName().toStdString();
  }

  /// An item with that value in one of the sort keys, and the opposite in the others.
  std::string ranked(std::size_t key, int value) {
    std::string made = item("");
    const auto record = std::as_writable_bytes(std::span(made));
    for (std::size_t n = 0; n < GetParam().fields.size(); ++n) {
      const int stored = n == key ? value : 9 - value;
      const Field& sorted = field(GetParam().fields[n]);
      if (sorted.type == FieldType::text)
        setText(sorted, record, std::to_string(stored));
      else
        setWhole(sorted, record, checked16(stored));
    }
    return made;
  }
};

std::string nameOf(const testing::TestParamInfo<SortKeys>& info) { return info.param.editor.name; }

INSTANTIATE_TEST_SUITE_P(Kinds, SortedEditor,
                         testing::Values(kMusicKeys, kVideoKeys, kSoftwareKeys, kComicKeys,
                                         kMediaKeys),
                         nameOf);

/// Those that ask what to sort by.
class SortedByBoxes : public SortedEditor {};

INSTANTIATE_TEST_SUITE_P(Kinds, SortedByBoxes,
                         testing::Values(kMusicKeys, kVideoKeys, kSoftwareKeys, kComicKeys),
                         nameOf);

TEST_P(SortedEditor, SortsTheFileAndDeletesTheBackup) {
  open({item("c"), item("A"), item("b")});
  sortByFirst();
  EXPECT_EQ(bytes(), collection({item("A"), item("b"), item("c")}));
  EXPECT_FALSE(std::filesystem::exists(backup()));
}

TEST_P(SortedByBoxes, EachBoxSortsByItsField) {
  for (std::size_t key = 0; key < GetParam().fields.size(); ++key) {
    SCOPED_TRACE(GetParam().fields[key]);
    open({ranked(key, 3), ranked(key, 1), ranked(key, 2)});
    openSort();
    tickBox(key);
    begin();
    EXPECT_EQ(bytes(), collection({ranked(key, 1), ranked(key, 2), ranked(key, 3)}));
  }
}

TEST_P(SortedByBoxes, OfTwoBoxesTheFirstCountsMost) {
  for (std::size_t key = 1; key < GetParam().fields.size(); ++key) {
    SCOPED_TRACE(GetParam().fields[key]);
    open({ranked(0, 2), ranked(0, 1), ranked(0, 3)});
    openSort();
    tickBox(key);
    tickBox(0);
    begin();
    EXPECT_EQ(bytes(), collection({ranked(0, 1), ranked(0, 2), ranked(0, 3)}));
  }
}

TEST_P(SortedEditor, WithoutATickOnlyMediaFilesAreSorted) {
  open({item("c"), item("a"), item("b")});
  sortByNothing();
  EXPECT_EQ(bytes(), hasBoxes() ? collection({item("c"), item("a"), item("b")})
                                : collection({item("a"), item("b"), item("c")}));
}

TEST_P(SortedEditor, ShowsWhatIsAtItsPositionNow) {
  open({item("c"), item("a"), item("b")});
  goTo(2);
  type(kind().otherBox(), "typed for another item");
  state_->ListPos = 3;
  sortByFirst();
  EXPECT_EQ(state_->ListPos, isMusic() ? 3 : 1);
  if (isVideo())
    expectShown(1, "a");
  else
    expectShown(2, "b");
}

TEST_P(SortedEditor, StepsOnFromThereAsUsual) {
  open({item("c"), item("a"), item("b")});
  sortByFirst();
  expectShown(1, "a");
  press(kind().buttons.next);
  expectShown(2, "b");
  press(kind().buttons.next);
  expectShown(3, "c");
  EXPECT_FALSE(button(kind().buttons.next).isEnabled());
}

TEST_P(SortedEditor, ShowsTheLastItemWhenItsPositionIsGone) {
  open({item("a"), blankItem(), item("c")});
  goTo(3);
  sortByFirst();
  EXPECT_EQ(state_->Count, 2);
  EXPECT_EQ(bytes(), collection({item("a"), item("c")}));
  if (isVideo())
    expectShown(1, "a");
  else
    expectShown(2, "c");
}

TEST_P(SortedEditor, ShowsTheEmptyFormWhenNoItemIsLeft) {
  open({blankItem()});
  type(kind().otherBox(), "typed");
  sortByNothing();
  EXPECT_EQ(headerOf(bytes()).Count, 0);
  EXPECT_EQ(state_->Count, 0);
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(indicator(), kind().labels.empty);
  expectEmptyForm();
  EXPECT_FALSE(button(kind().buttons.next).isEnabled());
}

TEST_P(SortedEditor, AnEmptyCollectionStaysEmpty) {
  open({});
  sortByNothing();
  EXPECT_EQ(headerOf(bytes()).Count, 0);
  EXPECT_EQ(state_->CurRec, 0);
  EXPECT_EQ(indicator(), kind().labels.empty);
}

TEST_P(SortedEditor, ANewItemStaysAsTypedAndIsAddedAfterwards) {
  open({item("b"), item("a")});
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  type(kind().otherBox(), "typed");
  const std::string label = indicator();
  sortByFirst();
  EXPECT_EQ(state_->CurRec, kNewItem);
  EXPECT_EQ(first(), "New");
  EXPECT_EQ(other(), "typed");
  EXPECT_EQ(indicator(), label);
  press(kind().buttons.write);
  EXPECT_EQ(headerOf(bytes()).Count, 3);
  const std::string sorted = collection({item("a"), item("b")}).substr(kind().recordLength);
  EXPECT_EQ(bytes().substr(kind().recordLength, sorted.size()), sorted);
  EXPECT_EQ(bytes().substr(3 * kind().recordLength, 4), "New ");
}

TEST_P(SortedEditor, KeepsItsBoxesForTheNextSort) {
  open({item("b"), item("a")});
  sortByFirst();
  press(kind().buttons.next);
  type(kind().firstBox(), "!");
  press(kind().buttons.write);
  openSort();
  begin();
  EXPECT_EQ(bytes().substr(2 * kind().recordLength, 2), "a ");
}

// ---- Deleted videos

class SortedVideos : public EditorTest {
 protected:
  SortedVideos() : EditorTest(kVideo) {}
};

TEST_F(SortedVideos, ADeletedItemOneLeavesTheFormEmpty) {
  open({item("x"), item("DELETED")});
  tick("chkCommercial");
  openSideForm(kind().sort);
  tick("chkSort_0");
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  press(kind().sort.begin);
  EXPECT_EQ(bytes(), collection({item("DELETED"), item("x")}));
  EXPECT_EQ(indicator(), "Record # 1 of 2");
  for (const char* name :
       {"txtVidTitle", "txtPublisher", "txtPurPrice", "txtCurrPrice", "txtAquireDate", "txtNotes"})
    EXPECT_EQ(shown(name), "") << name;
  EXPECT_FALSE(check("chkCommercial").isChecked());
  EXPECT_EQ(list("cmbMediaType").currentIndex(), -1);
}

// ---- Media files stay open

class SortedMediaFiles : public EditorTest {
 protected:
  SortedMediaFiles() : EditorTest(kWaves) {}

  void sort() {
    open({item("b"), item("a")});
    openSideForm(kind().sort);
    desktop_.expectMessage("Quillbox", "Sorting complete.");
    press(kind().sort.begin);
    EXPECT_TRUE(isOpen());
  }
  bool isOpen() const { return state_->files.isOpen(file_number::collection); }
};

TEST_F(SortedMediaFiles, LeavingTheEditorClosesTheCollection) {
  sort();
  choose("ExitCollection");
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(isOpen());

  sort();
  choose("NewFile");
  EXPECT_EQ(formName(), "frmNewCollection");
  EXPECT_FALSE(isOpen());

  sort();
  desktop_.tolerateOpen = collectionPath();
  choose("OpenFile");
  desktop_.tolerateOpen.reset();
  EXPECT_EQ(first(), "a");
  EXPECT_FALSE(isOpen());

  sort();
  close();
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_FALSE(isOpen());
}

TEST_F(SortedMediaFiles, AnyOtherWorkGoesOnMeanwhile) {
  sort();
  type("txtDesc", "Doorbell");
  press("cmdWrite");
  press("cmdNext");
  EXPECT_EQ(first(), "b");
  openSideForm(kind().sort);
  desktop_.expectMessage("Quillbox", "Sorting complete.");
  press(kind().sort.begin);
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(first(), "b");
  EXPECT_EQ(headerOf(bytes()).Count, 2);
}

TEST_F(SortedMediaFiles, SearchingClosesTheCollection) {
  for (const bool hit : {true, false}) {
    SCOPED_TRACE(hit);
    sort();
    openSideForm(kind().search);
    EXPECT_TRUE(isOpen());
    type("txtFileName", hit ? "a" : "nowhere");
    if (!hit) desktop_.expectMessage("Quillbox", "Data Not Found...");
    press(kind().search.begin);
    EXPECT_FALSE(isOpen());
  }
}

}  // namespace
}  // namespace quillbox::test
