#include "editors/frmVideo.h"

#include "records/video_record.h"

namespace quillbox {
namespace {

enum Row { tapeHeading, title, publisher, media, purchaseHeading, prices, notesHeading, notes };

constexpr HeadingRow kHeadings[] = {
    {"Tape", tapeHeading}, {"Purchase", purchaseHeading}, {"Notes", notesHeading}};

constexpr InputRow kInputs[] = {
    input("txtVidTitle", "&Label Text:", videoField("Label"), {title}).labelled("lblVidTitle"),
    input("txtPublisher", "&Publisher:", videoField("Publisher"), {publisher}),
    input("cmbMediaType", "&Media Type:", videoField("MediaType"), {media, 0, 2})
        .labelled("lblMedia"),
    input("chkCommercial", "C&ommercially Recorded", videoField("Commercial"), {media, 2, 1}),
    input("txtPurPrice", "&Purchase Price:", videoField("PurPrice"), {prices, 0, 1})
        .labelled("lblPurPrice"),
    input("txtCurrPrice", "&Current Price:", videoField("CurrPrice"), {prices, 1, 1}),
    input("txtAquireDate", "A&quisition Date:", videoField("AquireDate"), {prices, 2, 1})
        .labelled("lblAquireDate")
        .filledWith(WhenEmpty::newYear1980),
    input("txtNotes", "&Notes:", videoField("Notes"), {notes}).labelled("lblNotes"),
};

constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrev", "Pre&vious Item"},
    {Command::next, "cmdNext", "&Next Item"},
    {Command::goTo, "Command1", "&GoTo"},
    {Command::clear, "cmdClear", "Cle&ar Data"},
    {Command::deleteItem, "cmdDelete", "&Delete Item"},
    {Command::write, "cmdUpdate", "&Write Data"},
};

constexpr MenuRow kMenus[] = {
    {"FileMenu", "&File", Command::newFile, "NewFile", "&New File"},
    {"FileMenu", "&File", Command::openFile, "OpenFile", "&Open File"},
    {"FileMenu", "&File", Command::exitCollection, "ExitCollection", "E&xit Collection"},
    {"EditMenu", "&Edit", Command::editSubList, "EditTitles", "Edit &Titles"},
    {"EditMenu", "&Edit", Command::sort, "SortRecords", "S&ort Records"},
    {"EditMenu", "&Edit", Command::search, "SearchRecords", "S&earch Records"},
    {"PrintMenu", "P&rint", Command::printList, "PrintList", "&Print List"},
    {"PrintMenu", "P&rint", Command::printerSetup, "SetupPrinter", "&Setup Printer"},
    {"PrintMenu", "P&rint", Command::exportData, "ExportData", "&Export Data"},
    {"HelpVideos", "&Help", Command::about, "AboutVideos", "&About"},
    {"HelpVideos", "&Help", Command::contents, "ContentVideos", "&Contents"},
};

constexpr const char* kCaptions[] = {
    "Movie &1:", "Movie &2:", "Movie &3:", "Movie &4:", "Movie &5:",
    "Movie &6:", "Movie &7:", "Movie &8:", "Movie &9:", "Movie 1&0:"};

constexpr ButtonRow kPageButtons[] = {
    {Command::previous, "cmdPrev", "Pre&vious Item"},
    {Command::next, "cmdNext", "&Next Item"},
    {Command::exitCollection, "cmdExit", "E&xit Window"},
};

constexpr ListPageTables kPage = {.formName = "frmVideoTitles",
                                  .caption = "Video Tape Collection Manager",
                                  .field = videoField("Movies"),
                                  .boxName = "txtMovieTitle",
                                  .captionName = "lblvidtitles",
                                  .captions = kCaptions,
                                  .buttons = kPageButtons,
                                  .toolTip = "The movies on this tape",
                                  .nameBoxes = {"txtVidTitle"}};

constexpr FamilyTables kTables = {
    .editor = {.formName = "frmVideo",
               .inputs = kInputs,
               .headings = kHeadings,
               .buttons = kButtons,
               .menus = kMenus,
               .aboutTitle = "About Video Collection",
               .aboutArea = "Video",
               .helpPage = "video.md",
               .search = {.inputs = kInputs, .headings = kHeadings}},
    .listPage = &kPage,
    .hidesDeleted = true,
};

}  // namespace

frmVideo::frmVideo(Program& program, PrintEngine& printEngine)
    : frmFamily(program, printEngine, "VCS", kTables) {}

}  // namespace quillbox
