#include "forms/field_sheet.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <array>

#include "platform/run_time_error.h"
#include "records/music_record.h"
#include "records/video_record.h"
#include "support/failure.h"
#include "support/fake_desktop.h"
#include "support/keys.h"
#include "text/padding.h"

namespace quillbox::test {
namespace {

constexpr InputRow kRows[] = {
    input("txtArtist", "&Artist:", musicField("Artist"), {0}).inArray(3).labelled("lblArtist"),
    input("txtAquireDate", "&Date:", musicField("AquireDate"), {1}).filledWith(WhenEmpty::today),
    input("txtAquireCost", "C&ost:", musicField("AquireCost"), {2}),
    input("chkHasBook", "&Booklet", musicField("HasBook"), {3}),
    input("cmbGenre", "&Genre:", musicField("Genre"), {4}),
};

/// A desktop on which midnight passes whenever the date is asked for.
class AtMidnight : public FakeDesktop {
 public:
  std::string todayText() override { return "11/" + std::to_string(++asked) + "/2026"; }
  int asked = 20;
};

void toggleByAccessibility(QCheckBox& box) {
  auto* actions = QAccessible::queryAccessibleInterface(&box)->actionInterface();
  actions->doAction(QAccessibleActionInterface::toggleAction());
}

class FieldSheets : public testing::Test {
 protected:
  FieldSheets() { fillBlank(kMusicFields, record_); }

  std::string stored(std::string_view name) const {
    return std::string(withoutTrailingBlanks(
        textOf(*std::ranges::find(kMusicFields, name, &Field::name), record_)));
  }
  std::string shown(const char* name) const { return sheet_.textBox(name).text().toStdString(); }
  QCheckBox& booklet() { return sheet_.checkBox("chkHasBook"); }

  AtMidnight desktop_;
  FieldSheet sheet_{kRows, {}, desktop_};
  std::vector<std::byte> record_ = std::vector<std::byte>(sizeof(MusicRecord));
};

TEST_F(FieldSheets, PutTodaysDateIntoRecordAndBoxAlike) {
  sheet_.store(record_);
  EXPECT_EQ(stored("AquireDate"), "11/21/2026");
  EXPECT_EQ(shown("txtAquireDate"), "11/21/2026");
  EXPECT_EQ(desktop_.asked, 21) << "asked for once";
}

TEST_F(FieldSheets, AskForNoDateThatIsThere) {
  sheet_.textBox("txtAquireDate").setText("soon");
  sheet_.store(record_);
  EXPECT_EQ(stored("AquireDate"), "soon");
  EXPECT_EQ(desktop_.asked, 20);
}

TEST_F(FieldSheets, StoreAllInputsOrNone) {
  const auto before = record_;
  sheet_.textBox("txtArtist_3").setText("Ella");
  sheet_.textBox("txtAquireCost").setText("1e30");
  EXPECT_EQ(failureOf([this] { sheet_.store(record_); }).number, 6);
  EXPECT_EQ(record_, before);
  EXPECT_EQ(shown("txtAquireDate"), "") << "nothing was put into the empty box";
}

TEST_F(FieldSheets, NameAnElementOfAControlArrayAndItsLabel) {
  EXPECT_EQ(sheet_.findChild<QLabel*>("lblArtist_3")->buddy(), &sheet_.textBox("txtArtist_3"));
}

TEST_F(FieldSheets, ReadAChoiceFromTheListOfTheSameField) {
  const Field copied = *musicField("Genre");
  EXPECT_EQ(sheet_.choiceText(copied, 2), copied.choices[2]);
  EXPECT_EQ(sheet_.choiceText(copied, 99), "");
  EXPECT_EQ(sheet_.choiceText(*musicField("MediaType"), 0), "") << "is not on this sheet";
  EXPECT_EQ(sheet_.choiceText(*videoField("MediaType"), 0), "");
  EXPECT_EQ(sheet_.choiceText(*musicField("HasBook"), 0), "") << "has no list";
}

TEST_F(FieldSheets, TellOfABoxThatIsToggledHoweverItIs) {
  int toggled = 0;
  sheet_.whenToggled("chkHasBook", [&toggled] { ++toggled; });
  sheet_.QWidget::show();
  booklet().setFocus();
  QTest::keyClick(&booklet(), Qt::Key_Space);
  EXPECT_EQ(toggled, 1);
  QTest::mouseClick(&booklet(), Qt::LeftButton, {}, QPoint(5, booklet().height() / 2));
  EXPECT_EQ(toggled, 2);
  toggleByAccessibility(booklet());
  EXPECT_EQ(toggled, 3);
  booklet().toggle();
  EXPECT_EQ(toggled, 4);
}

TEST_F(FieldSheets, SeparateHeadingsByLinesWithThatRole) {
  constexpr HeadingRow headings[] = {{"Album", 1}};
  const FieldSheet sheet{std::span(kRows).first(1), headings, desktop_};
  int lines = 0;
  for (auto* frame : sheet.findChildren<QFrame*>())
    if (frame->frameShape() == QFrame::HLine) {
      ++lines;
      EXPECT_EQ(QAccessible::queryAccessibleInterface(frame)->role(), QAccessible::Separator);
    }
  EXPECT_EQ(lines, 1);
}

TEST_F(FieldSheets, TakeNothingThatTheProgramShowsForAUsersChange) {
  int changes = 0;
  sheet_.whenToggled("chkHasBook", [&changes] { ++changes; });
  sheet_.whenChanged([&changes] { ++changes; });
  setWhole(*musicField("HasBook"), record_, 1);
  setText(*musicField("Artist"), record_, "Ella");
  setWhole(*musicField("Genre"), record_, 2);
  sheet_.show(record_);
  EXPECT_TRUE(booklet().isChecked());
  sheet_.clear();
  sheet_.clearLists();
  EXPECT_FALSE(booklet().isChecked());
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace quillbox::test
