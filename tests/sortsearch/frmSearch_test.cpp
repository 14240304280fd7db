// The search forms: their contents, the ways in and out, and a search by each input.

#include <utility>

#include "support/form_fixture.h"

namespace quillbox::test {
namespace {

struct InputLook {
  const char* name;
  const char* caption;
  const char* field;
  std::vector<const char*> ticksFirst = {};  ///< what must be ticked to enable it
};

/// Everything that can be reached on a search form.
struct SearchLook {
  const ModelKind& editor;
  const char* caption;
  std::vector<InputLook> inputs;  ///< in tab order
  const char* begin;
  const char* exit;
};

void PrintTo(const SearchLook& look, std::ostream* out) { *out << look.editor.name; }

const SearchLook kMusicSearch = {
    kMusic,
    "Music Search",
    {{"txtArtist", "&Artist:", "Artist"},
     {"txtAlbum", "A&lbum:", "Album"},
     {"txtRecordCo", "&Record Co:", "RecordCo"},
     {"txtAquireDate", "A&quisition Date:", "AquireDate"},
     {"txtAquireCost", "Aq&uisiton Cost:", "AquireCost"},
     {"txtCurrCost", "&Current Cost:", "CurrCost"},
     {"cmbMediaType", "&Media Type:", "MediaType"},
     {"chkHasBook", "Has &Booklet", "HasBook"},
     {"chkCurrLoaned", "Currently On &Loan", "CurrLoaned"},
     {"txtBorrower", "B&orrower:", "Borrower", {"chkCurrLoaned"}},
     {"txtDateLoaned", "Da&te Borrowed:", "DateLoaned", {"chkCurrLoaned"}},
     {"txtDueDate", "D&ue Date:", "DueDate", {"chkCurrLoaned"}},
     {"chkBookLoaned", "B&ook Loaned", "BookLoaned", {"chkCurrLoaned", "chkHasBook"}},
     {"txtNotes", "&Notes:", "Notes"},
     {"cmbGenre", "&Genre:", "Genre"},
     {"txtBarCode", "Bar Code/&ID:", "BarCode"}},
    "Be&gin Search",
    "E&xit Search"};

const SearchLook kVideoSearch = {kVideo,
                                 "Video Tape Collection Manager",
                                 {{"txtVidTitle", "&Label Text:", "Label"},
                                  {"txtPublisher", "&Publisher:", "Publisher"},
                                  {"cmbMediaType", "&Media Type:", "MediaType"},
                                  {"chkCommercial", "C&ommercially Recorded", "Commercial"},
                                  {"txtPurPrice", "&Purchase Price:", "PurPrice"},
                                  {"txtCurrPrice", "&Current Price:", "CurrPrice"},
                                  {"txtAquireDate", "A&quisition Date:", "AquireDate"},
                                  {"txtNotes", "&Notes:", "Notes"}},
                                 "&Begin Search",
                                 "E&xit Window"};

const SearchLook kSoftwareSearch = {kSoftware,
                                    "Software Collection Manager",
                                    {{"txtSftWare_0", "&Disk Label:", "DiskLabel"},
                                     {"txtSftWare_1", "P&ublisher:", "Publisher"},
                                     {"cmbMediaType", "&Media Type:", "MediaType"},
                                     {"chkCommercial", "C&ommercial", "Commercial"},
                                     {"chkShareWare", "&Shareware", "Shareware"},
                                     {"chkCDRequired", "CD R&equired", "CDRequired"},
                                     {"txtSftWare_2", "&Purchase Price", "PurPrice"},
                                     {"txtSftWare_3", "&Current Price", "CurrPrice"},
                                     {"txtSftWare_4", "&Notes:", "Notes"}},
                                    "&Begin Search",
                                    "E&xit Window"};

// Without the two boxes of the editor.
const SearchLook kComicSearch = {kComics,
                                 "Comic Search",
                                 {{"txtCmic_0", "&Book Title:", "BookTitle"},
                                  {"txtCmic_1", "&Comic Title:", "ComicTitle"},
                                  {"txtCmic_2", "&Artists:", "Artists"},
                                  {"txtCmic_3", "&Hero(es):", "Heroes"},
                                  {"txtCmic_4", "&Villan(s)", "Villains"},
                                  {"txtCmic_5", "F&irst Appearance Of:", "FirstApp"},
                                  {"txtCmic_6", "P&ublisher:", "Publisher"},
                                  {"txtCmic_7", "Purc&hase Price:", "PurPrice"},
                                  {"txtCmic_8", "Cu&rrent Price:", "CurrPrice"},
                                  {"txtCmic_9", "A&quisition Date:", "AquireDate"}},
                                 "B&egin Search",
                                 "E&xit Window"};

const SearchLook kBookSearch = {kBooks,
                                "Book Search Data",
                                {{"txtBooks_0", "&Author:", "Author"},
                                 {"txtBooks_1", "&Title:", "Title"},
                                 {"txtBooks_2", "&Publisher:", "Publisher"},
                                 {"cmbGenre", "&Genre:", "Genre"},
                                 {"cmbMedia", "&Media Type:", "MediaType"},
                                 {"txtBooks_3", "&Notes:", "Notes"}},
                                "&Begin Search",
                                "E&xit Search"};

const SearchLook kMediaSearch = {kWaves,
                                 "Wave Collection Manager",
                                 {{"txtFileName", "FileName:", "FileName"}},
                                 "&Begin Search",
                                 "E&xit Window"};

class SearchForms : public EditorTest, public testing::WithParamInterface<SearchLook> {
 protected:
  SearchForms() : EditorTest(GetParam().editor) {}

  const std::vector<InputLook>& inputs() const { return GetParam().inputs; }
  void openSearch() { openSideForm(kind().search); }
  void leaveSearch(WayOut way = WayOut::exitButton) { leaveSideForm(kind().search, way); }

  void makeUsable(const InputLook& input) {
    for (const char* needed : input.ticksFirst)
      if (!check(needed).isChecked()) tick(needed);
  }

  /// Enters what different() puts into the field.
  void enter(const InputLook& input) {
    makeUsable(input);
    switch (field(input.field).type) {
      case FieldType::flag:
        return tick(input.name);
      case FieldType::choice:
        return pick(input.name, 2);
      case FieldType::money:
      case FieldType::whole:
        return type(input.name, "12");
      default:
        return type(input.name, "1/2/80");
    }
  }
  std::string different(std::string item, const InputLook& input) const {
    const auto record = std::as_writable_bytes(std::span(item));
    const Field& changed = field(input.field);
    switch (changed.type) {
      case FieldType::flag:
        setWhole(changed, record, 1);
        break;
      case FieldType::choice:
        setWhole(changed, record, 2);
        break;
      case FieldType::money:
        setMoney(changed, record, 120'000);
        break;
      case FieldType::whole:
        setWhole(changed, record, 12);
        break;
      case FieldType::date:
        setReal(changed, record, 29'222);
        break;
      default:
        setText(changed, record, "1/2/80");
    }
    return item;
  }
  const InputLook& inputNamed(std::string_view name) const {
    return *std::ranges::find_if(inputs(), [name](const auto& each) { return each.name == name; });
  }

  /// The contents of the input, as text.
  std::string held(const InputLook& input) {
    auto& widget = control<QWidget>(input.name);
    if (const auto* ticked = dynamic_cast<QCheckBox*>(&widget))
      return ticked->isChecked() ? "ticked" : "";
    if (const auto* chosen = dynamic_cast<QComboBox*>(&widget))
      return chosen->currentText().toStdString();
    return dynamic_cast<QLineEdit&>(widget).text().toStdString();
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, SearchForms,
                         testing::Values(kMusicSearch, kVideoSearch, kSoftwareSearch, kComicSearch,
                                         kBookSearch, kMediaSearch),
                         [](const auto& look) { return look.param.editor.name; });

TEST_P(SearchForms, HasItsButtonsByNameAndCaption) {
  open({item("A")});
  openSearch();
  EXPECT_EQ(caption(), GetParam().caption);
  EXPECT_EQ(form().findChildren<QPushButton*>().size(), 2);
  EXPECT_EQ(button(kind().search.begin).text().toStdString(), GetParam().begin);
  EXPECT_EQ(button(kind().search.exit).text().toStdString(), GetParam().exit);
}

TEST_P(SearchForms, EveryInputCarriesItsCaptionAsItsNameAndIsEmpty) {
  open({item("A")});
  openSearch();
  EXPECT_EQ(form().findChildren<QLineEdit*>().size() + form().findChildren<QCheckBox*>().size() +
                form().findChildren<QComboBox*>().size(),
            static_cast<qsizetype>(inputs().size()));
  for (const InputLook& input : inputs()) {
    SCOPED_TRACE(input.name);
    auto& widget = control<QWidget>(input.name);
    EXPECT_EQ(widget.accessibleName(), QString(input.caption).remove('&'));
    EXPECT_EQ(held(input), "");
    if (const auto* box = dynamic_cast<QCheckBox*>(&widget)) {
      EXPECT_EQ(box->text().toStdString(), input.caption);
      continue;
    }
    const QLabel* captioned = nullptr;
    for (const QLabel* found : form().findChildren<QLabel*>())
      if (found->buddy() == &widget) captioned = found;
    ASSERT_NE(captioned, nullptr);
    EXPECT_EQ(captioned->text().toStdString(), input.caption);
  }
}

TEST_P(SearchForms, SaysHowItCompares) {
  open({item("A")});
  openSearch();
  const bool hasBoxes = !form().findChildren<QCheckBox*>().empty();
  EXPECT_EQ(label("lblHint"), kind().isMedia() ? "The whole name; capitals do not matter."
                              : hasBoxes ? "Whole fields, exact capitals; an unticked box means no."
                                         : "Whole fields, exact capitals.");
  EXPECT_TRUE(control<QLabel>("lblHint").isVisible());
}

TEST_P(SearchForms, TabGoesFromTheFirstInputToTheLastButton) {
  open({item("A")});
  openSearch();
  for (const InputLook& input : inputs()) makeUsable(input);
  control<QWidget>(inputs().front().name).setFocus();
  std::vector<std::string> order;
  for (const InputLook& input : inputs()) order.emplace_back(input.name);
  order.emplace_back(kind().search.begin);
  order.emplace_back(kind().search.exit);
  for (const std::string& name : order) {
    EXPECT_EQ(form().focusWidget()->objectName().toStdString(), name);
    QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
  }
}

TEST_P(SearchForms, OpensWithTheFocusOnItsFirstInput) {
  open({item("A")});
  for (int time = 0; time < 2; ++time) {
    openSearch();
    EXPECT_EQ(form().focusWidget(), &box(kind().firstBox()));
    button(kind().search.exit).setFocus();
    leaveSearch();
  }
}

TEST_P(SearchForms, EveryInputIsLookedFor) {
  for (const InputLook& input : inputs()) {
    SCOPED_TRACE(input.name);
    std::string other = item("A");
    for (const char* ticked : input.ticksFirst) other = different(other, inputNamed(ticked));
    open({other, other, different(other, input)});
    openSearch();
    enter(input);
    press(kind().search.begin);
    EXPECT_EQ(formName(), kind().formName);
    EXPECT_EQ(state_->CurRec, 3);
  }
}

TEST_P(SearchForms, KeepsItsInputsWhenItIsOpenedAgain) {
  open({item("A")});
  openSearch();
  for (const InputLook& input : inputs()) enter(input);
  std::vector<std::string> before;
  for (const InputLook& input : inputs()) before.push_back(held(input));
  EXPECT_NE(before.back(), "");
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    leaveSearch(way);
    openSearch();
    for (std::size_t n = 0; n < before.size(); ++n)
      EXPECT_EQ(held(inputs()[n]), before[n]) << inputs()[n].name;
  }
}

TEST_P(SearchForms, EveryWayOutShowsTheEditorAsItWas) {
  const std::string before = collection({item("A"), item("B")});
  openBytes(before);
  press(kind().buttons.next);
  type(kind().otherBox(), "typed");
  for (const WayOut way : kWaysOut) {
    SCOPED_TRACE(static_cast<int>(way));
    openSearch();
    leaveSearch(way);
    EXPECT_EQ(first(), "B");
    EXPECT_EQ(other(), "typed");
    EXPECT_EQ(indicator(), kind().label(2, 2));
    EXPECT_EQ(form().focusWidget(), &box(kind().otherBox()));
    EXPECT_EQ(bytes(), before);
  }
}

TEST_P(SearchForms, EnterInATextBeginsTheSearch) {
  open({item("A"), item("B")});
  openSearch();
  type(kind().firstBox(), "B");
  QTest::keyClick(&box(kind().firstBox()), Qt::Key_Return);
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(state_->CurRec, 2);
}

TEST_P(SearchForms, EnterOnAButtonPressesThatButton) {
  open({item("A"), item("B")});
  openSearch();
  type(kind().firstBox(), "B");
  button(kind().search.exit).setFocus();
  QTest::keyClick(form().focusWidget(), Qt::Key_Return);
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(state_->CurRec, 1) << "left, not searched";
  openSearch();
  button(kind().search.begin).setFocus();
  QTest::keyClick(form().focusWidget(), Qt::Key_Enter);
  EXPECT_EQ(formName(), kind().formName);
  EXPECT_EQ(state_->CurRec, 2);
}

// ---- Captions of single kinds

class SearchedComics : public EditorTest {
 protected:
  SearchedComics() : EditorTest(kComics) {}
};

TEST_F(SearchedComics, AreAskedForUnderAHeading) {
  open({item("A")});
  openSideForm(kind().search);
  QStringList texts;
  for (const QLabel* each : form().findChildren<QLabel*>()) texts << each->text();
  EXPECT_TRUE(texts.contains("Input Data To Search For"));
}

class SearchedMediaFiles : public EditorTest {
 protected:
  SearchedMediaFiles() : EditorTest(kWaves) {}
};

TEST_F(SearchedMediaFiles, AreNamedByTheKindOpenNow) {
  const std::vector<std::pair<const char*, const char*>> captions = {
      {"tunes.ICS", "MIDI Collection Manager"},
      {"pictures.GCS", "Graphics Collection Manager"},
      {"songs.MPS", "MP3 Collection Manager"},
      {"sounds.WCS", "Wave Collection Manager"}};
  open({item("A")});
  for (const auto& [name, expected] : captions) {
    writeFile(path(name), collection({item("A")}));
    desktop_.tolerateOpen = path(name);
    choose("OpenFile");
    openSideForm(kind().search);
    EXPECT_EQ(caption(), expected);
    leaveSideForm(kind().search);
  }
}

}  // namespace
}  // namespace quillbox::test
