#include "editors/frmMusic.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>

#include "editors/media_types.h"
#include "forms/qt_text.h"
#include "records/music_file.h"

namespace quillbox {
namespace {

enum Row {
  albumHeading,
  artist,
  albumTitle,
  recordCo,
  buying,
  costs,
  media,
  loan,
  onLoan,
  borrower,
  dates,
  notesHeading,
  notes,
  genre
};

constexpr HeadingRow kHeadings[] = {
    {"Album", albumHeading}, {"Acquisition", buying}, {"Loan", loan}, {"Notes", notesHeading}};

using enum InputKind;

/// A text of this editor: shown with the blanks that pad it.
constexpr InputRow text(const char* name, const char* caption, const Field* field, Place place,
                        WhenEmpty whenEmpty = WhenEmpty::staysEmpty) {
  return {textBox, name, caption, field, place, Shown::padded, nullptr, whenEmpty};
}

constexpr InputRow kInputs[] = {
    text("txtArtist", "&Artist:", musicField("Artist"), {artist}),
    text("txtAlbum", "A&lbum:", musicField("Album"), {albumTitle}),
    text("txtRecordCo", "&Record Co:", musicField("RecordCo"), {recordCo}),
    text("txtAquireDate", "A&quisition Date:", musicField("AquireDate"), {costs, 0, 1},
         WhenEmpty::today),
    {textBox,
     "txtAquireCost",
     "Aq&uisiton Cost:",
     musicField("AquireCost"),
     {costs, 1, 1},
     Shown::number},
    // The two costs have always been shown differently.
    {textBox,
     "txtCurrCost",
     "&Current Cost:",
     musicField("CurrCost"),
     {costs, 2, 1},
     Shown::signedNumber},
    {dropDown, "cmbMediaType", "&Media Type:", musicField("MediaType"), {media, 0, 1}},
    {checkBox, "chkHasBook", "Has &Booklet", musicField("HasBook"), {media, 1, 1}},
    {checkBox, "chkCurrLoaned", "Currently On &Loan", musicField("CurrLoaned"), {onLoan, 0, 1}},
    text("txtBorrower", "B&orrower:", musicField("Borrower"), {borrower}),
    text("txtDateLoaned", "Da&te Borrowed:", musicField("DateLoaned"), {dates, 0, 1}),
    text("txtDueDate", "D&ue Date:", musicField("DueDate"), {dates, 1, 1}),
    {checkBox, "chkBookLoaned", "B&ook Loaned", musicField("BookLoaned"), {dates, 2, 1}},
    text("txtNotes", "&Notes:", musicField("Notes"), {notes}),
    {dropDown, "cmbGenre", "&Genre:", musicField("Genre"), {genre, 0, 1}},
    text("txtBarCode", "Bar Code/&ID:", musicField("BarCode"), {genre, 1, 2}),
};

constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrevious", "&Previous Item"},
    {Command::next, "cmdNext", "&Next Item"},
    {Command::goTo, "cmdGoto", "Go&To"},
    {Command::clear, "cmdClearData", "&Clear Data"},
    {Command::deleteItem, "cmdDelete", "&Delete Item"},
    {Command::write, "cmdWriteData", "&Write Data"},
};

constexpr MenuRow kMenus[] = {
    {"FileMenu", "&File", Command::newFile, "NewFile", "&New File"},
    {"FileMenu", "&File", Command::openFile, "OpenFile", "&Open File"},
    {"FileMenu", "&File", Command::exitCollection, "ExitCollection", "E&xit Collection"},
    {"EditMenu", "&Edit", Command::editSubList, "EditSongs", "&Songs"},
    {"EditMenu", "&Edit", Command::sort, "SortRecords", "S&ort Records"},
    {"EditMenu", "&Edit", Command::search, "SearchRecords", "S&earch Records"},
    {"PrintMenu", "P&rint", Command::printList, "PrintList", "&Print List"},
    {"PrintMenu", "P&rint", Command::printerSetup, "PrintSetup", "&Setup Printer"},
    {"PrintMenu", "P&rint", Command::exportData, "ExportData", "&Export Data"},
    {"SetupMenu", "Se&tup", Command::mediaTypes, "MediaMenu", "&Media Types"},
    {"HelpMenu", "&Help", Command::contents, "MusicContents", "&Contents"},
    {"HelpMenu", "&Help", Command::about, "AboutMusic", "&About"},
};

constexpr EditorTables kTables = {"frmMusic",
                                  "lblIndex",
                                  "Record #:",
                                  kInputs,
                                  kHeadings,
                                  kButtons,
                                  kMenus,
                                  "About Music Collection",
                                  "Music",
                                  "music.md",
                                  {kInputs, kHeadings}};

}  // namespace

frmMusic::frmMusic(Program& program) : frmEditor(program, *kindOfExtension("MCS"), kTables) {
  onClick(sheet().checkBox("chkCurrLoaned"), [this] { loanenable(); });
  onClick(sheet().checkBox("chkHasBook"), [this] { chkHasBook_Click(); });
  sheet().dropDown("cmbMediaType").installEventFilter(this);
}

void frmMusic::choose(Command command) {
  if (command == Command::editSubList)
    EditSongs_Click();
  else
    frmEditor::choose(command);
}

void frmMusic::Form_Load() {
  const MediaTypeList mediaTypes = ReadIni();
  const bool isNew = state().newCollection;
  auto found = MusicFileState::current;
  if (isNew)
    makeFile(music_file_type::madeByDialog);
  else
    found = openMusicFile(state(), store());
  if (found == MusicFileState::refused) say("Old File Type Incompatible. Contact us for upgrades.");
  if (found == MusicFileState::upgradable) upgrade();
  const auto first = found == MusicFileState::refused ? std::nullopt : readFirstItem();

  showMediaTypes(mediaTypes);
  sheet().setInputEnabled("chkBookLoaned", true);  // the loan rule may leave it as it is
  resetForm();
  setFileCaption(store().kind());
  if (!isNew) showFirstItem(first);
}

void frmMusic::upgrade() {
  say("Performing file type upgrade.");
  upgradeMusicFile(state());
  say("Updated File Type 4 to File Type 5\r\nBarCode/ID Field Added.");
  say("Updating complete.");
}

MediaTypeList frmMusic::ReadIni() {
  FileSystem& files = state().files.fileSystem();
  MediaTypeList list = builtInMediaTypes();
  try {
    list = readMediaTypes(files);
    if (list.corrupt) {
      say("ERROR! INI File corrupt!");
      files.remove(std::string(kMediaTypeFileName));
    }
  } catch (const RunTimeError& error) {
    // A list that cannot be read or deleted must not stand between the user and the collection.
    program().report(error);
  }
  return list;
}

void frmMusic::showMediaTypes(const MediaTypeList& list) {
  QComboBox& media = sheet().dropDown("cmbMediaType");
  media.clear();
  for (const std::string& entry : list.entries) media.addItem(fromRecordText(entry));
}

void frmMusic::UpdateScreen() {
  frmEditor::UpdateScreen();
  loanenable();
  CreateSongList();
}

void frmMusic::GetScreen() {
  frmEditor::GetScreen();
  GetSongs();
}

void frmMusic::ClearData() {
  frmEditor::ClearData();
  sheet().clearLists();
  ClearSongList();
  loanenable();
}

void frmMusic::setRecordLabel(const std::string& text) {
  frmEditor::setRecordLabel(text);
  for (const auto& page : pages_)
    if (page) page->setRecordLabel(text);
}

void frmMusic::loanenable() {
  const bool onLoan = sheet().checkBox("chkCurrLoaned").isChecked();
  for (const char* name : {"txtBorrower", "txtDateLoaned", "txtDueDate"})
    sheet().setInputEnabled(name, onLoan);
  // Without a booklet its box is left as it is.
  if (sheet().checkBox("chkHasBook").isChecked()) sheet().setInputEnabled("chkBookLoaned", onLoan);
}

void frmMusic::chkHasBook_Click() {
  if (sheet().checkBox("chkCurrLoaned").isChecked())
    sheet().setInputEnabled("chkBookLoaned", sheet().checkBox("chkHasBook").isChecked());
}

bool frmMusic::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) cmbMediaType_Focus();
  return frmEditor::eventFilter(watched, event);
}

/// Chosen anew, so that what is shown is the list's entry.
void frmMusic::cmbMediaType_Focus() {
  QComboBox& media = sheet().dropDown("cmbMediaType");
  const int index = media.currentIndex();
  media.setCurrentIndex(-1);
  media.setCurrentIndex(index);
}

void frmMusic::ClearSongList() {
  songs_.fill({});
  fillSongPages();
}

void frmMusic::CreateSongList() {
  for (std::size_t song = 0; song < kSongs; ++song)
    songs_.at(song) = upToNul(state().music.Songs.at(song).view());
  fillSongPages();
}

void frmMusic::GetSongs() {
  for (std::size_t song = 0; song < kSongs; ++song) state().music.Songs.at(song) = this->song(song);
}

std::string frmMusic::song(std::size_t song) const {
  const auto& page = pages_.at(song / frmSongEdit::kSongsPerPage);
  return page ? page->song(song % frmSongEdit::kSongsPerPage) : songs_.at(song);
}

bool frmMusic::subListDiffers(const Record* record) const {
  const Field& songs = *musicField("Songs");
  for (std::size_t song = 0; song < kSongs; ++song) {
    const std::string_view stored =
        record == nullptr ? std::string_view() : upToNul(textOf(songs, *record, song));
    if (withoutTrailingBlanks(this->song(song)) != withoutTrailingBlanks(stored)) return true;
  }
  return false;
}

void frmMusic::makeSongPages() {
  for (std::size_t page = 0; page < pages_.size(); ++page) {
    const auto showOther = [this, page] { pages_.at(1 - page)->showInsteadOf(*pages_.at(page)); };
    pages_.at(page) = std::make_unique<frmSongEdit>(
        program(), static_cast<int>(page) + 1,
        frmSongEdit::Owner{showOther, [this] { ClearSongList(); },
                           [this](frmSongEdit& left) { exitSongs(left); }});
  }
}

void frmMusic::fillSongPages() {
  for (std::size_t song = 0; song < kSongs; ++song)
    if (const auto& page = pages_.at(song / frmSongEdit::kSongsPerPage))
      page->showSong(song % frmSongEdit::kSongsPerPage, songs_.at(song));
}

void frmMusic::EditSongs_Click() {
  if (!pages_.front()) {
    makeSongPages();
    fillSongPages();
    setRecordLabel(recordLabelText());
  }
  pages_.front()->showInsteadOf(*this);
}

void frmMusic::exitSongs(frmSongEdit& page) {
  GetSongs();
  updateNotWritten();
  showInsteadOf(page);
  sheet().textBox("txtArtist").setFocus();
}

}  // namespace quillbox
