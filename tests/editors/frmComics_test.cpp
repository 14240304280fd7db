// What only the comic editor does: the date is a text.

#include "records/comic_record.h"
#include "support/family_steps.h"

namespace quillbox::test {
namespace {

ComicRecord comic(std::string_view title) {
  auto record = blankRecord<ComicRecord>(kComicFields);
  record.BookTitle = title;
  return record;
}

class ComicEditor : public FamilySteps {
 protected:
  ComicEditor() : FamilySteps(kComics) {}

  ComicRecord item(int n) { return recordIn<ComicRecord>(bytes(), n); }
  std::string storedDate(int n) { return textAt(stored(n), 570, 20); }
};

TEST_F(ComicEditor, WritesTheFormOverTheItem) {
  openBytes(fileOf({comic("A"), comic("B")}));
  pressNext();
  const std::vector<const char*> texts = {"Book",     "Comic",         "Artists",   "Heroes",
                                          "Villains", "First",         "Publisher", "2.95",
                                          "-100.5",   "Christmas 1991"};
  for (std::size_t i = 0; i < texts.size(); ++i)
    type(("txtCmic_" + std::to_string(i)).c_str(), texts[i]);
  tick("chkBoarded");
  pressWrite();
  const std::string record = stored(2);
  EXPECT_EQ(textAt(record, 0), "Book");
  EXPECT_EQ(textAt(record, 50), "Comic");
  EXPECT_EQ(record.substr(100, 250), std::string(250, ' ')) << "no notes";
  EXPECT_EQ(textAt(record, 350), "Artists");
  EXPECT_EQ(item(2).Bagged, 0);
  EXPECT_EQ(item(2).Boarded, 1);
  EXPECT_EQ(textAt(record, 404), "Heroes");
  EXPECT_EQ(textAt(record, 454), "Villains");
  EXPECT_EQ(textAt(record, 504), "First");
  EXPECT_EQ(item(2).PurPrice, 29'500);
  EXPECT_EQ(item(2).CurrPrice, -1'005'000);
  EXPECT_EQ(storedDate(2), "Christmas 1991");
  EXPECT_EQ(textAt(record, 590), "Publisher");
  tick("chkBagged");
  tick("chkBoarded");
  pressWrite();
  EXPECT_EQ(item(2).Bagged, 1);
  EXPECT_EQ(item(2).Boarded, 0);
}

TEST_F(ComicEditor, ShowsTheWholeItem) {
  ComicRecord shownItem = comic("Book");
  shownItem.ComicTitle = "Comic";
  shownItem.Artists = "Artists";
  shownItem.Heroes = "Heroes";
  shownItem.Villains = "Villains";
  shownItem.FirstApp = "First";
  shownItem.Publisher = "Publisher";
  shownItem.PurPrice = 5'000;
  shownItem.CurrPrice = 12'345'678;
  shownItem.AquireDate = "Christmas 1991";
  shownItem.Bagged = 1;
  openBytes(fileOf({shownItem}));
  const std::vector<std::string> texts = {"Book",      "Comic",         "Artists",   "Heroes",
                                          "Villains",  "First",         "Publisher", "0.5",
                                          "1234.5678", "Christmas 1991"};
  for (std::size_t i = 0; i < texts.size(); ++i)
    EXPECT_EQ(shown(("txtCmic_" + std::to_string(i)).c_str()), texts[i]);
  EXPECT_TRUE(check("chkBagged").isChecked());
  EXPECT_FALSE(check("chkBoarded").isChecked());
}

TEST_F(ComicEditor, AnEmptyDateBecomesATextOfNewYear1980) {
  open({"A"});
  pressWrite();
  EXPECT_EQ(shown("txtCmic_9"), "1/1/80");
  EXPECT_EQ(stored(1).substr(570, 20), "1/1/80" + std::string(14, ' '));
  pressClear();
  EXPECT_EQ(shown("txtCmic_9"), "");
  typeFirst("B");
  pressWrite();
  EXPECT_EQ(storedDate(2), "1/1/80") << "of a new item too";
}

TEST_F(ComicEditor, AnyTextWillDoForADate) {
  open({"A"});
  for (const char* keys : {"soon", "13/13/98", " 1/2/1999", "6/5/98 13:30"}) {
    type("txtCmic_9", keys);
    pressWrite();
    EXPECT_EQ(storedDate(1), keys);
    pressGoTo("1");
    EXPECT_EQ(shown("txtCmic_9"), keys);
  }
}

TEST_F(ComicEditor, ADateIsCutAt20Characters) {
  open({"A"});
  type("txtCmic_9", "the twenty-first of November");
  EXPECT_EQ(shown("txtCmic_9"), "the twenty-first of ");
  pressWrite();
  EXPECT_EQ(storedDate(1), "the twenty-first of");
  EXPECT_EQ(textAt(stored(1), 590), "") << "the publisher follows";
}

TEST_F(ComicEditor, PricesAreTheNumberTheyBeginWith) {
  open({"A"});
  type("txtCmic_7", "12.5abc");
  type("txtCmic_8", "unknown");
  pressWrite();
  EXPECT_EQ(item(1).PurPrice, 125'000);
  EXPECT_EQ(item(1).CurrPrice, 0);
}

TEST_F(ComicEditor, APriceBeyondItsRangeIsAnOverflowAndNothingIsWritten) {
  open({"A"});
  const std::string before = bytes();
  typeFirst("Changed");
  type("txtCmic_8", "1e30");
  expectError(kOverflow);
  pressWrite();
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(first(), "Changed");
  EXPECT_EQ(shown("txtCmic_8"), "1e30");
  EXPECT_EQ(shown("txtCmic_9"), "") << "the form stays as the user left it";
}

TEST_F(ComicEditor, DeletesWithTheSpellingOfTheOthers) {
  open({"A", "B"});
  pressDelete(Answer::yes);
  EXPECT_EQ(stored(1), deletedItem(kComics));
  EXPECT_EQ(stored(1).substr(0, 8), "DELETED ");
  pressGoTo("1");
  EXPECT_EQ(first(), "DELETED");
  EXPECT_EQ(shown("txtCmic_7"), "0");
  EXPECT_EQ(shown("txtCmic_9"), "");
}

}  // namespace
}  // namespace quillbox::test
