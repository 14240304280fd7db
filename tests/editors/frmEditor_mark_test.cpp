// The mark beside the record indicator: the form differs from its item in the file.

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

class Mark : public EditorTest {
 protected:
  using EditorTest::EditorTest;

  bool isMarked() { return mark().isVisible(); }
  QLabel& mark() { return control<QLabel>("lblNotWritten"); }
};

class EachMark : public Mark, public testing::WithParamInterface<ModelKind> {
 protected:
  EachMark() : Mark(GetParam()) {}
};

TEST_P(EachMark, IsNotThereForAnItemJustShown) {
  open({item("One"), item("Two")});
  EXPECT_FALSE(isMarked());
  press(kind().buttons.next);
  EXPECT_FALSE(isMarked());
}

TEST_P(EachMark, ComparesWithTheFile) {
  open({item("One"), item("Two")});
  const std::string before = other();
  type(kind().otherBox(), "Something else");
  EXPECT_TRUE(isMarked());
  type(kind().otherBox(), before.c_str());
  EXPECT_FALSE(isMarked());
}

TEST_P(EachMark, GoesWhenTheItemIsWritten) {
  open({item("One")});
  type(kind().otherBox(), "Changed");
  EXPECT_TRUE(isMarked());
  press(kind().buttons.write);
  EXPECT_FALSE(isMarked());
}

TEST_P(EachMark, StaysWhenWritingFails) {
  open({item("One")});
  type(kind().otherBox(), "Changed");
  files_.failNth(0, ErrorNumber::permissionDenied);
  desktop_.tolerateMessages = true;
  press(kind().buttons.write);
  EXPECT_TRUE(isMarked());
  press(kind().buttons.write);
  EXPECT_FALSE(isMarked());
}

TEST_P(EachMark, GoesWithTheStepToAnotherItem) {
  open({item("One"), item("Two")});
  type(kind().otherBox(), "Changed");
  press(kind().buttons.next);
  EXPECT_FALSE(isMarked());
}

TEST_P(EachMark, TellsThatANewItemHoldsSomething) {
  open({item("One")});
  press(kind().buttons.clear);
  EXPECT_FALSE(isMarked());
  type(kind().otherBox(), "N");
  EXPECT_TRUE(isMarked());
  type(kind().otherBox(), "");
  EXPECT_FALSE(isMarked());
  type(kind().firstBox(), "New");
  press(kind().buttons.write);  // a form for the next one
  EXPECT_FALSE(isMarked());
}

TEST_P(EachMark, TakesNoticeInAnEmptyCollection) {
  open({});
  EXPECT_FALSE(isMarked());
  type(kind().firstBox(), "N");
  EXPECT_TRUE(isMarked());
}

TEST_P(EachMark, AsksNothing) {
  open({item("One"), item("Two")});
  type(kind().otherBox(), "Changed");
  press(kind().buttons.next);  // an unexpected question would fail the test
  type(kind().otherBox(), "Changed");
  close();
  EXPECT_EQ(formName(), "frmBegin2");
  EXPECT_EQ(bytes(), collection({item("One"), item("Two")}));
}

TEST_P(EachMark, SaysWhatItMeansToEyesAndEars) {
  open({item("One")});
  type(kind().otherBox(), "Changed");
  EXPECT_EQ(mark().toolTip(), "not written yet");
  EXPECT_EQ(mark().accessibleDescription(), "not written yet");
}

TEST_P(EachMark, KeepsItsPlaceFreeWhenItIsNotShown) {
  open({item("One")});
  const QSize before = form().size();
  const int next = button(kind().buttons.next).x();
  type(kind().otherBox(), "Changed");
  QApplication::processEvents();
  EXPECT_EQ(form().size(), before);
  EXPECT_EQ(button(kind().buttons.next).x(), next);
}

INSTANTIATE_TEST_SUITE_P(Editors, EachMark, testing::ValuesIn(kModelEditors),
                         [](const auto& each) { return std::string(each.param.name); });

class MusicMark : public Mark {
 protected:
  MusicMark() : Mark(kMusic) {}
};

TEST_F(MusicMark, KnowsTwoWritingsOfOneNumber) {
  open({item("One")});
  ASSERT_EQ(shown("txtAquireCost"), "1.5");
  type("txtAquireCost", "1.50");
  EXPECT_FALSE(isMarked());
  type("txtAquireCost", "1.51");
  EXPECT_TRUE(isMarked());
}

TEST_F(MusicMark, SeesChecksAndLists) {
  open({item("One")});
  tick("chkHasBook");
  EXPECT_TRUE(isMarked());
  tick("chkHasBook");
  EXPECT_FALSE(isMarked());
  pick("cmbGenre", 2);
  EXPECT_TRUE(isMarked());
  pick("cmbGenre", 1);
  EXPECT_FALSE(isMarked());
}

TEST_F(MusicMark, SeesEverySong) {
  open({item("One")});
  for (const bool isSecondPage : {false, true})
    for (const char* song : {"txtSongTitle_0", "txtSongTitle_3", "txtSongTitle_19"}) {
      SCOPED_TRACE(song);
      const auto change = [&](const std::string& title) {
        choose("EditSongs");
        if (isSecondPage) press("cmdNextPage");
        const std::string before = shown(song);
        type(song, title.c_str());
        press("cmdExit");
        return before;
      };
      const std::string before = change("Another");
      EXPECT_TRUE(isMarked());
      change(before);
      EXPECT_FALSE(isMarked());
    }
}

class VideoMark : public Mark {
 protected:
  VideoMark() : Mark(kVideo) {}
};

TEST_F(VideoMark, SeesTheListPage) {
  open({item("One")});
  choose("EditTitles");
  const auto boxes = form().findChildren<QLineEdit*>();
  const QByteArray name = boxes.front()->objectName().toUtf8();
  const std::string entry = shown(name.constData());
  type(name.constData(), "Another");
  form().close();
  EXPECT_TRUE(isMarked());
  choose("EditTitles");
  type(name.constData(), entry.c_str());
  form().close();
  EXPECT_FALSE(isMarked());
}

TEST_F(VideoMark, WarnsOfADeletedItemThatAnotherIsShownFor) {
  std::string deleted = blankItem();
  setText(kind().row().fields.front(), std::as_writable_bytes(std::span(deleted)), "DELETED");
  open({item("One"), deleted});
  EXPECT_FALSE(isMarked());
  press(kind().buttons.next);
  EXPECT_EQ(first(), "One");
  EXPECT_TRUE(isMarked());
}

class SoftwareMark : public Mark {
 protected:
  SoftwareMark() : Mark(kSoftware) {}
};

TEST_F(SoftwareMark, WarnsWhenTheListPageShowsAnotherItemThanTheIndicator) {
  open({item("One"), item("Two")});
  choose("EditTitles");
  for (int item = 1; item <= 2; ++item) press("cmdNext");
  form().close();
  EXPECT_EQ(first(), "Two");
  EXPECT_EQ(indicator(), "Record # 1 of 2");
  EXPECT_TRUE(isMarked());
}

}  // namespace
}  // namespace quillbox::test
