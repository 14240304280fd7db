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
  album,
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

constexpr InputRow kInputs[] = {
    {textBox, "txtArtist", "&Artist:", musicField("Artist"), {artist}},
    {textBox, "txtAlbum", "A&lbum:", musicField("Album"), {album}},
    {textBox, "txtRecordCo", "&Record Co:", musicField("RecordCo"), {recordCo}},
    {textBox, "txtAquireDate", "A&quisition Date:", musicField("AquireDate"), {costs, 0, 1}},
    {textBox,
     "txtAquireCost",
     "Aq&uisiton Cost:",
     musicField("AquireCost"),
     {costs, 1, 1},
     Shown::plainAmount},
    // The two costs have always been shown differently.
    {textBox,
     "txtCurrCost",
     "&Current Cost:",
     musicField("CurrCost"),
     {costs, 2, 1},
     Shown::signedAmount},
    {dropDown, "cmbMediaType", "&Media Type:", musicField("MediaType"), {media, 0, 1}},
    {checkBox, "chkHasBook", "Has &Booklet", musicField("HasBook"), {media, 1, 1}},
    {checkBox, "chkCurrLoaned", "Currently On &Loan", musicField("CurrLoaned"), {onLoan, 0, 1}},
    {textBox, "txtBorrower", "B&orrower:", musicField("Borrower"), {borrower}},
    {textBox, "txtDateLoaned", "Da&te Borrowed:", musicField("DateLoaned"), {dates, 0, 1}},
    {textBox, "txtDueDate", "D&ue Date:", musicField("DueDate"), {dates, 1, 1}},
    {checkBox, "chkBookLoaned", "B&ook Loaned", musicField("BookLoaned"), {dates, 2, 1}},
    {textBox, "txtNotes", "&Notes:", musicField("Notes"), {notes}},
    {dropDown, "cmbGenre", "&Genre:", musicField("Genre"), {genre, 0, 1}},
    {textBox, "txtBarCode", "Bar Code/&ID:", musicField("BarCode"), {genre, 1, 2}},
};

constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrevious", "&Previous Item"},
    {Command::next, "cmdNext", "&Next Item"},
    {Command::goTo, "cmdGoto", "Go&To"},
    {Command::clear, "cmdClearData", "&Clear Data"},
    {Command::deleteItem, "cmdDelete", "&Delete Item"},
    {Command::write, "cmdWriteData", "&Write Data"},
};

constexpr EditorTables kTables = {
    "frmMusic", "lblIndex", "Record #:", kInputs, kHeadings, kButtons};

constexpr const char* kHelp =
    "Each album is one item. Type into the boxes and choose Write Data to keep the item in the "
    "collection's file; nothing else saves it.\n\n"
    "Clear Data starts a new item. Previous Item, Next Item and GoTo move through the "
    "collection. Edit, Songs opens the list of songs; they are kept with the item's next "
    "Write Data.\n\n"
    "Delete Item marks the item as deleted; the next new item takes its place.";

}  // namespace

frmMusic::frmMusic(Program& program) : frmEditor(program, *kindOfExtension("MCS"), kTables) {
  makeMenus();
  onClick(sheet().checkBox("chkCurrLoaned"), [this] { loanenable(); });
  onClick(sheet().checkBox("chkHasBook"), [this] { chkHasBook_Click(); });
  sheet().dropDown("cmbMediaType").installEventFilter(this);
}

void frmMusic::makeMenus() {
  addMenu("FileMenu", "&File",
          {{"NewFile", "&New File", nullptr},
           {"OpenFile", "&Open File", nullptr},
           {"ExitCollection", "E&xit Collection", [this] { ExitCollection_Click(); }}});
  addMenu("EditMenu", "&Edit",
          {{"EditSongs", "&Songs", [this] { EditSongs_Click(); }},
           {"SortRecords", "S&ort Records", nullptr},
           {"SearchRecords", "S&earch Records", nullptr}});
  addMenu("PrintMenu", "P&rint",
          {{"PrintList", "&Print List", nullptr},
           {"PrintSetup", "&Setup Printer", [this] { desktop().printerSetup(); }},
           {"ExportData", "&Export Data", nullptr}});
  // The list of media types comes from the user's file alone; the item says so and does nothing.
  addMenu("SetupMenu", "Se&tup", {{"MediaMenu", "&Media Types", [] {}}});
  addMenu("HelpMenu", "&Help",
          {{"MusicContents", "&Contents",
            [this] { this->program().message("Quillbox Help", kHelp, MessageIcon::information); }},
           {"AboutMusic", "&About", [this] { showAbout("About Music Collection", "Music"); }}});
}

std::span<std::byte> frmMusic::buffer() { return bytesOf(state().music); }

void frmMusic::Form_Load() {
  ReadIni();
  button(Command::previous).setEnabled(false);
  button(Command::next).setEnabled(false);
  if (state().newCollection) {
    store().writeHeader(0, music_file_type::madeByDialog, OpenMode::create);
    state().newCollection = false;
    state().Count = 0;
    setFileCaption();
    ClearData();
    return;
  }
  const MusicFileState found = openMusicFile(state(), store());
  setFileCaption();
  switch (found) {
    case MusicFileState::refused:
      program().message(kEditorTitle, "Old File Type Incompatible. Contact us for upgrades.");
      showNothing();
      return;
    case MusicFileState::upgradable:
      upgrade();
      break;
    case MusicFileState::current:
      break;
  }
  showFirstItem();
}

void frmMusic::upgrade() {
  program().message(kEditorTitle, "Performing file type upgrade.");
  upgradeMusicFile(state());
  program().message(kEditorTitle, "Updated File Type 4 to File Type 5\r\nBarCode/ID Field Added.");
  program().message(kEditorTitle, "Updating complete.");
}

void frmMusic::ReadIni() {
  FileSystem& files = state().files.fileSystem();
  MediaTypeList list;
  try {
    list = readMediaTypes(files);
    if (list.corrupt) {
      program().message(kEditorTitle, "ERROR! INI File corrupt!");
      files.remove(std::string(kMediaTypeFileName));
    }
  } catch (const RunTimeError& error) {
    // A list that cannot be read or deleted must not stand between the user and the collection.
    program().report(error);
    if (list.entries.empty()) list = builtInMediaTypes();
  }
  QComboBox& media = sheet().dropDown("cmbMediaType");
  media.clear();
  for (const std::string& entry : list.entries) media.addItem(fromRecordText(entry));
  media.setCurrentIndex(-1);
}

void frmMusic::UpdateScreen() {
  frmEditor::UpdateScreen();
  loanenable();
  CreateSongList();
}

void frmMusic::GetScreen() {
  MusicRecord record = state().music;
  sheet().store(bytesOf(record));
  QLineEdit& date = sheet().textBox("txtAquireDate");
  if (date.text().isEmpty()) {
    date.setText(fromUtf8Text(desktop().todayText()));
    record.AquireDate = toRecordText(date.text());
  }
  state().music = record;
  GetSongs();
}

void frmMusic::ClearData() {
  frmEditor::ClearData();
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
  for (std::size_t song = 0; song < kSongs; ++song) {
    const auto& page = pages_.at(song / frmSongEdit::kSongsPerPage);
    state().music.Songs.at(song) =
        page ? page->song(song % frmSongEdit::kSongsPerPage) : songs_.at(song);
  }
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
  showInsteadOf(page);
  sheet().textBox("txtArtist").setFocus();
}

void frmMusic::NewFile_Click() {
  store().writeHeader(state().Count, music_file_type::upgradable);
  hide();
}

}  // namespace quillbox
