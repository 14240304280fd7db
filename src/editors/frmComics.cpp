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

constexpr InputRow txtCmic(int element, const char* caption, const Field* field, Place place) {
  return input("txtCmic", caption, field, place).inArray(element).labelled("lblCmic");
}

// Spelled "Villan(s)", without a colon.
constexpr InputRow kInputs[] = {
    txtCmic(0, "&Book Title:", comicField("BookTitle"), {bookTitle}),
    txtCmic(1, "&Comic Title:", comicField("ComicTitle"), {comicTitle}),
    txtCmic(2, "&Artists:", comicField("Artists"), {artists}),
    txtCmic(3, "&Hero(es):", comicField("Heroes"), {heroes}),
    txtCmic(4, "&Villan(s)", comicField("Villains"), {villains}),
    txtCmic(5, "F&irst Appearance Of:", comicField("FirstApp"), {firstAppearance}),
    txtCmic(6, "P&ublisher:", comicField("Publisher"), {publisher}),
    txtCmic(7, "Purc&hase Price:", comicField("PurPrice"), {prices, 0, 1}),
    txtCmic(8, "Cu&rrent Price:", comicField("CurrPrice"), {prices, 1, 1}),
    txtCmic(9, "A&quisition Date:", comicField("AquireDate"), {prices, 2, 1})
        .filledWith(WhenEmpty::newYear1980),
    input("chkBagged", "Ba&gged", comicField("Bagged"), {boxes, 0, 1}),
    input("chkBoarded", "B&oarded", comicField("Boarded"), {boxes, 1, 1}),
};

// The two boxes cannot be searched by.
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

constexpr ListPageTables kPage = {.formName = "frmComicTitles",
                                  .caption = "Comic Notes Data",
                                  .field = comicField("Notes"),
                                  .boxName = "txtCmic",
                                  .captionName = "lblCmic",
                                  .captions = kCaptions,
                                  .buttons = kPageButtons,
                                  .toolTip = "The notes on this comic",
                                  .nameBoxes = {"txtCmic_0", "txtCmic_1"}};

constexpr FamilyTables kTables = {
    .editor = {.formName = "frmComics",
               .inputs = kInputs,
               .headings = kHeadings,
               .buttons = kButtons,
               .menus = kMenus,
               .aboutTitle = "About Comic Collection",
               .aboutArea = "Comic",
               .helpPage = "comics.md",
               .search = {.inputs = kSearchInputs, .headings = kSearchHeadings}},
    .listPage = &kPage,
};

}  // namespace

frmComics::frmComics(Program& program, PrintEngine& printEngine)
    : frmFamily(program, printEngine, "CCS", kTables) {}

}  // namespace quillbox
