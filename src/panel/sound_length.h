#pragma once
#include <QIODevice>
#include <QString>
#include <optional>
namespace quillbox {
std::optional<qint64> soundLength(QIODevice& file);
QString lengthText(qint64 milliseconds);
}  // namespace quillbox
