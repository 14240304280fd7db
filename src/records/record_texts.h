#pragma once

#include <functional>
#include <string>

#include "records/field.h"

namespace quillbox {

/// Texts the record itself does not hold.
struct RecordTexts {
  /// The entry of a choice's list, in record characters; empty when the list has no such entry.
  std::function<std::string(const Field& field, int index)> choice;

  std::string dateForm;  ///< the system's short date form, see date_text.h
};

/// The entry of the built-in list, empty when it has no such entry.
std::string builtInChoice(const Field& field, int index);

}  // namespace quillbox
