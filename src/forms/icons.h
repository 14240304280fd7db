#pragma once

#include <QIcon>

namespace quillbox {

struct CollectionKind;

// Names must last as long as the program, because an icon is read when it is first drawn.

/// The program's own icon of that name, readable on light and dark.
QIcon ownIcon(const char* name);

/// The system theme's icon or, if it has none, the program's own.
QIcon icon(const char* themeName, const char* ownName);

/// The icon of a kind of collection.
QIcon iconOf(const CollectionKind& kind);

}  // namespace quillbox
