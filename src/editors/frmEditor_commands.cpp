#include "editors/frmEditor_commands.h"

#include <algorithm>
#include <iterator>

#include "forms/icons.h"

namespace quillbox {
namespace {

struct CommandRow {
  Command command;
  const char* themeIcon = "";  ///< if the theme has one
  const char* ownIcon = "";
  const char* keys = "";  ///< none that text boxes use
  const char* toolTip = "";
};

constexpr CommandRow kCommands[] = {
    {.command = Command::previous,
     .themeIcon = "go-previous",
     .ownIcon = "previous",
     .keys = "Ctrl+PgUp",
     .toolTip = "Show the item before this one"},
    {.command = Command::next,
     .themeIcon = "go-next",
     .ownIcon = "next",
     .keys = "Ctrl+PgDown",
     .toolTip = "Show the item after this one"},
    {.command = Command::goTo,
     .themeIcon = "go-jump",
     .ownIcon = "goto",
     .keys = "Ctrl+G",
     .toolTip = "Show the item of a number"},
    {.command = Command::clear,
     .themeIcon = "edit-clear",
     .ownIcon = "clear",
     .keys = "Ctrl+N",
     .toolTip = "Empty the form for a new item"},
    {.command = Command::deleteItem,
     .themeIcon = "edit-delete",
     .ownIcon = "delete",
     .keys = "Ctrl+Shift+Del",
     .toolTip = "Mark this item as deleted"},
    {.command = Command::write,
     .themeIcon = "document-save",
     .ownIcon = "write",
     .keys = "Ctrl+S",
     .toolTip = "Store what is on the form in the file"},
    {.command = Command::newFile,
     .themeIcon = "document-new",
     .ownIcon = "new",
     .keys = "Ctrl+Shift+N"},
    {.command = Command::openFile,
     .themeIcon = "document-open",
     .ownIcon = "open",
     .keys = "Ctrl+O"},
    {.command = Command::exitCollection,
     .themeIcon = "window-close",
     .ownIcon = "exit",
     .keys = "Ctrl+W",
     .toolTip = "Leave this window"},
    {.command = Command::editSubList, .ownIcon = "list", .keys = "Ctrl+L"},
    {.command = Command::sort, .themeIcon = "view-sort-ascending", .ownIcon = "sort"},
    {.command = Command::search, .themeIcon = "edit-find", .ownIcon = "search", .keys = "Ctrl+F"},
    {.command = Command::printList,
     .themeIcon = "document-print",
     .ownIcon = "print",
     .keys = "Ctrl+P"},
    {.command = Command::exportData, .ownIcon = "export", .keys = "Ctrl+Shift+E"},
    {.command = Command::loadFolder, .ownIcon = "load-folder"},
    {.command = Command::contents, .themeIcon = "help-contents", .ownIcon = "help"},
    {.command = Command::about, .themeIcon = "help-about", .ownIcon = "about"},
    {.command = Command::duplicate, .keys = "Ctrl+D"},
    {.command = Command::bringBack,
     .keys = "Ctrl+Shift+B",
     .toolTip = "Put the text back on the form; the file stays as it is"},
};

constexpr CommandRow kNothing{.command = Command::mediaTypes};

const CommandRow& rowOf(Command command) {
  const auto* const row = std::ranges::find(kCommands, command, &CommandRow::command);
  return row == std::end(kCommands) ? kNothing : *row;
}

}  // namespace

QIcon iconOf(Command command) {
  const CommandRow& row = rowOf(command);
  return *row.ownIcon == '\0' ? QIcon() : icon(row.themeIcon, row.ownIcon);
}

QKeySequence keysOf(Command command) { return QKeySequence(QLatin1String(rowOf(command).keys)); }

QString toolTipOf(Command command) {
  return QStringLiteral("%1 (%2)").arg(QLatin1String(rowOf(command).toolTip),
                                       keysOf(command).toString(QKeySequence::NativeText));
}

}  // namespace quillbox
