#include "forms/kept_texts.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include "forms/qt_text.h"

namespace quillbox {
namespace {

constexpr qsizetype kMostTexts = 10;

/// More than the program ever writes.
constexpr qint64 kLargestFile = 4 << 20;

constexpr QFileDevice::Permissions kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// The names in the file.
constexpr QLatin1String kCollection("collection");
constexpr QLatin1String kTexts("texts");
constexpr QLatin1String kItem("item");
constexpr QLatin1String kStored("stored");
constexpr QLatin1String kInputs("inputs");
constexpr QLatin1String kList("list");
constexpr QLatin1String kTold("told");

QJsonObject toJson(const KeptText& text) {
  QJsonObject inputs;
  for (auto input = text.inputs.begin(); input != text.inputs.end(); ++input)
    inputs.insert(input.key(), input.value());
  return {{kItem, text.item},
          {kStored, QString::fromLatin1(text.stored.toBase64())},
          {kInputs, inputs},
          {kList, QJsonArray::fromStringList(text.list)},
          {kTold, text.isTold}};
}

KeptText fromJson(const QJsonObject& object) {
  KeptText text;
  text.item = object.value(kItem).toInt();
  text.stored = QByteArray::fromBase64(object.value(kStored).toString().toLatin1());
  const QJsonObject inputs = object.value(kInputs).toObject();
  for (auto input = inputs.begin(); input != inputs.end(); ++input)
    text.inputs.insert(input.key(), input.value().toString());
  for (const QJsonValue& entry : object.value(kList).toArray()) text.list << entry.toString();
  text.isTold = object.value(kTold).toBool();
  return text;
}

/// The same for all spellings of a path.
QString fullPath(const std::string& collection) {
  const QFileInfo file(fromPath(collection));
  return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}

QString fileName(const QString& collection) {
  const QByteArray hash = QCryptographicHash::hash(collection.toUtf8(), QCryptographicHash::Sha256);
  return QString::fromLatin1(hash.toHex()) + QStringLiteral(".json");
}

}  // namespace

bool KeptText::isSameText(const KeptText& other) const {
  return inputs == other.inputs && list == other.list;
}

bool KeptText::isSame(const KeptText& other) const {
  return item == other.item && stored == other.stored && isSameText(other);
}

QString KeptTexts::userFolder() {
#ifdef Q_OS_WIN
  const QString state = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
#else
  QString state = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(state)) state = QDir::homePath() + QStringLiteral("/.local/state");
#endif
  return state + QStringLiteral("/quillbox/typed");
}

KeptTexts::KeptTexts(const QString& folder, const std::string& collection)
    : collection_(fullPath(collection)) {
  if (folder.isEmpty()) return;
  file_ = QDir(folder).filePath(fileName(collection_));
  read();
}

std::optional<KeptText> KeptTexts::newest() const {
  return texts_.isEmpty() ? std::nullopt : std::optional(texts_.constLast());
}

void KeptTexts::setOnForm(const std::optional<KeptText>& text) {
  const bool isNews = text && onForm_ ? !text->isSame(*onForm_) : text || onForm_;
  onForm_ = text;
  if (isNews) write();
}

void KeptTexts::leave(const KeptText& text) {
  onForm_.reset();
  add(text);
  write();
}

void KeptTexts::forget(const KeptText& text) {
  const auto removed = texts_.removeIf([&text](const KeptText& kept) { return kept.isSame(text); });
  if (removed > 0) write();
}

void KeptTexts::tell() {
  if (texts_.isEmpty() || texts_.constLast().isTold) return;
  texts_.last().isTold = true;
  write();
}

void KeptTexts::add(const KeptText& text) {
  texts_.removeIf([&text](const KeptText& kept) { return kept.isSame(text); });
  texts_ << text;
  if (texts_.size() > kMostTexts) texts_.removeFirst();
}

void KeptTexts::read() {
  QFile file(file_);
  if (file.size() > kLargestFile || !file.open(QIODevice::ReadOnly)) return;
  const QJsonObject kept = QJsonDocument::fromJson(file.readAll()).object();
  if (kept.value(kCollection).toString() != collection_) return;
  for (const QJsonValue& text : kept.value(kTexts).toArray())
    if (text.isObject()) add(fromJson(text.toObject()));
}

/// The text on the form is written last, so that the next run finds it as the newest.
void KeptTexts::write() const {
  if (file_.isEmpty()) return;
  QJsonArray texts;
  for (const KeptText& text : texts_)
    if (!onForm_ || !text.isSame(*onForm_)) texts << toJson(text);
  if (onForm_) texts << toJson(*onForm_);
  if (texts.size() > kMostTexts) texts.removeFirst();
  if (texts.isEmpty()) {
    QFile::remove(file_);
    return;
  }
  const QString folder = QFileInfo(file_).path();
  if (!QFileInfo::exists(folder) && QDir().mkpath(folder))
    QFile::setPermissions(folder, kOwnerOnly | QFileDevice::ExeOwner);
  QSaveFile file(file_);
  if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(kOwnerOnly)) return;
  file.write(QJsonDocument(QJsonObject{{kCollection, collection_}, {kTexts, texts}}).toJson());
  file.commit();
}

}  // namespace quillbox
