#include "records/record_texts.h"

namespace quillbox {

std::string builtInChoice(const Field& field, int index) {
  const auto at = static_cast<std::size_t>(index);
  return index < 0 || at >= field.choices.size() ? std::string() : std::string(field.choices[at]);
}

}  // namespace quillbox
