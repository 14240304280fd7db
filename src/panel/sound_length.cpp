#include "panel/sound_length.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QIODevice>
#include <QtEndian>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace quillbox {
namespace {

using Length = std::optional<qint64>;

// No sound file is larger; sizes up to here can be multiplied without overflow.
constexpr qint64 kLargestFile = qint64{1} << 40;

/// Those of these bytes that are in the file.
QByteArray bytesAt(QIODevice& file, qint64 place, qint64 count) {
  const qint64 held = std::min(count, file.size() - place);
  if (place < 0 || held <= 0 || !file.seek(place)) return {};
  return file.read(held);
}

/// Past the end of `bytes` the number is 0.
template <typename Number>
Number numberAt(QByteArrayView bytes, qint64 place, Number (*read)(const void*)) {
  constexpr auto size = static_cast<qint64>(sizeof(Number));
  return place >= 0 && place + size <= bytes.size() ? read(bytes.data() + place) : Number{0};
}
quint32 little32(QByteArrayView bytes, qint64 place) {
  return numberAt<quint32>(bytes, place, qFromLittleEndian<quint32>);
}
quint32 big32(QByteArrayView bytes, qint64 place) {
  return numberAt<quint32>(bytes, place, qFromBigEndian<quint32>);
}
quint16 big16(QByteArrayView bytes, qint64 place) {
  return numberAt<quint16>(bytes, place, qFromBigEndian<quint16>);
}

bool standsAt(QByteArrayView bytes, qint64 place, QByteArrayView mark) {
  return place >= 0 && place + mark.size() <= bytes.size() &&
         bytes.sliced(place, mark.size()) == mark;
}

// Wave ---------------------------------------------------------------------------------------

constexpr qint64 kChunkHead = 8;  // its name and its size
// A real file has a handful; each may cost the reading of a block.
constexpr int kMostChunks = 200;

Length waveLength(QIODevice& file) {
  constexpr qint64 kFirstChunk = 12;
  constexpr qint64 kByteRate = 8;  // in "fmt "
  quint32 bytesPerSecond = 0;
  Length sound;
  qint64 place = kFirstChunk;
  for (int chunk = 0; chunk < kMostChunks; ++chunk) {
    const QByteArray head = bytesAt(file, place, kChunkHead);
    if (head.size() < kChunkHead) break;
    const qint64 size = little32(head, 4);
    place += kChunkHead;
    if (standsAt(head, 0, "fmt ") && size >= kByteRate + 4)
      bytesPerSecond = little32(bytesAt(file, place, kByteRate + 4), kByteRate);
    if (standsAt(head, 0, "data") && !sound) sound = std::min(size, file.size() - place);
    if (bytesPerSecond > 0 && sound) return *sound * 1000 / bytesPerSecond;
    place += size + size % 2;  // chunks begin at even offsets
  }
  return std::nullopt;
}

// MPEG Layer III -----------------------------------------------------------------------------

/// The header of a frame.
struct Frame {
  bool isMpeg1;  ///< otherwise the half or quarter sampling rates of MPEG 2 and 2.5
  bool isMono;
  bool hasChecksum;
  bool isPadded;
  int kilobits;
  int hertz;

  int samples() const { return isMpeg1 ? 1152 : 576; }
  int bytes() const { return bytesAtRate(kilobits) + (isPadded ? 1 : 0); }
  int fewestBytes() const { return bytesAtRate(isMpeg1 ? 32 : 8); }
  bool mayFollow(const Frame& other) const {
    return isMpeg1 == other.isMpeg1 && hertz == other.hertz;
  }

 private:
  int bytesAtRate(int rate) const { return samples() / 8 * 1000 * rate / hertz; }
};

constexpr int kKilobits[2][16] = {
    {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
};
constexpr int kHertz[] = {44100, 48000, 32000, 0};
// After tags, other data may precede the first frame; further on than this it is no such file.
constexpr qint64 kFarthestFrame = 64 * 1024;
constexpr qint64 kFrameRoom = 2048;  // the longest frame, and the next one's header

std::optional<Frame> frameAt(QByteArrayView bytes, qint64 place) {
  const quint32 header = big32(bytes, place);
  const auto bits = [header](int shift, quint32 mask) { return (header >> shift) & mask; };
  const quint32 version = bits(19, 3);
  const bool isMpeg1 = version == 3;
  const int kilobits = kKilobits[isMpeg1 ? 1 : 0][bits(12, 15)];
  const int hertz = kHertz[bits(10, 3)] / (isMpeg1 ? 1 : version == 2 ? 2 : 4);
  const bool isLayer3 = bits(17, 3) == 1;
  if (bits(21, 0x7FF) != 0x7FF || version == 1 || !isLayer3 || kilobits == 0 || hertz == 0)
    return std::nullopt;
  return Frame{.isMpeg1 = isMpeg1,
               .isMono = bits(6, 3) == 3,
               .hasChecksum = bits(16, 1) == 0,
               .isPadded = bits(9, 1) == 1,
               .kilobits = kilobits,
               .hertz = hertz};
}

/// The offset after the ID3v2 tags at the beginning of the file.
qint64 behindTags(QIODevice& file) {
  constexpr qint64 kHead = 10;
  constexpr int kMostTags = 8;
  constexpr char kHasFooter = 0x10;
  qint64 place = 0;
  for (int tag = 0; tag < kMostTags; ++tag) {
    const QByteArray head = bytesAt(file, place, kHead);
    if (head.size() < kHead || !standsAt(head, 0, "ID3")) break;
    qint64 size = 0;
    for (int i = 6; i < kHead; ++i) size = size << 7 | (head[i] & 0x7F);
    place += kHead + size + ((head[5] & kHasFooter) != 0 ? kHead : 0);
  }
  return place;
}

/// The offset of the ID3v1 and APE tags at the end of the file.
qint64 beforeTags(QIODevice& file) {
  constexpr qint64 kId3 = 128;
  constexpr qint64 kApeFooter = 32;  // as long as the optional header
  constexpr quint32 kHasHeader = 0x80000000;
  qint64 end = file.size();
  if (standsAt(bytesAt(file, end - kId3, 3), 0, "TAG")) end -= kId3;
  const QByteArray footer = bytesAt(file, end - kApeFooter, kApeFooter);
  if (standsAt(footer, 0, "APETAGEX"))
    end -= little32(footer, 12) + ((little32(footer, 20) & kHasHeader) != 0 ? kApeFooter : 0);
  return end;
}

/// The number of frames, if the first frame, at the beginning of `bytes`, has it; 0: unknown.
quint32 toldFrames(QByteArrayView bytes, const Frame& frame) {
  constexpr qint64 kHeader = 4;
  constexpr qint64 kVbri = kHeader + 32;
  const qint64 sideInformation = frame.isMono ? (frame.isMpeg1 ? 17 : 9) : frame.isMpeg1 ? 32 : 17;
  // Encoders differ on whether the checksum counts.
  for (const qint64 checksum : {0, frame.hasChecksum ? 2 : 0}) {
    const qint64 place = kHeader + sideInformation + checksum;
    if (standsAt(bytes, place, "Xing") || standsAt(bytes, place, "Info"))
      return (big32(bytes, place + 4) & 1) != 0 ? big32(bytes, place + 8) : 0;
  }
  return standsAt(bytes, kVbri, "VBRI") ? big32(bytes, kVbri + 14) : 0;
}

Length layer3Length(QIODevice& file) {
  const qint64 start = behindTags(file);
  const qint64 end = beforeTags(file);
  const QByteArray held = bytesAt(file, start, std::min(end - start, kFarthestFrame + kFrameRoom));
  const qint64 places = std::min<qint64>(held.size(), kFarthestFrame);
  for (qint64 place = 0; place < places; ++place) {
    const std::optional<Frame> frame = frameAt(held, place);
    if (!frame) continue;
    const std::optional<Frame> next = frameAt(held, place + frame->bytes());
    if (!next || !next->mayFollow(*frame)) continue;
    const qint64 sound = end - start - place;
    const qint64 frames = toldFrames(QByteArrayView(held).sliced(place), *frame);
    // More than fit into the file means damage: then its size decides.
    if (frames > 0 && frames <= sound / frame->fewestBytes())
      return frames * frame->samples() * 1000 / frame->hertz;
    return sound * 8 / frame->kilobits;
  }
  return std::nullopt;
}

// Standard MIDI ------------------------------------------------------------------------------

// Far larger than any real file; each event takes at least two bytes, so their number is limited.
constexpr qint64 kLargestMidi = 4 * 1024 * 1024;
// Months at any sensible tempo; multiplied by the slowest tempo, of 24 bits, it does not overflow.
constexpr qint64 kLastTick = qint64{1} << 38;
constexpr qint64 kUsualTempo = 500'000;

struct TempoChange {
  qint64 tick;
  qint64 microseconds;  ///< per quarter note
};

/// The bytes of a track, one at a time. Past its end it returns zeros and is broken.
class TrackBytes {
 public:
  explicit TrackBytes(QByteArrayView bytes) : bytes_(bytes) {}

  bool isBroken() const { return place_ > bytes_.size(); }
  bool isAtEnd() const { return place_ >= bytes_.size(); }
  int peek() const { return isAtEnd() ? 0 : static_cast<uchar>(bytes_[place_]); }
  int take() {
    const int byte = peek();
    ++place_;
    return byte;
  }
  void skip(qint64 count) { place_ += count; }

  /// A number of up to four bytes with seven bits each.
  qint64 takeNumber() {
    qint64 number = 0;
    for (int i = 0; i < 4; ++i) {
      const int byte = take();
      number = number << 7 | (byte & 0x7F);
      if (byte < 0x80) return number;
    }
    place_ = bytes_.size() + 1;
    return 0;
  }

 private:
  QByteArrayView bytes_;
  qint64 place_ = 0;
};

/// The tick of the track's last event; nothing when it is damaged.
Length lastTick(TrackBytes track, std::vector<TempoChange>& tempos) {
  constexpr int kMeta = 0xFF;
  constexpr int kTempo = 0x51;
  constexpr int kEndOfTrack = 0x2F;
  qint64 tick = 0;
  int running = 0;  // the status for events without their own
  while (!track.isAtEnd()) {
    tick += track.takeNumber();
    const int status = track.peek() < 0x80 ? running : track.take();
    if (status == kMeta) {
      const int type = track.take();
      qint64 size = track.takeNumber();
      if (type == kTempo && size == 3) {
        qint64 tempo = 0;
        for (; size > 0; --size) tempo = tempo << 8 | track.take();
        tempos.push_back({tick, tempo});
      }
      track.skip(size);
      if (type == kEndOfTrack && !track.isBroken()) return tick;
    } else if (status == 0xF0 || status == 0xF7) {
      track.skip(track.takeNumber());
    } else if (status >= 0x80 && status < 0xF0) {
      running = status;
      const bool hasOneByte = (status & 0xE0) == 0xC0;  // program change, channel pressure
      track.skip(hasOneByte ? 1 : 2);
    } else {
      return std::nullopt;
    }
    if (track.isBroken() || tick > kLastTick) return std::nullopt;
  }
  return tick;
}

/// Of a number of ticks, each a fraction of a quarter note, whose length changes meanwhile.
qint64 measuredLength(qint64 ticks, qint64 ticksPerQuarter, std::vector<TempoChange> tempos) {
  std::ranges::stable_sort(tempos, std::less(), &TempoChange::tick);
  qint64 played = 0;  // in microseconds, times the ticks per quarter note
  TempoChange now{0, kUsualTempo};
  for (const TempoChange& change : tempos) {
    played += (change.tick - now.tick) * now.microseconds;
    now = change;
  }
  played += (ticks - now.tick) * now.microseconds;
  return played / (ticksPerQuarter * 1000);
}

/// Of a number of ticks, each a fraction of a film frame.
Length filmLength(qint64 ticks, int framesPerSecond, int ticksPerFrame) {
  if (ticksPerFrame == 0) return std::nullopt;
  switch (framesPerSecond) {
    case 24:
    case 25:
    case 30:
      return ticks * 1000 / (framesPerSecond * ticksPerFrame);
    case 29:  // means 30000 frames in 1001 seconds
      return ticks * 1001 / (30 * ticksPerFrame);
    default:
      return std::nullopt;
  }
}

Length midiLength(QIODevice& file) {
  constexpr quint16 kFilm = 0x8000;
  constexpr quint32 kSmallestHeader = 6;
  const QByteArray bytes = bytesAt(file, 0, kLargestMidi);
  const quint32 headerSize = big32(bytes, 4);
  const int format = big16(bytes, 8);
  const int division = big16(bytes, 12);
  int tracks = big16(bytes, 10);
  if (headerSize < kSmallestHeader || format > 1 || tracks == 0 || division == 0)
    return std::nullopt;

  std::vector<TempoChange> tempos;
  qint64 ticks = 0;
  for (qint64 place = kChunkHead + headerSize; tracks > 0;) {
    const qint64 size = big32(bytes, place + 4);
    const qint64 body = place + kChunkHead;
    if (body + size > bytes.size()) return std::nullopt;
    if (standsAt(bytes, place, "MTrk")) {
      const Length last = lastTick(TrackBytes(QByteArrayView(bytes).sliced(body, size)), tempos);
      if (!last) return std::nullopt;
      ticks = std::max(ticks, *last);
      --tracks;
    }
    place = body + size;
  }
  if ((division & kFilm) != 0) return filmLength(ticks, 256 - (division >> 8), division & 0xFF);
  return measuredLength(ticks, division, std::move(tempos));
}

}  // namespace

std::optional<qint64> soundLength(QIODevice& file) {
  if (!file.isReadable() || file.isSequential() || file.size() > kLargestFile) return std::nullopt;
  const QByteArray head = bytesAt(file, 0, 12);
  if (standsAt(head, 0, "MThd")) return midiLength(file);
  // Video files can be RIFF, too; layer3Length must not find the frames in them.
  if (standsAt(head, 0, "RIFF")) return standsAt(head, 8, "WAVE") ? waveLength(file) : Length();
  return layer3Length(file);
}

QString lengthText(qint64 milliseconds) {
  const qint64 length = std::max<qint64>(0, milliseconds);
  if (length < 1000) return QStringLiteral("0:00.%1").arg(length / 100);
  const auto twoDigits = [](qint64 number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
  };
  const qint64 minutes = length / 60'000;
  const QString seconds = QLatin1Char(':') + twoDigits(length / 1000 % 60);
  if (minutes < 60) return QString::number(minutes) + seconds;
  return QString::number(minutes / 60) + QLatin1Char(':') + twoDigits(minutes % 60) + seconds;
}

}  // namespace quillbox
