#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "text/padding.h"

/// Converts texts for forms and panel; record texts are converted nowhere else. platform/qt,
/// kept_texts.cpp and recent_collections.cpp convert paths themselves.
namespace quillbox {

/// Record texts: Windows-1252 bytes in the core.
QString fromRecordText(std::string_view windows1252);
std::string toRecordText(const QString& text);

/// Captions, messages and answers: UTF-8 in the core.
QString fromUtf8Text(std::string_view utf8);
std::string toUtf8Text(const QString& text);

/// Paths: the platform's own bytes in the core.
QString fromPath(std::string_view path);
std::string toPath(const QString& text);
/// A path from the windowing platform, with the system's usual separators. A typed path is not
/// changed: that is `toPath`.
std::string toNativePath(const QString& path);

/// A control's caption without the "&" that marks its access key.
QString withoutAccessKey(QString caption);

/// Blanks at the end do not count, because no field stores them as such.
QStringView withoutTrailingBlanks(QStringView text);

}  // namespace quillbox
