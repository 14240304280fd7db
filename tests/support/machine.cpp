#include "support/machine.h"

#include <filesystem>
#include <fstream>

#include "support/test_folder.h"

namespace quillbox::test {

const char* whyNoReadOnlyFiles() {
  const TestFolder folder;
  writeFile("file", "kept");
  std::filesystem::permissions("file", std::filesystem::perms::owner_read);
  const OrdinaryUser user(folder);
  const bool canBeWritten = std::ofstream("file", std::ios::app).is_open();
  return canBeWritten ? "Root under wine may write files that are marked as read-only." : nullptr;
}

}  // namespace quillbox::test
