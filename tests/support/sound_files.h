#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QtEndian>
#include <optional>

#include "panel/sound_length.h"

// Sound files, made byte for byte.

namespace quillbox::test::sound {

using Length = std::optional<qint64>;

inline constexpr qint64 kMiB = 1024 * 1024;

inline Length lengthOf(QByteArray bytes) {
  QBuffer file(&bytes);
  file.open(QIODevice::ReadOnly);
  return soundLength(file);
}

inline QByteArray little32(quint32 number) {
  QByteArray bytes(4, '\0');
  qToLittleEndian(number, bytes.data());
  return bytes;
}
inline QByteArray big32(quint32 number) {
  QByteArray bytes(4, '\0');
  qToBigEndian(number, bytes.data());
  return bytes;
}
inline QByteArray big16(quint16 number) { return big32(number).last(2); }
inline QByteArray zeros(qsizetype count) { return QByteArray(count, '\0'); }
inline QByteArray hex(const char* digits) { return QByteArray::fromHex(digits); }

// Wave

inline QByteArray chunk(const QByteArray& name, const QByteArray& body) {
  return name + little32(static_cast<quint32>(body.size())) + body + zeros(body.size() % 2);
}
inline QByteArray riff(const QByteArray& type, const QByteArray& chunks) {
  return "RIFF" + little32(static_cast<quint32>(4 + chunks.size())) + type + chunks;
}
inline QByteArray format(quint32 bytesPerSecond) {
  return chunk("fmt ",
               hex("01000100") + little32(22050) + little32(bytesPerSecond) + hex("01000800"));
}
inline QByteArray wave(const QByteArray& chunks) { return riff("WAVE", chunks); }

// MPEG Layer III: frames of 128 kilobits at 44100 Hz in stereo are 417 bytes long.

inline constexpr const char* kStereo = "fffb9000";

inline QByteArray frame(const char* header = kStereo, qsizetype bytes = 417) {
  return hex(header) + zeros(bytes - 4);
}
inline QByteArray frames(int count, const char* header = kStereo, qsizetype bytes = 417) {
  return frame(header, bytes).repeated(count);
}
inline QByteArray with(QByteArray bytes, qsizetype place, const QByteArray& part) {
  return bytes.replace(place, part.size(), part);
}
inline QByteArray syncsafe(int size) {
  QByteArray bytes;
  for (const int shift : {21, 14, 7, 0}) bytes += static_cast<char>((size >> shift) & 0x7F);
  return bytes;
}
inline QByteArray id3(const QByteArray& body, bool hasFooter = false) {
  const QByteArray head =
      QByteArray("\3\0", 2) + (hasFooter ? '\x10' : '\0') + syncsafe(static_cast<int>(body.size()));
  return "ID3" + head + body + (hasFooter ? "3DI" + head : QByteArray());
}
inline QByteArray apeEnd(bool isHeader, quint32 bytes, quint32 flags) {
  return "APETAGEX" + little32(2000) + little32(bytes) + little32(0) +
         little32(flags | (isHeader ? 0x20000000U : 0U)) + zeros(8);
}

// Standard MIDI

inline QByteArray track(const QByteArray& events) {
  return "MTrk" + big32(static_cast<quint32>(events.size())) + events;
}
inline QByteArray midi(quint16 format, quint16 tracks, quint16 division, const QByteArray& chunks) {
  return "MThd" + big32(6) + big16(format) + big16(tracks) + big16(division) + chunks;
}
inline QByteArray oneTrack(const char* events, quint16 division = 100) {
  return midi(0, 1, division, track(hex(events)));
}

}  // namespace quillbox::test::sound
