// What only the software editor does: whole prices.

#include "records/software_record.h"
#include "support/family_steps.h"

namespace quillbox::test {
namespace {

SoftwareRecord disk(std::string_view label) {
  auto record = blankRecord<SoftwareRecord>(kSoftwareFields);
  record.DiskLabel = label;
  return record;
}

class SoftwareEditor : public FamilySteps {
 protected:
  SoftwareEditor() : FamilySteps(kSoftware) {}

  SoftwareRecord item(int n) { return recordIn<SoftwareRecord>(bytes(), n); }
};

TEST_F(SoftwareEditor, WritesTheFormOverTheItem) {
  openBytes(fileOf({disk("A"), disk("B")}));
  pressNext();
  type("txtSftWare_0", "Utilities");
  type("txtSftWare_1", "Nobody");
  pick("cmbMediaType", 4);
  tick("chkCommercial");
  tick("chkCDRequired");
  type("txtSftWare_2", "49");
  type("txtSftWare_3", "-5");
  type("txtSftWare_4", "Boxed");
  pressWrite();
  const SoftwareRecord written = item(2);
  EXPECT_EQ(textAt(stored(2), 0), "Utilities");
  EXPECT_EQ(written.Commercial, 1);
  EXPECT_EQ(written.Shareware, 0);
  EXPECT_EQ(written.MediaType, 4);
  EXPECT_EQ(written.PurPrice, 49);
  EXPECT_EQ(written.CurrPrice, -5);
  EXPECT_EQ(stored(2).substr(60, 500), std::string(500, ' ')) << "no programs";
  EXPECT_EQ(textAt(stored(2), 560), "Boxed");
  EXPECT_EQ(textAt(stored(2), 610), "Nobody");
  EXPECT_EQ(written.CDRequired, 1);
  tick("chkShareWare");
  tick("chkCDRequired");
  pressWrite();
  EXPECT_EQ(item(2).Shareware, 1);
  EXPECT_EQ(item(2).CDRequired, 0);
}

TEST_F(SoftwareEditor, ShowsTheWholeItem) {
  SoftwareRecord shownItem = disk("Utilities");
  shownItem.Commercial = 1;
  shownItem.CDRequired = 1;
  shownItem.MediaType = 2;
  shownItem.PurPrice = INT16_MAX;
  shownItem.CurrPrice = INT16_MIN;
  shownItem.Notes = "Boxed";
  shownItem.Publisher = "Nobody";
  openBytes(fileOf({shownItem}));
  EXPECT_EQ(shown("txtSftWare_0"), "Utilities");
  EXPECT_EQ(shown("txtSftWare_1"), "Nobody");
  EXPECT_EQ(shown("txtSftWare_2"), "32767");
  EXPECT_EQ(shown("txtSftWare_3"), "-32768");
  EXPECT_EQ(shown("txtSftWare_4"), "Boxed");
  EXPECT_EQ(list("cmbMediaType").currentText(), "CD-ROM");
  EXPECT_TRUE(check("chkCommercial").isChecked());
  EXPECT_FALSE(check("chkShareWare").isChecked());
  EXPECT_TRUE(check("chkCDRequired").isChecked());
}

TEST_F(SoftwareEditor, TheListHoldsItsMedia) {
  open({"A"});
  std::vector<std::string> media;
  for (int i = 0; i < list("cmbMediaType").count(); ++i)
    media.push_back(list("cmbMediaType").itemText(i).toStdString());
  EXPECT_EQ(media, (std::vector<std::string>{"3.5\" Floppy Disk", "5.25\" Floppy Disk", "CD-ROM",
                                             "ZIP Disk", "WORM Disk"}));
}

TEST_F(SoftwareEditor, PricesAreRoundedToWholeUnits) {
  open({"A"});
  const std::vector<std::pair<const char*, int>> prices = {
      {"12.50", 12},    {"13.5", 14},       {"12.5abc", 12},    {"12.51", 13},
      {"-12.5", -12},   {"-13.5", -14},     {"0.5", 0},         {"", 0},
      {"free", 0},      {"1,234", 1},       {"1 234", 1},       {"1e3", 1000},
      {"32767", 32767}, {"-32768", -32768}, {"32767.4", 32767}, {"-32768.5", -32768}};
  for (const auto& [keys, price] : prices) {
    SCOPED_TRACE(keys);
    type("txtSftWare_2", keys);
    type("txtSftWare_3", keys);
    pressWrite();
    EXPECT_EQ(item(1).PurPrice, price);
    EXPECT_EQ(item(1).CurrPrice, price);
    EXPECT_EQ(shown("txtSftWare_2"), keys) << "as typed, until it is read again";
  }
  pressGoTo("1");
  EXPECT_EQ(shown("txtSftWare_2"), "-32768");
}

TEST_F(SoftwareEditor, APriceBeyond16BitsIsAnOverflowAndNothingIsWritten) {
  open({"A"});
  const std::string before = bytes();
  typeFirst("Changed");
  tick("chkShareWare");
  for (const char* price : {"txtSftWare_2", "txtSftWare_3"})
    for (const char* keys : {"99999", "32767.5", "32768", "-32769", "1e30"}) {
      SCOPED_TRACE(keys);
      type(price, keys);
      expectError(kOverflow);
      pressWrite();
      EXPECT_EQ(bytes(), before);
      EXPECT_EQ(first(), "Changed");
      EXPECT_EQ(shown(price), keys);
      EXPECT_TRUE(check("chkShareWare").isChecked());
      EXPECT_EQ(indicator(), "Record # 1 of 1");
      EXPECT_EQ(textAt(state_->software.DiskLabel.view(), 0), "A");
      type(price, "1");
    }
  pressWrite();
  EXPECT_EQ(storedFirst(1), "Changed") << "once it is mended";
}

TEST_F(SoftwareEditor, AnOverflowKeepsANewItemToo) {
  open({"A"});
  const std::string before = bytes();
  pressClear();
  typeFirst("New");
  type("txtSftWare_2", "99999");
  expectError(kOverflow);
  pressWrite();
  EXPECT_EQ(bytes(), before);
  EXPECT_EQ(first(), "New");
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->Count, 1);
}

TEST_F(SoftwareEditor, ADeletedItemIsShownWithItsMarkerAndZeros) {
  SoftwareRecord before = disk("A");
  before.Commercial = 1;
  before.PurPrice = 5;
  before.Notes = "Boxed";
  openBytes(fileOf({before}) + deletedItem(kSoftware));
  // The second item counts too.
  std::string collection = bytes();
  collection.replace(0, 12, familyHeader(2));
  openBytes(collection);
  pressNext();
  EXPECT_EQ(indicator(), "Record # 2 of 2");
  EXPECT_EQ(first(), "DELETED");
  EXPECT_EQ(shown("txtSftWare_2"), "0");
  EXPECT_EQ(shown("txtSftWare_4"), "") << "up to the first NUL";
  EXPECT_FALSE(check("chkCommercial").isChecked());
  EXPECT_EQ(list("cmbMediaType").currentIndex(), 0);
}

TEST_F(SoftwareEditor, TheSecondPositionIsNotItsOwn) {
  open({"A", "B", "C"});
  state_->ListPos = 7;
  pressGoTo("3");
  pressPrevious();
  pressClear();
  EXPECT_EQ(state_->ListPos, 7);
  pressNext();
  EXPECT_FALSE(nextEnabled()) << "no item is shown";
  EXPECT_EQ(indicator(), "New Record");
  EXPECT_EQ(state_->CurRec, kNewItem);
}

}  // namespace
}  // namespace quillbox::test
