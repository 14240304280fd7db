#include "cli/commands.h"
#include "cli/table.h"
#include "opendata/collection_file.h"
#include "opendata/json_text.h"
#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

int deletedItems(FileSystem& files, const CollectionFile& collection) {
  ItemReader reader(files, collection);
  int deleted = 0;
  for (int item = 1; item <= collection.itemsThere(); ++item)
    if (isDeleted(*collection.kind, reader.read(item))) ++deleted;
  return deleted;
}

struct Info {
  CollectionFile collection;
  int deleted;
  std::vector<BesideFile> beside;

  std::string version() const { return toUtf8(readable(collection.header.Version.view())); }
  /// The length of a file that ends with its last item.
  std::uint64_t wantedSize() const {
    return static_cast<std::uint64_t>(collection.count + 1) * collection.recordLength;
  }
};

std::string asText(const Info& info) {
  const CollectionFile& collection = info.collection;
  std::string text = printable(collection.path);
  const auto line = [&](std::string_view name, const std::string& value) {
    constexpr std::size_t width = 11;
    text.append("\n  ").append(name).append(width - name.size(), ' ').append(printable(value));
  };
  line("kind", std::string(kindName(*collection.kind)));
  line("items",
       std::to_string(collection.count) +
           (info.deleted > 0 ? ", " + std::to_string(info.deleted) + " of them deleted" : ""));
  line("file type", std::to_string(collection.header.FileType) +
                        (collection.isOfOlderType() ? ", upgraded when it is opened" : ""));
  line("version", info.version());
  std::string size = std::to_string(collection.size) + " bytes";
  if (!collection.isWhole())
    size += ", ends at item " + std::to_string(collection.itemsThere());
  else if (collection.size > info.wantedSize())
    size += ", " + std::to_string(collection.size - info.wantedSize()) + " behind the last item";
  line("size", size);
  for (const auto& [kind, path] : info.beside)
    line("beside", path + ": " + std::string(besideText(kind)));
  return text + "\n";
}

std::string asJson(const Info& info) {
  const CollectionFile& collection = info.collection;
  std::string json = "{\"file\":" + jsonString(collection.path) +
                     ",\"kind\":" + jsonString(kindName(*collection.kind));
  json += ",\"items\":" + std::to_string(collection.count) +
          ",\"deleted\":" + std::to_string(info.deleted) +
          ",\"fileType\":" + std::to_string(collection.header.FileType) +
          ",\"version\":" + jsonString(info.version()) +
          ",\"size\":" + std::to_string(collection.size) +
          ",\"wantedSize\":" + std::to_string(info.wantedSize()) +
          ",\"whole\":" + (collection.isWhole() ? "true" : "false") + ",\"beside\":[";
  for (std::size_t i = 0; i < info.beside.size(); ++i) {
    json += (i == 0 ? "{\"file\":" : ",{\"file\":") + jsonString(info.beside[i].path) +
            ",\"what\":" + jsonString(besideText(info.beside[i].kind)) + "}";
  }
  return json + "]}";
}

}  // namespace

int runInfo(Console& console, const Files& files, bool json) {
  int status = kDone;
  bool isFirst = true;
  if (json) console.print("[");
  for (const std::string& file : files) {
    const int ended = console.guarded(file, [&] {
      Info info{readCollectionFile(console.disk(), file), 0, filesBeside(console.disk(), file)};
      info.deleted = deletedItems(console.disk(), info.collection);
      if (json && !isFirst) console.print(",");
      console.print(json ? "\n" + asJson(info) : asText(info));
      isFirst = false;
      return kDone;
    });
    status = std::max(status, ended);
  }
  if (json) console.print("\n]\n");
  return status;
}

}  // namespace quillbox
