#pragma once

#include <QIcon>
#include <QKeySequence>
#include <QString>

namespace quillbox {

/// The commands that editors and their second pages have buttons, menu items and keys for.
enum class Command {
  // buttons
  previous,
  next,
  goTo,
  clear,
  deleteItem,
  write,
  // menu items
  newFile,
  openFile,
  exitCollection,
  editSubList,
  sort,
  search,
  printList,
  printerSetup,
  exportData,
  mediaTypes,
  loadFolder,
  contents,
  about,
  // keys alone
  duplicate,
  bringBack,
};

struct ButtonRow {
  Command command;
  const char* name;
  const char* caption;
};

/// One item of a menu; rows of the same menu follow one another. A menu without an item is itself
/// what is chosen.
struct MenuRow {
  const char* menu;
  const char* menuCaption;
  Command command;
  const char* item = nullptr;
  const char* caption = nullptr;
};

/// The icon of a command; none for most.
QIcon iconOf(Command command);

/// The keys of a command, besides the access keys of its captions; empty for most.
QKeySequence keysOf(Command command);

/// What a command does, and its keys.
QString toolTipOf(Command command);

}  // namespace quillbox
