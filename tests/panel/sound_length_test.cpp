#include "panel/sound_length.h"

#include <gtest/gtest.h>

#include <QTemporaryFile>
#include <limits>
#include <random>
#include <utility>

#include "support/sound_files.h"

namespace quillbox::test::sound {
namespace {

QList<QByteArray> goodFiles() {
  return {wave(chunk("note", zeros(3)) + format(1000) + chunk("data", zeros(500))),
          id3(zeros(20)) + with(frame(), 36, "Xing" + big32(1) + big32(19)) + frames(19) + "TAG" +
              zeros(125),
          with(frame(), 36, "VBRI" + zeros(10) + big32(4)) + frames(4),
          frames(4) + zeros(30) + apeEnd(false, 62, 0),
          midi(1, 2, 100,
               track(hex("64ff51030f4240 00ff2f00")) +
                   track(hex("00903c40 323c00 00c005 00f0037e09f7 64ff2f00")))};
}

TEST(SoundLengthTest, IsNoLongerInAFileCutShort) {
  for (const QByteArray& whole : goodFiles()) {
    const Length length = lengthOf(whole);
    ASSERT_TRUE(length);
    // Truncated tags look like sound, but are only a small part.
    const qint64 most = *length + 30;
    for (qsizetype size = 0; size < whole.size(); ++size) {
      const qint64 cut = lengthOf(whole.first(size)).value_or(0);
      ASSERT_TRUE(cut >= 0 && cut <= most) << size << " of " << whole.size() << ": " << cut;
    }
  }
}

TEST(SoundLengthTest, IsNothingInAMidiFileCutShort) {
  const QByteArray whole = goodFiles().last();
  for (qsizetype size = 0; size < whole.size(); ++size)
    EXPECT_EQ(lengthOf(whole.first(size)), std::nullopt) << size;
}

TEST(SoundLengthTest, BearsHugeNumbersAnywhere) {
  for (const QByteArray& whole : goodFiles()) {
    for (const char* digits :
         {"ffffffff", "7fffffff", "ffffff7f", "80000000", "00000080", "00000000"}) {
      for (qsizetype place = 0; place + 4 <= whole.size(); ++place) {
        const Length length = lengthOf(with(whole, place, hex(digits)));
        ASSERT_GE(length.value_or(0), 0) << digits << " at " << place;
      }
    }
  }
}

TEST(SoundLengthTest, BearsAnyBytes) {
  std::mt19937 random(20261122);
  const QList<QByteArray> beginnings = {{},
                                        wave({}),
                                        wave(format(1000)),
                                        frames(2),
                                        id3({}),
                                        midi(1, 3, 100, {}),
                                        midi(1, 1, 100, "MTrk" + big32(200)),
                                        midi(1, 1, 0xE728, "MTrk" + big32(200))};
  for (const QByteArray& beginning : beginnings) {
    for (int round = 0; round < 500; ++round) {
      QByteArray bytes = beginning;
      for (int i = 0; i < 300; ++i) bytes += static_cast<char>(random() & 0xFF);
      const Length length = lengthOf(bytes);
      ASSERT_GE(length.value_or(0), 0) << bytes.toHex().toStdString();
    }
  }
}

TEST(SoundLengthTest, IsNothingInOtherFiles) {
  EXPECT_EQ(lengthOf({}), std::nullopt);
  EXPECT_EQ(lengthOf("Notes on a concert"), std::nullopt);
  EXPECT_EQ(lengthOf(zeros(5000)), std::nullopt);
  EXPECT_EQ(lengthOf(QByteArray(5000, '\xFF')), std::nullopt);
  EXPECT_EQ(lengthOf(riff("AVI ", chunk("movi", frames(10)))), std::nullopt);
  EXPECT_EQ(lengthOf(riff("AVI ", format(1000) + chunk("data", zeros(500)))), std::nullopt);
}

TEST(SoundLengthTest, ReadsAFileFromItsBeginning) {
  QTemporaryFile file;
  ASSERT_TRUE(file.open());
  file.write(wave(format(1000) + chunk("data", zeros(500))));
  EXPECT_EQ(soundLength(file), 500);
  EXPECT_EQ(soundLength(file), 500);
}

TEST(SoundLengthTest, IsNothingInAFileThatCannotBeRead) {
  QByteArray bytes = wave(format(1000) + chunk("data", zeros(500)));
  QBuffer file(&bytes);
  EXPECT_EQ(soundLength(file), std::nullopt);
  file.open(QIODevice::Append);
  EXPECT_EQ(soundLength(file), std::nullopt);
}

/// Huge, and repeating after its beginning; counts what is read.
class EndlessFile : public QIODevice {
 public:
  EndlessFile(QByteArray beginning, QByteArray pattern, qint64 size)
      : beginning_(std::move(beginning)), pattern_(std::move(pattern)), size_(size) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }

  int reads = 0;
  qint64 bytesRead = 0;

  qint64 size() const override { return size_; }
  bool seek(qint64 place) override {
    place_ = place;
    return QIODevice::seek(place);
  }

 protected:
  qint64 readData(char* data, qint64 count) override {
    ++reads;
    bytesRead += count;
    for (qint64 i = 0; i < count; ++i, ++place_)
      data[i] = place_ < beginning_.size()
                    ? beginning_[place_]
                    : pattern_[(place_ - beginning_.size()) % pattern_.size()];
    return count;
  }
  qint64 writeData(const char* /*data*/, qint64 /*count*/) override { return -1; }

 private:
  QByteArray beginning_, pattern_;
  qint64 size_;
  qint64 place_ = 0;
};

TEST(SoundLengthTest, ReadsLittleOfAHugeFile) {
  const QList<std::pair<QByteArray, QByteArray>> files = {
      {{}, zeros(1)},
      {{}, "\xFF"},
      {{}, id3({})},
      {{}, frame()},
      {wave({}), chunk("LIST", {})},
      {wave(format(1000)), chunk("data", {})},
      {midi(1, 0xFFFF, 100, {}), chunk("XFIH", {})},
      {midi(1, 0xFFFF, 100, {}), track(hex("64ff2f00"))},
      {midi(0, 1, 100, "MTrk" + big32(0xFFFFFFFF) + hex("00903c")), hex("0040")},
  };
  for (const auto& [beginning, pattern] : files) {
    for (const qint64 size : {qint64{1} << 39, std::numeric_limits<qint64>::max()}) {
      EndlessFile file(beginning, pattern, size);
      const Length length = soundLength(file);
      EXPECT_LE(file.bytesRead, 5 * kMiB) << beginning.toHex().toStdString();
      EXPECT_LE(file.reads, 500) << beginning.toHex().toStdString();
      EXPECT_GE(length.value_or(0), 0);
    }
  }
}

TEST(SoundLengthTest, IsNothingWhereTheSizeIsBeyondReason) {
  EndlessFile large({}, frame(), qint64{1} << 40);
  EXPECT_TRUE(soundLength(large));
  for (const qint64 size : {(qint64{1} << 40) + 1, std::numeric_limits<qint64>::max()}) {
    EndlessFile tooLarge({}, frame(), size);
    EXPECT_EQ(soundLength(tooLarge), std::nullopt) << size;
  }
}

TEST(LengthTextTest, IsMinutesAndSeconds) {
  EXPECT_EQ(lengthText(1000), "0:01");
  EXPECT_EQ(lengthText(59'999), "0:59");
  EXPECT_EQ(lengthText(60'000), "1:00");
  EXPECT_EQ(lengthText(185'000), "3:05");
  EXPECT_EQ(lengthText(3'599'999), "59:59");
}

TEST(LengthTextTest, HasHoursWhereThereAreAny) {
  EXPECT_EQ(lengthText(3'600'000), "1:00:00");
  EXPECT_EQ(lengthText(3'729'000), "1:02:09");
  EXPECT_EQ(lengthText(360'000'000), "100:00:00");
}

TEST(LengthTextTest, HasTenthsBelowASecond) {
  EXPECT_EQ(lengthText(999), "0:00.9");
  EXPECT_EQ(lengthText(400), "0:00.4");
  EXPECT_EQ(lengthText(99), "0:00.0");
  EXPECT_EQ(lengthText(0), "0:00.0");
}

TEST(LengthTextTest, BearsAnyNumber) {
  EXPECT_EQ(lengthText(-1), "0:00.0");
  EXPECT_EQ(lengthText(std::numeric_limits<qint64>::min()), "0:00.0");
  EXPECT_EQ(lengthText(std::numeric_limits<qint64>::max()), "2562047788015:12:55");
}

}  // namespace
}  // namespace quillbox::test::sound
