#include "forms/recent_collections.h"

#include <QByteArray>
#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/paths.h"
#include "records/kinds.h"

namespace quillbox {
namespace {

/// Characters of a path besides letters and digits that are written as they are. All others are
/// written as "%" and two digits, so that any bytes can be read back.
constexpr const char* kPlainInPaths = "/\\: ";

QString keyOf(std::size_t index) { return QStringLiteral("Recent/%1").arg(index + 1); }

/// "42 /home/anna/jazz.MCS"
QString textOf(const RecentCollection& recent) {
  const QByteArray path = QByteArray::fromStdString(recent.path);
  return QStringLiteral("%1 %2")
      .arg(recent.count)
      .arg(QString::fromLatin1(path.toPercentEncoding(kPlainInPaths)));
}

bool canBeKept(const std::string& path) {
  const bool isText = path.find('\0') == std::string::npos;
  return isText && isFullPath(path) && kindOfExtension(extensionOf(path)) != nullptr;
}

std::optional<RecentCollection> recentOf(const QString& text) {
  const auto blank = text.indexOf(QLatin1Char(' '));
  if (blank < 0) return std::nullopt;
  bool isNumber = false;
  const int count = text.left(blank).toInt(&isNumber);
  if (!isNumber || count < 0 || count > INT16_MAX) return std::nullopt;
  const QByteArray path = QByteArray::fromPercentEncoding(text.mid(blank + 1).toLatin1());
  if (!canBeKept(path.toStdString())) return std::nullopt;
  return RecentCollection{path.toStdString(), count};
}

auto withPath(std::vector<RecentCollection>& recents, const std::string& path) {
  return std::ranges::find(recents, path, &RecentCollection::path);
}

}  // namespace

RecentCollections::RecentCollections(const QString& settingsFile)
    : settings_(settingsFile, QSettings::IniFormat) {}

std::vector<RecentCollection> RecentCollections::all() const {
  std::vector<RecentCollection> recents;
  for (std::size_t index = 0; index < kMost; ++index) {
    auto recent = recentOf(settings_.value(keyOf(index)).toString());
    if (recent && withPath(recents, recent->path) == recents.end())
      recents.push_back(std::move(*recent));
  }
  return recents;
}

void RecentCollections::opened(const std::string& path, int count) {
  if (!canBeKept(path)) return;
  auto recents = all();
  std::erase_if(recents, [&](const RecentCollection& recent) { return recent.path == path; });
  recents.insert(recents.begin(), {path, count});
  if (recents.size() > kMost) recents.pop_back();
  keep(recents);
}

void RecentCollections::left(const std::string& path, int count) {
  auto recents = all();
  const auto recent = withPath(recents, path);
  if (recent == recents.end()) return;
  recent->count = count;
  keep(recents);
}

void RecentCollections::remove(const std::string& path) {
  auto recents = all();
  std::erase_if(recents, [&](const RecentCollection& recent) { return recent.path == path; });
  keep(recents);
}

/// Written only if something changes: opening the same collection again costs no time.
void RecentCollections::keep(const std::vector<RecentCollection>& recents) {
  for (std::size_t index = 0; index < kMost; ++index) {
    const QString key = keyOf(index);
    const QString text = index < recents.size() ? textOf(recents.at(index)) : QString();
    if (text == settings_.value(key).toString()) continue;
    if (text.isEmpty())
      settings_.remove(key);
    else
      settings_.setValue(key, text);
  }
}

}  // namespace quillbox
