// The sort forms: their contents, and the ways in and out.

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

struct BoxLook {
  const char* name;
  const char* caption;
};

/// Everything that can be reached on a sort form.
struct SortLook {
  const ModelKind& editor;
  const char* caption;
  std::vector<BoxLook> boxes;
  const char* begin;
  const char* exit;
};

void PrintTo(const SortLook& look, std::ostream* out) { *out << look.editor.name; }

const SortLook kMusicSort = {kMusic,
                             "Sorting Options",
                             {{"chkMusSort_0", "By &Artist"},
                              {"chkMusSort_1", "By A&lbum Title"},
                              {"chkMusSort_2", "By &Recording Company"},
                              {"chkMusSort_3", "By &Media Type"},
                              {"chkMusSort_4", "&Genre"}},
                             "&Begin Sorting",
                             "E&xit Window"};

const SortLook kVideoSort = {kVideo,
                             "Sorting Options",
                             {{"chkSort_0", "&Label Text"},
                              {"chkSort_1", "&Publisher"},
                              {"chkSort_2", "MediaType"},
                              {"chkSort_3", "&Commercial"}},
                             "&Begin Sort",
                             "E&xit"};

const SortLook kSoftwareSort = {kSoftware,
                                "Sorting Options",
                                {{"chkSort_0", "&Disk Label"},
                                 {"chkSort_1", "&Publisher"},
                                 {"chkSort_2", "&Media Type"},
                                 {"chkSort_3", "&Commercial"}},
                                "&Begin Sort",
                                "E&xit"};

const SortLook kComicSort = {
    kComics,
    "Sorting Options",
    {{"chkSort_0", "&Book Title"}, {"chkSort_1", "&Comic Title"}, {"chkSort_2", "&Artists"}},
    "Be&gin Sort",
    "E&xit"};

const SortLook kBookSort = {kBooks,
                            "Book Sort Options",
                            {{"chkBsort_0", "&Author"},
                             {"chkBsort_1", "&Publisher"},
                             {"chkBsort_2", "&Media Type"},
                             {"chkBsort_3", "&Genre"}},
                            "&Begin Sort",
                            "E&xit Window"};

const SortLook kMediaSort = {kWaves, "Sorting Options", {}, "&Begin Sort", "E&xit"};

class SortForms : public EditorTest, public testing::WithParamInterface<SortLook> {
 protected:
  SortForms() : EditorTest(GetParam().editor) {}

  void openSort() { openSideForm(kind().sort); }
  void leaveSort(WayOut way) { leaveSideForm(kind().sort, way); }
  void tickBox(std::size_t number) { tick(GetParam().boxes.at(number).name); }
  bool isTicked(std::size_t number) { return check(GetParam().boxes.at(number).name).isChecked(); }
};

std::string nameOf(const testing::TestParamInfo<SortLook>& info) { return info.param.editor.name; }

INSTANTIATE_TEST_SUITE_P(Kinds, SortForms,
                         testing::Values(kMusicSort, kVideoSort, kSoftwareSort, kComicSort,
                                         kBookSort, kMediaSort),
                         nameOf);

TEST_P(SortForms, HasItsBoxesAndButtonsByNameAndCaption) {
  open({item("A")});
  openSort();
  EXPECT_EQ(caption(), GetParam().caption);
  const auto boxes = form().findChildren<QCheckBox*>();
  EXPECT_EQ(boxes.size(), static_cast<qsizetype>(GetParam().boxes.size()));
  for (const auto& [name, text] : GetParam().boxes) {
    EXPECT_EQ(check(name).text().toStdString(), text);
    EXPECT_EQ(check(name).accessibleName(), QString(text).remove('&'));
    EXPECT_FALSE(check(name).isChecked()) << name;
  }
  EXPECT_EQ(form().findChildren<QPushButton*>().size(), 2);
  EXPECT_EQ(button(kind().sort.begin).text().toStdString(), GetParam().begin);
  EXPECT_EQ(button(kind().sort.exit).text().toStdString(), GetParam().exit);
}

TEST_P(SortForms, SaysWhatItDoes) {
  open({item("A")});
  openSort();
  const std::string hint = label("lblHint");
  if (kind().isBooks()) {
    EXPECT_EQ(hint,
              "A sort of books ends the program. The collection is then under its\n"
              "backup's name, such as shelf.bak, in its old order. When Quillbox is\n"
              "started again, the start screen offers to put it back.");
  } else if (kind().isMedia()) {
    EXPECT_EQ(hint, "The collection is sorted by file name.");
  } else {
    EXPECT_EQ(hint, "Sorts by what is ticked; the first counts most.");
  }
}

TEST_P(SortForms, OpensWithTheFocusOnItsFirstControl) {
  open({item("A")});
  openSort();
  QWidget* expected = &button(kind().sort.begin);
  if (!GetParam().boxes.empty()) expected = &check(GetParam().boxes.front().name);
  EXPECT_EQ(form().focusWidget(), expected);
}

TEST_P(SortForms, EveryWayOutShowsTheEditorAsItWas) {
  const std::string before = collection({item("B"), item("A")});
  openBytes(before);
  press(kind().buttons.next);
  type(kind().otherBox(), "typed");
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    openSort();
    leaveSort(way);
    EXPECT_EQ(first(), "A");
    EXPECT_EQ(other(), "typed");
    EXPECT_EQ(indicator(), kind().label(2, 2));
    EXPECT_EQ(form().focusWidget(), &box(kind().otherBox()));
    EXPECT_EQ(bytes(), before);
  }
}

TEST_P(SortForms, EveryWayOutLeavesANewItemAsTyped) {
  open({item("A")});
  press(kind().buttons.clear);
  type(kind().firstBox(), "New");
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    openSort();
    leaveSort(way);
    EXPECT_EQ(first(), "New");
    EXPECT_EQ(state_->CurRec, kNewItem);
  }
}

TEST_P(SortForms, KeepsItsBoxesWhenItIsOpenedAgain) {
  open({item("A")});
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    openSort();
    std::vector<bool> ticked;
    for (std::size_t number = 0; number < GetParam().boxes.size(); ++number) {
      if (number != 1) tickBox(number);
      ticked.push_back(isTicked(number));
    }
    leaveSort(way);
    openSort();
    for (std::size_t number = 0; number < ticked.size(); ++number)
      EXPECT_EQ(isTicked(number), ticked[number]) << number;
    leaveSort(way);
  }
}

TEST_P(SortForms, EnterOnAButtonPressesIt) {
  open({item("A")});
  openSort();
  button(kind().sort.exit).setFocus();
  QTest::keyClick(form().focusWidget(), Qt::Key_Return);
  EXPECT_EQ(formName(), kind().formName);
}

}  // namespace
}  // namespace quillbox::test
