#include "forms/icons.h"

#include <string>

#include "records/kinds.h"

namespace quillbox {
namespace {

/// By extension.
struct KindIcon {
  std::string_view extension;
  const char* name;
};

constexpr KindIcon kKindIcons[] = {
    {"MCS", "kind-music"},    {"VCS", "kind-video"},   {"CCS", "kind-comics"},
    {"SCS", "kind-software"}, {"BCS", "kind-books"},   {"WCS", "kind-wave"},
    {"ICS", "kind-midi"},     {"GCS", "kind-graphic"}, {"MPS", "kind-mp3"},
};

}  // namespace

QIcon ownIcon(const char* name) {
  return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromUtf8(name)));
}

QIcon icon(const char* themeName, const char* ownName) {
  return QIcon::fromTheme(QString::fromUtf8(themeName), ownIcon(ownName));
}

QIcon iconOf(const CollectionKind& kind) {
  for (const auto& [extension, name] : kKindIcons)
    if (kind.extension == extension) return ownIcon(name);
  return {};
}

}  // namespace quillbox
