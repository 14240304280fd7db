#include "editors/frmSoftware.h"

#include "records/software_record.h"

namespace quillbox {
namespace {

enum Row { diskHeading, label, publisher, media, boxes, purchaseHeading, prices, notes };

constexpr HeadingRow kHeadings[] = {{"Disk", diskHeading}, {"Purchase", purchaseHeading}};

using enum InputKind;

// The two prices have no colon.
constexpr InputRow kInputs[] = {
    {textBox,
     "txtSftWare_0",
     "&Disk Label:",
     softwareField("DiskLabel"),
     {label},
     Shown::trimmed,
     "lblSftWare_0"},
    {textBox,
     "txtSftWare_1",
     "P&ublisher:",
     softwareField("Publisher"),
     {publisher},
     Shown::trimmed,
     "lblSftWare_1"},
    {dropDown,
     "cmbMediaType",
     "&Media Type:",
     softwareField("MediaType"),
     {media, 0, 1},
     Shown::trimmed,
     "lblMedia"},
    {checkBox, "chkCommercial", "C&ommercial", softwareField("Commercial"), {boxes, 0, 1}},
    {checkBox, "chkShareWare", "&Shareware", softwareField("Shareware"), {boxes, 1, 1}},
    {checkBox, "chkCDRequired", "CD R&equired", softwareField("CDRequired"), {boxes, 2, 1}},
    {textBox,
     "txtSftWare_2",
     "&Purchase Price",
     softwareField("PurPrice"),
     {prices, 0, 1},
     Shown::number,
     "lblSftWare_2"},
    {textBox,
     "txtSftWare_3",
     "&Current Price",
     softwareField("CurrPrice"),
     {prices, 1, 1},
     Shown::number,
     "lblSftWare_3"},
    {textBox,
     "txtSftWare_4",
     "&Notes:",
     softwareField("Notes"),
     {notes},
     Shown::trimmed,
     "lblSftWare_4"},
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

constexpr ListPageTables kPage = {"frmSoftwareTitles",
                                  "Software Collection Manager",
                                  softwareField("Programs"),
                                  "txtProgram",
                                  "lblProgram",
                                  kCaptions,
                                  kPageButtons};

constexpr FamilyTables kTables = {
    .editor = {"frmSoftware",
               "lblIndex",
               "Record #:",
               kInputs,
               kHeadings,
               kButtons,
               kMenus,
               "About Software Collection",
               "Software",
               "software.md",
               {kInputs, kHeadings}},
    .listPage = &kPage,
    .captionsClickable = true,
};

}  // namespace

frmSoftware::frmSoftware(Program& program) : frmFamily(program, "SCS", kTables) {}

}  // namespace quillbox
