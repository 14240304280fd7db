#pragma once

#include <cstdint>
#include <string>

#include "records/field.h"

namespace quillbox {

/// What the user entered for a field.
struct Entered {
  const Field* field;
  std::string text = {};   ///< of a text box, in the record's characters
  std::int16_t whole = 0;  ///< 0 or 1 of a check box, the place in a list or -1
};

}  // namespace quillbox
