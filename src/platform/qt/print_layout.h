#pragma once

#include <QStringList>
#include <vector>

namespace quillbox {

/// How the lines of a text fall on sheets of `rows` lines of `columns` characters, both at least 1.
/// A longer line goes on in the next one; nothing is lost. At least one sheet, which may be empty.
std::vector<QStringList> sheetsOf(const QString& text, int columns, int rows);

}  // namespace quillbox
