#pragma once

#include <QString>
#include <array>

namespace quillbox {

class ElidedLabel;
class FieldSheet;

/// The text boxes of an editor whose texts tell an item from others; one or two.
using NameBoxes = std::array<const char*, 2>;

/// The line at the top of an editor's second page that says whose page it is.
ElidedLabel* makeItemLine();

/// What it says: the item's number in the editor's words, if any, and its names as the form shows
/// them.
QString itemLine(const QString& number, const FieldSheet& sheet, const NameBoxes& names);

}  // namespace quillbox
