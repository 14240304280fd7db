#pragma once

#include <QIcon>
#include <QKeySequence>
#include <QString>

namespace quillbox {

/// The commands for which editors and their second pages have buttons, menu items and keys.
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
  // only keys
  duplicate,
  bringBack,
};

struct ButtonRow {
  Command command;
  const char* name;
  const char* caption;
};

/// One item of a menu; rows of the same menu are adjacent. A menu without items is chosen itself.
struct MenuRow {
  const char* menu;
  const char* menuCaption;
  Command command;
  const char* item = nullptr;
  const char* caption = nullptr;
};

/// The icon of a command; none for most.
QIcon iconOf(Command command);

/// The keys of a command, in addition to its captions' access keys; empty for most.
QKeySequence keysOf(Command command);

/// What a command does, and its keys.
QString toolTipOf(Command command);

}  // namespace quillbox
