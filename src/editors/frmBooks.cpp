#include "editors/frmBooks.h"

#include "records/book_record.h"

namespace quillbox {
namespace {

enum Row { author, title, publisher, lists, notes };

using enum InputKind;

constexpr InputRow kInputs[] = {
    {textBox,
     "txtBooks_0",
     "&Author:",
     bookField("Author"),
     {author},
     Shown::trimmed,
     "lblbooks_0"},
    {textBox, "txtBooks_1", "&Title:", bookField("Title"), {title}, Shown::trimmed, "lblbooks_1"},
    {textBox,
     "txtBooks_2",
     "&Publisher:",
     bookField("Publisher"),
     {publisher},
     Shown::trimmed,
     "lblbooks_2"},
    {dropDown, "cmbGenre", "&Genre:", bookField("Genre"), {lists, 0, 1}},
    {dropDown, "cmbMedia", "&Media Type:", bookField("MediaType"), {lists, 1, 1}},
    {textBox, "txtBooks_3", "&Notes:", bookField("Notes"), {notes}, Shown::trimmed, "lblbooks_3"},
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
    .editor = {"frmBooks",
               "lblBookCap",
               "No Data",
               kInputs,
               {},
               kButtons,
               kMenus,
               "About Book Collection",
               "Book",
               "books.md",
               {kInputs, {}}},
    .clearsScreenOnly = true,
};

}  // namespace

frmBooks::frmBooks(Program& program) : frmFamily(program, "BCS", kTables) {}

}  // namespace quillbox
