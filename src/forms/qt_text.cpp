#include "forms/qt_text.h"

#include <QDir>
#include <QFile>

#include "text/padding.h"
#include "text/windows1252.h"

namespace quillbox {
namespace {

QByteArray bytesOfText(std::string_view text) {
  return {text.data(), static_cast<qsizetype>(text.size())};
}

}  // namespace

QString fromRecordText(std::string_view windows1252) { return fromUtf8Text(toUtf8(windows1252)); }

std::string toRecordText(const QString& text) { return fromUtf8(toUtf8Text(text)); }

QString fromUtf8Text(std::string_view utf8) { return QString::fromUtf8(bytesOfText(utf8)); }

std::string toUtf8Text(const QString& text) { return text.toStdString(); }

#ifdef Q_OS_WIN
// The toolkit would read the bytes of paths in the user's code page.
QString fromPath(std::string_view path) { return fromUtf8Text(path); }

std::string toPath(const QString& text) { return toUtf8Text(text); }
#else
QString fromPath(std::string_view path) { return QFile::decodeName(bytesOfText(path)); }

std::string toPath(const QString& text) { return QFile::encodeName(text).toStdString(); }
#endif

std::string toNativePath(const QString& path) { return toPath(QDir::toNativeSeparators(path)); }

QString withoutAccessKey(QString caption) { return caption.remove(QLatin1Char('&')); }

QStringView withoutTrailingBlanks(QStringView text) {
  while (text.endsWith(QLatin1Char(' '))) text.chop(1);
  return text;
}

}  // namespace quillbox
