#include "editors/frmBooks.h"

#include "records/book_record.h"

namespace quillbox {
namespace {

enum Row { author, title, publisher, lists, notes };

constexpr InputRow txtBooks(int element, const char* caption, const Field* field, Place place) {
  return input("txtBooks", caption, field, place).inArray(element).labelled("lblbooks");
}

constexpr InputRow kInputs[] = {
    txtBooks(0, "&Author:", bookField("Author"), {author}),
    txtBooks(1, "&Title:", bookField("Title"), {title}),
    txtBooks(2, "&Publisher:", bookField("Publisher"), {publisher}),
    input("cmbGenre", "&Genre:", bookField("Genre"), {lists, 0, 1}),
    input("cmbMedia", "&Media Type:", bookField("MediaType"), {lists, 1, 1}),
    txtBooks(3, "&Notes:", bookField("Notes"), {notes}),
};

// No delete command.
constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrevious", "Pre&vious"},
    {Command::next, "cmdNext", "&Next"},
    {Command::goTo, "cmdGoTo", "G&oTo"},
    {Command::clear, "cmdClearData", "&Clear Data"},
    {Command::write, "cmdWriteData", "&WriteData"},
};

constexpr MenuRow kMenus[] = {
    {"FileMenu", "&File", Command::newFile, "NewFile", "&New"},
    {"FileMenu", "&File", Command::openFile, "OpenFile", "&Open"},
    {"FileMenu", "&File", Command::exitCollection, "ExitBooks", "E&xit"},
    {"EditMenu", "&Edit", Command::sort, "SortBooks", "&Sort"},
    {"EditMenu", "&Edit", Command::search, "SearchBooks", "S&earch"},
    {"PrintMenu", "&Print", Command::printerSetup, "PrinterSetup", "&Setup Printer"},
    {"PrintMenu", "&Print", Command::printList, "PrintList", "&Print List"},
    {"PrintMenu", "&Print", Command::exportData, "ExportData", "&Export Data"},
    {"HelpMenu", "&Help", Command::about, "AboutBooks", "&About"},
    {"HelpMenu", "&Help", Command::contents, "ContentsBooks", "Contents"},
};

constexpr FamilyTables kTables = {
    .editor = {.formName = "frmBooks",
               .indicatorName = "lblBookCap",
               .indicatorText = "No Data",
               .inputs = kInputs,
               .buttons = kButtons,
               .menus = kMenus,
               .aboutTitle = "About Book Collection",
               .aboutArea = "Book",
               .helpPage = "books.md",
               .search = {.inputs = kInputs}},
    .clearsScreenOnly = true,
};

}  // namespace

frmBooks::frmBooks(Program& program, PrintEngine& printEngine)
    : frmFamily(program, printEngine, "BCS", kTables) {}

}  // namespace quillbox
