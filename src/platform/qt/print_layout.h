#pragma once

#include <QStringList>
#include <vector>

namespace quillbox {

/// Divides a text into sheets of `rows` lines of `columns` characters, both at least 1. A longer
/// line continues on the next one; nothing is lost. At least one sheet, which may be empty.
std::vector<QStringList> sheetsOf(const QString& text, int columns, int rows);

}  // namespace quillbox
