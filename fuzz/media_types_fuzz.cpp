// Any bytes as the user's list of media types.

#include "editors/media_types.h"
#include "fuzz/input.h"
#include "support/memory_files.h"
#include "text/windows1252.h"

namespace quillbox::fuzz {
namespace {

using test::MemoryFiles;

constexpr std::size_t kBuiltInKept = 7;

void readAsMediaTypes(std::string_view bytes) {
  MemoryFiles files;
  files.put(std::string(kMediaTypeFileName), std::string(bytes));
  const MediaTypeList list = readMediaTypes(files);
  const MediaTypeList builtIn = builtInMediaTypes();

  require(files.bytes(std::string(kMediaTypeFileName)) == bytes, "the file is only read");
  const std::string_view first = bytes.substr(0, bytes.find('\n'));
  require(list.corrupt == (first != "[MEDIA]" && first != "[MEDIA]\r"),
          "a list without its first line is corrupt");
  if (list.corrupt) require(list.entries == builtIn.entries, "a corrupt list is the built-in one");
  require(list.entries.size() >= kBuiltInKept, "the start of the built-in list stays");
  for (std::size_t entry = 0; entry < list.entries.size(); ++entry) {
    const std::string& text = list.entries[entry];
    if (entry < kBuiltInKept) require(text == builtIn.entries[entry], "the built-in start");
    require(!text.empty() && text.find('\n') == std::string::npos, "an entry is part of a line");
    require(fromUtf8(toUtf8(text)) == text, "an entry can be shown");
  }
}

}  // namespace
}  // namespace quillbox::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillbox::fuzz::readAsMediaTypes(quillbox::fuzz::Input(data, size).rest());
  return 0;
}
