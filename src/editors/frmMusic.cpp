#include "editors/frmMusic.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QPushButton>

#include "editors/media_types.h"
#include "forms/item_line.h"
#include "forms/list_paste.h"
#include "forms/qt_text.h"
#include "forms/text_box.h"
#include "records/music_file.h"
#include "text/padding.h"

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

/// A text of this editor: shown with its padding.
constexpr InputRow text(const char* name, const char* caption, const Field* field, Place place) {
  return input(name, caption, field, place).as(Shown::padded);
}

constexpr InputRow kInputs[] = {
    text("txtArtist", "&Artist:", musicField("Artist"), {artist}),
    text("txtAlbum", "A&lbum:", musicField("Album"), {albumTitle}),
    text("txtRecordCo", "&Record Co:", musicField("RecordCo"), {recordCo}),
    text("txtAquireDate", "A&quisition Date:", musicField("AquireDate"), {costs, 0, 1})
        .filledWith(WhenEmpty::today),
    input("txtAquireCost", "Aq&uisiton Cost:", musicField("AquireCost"), {costs, 1, 1}),
    // The two costs have always been shown differently.
    input("txtCurrCost", "&Current Cost:", musicField("CurrCost"), {costs, 2, 1})
        .as(Shown::signedNumber),
    input("cmbMediaType", "&Media Type:", musicField("MediaType"), {media, 0, 1}),
    input("chkHasBook", "Has &Booklet", musicField("HasBook"), {media, 1, 1}),
    input("chkCurrLoaned", "Currently On &Loan", musicField("CurrLoaned"), {onLoan, 0, 1}),
    text("txtBorrower", "B&orrower:", musicField("Borrower"), {borrower}),
    text("txtDateLoaned", "Da&te Borrowed:", musicField("DateLoaned"), {dates, 0, 1}),
    text("txtDueDate", "D&ue Date:", musicField("DueDate"), {dates, 1, 1}),
    input("chkBookLoaned", "B&ook Loaned", musicField("BookLoaned"), {dates, 2, 1}),
    text("txtNotes", "&Notes:", musicField("Notes"), {notes}),
    input("cmbGenre", "&Genre:", musicField("Genre"), {genre, 0, 1}),
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

constexpr EditorTables kTables = {.formName = "frmMusic",
                                  .inputs = kInputs,
                                  .headings = kHeadings,
                                  .buttons = kButtons,
                                  .menus = kMenus,
                                  .aboutTitle = "About Music Collection",
                                  .aboutArea = "Music",
                                  .helpPage = "music.md",
                                  .search = {.inputs = kInputs, .headings = kHeadings},
                                  .setupDialog = "cdlQBXMusic"};

}  // namespace

frmMusic::frmMusic(Program& program, PrintEngine& printEngine)
    : frmEditor(program, printEngine, *kindOfExtension("MCS"), kTables) {
  sheet().whenToggled("chkCurrLoaned", [this] { chkCurrLoaned_Click(); });
  sheet().whenToggled("chkHasBook", [this] { chkHasBook_Click(); });
  sheet().dropDown("cmbMediaType").installEventFilter(this);
}

frmMusic::~frmMusic() = default;

void frmMusic::choose(Command command) {
  if (command == Command::editSubList)
    EditSongs_Click();
  else
    frmEditor::choose(command);
}

void frmMusic::Form_Load(OpenCollection& opening) {
  const MediaTypeList mediaTypes = ReadIni();
  const bool isNew = opening.newCollection;
  auto found = MusicFileState::current;
  if (isNew)
    makeFile(opening, music_file_type::madeByDialog);
  else
    found = openMusicFile(state().files, opening);
  if (found == MusicFileState::refused) say("Old File Type Incompatible. Contact us for upgrades.");
  if (found == MusicFileState::upgradable) upgrade(opening);
  const int readable = found == MusicFileState::refused ? 0 : opening.Count;
  const auto first = readFirstItem(storeOf(opening), readable);

  takeOver(opening);
  showMediaTypes(mediaTypes);
  sheet().setInputEnabled("chkBookLoaned", true);  // the loan rule may leave it unchanged
  resetForm();
  setFileCaption(store().kind());
  if (!isNew) showFirstItem(first);
}

void frmMusic::upgrade(OpenCollection& opening) {
  say("Performing file type upgrade.");
  upgradeMusicFile(state().files, opening);
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
    // A list that cannot be read or deleted must not come between the user and the collection.
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

void frmMusic::GetScreen(std::span<std::byte> record) {
  frmEditor::GetScreen(record);
  GetSongs(record);
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
  // Without a booklet its box is left unchanged.
  if (sheet().checkBox("chkHasBook").isChecked()) sheet().setInputEnabled("chkBookLoaned", onLoan);
}

void frmMusic::chkCurrLoaned_Click() { loanenable(); }

void frmMusic::chkHasBook_Click() {
  if (sheet().checkBox("chkCurrLoaned").isChecked())
    sheet().setInputEnabled("chkBookLoaned", sheet().checkBox("chkHasBook").isChecked());
}

bool frmMusic::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) cmbMediaType_Focus();
  return frmEditor::eventFilter(watched, event);
}

/// Chosen again, so that the list's entry is shown.
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

void frmMusic::GetSongs(std::span<std::byte> record) const {
  for (std::size_t song = 0; song < kSongs; ++song)
    setText(*musicField("Songs"), record, this->song(song), song);
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

QStringList frmMusic::subList() const {
  QStringList songs;
  for (std::size_t song = 0; song < kSongs; ++song)
    songs << fromRecordText(withoutTrailingBlanks(this->song(song)));
  return songs;
}

void frmMusic::putBackSubList(const QStringList& entries) {
  for (std::size_t song = 0; song < kSongs; ++song)
    songs_.at(song) = toRecordText(entries.value(static_cast<qsizetype>(song)));
  fillSongPages();
}

void frmMusic::makeSongPages() {
  for (std::size_t page = 0; page < pages_.size(); ++page) {
    const auto showOther = [this, page] { pages_.at(1 - page)->showInsteadOf(*pages_.at(page)); };
    pages_.at(page) = std::make_unique<frmSongEdit>(
        program(), static_cast<int>(page) + 1,
        frmSongEdit::Owner{showOther, [this] { clearSongs(); },
                           [this](frmSongEdit& left) { exitSongs(left); },
                           [this] { updateNotWritten(); }});
  }
  makePaste();
}

/// Typed songs can be restored.
void frmMusic::clearSongs() {
  leaveTyped();
  ClearSongList();
  updateNotWritten();
}

Form& frmMusic::formOnScreen() {
  for (const auto& page : pages_)
    if (page && page->isVisible()) return *page;
  return *this;
}

/// What does not fit on the first page continues on the second.
void frmMusic::makePaste() {
  std::vector<TextBox*> boxes;
  for (const auto& page : pages_)
    boxes.insert(boxes.end(), page->songBoxes().begin(), page->songBoxes().end());
  paste_ = std::make_unique<ListPaste>(boxes, [this](TextBox& into, const QString& text) {
    for (const auto& page : pages_) page->say(page->isAncestorOf(&into) ? text : QString());
    updateNotWritten();
  });
  for (std::size_t page = 0; page < pages_.size(); ++page)
    paste_->alsoIn(pages_.at(page)->addBox(), page * frmSongEdit::kSongsPerPage);
}

void frmMusic::fillSongPages() {
  for (std::size_t song = 0; song < kSongs; ++song)
    if (const auto& page = pages_.at(song / frmSongEdit::kSongsPerPage))
      page->showSong(song % frmSongEdit::kSongsPerPage, songs_.at(song));
  for (const auto& page : pages_)
    if (page) page->clearAddBox();
  if (paste_) paste_->forget();
}

void frmMusic::EditSongs_Click() {
  if (!pages_.front()) {
    makeSongPages();
    fillSongPages();
    setRecordLabel(recordLabelText());
  }
  nameItemOnPages();
  pages_.front()->showInsteadOf(*this);
}

void frmMusic::nameItemOnPages() {
  // Their own label has the number; a new item may have no names yet.
  const bool isNew = state().CurRec == kNewItem;
  const QString number = isNew ? fromUtf8Text(recordLabelText()) : QString();
  const QString line = itemLine(number, sheet(), {"txtArtist", "txtAlbum"});
  for (const auto& page : pages_) page->nameItem(line);
}

void frmMusic::exitSongs(frmSongEdit& page) {
  GetSongs(buffer());
  updateNotWritten();
  showInsteadOf(page);
  sheet().textBox("txtArtist").setFocus();
}

}  // namespace quillbox
