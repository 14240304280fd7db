// What only the music search form does: its loan inputs, and the user's own media types.

#include "records/choice_lists.h"
#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class MusicSearch : public EditorTest {
 protected:
  MusicSearch() : EditorTest(kMusic) {}

  void openSearch() {
    open({item("A")});
    openSideForm(kind().search);
  }

  /// An input and its caption, which are always enabled together.
  bool isEnabled(const char* name) {
    auto& input = control<QWidget>(name);
    for (const QLabel* each : form().findChildren<QLabel*>())
      EXPECT_TRUE(each->buddy() != &input || each->isEnabled() == input.isEnabled()) << name;
    return input.isEnabled();
  }
  void expectLoan(bool loan, bool bookLoaned) {
    for (const char* name : {"txtBorrower", "txtDateLoaned", "txtDueDate"})
      EXPECT_EQ(isEnabled(name), loan) << name;
    EXPECT_EQ(isEnabled("chkBookLoaned"), bookLoaned);
  }
  std::vector<std::string> mediaTypes() {
    std::vector<std::string> found;
    for (int n = 0; n < list("cmbMediaType").count(); ++n)
      found.push_back(list("cmbMediaType").itemText(n).toStdString());
    return found;
  }
  static std::vector<std::string> builtIn() {
    return {choices::musicMediaType.begin(), choices::musicMediaType.end()};
  }
  static std::vector<std::string> withMiniDisc() {
    std::vector<std::string> types = builtIn();
    types.back() = "Mini Disc";
    return types;
  }
};

TEST_F(MusicSearch, TheLoanInputsAreDisabledAtFirst) {
  openSearch();
  expectLoan(false, false);
}

TEST_F(MusicSearch, TheLoanInputsFollowTheLoan) {
  openSearch();
  tick("chkCurrLoaned");
  expectLoan(true, false);
  tick("chkCurrLoaned");
  expectLoan(false, false);
}

TEST_F(MusicSearch, ABookletAloneEnablesNothing) {
  openSearch();
  tick("chkHasBook");
  expectLoan(false, false);
  tick("chkHasBook");
  expectLoan(false, false);
}

TEST_F(MusicSearch, TheBookletBoxFollowsBothWhicheverWasClickedLast) {
  for (const auto& [clickedFirst, clickedLast] :
       {std::pair{"chkHasBook", "chkCurrLoaned"}, std::pair{"chkCurrLoaned", "chkHasBook"}}) {
    SCOPED_TRACE(clickedLast);
    openSearch();
    tick(clickedFirst);
    tick(clickedLast);
    expectLoan(true, true);
    tick("chkHasBook");
    expectLoan(true, false);
    tick("chkHasBook");
    expectLoan(true, true);
    tick("chkCurrLoaned");
    expectLoan(false, false);
    tick("chkHasBook");
    tick("chkCurrLoaned");
    expectLoan(true, false);
  }
}

TEST_F(MusicSearch, TheLoanInputsFollowBoxesHoweverTheyAreToggled) {
  openSearch();
  toggle("chkCurrLoaned");
  expectLoan(true, false);
  toggle("chkHasBook");
  expectLoan(true, true);
  check("chkCurrLoaned").toggle();
  expectLoan(false, false);
}

TEST_F(MusicSearch, TheLoanInputsAreAsTheyWereWhenItIsOpenedAgain) {
  openSearch();
  tick("chkHasBook");
  tick("chkCurrLoaned");
  type("txtBorrower", "Ann");
  leaveSideForm(kind().search);
  openSideForm(kind().search);
  expectLoan(true, true);
  EXPECT_EQ(shown("txtBorrower"), "Ann");
}

TEST_F(MusicSearch, OffersTheBuiltInMediaTypes) {
  openSearch();
  EXPECT_EQ(mediaTypes(), builtIn());
  EXPECT_EQ(list("cmbMediaType").currentIndex(), -1);
}

TEST_F(MusicSearch, FindsTheUsersOwnMediaTypes) {
  writeFile(path("QBX Music.ini"), "[MEDIA]\nMD,Mini Disc\n");
  std::string miniDisc = item("B");
  setWhole(field("MediaType"), std::as_writable_bytes(std::span(miniDisc)), 7);
  open({item("A"), miniDisc});
  openSideForm(kind().search);
  EXPECT_EQ(mediaTypes(), withMiniDisc());
  pick("cmbMediaType", 7);
  press(kind().search.begin);
  EXPECT_EQ(state_->CurRec, 2);
  EXPECT_EQ(list("cmbMediaType").currentText(), "Mini Disc");
}

TEST_F(MusicSearch, OffersWhatTheEditorOffersNow) {
  openSearch();
  pick("cmbMediaType", 2);
  leaveSideForm(kind().search);
  writeFile(path("QBX Music.ini"), "[MEDIA]\nMD,Mini Disc\n");
  desktop_.tolerateOpen = collectionPath();
  choose("OpenFile");
  openSideForm(kind().search);
  EXPECT_EQ(mediaTypes(), withMiniDisc());
  EXPECT_EQ(list("cmbMediaType").currentText(), "Digital Audio Tape") << "still chosen";
}

}  // namespace
}  // namespace quillbox::test
