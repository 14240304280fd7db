#include "editors/frmComics.h"

#include "records/comic_record.h"

namespace quillbox {
namespace {

enum Row {
  comicHeading,
  bookTitle,
  comicTitle,
  artists,
  heroes,
  villains,
  firstAppearance,
  publisher,
  purchaseHeading,
  prices,
  boxes
};

constexpr HeadingRow kHeadings[] = {{"Comic", comicHeading}, {"Purchase", purchaseHeading}};

using enum InputKind;

constexpr InputRow text(const char* name, const char* captionName, const char* caption,
                        const Field* field, Row row) {
  return {textBox, name, caption, field, {row}, Shown::trimmed, captionName};
}

// "Villan(s)" is spelled so, and has no colon.
constexpr InputRow kInputs[] = {
    text("txtCmic_0", "lblCmic_0", "&Book Title:", comicField("BookTitle"), bookTitle),
    text("txtCmic_1", "lblCmic_1", "&Comic Title:", comicField("ComicTitle"), comicTitle),
    text("txtCmic_2", "lblCmic_2", "&Artists:", comicField("Artists"), artists),
    text("txtCmic_3", "lblCmic_3", "&Hero(es):", comicField("Heroes"), heroes),
    text("txtCmic_4", "lblCmic_4", "&Villan(s)", comicField("Villains"), villains),
    text("txtCmic_5", "lblCmic_5", "F&irst Appearance Of:", comicField("FirstApp"),
         firstAppearance),
    text("txtCmic_6", "lblCmic_6", "P&ublisher:", comicField("Publisher"), publisher),
    {textBox,
     "txtCmic_7",
     "Purc&hase Price:",
     comicField("PurPrice"),
     {prices, 0, 1},
     Shown::number,
     "lblCmic_7"},
    {textBox,
     "txtCmic_8",
     "Cu&rrent Price:",
     comicField("CurrPrice"),
     {prices, 1, 1},
     Shown::number,
     "lblCmic_8"},
    {textBox,
     "txtCmic_9",
     "A&quisition Date:",
     comicField("AquireDate"),
     {prices, 2, 1},
     Shown::trimmed,
     "lblCmic_9",
     WhenEmpty::newYear1980},
    {checkBox, "chkBagged", "Ba&gged", comicField("Bagged"), {boxes, 0, 1}},
    {checkBox, "chkBoarded", "B&oarded", comicField("Boarded"), {boxes, 1, 1}},
};

// The two boxes cannot be searched for.
constexpr auto kSearchInputs = std::span(kInputs).first(std::size(kInputs) - 2);
constexpr HeadingRow kSearchHeadings[] = {{"Input Data To Search For", comicHeading},
                                          {"Purchase", purchaseHeading}};

constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrevious", "Pre&vious Item"},
    {Command::next, "cmdNext", "&Next Item"},
    {Command::goTo, "cmdGoTo", "&GoTo"},
    {Command::clear, "cmdClearData", "C&lear Data"},
    {Command::deleteItem, "cmdDelete", "&Delete Data"},
    {Command::write, "cmdUpdate", "&Write Data"},
};

constexpr MenuRow kMenus[] = {
    {"FileMenu", "&File", Command::newFile, "NewFile", "&New Collection"},
    {"FileMenu", "&File", Command::openFile, "OpenFile", "&Open Collection"},
    {"FileMenu", "&File", Command::exitCollection, "ExitCollection", "E&xit Collection"},
    {"EditMenu", "&Edit", Command::editSubList, "EditTitles", "Edit &Titles"},
    {"EditMenu", "&Edit", Command::sort, "SortRecords", "S&ort Records"},
    {"EditMenu", "&Edit", Command::search, "Search", "S&earch"},
    {"PrintMenu", "&Print", Command::printList, "PrintList", "&Print List"},
    {"PrintMenu", "&Print", Command::printerSetup, "PrinterSetup", "&Setup Printer"},
    {"PrintMenu", "&Print", Command::exportData, "ExportData", "&Export Data"},
    {"HelpMenu", "&Help", Command::about, "AboutComic", "&About"},
    {"HelpMenu", "&Help", Command::contents, "ContentComic", "&Content"},
};

constexpr const char* kCaptions[] = {
    "Notes &1:", "Notes &2:", "Notes &3:", "Notes &4:", "Notes &5:"};

constexpr ButtonRow kPageButtons[] = {
    {Command::previous, "cmdPrevious", "Pre&vious Item"},
    {Command::next, "cmdNext", "&Next Item"},
    {Command::exitCollection, "cmdExit", "E&xit Window"},
};

constexpr ListPageTables kPage = {"frmComicTitles", "Comic Notes Data", comicField("Notes"),
                                  "txtCmic",        "lblCmic",          kCaptions,
                                  kPageButtons};

constexpr FamilyTables kTables = {
    .editor = {"frmComics",
               "lblIndex",
               "Record #:",
               kInputs,
               kHeadings,
               kButtons,
               kMenus,
               "About Comic Collection",
               "Comic",
               "comics.md",
               {kSearchInputs, kSearchHeadings}},
    .listPage = &kPage,
};

}  // namespace

frmComics::frmComics(Program& program) : frmFamily(program, "CCS", kTables) {}

}  // namespace quillbox
