#pragma once

#include <QString>
#include <QtGlobal>
#include <optional>

class QIODevice;

namespace quillbox {

/// How long a sound file plays, in whole milliseconds; nothing for an unknown or damaged file. The
/// contents decide what it is, not the name: Wave, MPEG Layer III or Standard MIDI of format 0 or
/// 1. For a truncated Wave or Layer III file it is the length of what is left. `file` must be open
/// for reading and know its size; its position is not preserved. Reads at most a few MiB, whatever
/// the file claims; any bytes are harmless.
std::optional<qint64> soundLength(QIODevice& file);

/// Minutes and seconds, with hours if there are any: "3:05", "1:02:09"; below a second with tenths:
/// "0:00.4". The rest is dropped, and a negative length is 0.
QString lengthText(qint64 milliseconds);

}  // namespace quillbox
