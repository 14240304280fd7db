#include "forms/about.h"

#include "records/version.h"

namespace quillbox {

std::string aboutText(std::string_view area) {
  std::string text = endingWithVersion("Quillbox V") + "\n";
  if (!area.empty()) text += endingWithVersion(std::string(area).append(" Area Version: V")) + "\n";
  return text.append("\n").append(kCredits);
}

}  // namespace quillbox
