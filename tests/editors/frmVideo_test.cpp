// What only the video editor does: dates, amounts, and the second position it steps by.

#include "platform/qt/qt_desktop.h"
#include "records/video_record.h"
#include "support/family_steps.h"

namespace quillbox::test {
namespace {

constexpr double kNewYear1980 = 29221.0;

VideoRecord tape(std::string_view label) {
  auto record = blankRecord<VideoRecord>(kVideoFields);
  record.Label = label;
  return record;
}

class VideoEditor : public FamilySteps {
 protected:
  VideoEditor() : FamilySteps(kVideo) {}

  VideoRecord item(int n) { return recordIn<VideoRecord>(bytes(), n); }
  double storedDate(int n) { return item(n).AquireDate; }

  /// Stores what is typed as the date of item 1.
  void writeDate(const char* keys) {
    type("txtAquireDate", keys);
    pressWrite();
  }
};

// ---- The whole record

TEST_F(VideoEditor, WritesTheFormOverTheItem) {
  openBytes(fileOf({tape("A"), tape("B")}));
  pressNext();
  type("txtVidTitle", "Silent comedies");
  type("txtPublisher", "Kino");
  pick("cmbMediaType", 7);
  tick("chkCommercial");
  type("txtPurPrice", "39.95");
  type("txtCurrPrice", "-0.00005");
  type("txtAquireDate", "1/1/2000");
  type("txtNotes", "Restored");
  pressWrite();
  const VideoRecord written = item(2);
  EXPECT_EQ(textAt(stored(2), 0), "Silent comedies");
  EXPECT_EQ(written.Commercial, 1);
  EXPECT_EQ(textAt(stored(2), 552), "Kino");
  EXPECT_EQ(written.MediaType, 7);
  EXPECT_EQ(written.PurPrice, 399'500);
  EXPECT_EQ(written.CurrPrice, 0) << "an exact half goes to the even ten-thousandth";
  EXPECT_EQ(written.AquireDate, 36526.0);
  EXPECT_EQ(textAt(stored(2), 628), "Restored");
  EXPECT_EQ(stored(2).substr(52, 500), std::string(500, ' ')) << "no movies";
  EXPECT_EQ(recordIn<VideoRecord>(bytes(), 1).Label.view(), tape("A").Label.view());
}

TEST_F(VideoEditor, ShowsTheWholeItem) {
  VideoRecord shownItem = tape("Metropolis");
  shownItem.Commercial = -1;
  shownItem.Publisher = "Kino";
  shownItem.MediaType = 1;
  shownItem.PurPrice = 399'500;
  shownItem.CurrPrice = 5'000;
  shownItem.AquireDate = 36526.75;
  shownItem.Notes = "Restored";
  openBytes(fileOf({shownItem}));
  EXPECT_EQ(first(), "Metropolis");
  EXPECT_TRUE(check("chkCommercial").isChecked()) << "any flag but zero";
  EXPECT_EQ(other(), "Kino");
  EXPECT_EQ(list("cmbMediaType").currentText(), "LaserDisc");
  EXPECT_EQ(shown("txtPurPrice"), "39.95");
  EXPECT_EQ(shown("txtCurrPrice"), "0.5") << "no blank before it";
  EXPECT_EQ(shown("txtAquireDate"), "1/1/00 18:00");
  EXPECT_EQ(shown("txtNotes"), "Restored");
}

TEST_F(VideoEditor, TheListHoldsItsMedia) {
  openBytes(fileOf({tape("A")}));
  std::vector<std::string> media;
  for (int i = 0; i < list("cmbMediaType").count(); ++i)
    media.push_back(list("cmbMediaType").itemText(i).toStdString());
  EXPECT_EQ(media, (std::vector<std::string>{
                       "VideoCassette", "LaserDisc", "32MM Film", "16MM Film", "Super 8MM Film",
                       "8MM Film", "Video For Windows (AVI File)", "QuickTime (MOV Files)"}));
}

// ---- Amounts

TEST_F(VideoEditor, ShowsAmountsPlainly) {
  VideoRecord other = tape("A");
  other.PurPrice = 12'345'678;
  other.CurrPrice = -12'500;
  openBytes(fileOf({other, tape("B")}));
  EXPECT_EQ(shown("txtPurPrice"), "1234.5678");
  EXPECT_EQ(shown("txtCurrPrice"), "-1.25");
  pressNext();
  EXPECT_EQ(shown("txtPurPrice"), "0");
  EXPECT_EQ(shown("txtCurrPrice"), "0");
}

TEST_F(VideoEditor, PricesAreTheNumberTheyBeginWith) {
  openBytes(fileOf({tape("A")}));
  const std::vector<std::pair<const char*, std::int64_t>> prices = {{"12.50 dollars", 125'000},
                                                                    {"  12.5", 125'000},
                                                                    {"1 234", 10'000},
                                                                    {"1,234", 10'000},
                                                                    {"5e", 50'000},
                                                                    {"2e1", 200'000},
                                                                    {"&H10", 0},
                                                                    {"unknown", 0},
                                                                    {"", 0},
                                                                    {".5", 5'000},
                                                                    {"-1.25", -12'500},
                                                                    {"1.00005", 10'000},
                                                                    {"1.00015", 10'002}};
  for (const auto& [keys, amount] : prices) {
    SCOPED_TRACE(keys);
    type("txtPurPrice", keys);
    type("txtCurrPrice", keys);
    pressWrite();
    EXPECT_EQ(item(1).PurPrice, amount);
    EXPECT_EQ(item(1).CurrPrice, amount);
  }
}

TEST_F(VideoEditor, APriceBeyondItsRangeIsAnOverflowAndNothingIsWritten) {
  openBytes(fileOf({tape("A")}));
  const std::string before = bytes();
  typeFirst("Changed");
  type("txtCurrPrice", "1e30");
  expectError(kOverflow);
  pressWrite();
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(first(), "Changed");
  EXPECT_EQ(shown("txtCurrPrice"), "1e30");
}

// ---- The date

TEST_F(VideoEditor, AnEmptyDateBecomesNewYear1980) {
  openBytes(fileOf({tape("A")}));
  writeDate("");
  EXPECT_EQ(shown("txtAquireDate"), "1/1/80");
  EXPECT_EQ(storedDate(1), kNewYear1980);
  pressClear();
  EXPECT_EQ(shown("txtAquireDate"), "");
  typeFirst("B");
  pressWrite();
  EXPECT_EQ(storedDate(2), kNewYear1980) << "of a new item too";
}

TEST_F(VideoEditor, UnderstandsDatesInTheFormsOfTheSystemAndBeyond) {
  openBytes(fileOf({tape("A")}));
  const std::vector<std::pair<const char*, double>> dates = {
      {"6/5/98", 35951.0},     {"6/5/1998", 35951.0}, {"06/05/1998", 35951.0},
      {"1998-06-05", 35951.0}, {" 6/5/98 ", 35951.0}, {"1/1/30", 10959.0},
      {"12/31/29", 47483.0},   {"12/31/1899", 1.0},   {"2/29/2000", 36585.0}};
  for (const auto& [keys, days] : dates) {
    SCOPED_TRACE(keys);
    writeDate(keys);
    EXPECT_EQ(shown("txtAquireDate"), keys) << "as typed, until it is read again";
    EXPECT_EQ(storedDate(1), days);
  }
}

TEST_F(VideoEditor, TakesDatesInTheSystemsOrder) {
  desktop_.dateForm = "dd.MM.yyyy";
  openBytes(fileOf({tape("A")}));
  writeDate("05.06.1998");
  EXPECT_EQ(storedDate(1), 35951.0);
  writeDate("05.06.98");
  EXPECT_EQ(storedDate(1), 35951.0);
  pressGoTo("1");
  EXPECT_EQ(shown("txtAquireDate"), "05.06.1998");
  writeDate("");
  EXPECT_EQ(storedDate(1), kNewYear1980);
  pressGoTo("1");
  EXPECT_EQ(shown("txtAquireDate"), "01.01.1980");
}

TEST_F(VideoEditor, KeepsAndShowsATimeOfDay) {
  openBytes(fileOf({tape("A"), tape("B")}));
  writeDate("6/5/1998 13:30");
  EXPECT_EQ(storedDate(1), 35951.5625);
  pressGoTo("1");
  EXPECT_EQ(shown("txtAquireDate"), "6/5/98 13:30");
  const std::string before = bytes();
  pressWrite();
  EXPECT_EQ(bytes(), before) << "an item that was only visited";
}

TEST_F(VideoEditor, WhatIsNoDateIsAnErrorAndNothingIsWritten) {
  openBytes(fileOf({tape("A")}));
  const std::string before = bytes();
  typeFirst("Changed");
  type("txtPurPrice", "12");
  tick("chkCommercial");
  pick("cmbMediaType", 3);
  for (const char* keys : {"soon", "13/13/98", "2/29/1999", "1998", " ", "1/1/80 25:00"}) {
    SCOPED_TRACE(keys);
    type("txtAquireDate", keys);
    expectError(kTypeMismatch);
    pressWrite();
    EXPECT_EQ(bytes(), before);
    EXPECT_EQ(first(), "Changed");
    EXPECT_EQ(shown("txtAquireDate"), keys);
    EXPECT_EQ(shown("txtPurPrice"), "12");
    EXPECT_TRUE(check("chkCommercial").isChecked());
    EXPECT_EQ(list("cmbMediaType").currentIndex(), 3);
    EXPECT_EQ(indicator(), "Record # 1 of 1");
    EXPECT_EQ(state_->video.Label.view(), tape("A").Label.view());
  }
  writeDate("1/1/80");
  EXPECT_EQ(storedFirst(1), "Changed") << "once it is mended";
}

TEST_F(VideoEditor, WhatIsNoDateKeepsANewItemToo) {
  openBytes(fileOf({tape("A")}));
  const std::string before = bytes();
  pressClear();
  typeFirst("New");
  type("txtAquireDate", "soon");
  expectError(kTypeMismatch);
  pressWrite();
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(first(), "New");
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->Count, 1);
  writeDate("1/1/80");
  EXPECT_EQ(storedFirst(2), "New");
}

// ---- The second position

TEST_F(VideoEditor, OpeningSetsBothPositions) {
  open({"A", "B"});
  EXPECT_EQ(state_->ListPos, 1);
  EXPECT_EQ(state_->CurRec, 1);
  openBytes(familyHeader(0));
  EXPECT_EQ(state_->ListPos, 0);
  EXPECT_EQ(state_->CurRec, 0);
}

TEST_F(VideoEditor, BothPositionsStepTogether) {
  open({"A", "B", "C"});
  pressNext();
  EXPECT_EQ(state_->ListPos, 2);
  EXPECT_EQ(state_->CurRec, 2);
  pressGoTo("3");
  EXPECT_EQ(state_->ListPos, 3);
  EXPECT_EQ(state_->CurRec, 3);
  pressPrevious();
  EXPECT_EQ(state_->ListPos, 2);
  EXPECT_EQ(state_->CurRec, 2);
}

TEST_F(VideoEditor, NextGoesOnFromWhereClearDataWasChosen) {
  open({"A", "B", "C", "D", "E"});
  pressGoTo("3");
  pressClear();
  EXPECT_EQ(state_->ListPos, 3);
  EXPECT_EQ(state_->CurRec, kNewItem);
  pressNext();
  EXPECT_EQ(first(), "D");
  EXPECT_EQ(indicator(), "Record # 4 of 5");
  EXPECT_EQ(state_->ListPos, 4);
  EXPECT_EQ(state_->CurRec, 4);
}

TEST_F(VideoEditor, PreviousGoesOnFromWhereClearDataWasChosen) {
  open({"A", "B", "C", "D", "E"});
  pressGoTo("3");
  pressClear();
  pressPrevious();
  EXPECT_EQ(first(), "B");
  EXPECT_EQ(indicator(), "Record # 2 of 5");
  EXPECT_EQ(state_->CurRec, 2);
}

TEST_F(VideoEditor, SteppingGoesOnAfterNewItemsAndDeletedOnes) {
  open({"A", "B", "C"});
  pressNext();
  pressDelete(Answer::yes);
  typeFirst("D");
  pressWrite();
  EXPECT_EQ(state_->ListPos, 2);
  pressNext();
  EXPECT_EQ(first(), "C");
  EXPECT_EQ(indicator(), "Record # 3 of 4");
  pressNext();
  EXPECT_EQ(first(), "D");
}

TEST_F(VideoEditor, AnItemReachedAfterClearDataIsWrittenInItsPlace) {
  open({"A", "B", "C"});
  pressClear();
  pressNext();
  typeFirst("Changed");
  pressWrite();
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(3));
  EXPECT_EQ(storedFirst(2), "Changed");
}

// ---- Deleted items

TEST_F(VideoEditor, ADeletedItemLeavesEveryControlAsItWas) {
  VideoRecord before = tape("A");
  before.Commercial = 1;
  before.MediaType = 4;
  before.PurPrice = 10'000;
  before.Notes = "Off air";
  VideoRecord deleted = tape("DELETED");
  deleted.Notes = "never seen";
  openBytes(fileOf({before, tape("B"), deleted}));
  pressGoTo("3");
  EXPECT_EQ(indicator(), "Record # 1 of 3");
  EXPECT_EQ(first(), "A");
  EXPECT_TRUE(check("chkCommercial").isChecked());
  EXPECT_EQ(list("cmbMediaType").currentIndex(), 4);
  EXPECT_EQ(shown("txtPurPrice"), "1");
  EXPECT_EQ(shown("txtNotes"), "Off air");
  EXPECT_FALSE(previousEnabled()) << "the buttons are controls too";
  EXPECT_TRUE(nextEnabled());
  EXPECT_EQ(state_->CurRec, 3);
  EXPECT_EQ(state_->ListPos, 3);
}

TEST_F(VideoEditor, NextGoesPastADeletedLastItem) {
  open({"A", "DELETED"});
  pressNext();
  EXPECT_EQ(state_->ListPos, 2);
  EXPECT_TRUE(nextEnabled());
  pressNext();
  EXPECT_EQ(indicator(), "Record # 3 of 2");
  EXPECT_EQ(first(), "");
  pressPrevious();
  EXPECT_EQ(state_->ListPos, 2);
  pressPrevious();
  EXPECT_EQ(indicator(), "Record # 1 of 2");
  EXPECT_EQ(first(), "A");
}

TEST_F(VideoEditor, WritingAtADeletedItemPutsWhatIsOnScreenThere) {
  open({"A", "DELETED", "C"});
  pressNext();
  typeFirst("Back");
  pressWrite();
  EXPECT_EQ(storedFirst(2), "Back");
  EXPECT_EQ(storedFirst(1), "A");
  EXPECT_EQ(bytes().substr(0, 12), familyHeader(3));
}

TEST_F(VideoEditor, AMarkerThatWasTypedHidesTheItem) {
  open({"A", "B"});
  typeFirst("DELETED");
  pressWrite();
  pressNext();
  pressPrevious();
  EXPECT_EQ(first(), "B") << "item 1 is not shown again";
  EXPECT_EQ(state_->CurRec, 1);
}

TEST_F(VideoEditor, AnUntouchedItemIsWrittenAsItWasInEveryLanguage) {
  VideoRecord taken = tape("A");
  taken.AquireDate = 46'347.75;
  openBytes(fileOf({taken, tape("B")}));
  const std::string before = bytes();
  int languages = 0;
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
    desktop_.dateForm = shortDateForm(locale);
    pressNext();
    press("cmdPrev");
    pressWrite();
    ASSERT_EQ(bytes(), before) << locale.name().toStdString();
    ++languages;
  }
  EXPECT_GT(languages, 500);
}

}  // namespace
}  // namespace quillbox::test
