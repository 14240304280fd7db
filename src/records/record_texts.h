#pragma once

#include <functional>
#include <string>

#include "records/field.h"

namespace quillbox {

/// Texts that a record itself does not hold.
struct RecordTexts {
  /// The entry of a choice's list, in record characters; empty when the list has none there.
  std::function<std::string(const Field& field, int index)> choice;

  std::string dateForm;  ///< the system's short date form, as date_text.h wants it
};

/// The entry of the list that is built in, empty when it has none there.
std::string builtInChoice(const Field& field, int index);

}  // namespace quillbox
