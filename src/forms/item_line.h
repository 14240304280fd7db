#pragma once

#include <QString>
#include <array>

namespace quillbox {

class ElidedLabel;
class FieldSheet;

/// The text boxes of an editor that identify an item; one or two.
using NameBoxes = std::array<const char*, 2>;

/// The line at the top of an editor's second page that names the item.
ElidedLabel* makeItemLine();

/// Its text: the item's number in the editor's words, if any, and its names as the form shows them.
QString itemLine(const QString& number, const FieldSheet& sheet, const NameBoxes& names);

}  // namespace quillbox
