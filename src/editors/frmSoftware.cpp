#include "editors/frmSoftware.h"

#include "records/software_record.h"

namespace quillbox {
namespace {

enum Row { diskHeading, label, publisher, media, boxes, purchaseHeading, prices, notes };

constexpr HeadingRow kHeadings[] = {{"Disk", diskHeading}, {"Purchase", purchaseHeading}};

constexpr InputRow txtSftWare(int element, const char* caption, const Field* field, Place place) {
  return input("txtSftWare", caption, field, place).inArray(element).labelled("lblSftWare");
}

// The two prices have no colon.
constexpr InputRow kInputs[] = {
    txtSftWare(0, "&Disk Label:", softwareField("DiskLabel"), {label}),
    txtSftWare(1, "P&ublisher:", softwareField("Publisher"), {publisher}),
    input("cmbMediaType", "&Media Type:", softwareField("MediaType"), {media, 0, 1})
        .labelled("lblMedia"),
    input("chkCommercial", "C&ommercial", softwareField("Commercial"), {boxes, 0, 1}),
    input("chkShareWare", "&Shareware", softwareField("Shareware"), {boxes, 1, 1}),
    input("chkCDRequired", "CD R&equired", softwareField("CDRequired"), {boxes, 2, 1}),
    txtSftWare(2, "&Purchase Price", softwareField("PurPrice"), {prices, 0, 1}),
    txtSftWare(3, "&Current Price", softwareField("CurrPrice"), {prices, 1, 1}),
    txtSftWare(4, "&Notes:", softwareField("Notes"), {notes}),
};

constexpr ButtonRow kButtons[] = {
    {Command::previous, "cmdPrevious", "Pre&vious Item"},
    {Command::next, "cmdNext", "Ne&xt Item"},
    {Command::goTo, "cmdGoTo", "&GoTo"},
    {Command::clear, "cmdClear", "C&lear Data"},
    {Command::deleteItem, "cmdDelete", "De&lete Item"},
    {Command::write, "cmdUpdate", "&Write Data"},
};

constexpr MenuRow kMenus[] = {
    {"FileMenu", "&File", Command::newFile, "NewFile", "&New File"},
    {"FileMenu", "&File", Command::openFile, "OpenFile", "&Open File"},
    {"FileMenu", "&File", Command::exitCollection, "ExitCollection", "E&xit Collection"},
    {"EditMenu", "&Edit", Command::editSubList, "EditTitles", "Edit &Titles"},
    {"EditMenu", "&Edit", Command::sort, "SortRecords", "S&ort Records"},
    {"EditMenu", "&Edit", Command::search, "Search", "S&earch Records"},
    {"PrintMenu", "P&rint", Command::printList, "PrintList", "&Print List"},
    {"PrintMenu", "P&rint", Command::printerSetup, "PrintSetup", "Printer &Setup"},
    {"PrintMenu", "P&rint", Command::exportData, "ExportData", "&Export Data"},
    {"HelpMenu", "&Help", Command::about, "AboutSoftware", "&About"},
    {"HelpMenu", "&Help", Command::contents, "ContentSoftware", "&Contents"},
};

constexpr const char* kCaptions[] = {
    "Program &1:", "Program &2:", "Program &3:", "Program &4:", "Program &5:",
    "Program &6:", "Program &7:", "Program &8:", "Program &9:", "Program 1&0:"};

constexpr ButtonRow kPageButtons[] = {
    {Command::previous, "cmdPrevious", "Pre&vious Item"},
    {Command::next, "cmdNext", "Ne&xt Item"},
    {Command::exitCollection, "cmdExit", "E&xit Window"},
};

constexpr ListPageTables kPage = {.formName = "frmSoftwareTitles",
                                  .caption = "Software Collection Manager",
                                  .field = softwareField("Programs"),
                                  .boxName = "txtProgram",
                                  .captionName = "lblProgram",
                                  .captions = kCaptions,
                                  .buttons = kPageButtons,
                                  .toolTip = "The programs on this disk",
                                  .nameBoxes = {"txtSftWare_0"}};

constexpr FamilyTables kTables = {
    .editor = {.formName = "frmSoftware",
               .inputs = kInputs,
               .headings = kHeadings,
               .buttons = kButtons,
               .menus = kMenus,
               .aboutTitle = "About Software Collection",
               .aboutArea = "Software",
               .helpPage = "software.md",
               .search = {.inputs = kInputs, .headings = kHeadings}},
    .listPage = &kPage,
    .captionsClickable = true,
};

}  // namespace

frmSoftware::frmSoftware(Program& program, PrintEngine& printEngine)
    : frmFamily(program, printEngine, "SCS", kTables) {}

}  // namespace quillbox
