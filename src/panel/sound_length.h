#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

class QIODevice;

namespace quillbox {

/// How long a sound file plays, in whole milliseconds; nothing where it cannot be told: an unknown
/// or damaged file. Its contents tell what it is, not its name: Wave, MPEG Layer III or Standard
/// MIDI of format 0 or 1. A Wave or Layer III file that was cut short tells of what is left.
/// `file` must be open for reading and know its size; its position is not kept. Reads no more than
/// a few MiB, whatever the file says of itself; any bytes are harmless.
std::optional<qint64> soundLength(QIODevice& file);

/// Minutes and seconds, hours where there are any: "3:05", "1:02:09"; below a second tenths, too:
/// "0:00.4". What is left over is dropped, and less than nothing is nothing.
QString lengthText(qint64 milliseconds);

}  // namespace quillbox
