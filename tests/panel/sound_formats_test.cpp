#include <gtest/gtest.h>

#include "support/sound_files.h"

namespace quillbox::test::sound {
namespace {

TEST(WaveLengthTest, IsTheSoundAtItsByteRate) {
  EXPECT_EQ(lengthOf(wave(format(1000) + chunk("data", zeros(1500)))), 1500);
  EXPECT_EQ(lengthOf(wave(format(4000) + chunk("data", zeros(1500)))), 375);
  EXPECT_EQ(lengthOf(wave(format(4000) + chunk("data", {}))), 0);
}

TEST(WaveLengthTest, TakesChunksInAnyOrder) {
  EXPECT_EQ(lengthOf(wave(chunk("data", zeros(500)) + format(1000))), 500);
  EXPECT_EQ(lengthOf(wave(chunk("LIST", zeros(26)) + format(1000) + chunk("fact", zeros(4)) +
                          chunk("data", zeros(500)) + chunk("LIST", zeros(26)))),
            500);
}

TEST(WaveLengthTest, SkipsTheByteBehindAnOddChunk) {
  EXPECT_EQ(lengthOf(wave(chunk("note", zeros(3)) + format(1000) + chunk("data", zeros(500)))),
            500);
  EXPECT_EQ(lengthOf(wave(chunk("data", zeros(501)) + format(1000))), 501);
}

TEST(WaveLengthTest, CountsWhatTheFileHolds) {
  for (const quint32 size : {1000U, 0x7FFFFFFFU, 0xFFFFFFFEU, 0xFFFFFFFFU})
    EXPECT_EQ(lengthOf(wave(format(1000) + "data" + little32(size) + zeros(300))), 300) << size;
}

TEST(WaveLengthTest, CountsTheFirstSound) {
  EXPECT_EQ(lengthOf(wave(chunk("data", zeros(400)) + chunk("data", zeros(20)) + format(1000))),
            400);
}

TEST(WaveLengthTest, HasNoneWithoutByteRateOrSound) {
  EXPECT_EQ(lengthOf(wave(format(0) + chunk("data", zeros(500)))), std::nullopt);
  EXPECT_EQ(lengthOf(wave(format(1000))), std::nullopt);
  EXPECT_EQ(lengthOf(wave(chunk("data", zeros(500)))), std::nullopt);
  EXPECT_EQ(lengthOf(wave(chunk("fmt ", zeros(4)) + chunk("data", zeros(500)))), std::nullopt);
  EXPECT_EQ(lengthOf(wave("LIST" + little32(0xFFFFFFFF) + format(1000))), std::nullopt);
}

TEST(WaveLengthTest, TakesNoByteRateFromBehindAShortFormat) {
  const QByteArray behind = "data" + little32(500) + zeros(500);
  EXPECT_EQ(lengthOf(wave("fmt " + little32(4) + hex("01000100") + behind)), std::nullopt);
}

TEST(Layer3LengthTest, IsTheSizeAtAConstantRate) {
  EXPECT_EQ(lengthOf(frames(100)), 41700 * 8 / 128);
  EXPECT_EQ(lengthOf(frames(100, "fffbb200", 627)), 62700 * 8 / 192);  // padded
}

TEST(Layer3LengthTest, KnowsTheLowerSamplingRates) {
  EXPECT_EQ(lengthOf(frames(100, "fff38000", 208)), 20800 * 8 / 64);  // 22050 Hz
  EXPECT_EQ(lengthOf(frames(100, "ffe31800", 72)), 7200 * 8 / 8);     // 8000 Hz, a quarter
  EXPECT_EQ(lengthOf(frames(10, "fffb1800", 144)), 1440 * 8 / 32);    // 32000 Hz
}

TEST(Layer3LengthTest, KnowsEveryRate) {
  constexpr int rates = 14;
  const int kilobits[2][rates] = {
      {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},  // at 32000 Hz
      {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},      // at 16000 Hz
  };
  for (const bool isLow : {false, true})
    for (int rate = 0; rate < rates; ++rate) {
      QByteArray header = hex(isLow ? "fff30800" : "fffb0800");
      header[2] = static_cast<char>(header[2] | (rate + 1) << 4);
      const int bytes = kilobits[isLow ? 1 : 0][rate] * 36 / 8;  // a frame lasts 36 milliseconds
      EXPECT_EQ(lengthOf((header + zeros(bytes - 4)).repeated(20)), 20 * 36)
          << kilobits[isLow ? 1 : 0][rate];
    }
}

TEST(Layer3LengthTest, LeavesTagsOut) {
  const Length length = 41700 * 8 / 128;
  // What looks like sound in a tag, at another rate, is not sound.
  const QByteArray picture = frames(3, "fffbb000", 626);
  EXPECT_EQ(lengthOf(id3(picture) + frames(100)), length);
  EXPECT_EQ(lengthOf(id3(picture, true) + frames(100)), length);
  EXPECT_EQ(lengthOf(id3(picture) + id3(picture) + frames(100)), length);
  EXPECT_EQ(lengthOf(id3(picture, true) + id3(picture) + frames(100)), length);
  EXPECT_EQ(lengthOf(id3(picture).repeated(8) + frames(100)), length);
  EXPECT_EQ(lengthOf(frames(100) + "TAG" + zeros(125)), length);
  const QByteArray ape = zeros(200) + apeEnd(false, 232, 0);
  EXPECT_EQ(lengthOf(frames(100) + ape), length);
  EXPECT_EQ(lengthOf(frames(100) + ape + "TAG" + zeros(125)), length);
  EXPECT_EQ(lengthOf(frames(100) + apeEnd(true, 232, 0x80000000U) + zeros(200) +
                     apeEnd(false, 232, 0x80000000U)),
            length);
}

TEST(Layer3LengthTest, HasNoneWhereTagsLeaveNothing) {
  EXPECT_EQ(lengthOf(id3(frames(3))), std::nullopt);
  EXPECT_EQ(lengthOf("ID3" + hex("0300007f7f7f7f") + frames(10)), std::nullopt);
  EXPECT_EQ(lengthOf(frames(10) + apeEnd(false, 0xFFFFFFFFU, 0x80000000U)), std::nullopt);
}

TEST(Layer3LengthTest, BeginsAtAFrameThatAnotherFollows) {
  EXPECT_EQ(lengthOf(zeros(1000) + frames(100)), 41700 * 8 / 128);
  EXPECT_EQ(lengthOf(hex("fffbb000") + zeros(5) + frames(100)), 41700 * 8 / 128);
  // The first is followed by one of another sampling rate.
  EXPECT_EQ(lengthOf(frame() + frames(100, "fffb9400", 384)), 38400 * 8 / 128);
  EXPECT_EQ(lengthOf(frame()), std::nullopt);
  EXPECT_EQ(lengthOf(frame() + zeros(1000)), std::nullopt);
}

TEST(Layer3LengthTest, LooksForTheFirstFrameNearTheBeginning) {
  constexpr int farthest = 64 * 1024;
  EXPECT_EQ(lengthOf(zeros(farthest - 1) + frames(100)), 41700 * 8 / 128);
  EXPECT_EQ(lengthOf(zeros(farthest) + frames(100)), std::nullopt);
}

TEST(Layer3LengthTest, KnowsNoOtherFrames) {
  for (const char* header : {"fffd9000",   // Layer II
                             "ffff9000",   // Layer I
                             "fff99000",   // no layer
                             "ffeb9000",   // no version
                             "fffb0000",   // a rate of its own
                             "fffbf000",   // no rate
                             "fffb9c00",   // no sampling rate
                             "ff1b9000"})  // no synchronization
    EXPECT_EQ(lengthOf(frames(20, header)), std::nullopt) << header;
  EXPECT_EQ(lengthOf(frames(20, "ffeb9000", 522)), std::nullopt);  // as long as at the lowest rates
}

TEST(Layer3LengthTest, IsTheFramesThatTheFirstTellsOf) {
  const QByteArray told = big32(1) + big32(50);
  const auto length = [](int hertz, int samples) { return 50 * samples * 1000 / hertz; };
  EXPECT_EQ(lengthOf(with(frame(), 36, "Xing" + told) + frames(99)), length(44100, 1152));
  EXPECT_EQ(lengthOf(with(frame(), 36, "Info" + told) + frames(99)), length(44100, 1152));
  EXPECT_EQ(lengthOf(with(frame(), 36, "VBRI" + zeros(10) + big32(50)) + frames(99)),
            length(44100, 1152));
  const char* mono = "fffb90c0";
  EXPECT_EQ(lengthOf(with(frame(mono), 21, "Xing" + told) + frames(99, mono)), length(44100, 1152));
  const char* low = "fff38000";
  EXPECT_EQ(lengthOf(with(frame(low, 208), 21, "Xing" + told) + frames(99, low, 208)),
            length(22050, 576));
  const char* lowMono = "fff380c0";
  EXPECT_EQ(lengthOf(with(frame(lowMono, 208), 13, "Xing" + told) + frames(99, lowMono, 208)),
            length(22050, 576));
}

TEST(Layer3LengthTest, FindsTheNumberOfFramesBehindAChecksum) {
  const char* checked = "fffa9000";
  const QByteArray told = "Xing" + big32(1) + big32(50);
  for (const qsizetype place : {36, 38})
    EXPECT_EQ(lengthOf(with(frame(checked), place, told) + frames(99, checked)),
              50 * 1152 * 1000 / 44100);
}

TEST(Layer3LengthTest, IsTheSizeWhereTheNumberOfFramesIsMissingOrCannotBe) {
  const Length length = 41700 * 8 / 128;
  for (const qsizetype place : {35, 37, 38})  // the frame has no checksum
    EXPECT_EQ(lengthOf(with(frame(), place, "Xing" + big32(1) + big32(50)) + frames(99)), length);
  EXPECT_EQ(lengthOf(with(frame(), 36, "Xing" + big32(2) + big32(50)) + frames(99)), length);
  for (const quint32 number : {0U, 1000U, 5000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    EXPECT_EQ(lengthOf(with(frame(), 36, "Xing" + big32(1) + big32(number)) + frames(99)), length)
        << number;
    EXPECT_EQ(lengthOf(with(frame(), 36, "VBRI" + zeros(10) + big32(number)) + frames(99)), length)
        << number;
  }
}

TEST(MidiLengthTest, IsTheLastEventAtTheUsualTempo) {
  EXPECT_EQ(lengthOf(oneTrack("00903c40 64803c40 64ff2f00")), 1000);
  EXPECT_EQ(lengthOf(oneTrack("8148ff2f00")), 1000);
  EXPECT_EQ(lengthOf(oneTrack("64ff2f00", 50)), 1000);
  EXPECT_EQ(lengthOf(oneTrack("")), 0);
  EXPECT_EQ(lengthOf(oneTrack("ffffff7fff2f00", 1)), 268435455 * qint64{500});
}

TEST(MidiLengthTest, EndsWithItsLongestTrack) {
  const QByteArray shorter = track(hex("64ff2f00"));
  const QByteArray longer = track(hex("8148ff2f00"));
  EXPECT_EQ(lengthOf(midi(1, 2, 100, shorter + longer)), 1000);
  EXPECT_EQ(lengthOf(midi(1, 2, 100, longer + shorter)), 1000);
}

TEST(MidiLengthTest, ReadsEventsWithoutStatus) {
  EXPECT_EQ(lengthOf(oneTrack("00903c40 323c00 323e40 00ff2f00")), 500);
  EXPECT_EQ(lengthOf(oneTrack("00c005 3206 3207 00ff2f00")), 500);
  EXPECT_EQ(lengthOf(oneTrack("00c005 00903c40 323c00 00ff2f00")), 250);
}

TEST(MidiLengthTest, KnowsHowLongEachEventIs) {
  EXPECT_EQ(lengthOf(oneTrack("64803c40 00903c40 00a03c40 00b00740 00c005 00d040 00e00040"
                              "00f0037e09f7 00f70101 00ff010161 64ff2f00")),
            1000);
}

TEST(MidiLengthTest, FollowsTheTemposOfAllTracks) {
  // One second to the quarter note from tick 100 on, a quarter of one from tick 200 on.
  const QByteArray later = track(hex("8148ff510303d090 00ff2f00"));
  const QByteArray earlier = track(hex("64ff51030f4240 00ff2f00"));
  const QByteArray notes = track(hex("822cff2f00"));
  for (const QByteArray& tracks :
       {later + earlier + notes, notes + earlier + later, earlier + notes + later})
    EXPECT_EQ(lengthOf(midi(1, 3, 100, tracks)), 500 + 1000 + 250);
}

TEST(MidiLengthTest, TakesTheLastOfTemposAtOneTick) {
  EXPECT_EQ(lengthOf(oneTrack("00ff510307a120 00ff51030f4240 64ff2f00")), 1000);
}

TEST(MidiLengthTest, CountsFilmFrames) {
  const char* thousandTicks = "8768ff2f00";
  EXPECT_EQ(lengthOf(oneTrack(thousandTicks, 0xE728)), 1000);  // 25 of 40 ticks
  EXPECT_EQ(lengthOf(oneTrack(thousandTicks, 0xE80A)), 4166);  // 24 of 10
  EXPECT_EQ(lengthOf(oneTrack(thousandTicks, 0xE20A)), 3333);  // 30 of 10
  EXPECT_EQ(lengthOf(oneTrack(thousandTicks, 0xE30A)), 3336);  // 29.97 of 10
  // No tempo changes them.
  EXPECT_EQ(lengthOf(oneTrack("00ff51030f4240 8768ff2f00", 0xE728)), 1000);
  for (const int division : {0xE700, 0x8028, 0xFF28, 0xE628})
    EXPECT_EQ(lengthOf(oneTrack(thousandTicks, static_cast<quint16>(division))), std::nullopt)
        << division;
}

TEST(MidiLengthTest, SkipsWhatItDoesNotKnow) {
  const QByteArray notes = track(hex("64ff2f00"));
  EXPECT_EQ(lengthOf(midi(1, 1, 100, "XFIH" + big32(3) + "abc" + notes + "rest")), 500);
  EXPECT_EQ(lengthOf("MThd" + big32(8) + hex("000000010064") + "ab" + notes), 500);
  EXPECT_EQ(lengthOf(oneTrack("64ff2f00 64903c40")), 500);      // after the end of the track
  EXPECT_EQ(lengthOf(oneTrack("00ff51020fff 64ff2f00")), 500);  // no tempo
}

TEST(MidiLengthTest, HasNoneWhenDamaged) {
  const QByteArray notes = track(hex("64ff2f00"));
  EXPECT_EQ(lengthOf(midi(0, 1, 0, notes)), std::nullopt);
  EXPECT_EQ(lengthOf(midi(2, 1, 100, notes)), std::nullopt);
  EXPECT_EQ(lengthOf(midi(1, 0, 100, notes)), std::nullopt);
  EXPECT_EQ(lengthOf(midi(1, 2, 100, notes)), std::nullopt);
  EXPECT_EQ(lengthOf("MThd" + big32(5) + hex("0000000100") + notes), std::nullopt);
  for (const char* events :
       {"00ff2f05", "00f1404000ff2f00", "00904040808080804040 00ff2f00", "64", "003c40", "0090",
        "00903c", "00f140", "00ff", "00ff01", "00ff0105", "00ff510307", "00f0", "00f005",
        "8080808000ff2f00", "00f0ffffff7f", "00ffffffff7f"})
    EXPECT_EQ(lengthOf(oneTrack(events)), std::nullopt) << events;
  for (const quint32 size : {5U, 0x7FFFFFFFU, 0xFFFFFFFFU})
    EXPECT_EQ(lengthOf(midi(0, 1, 100, "MTrk" + big32(size) + hex("64ff2f00"))), std::nullopt);
}

TEST(MidiLengthTest, AddsUpNoTicksWithoutEnd) {
  // 4000 pauses of 2^28 ticks at the slowest tempo overflow.
  const QByteArray slow = hex("00ff5103ffffff 00904040");
  const QByteArray pause = hex("ffffff7f4040");
  EXPECT_EQ(lengthOf(midi(0, 1, 1, track(slow + pause.repeated(4000)))), std::nullopt);
  // One pause does not: 2^28 - 1 quarter notes.
  EXPECT_EQ(lengthOf(midi(0, 1, 1, track(slow + pause))), 268435455 * qint64{16777215} / 1000);
  // 2^38 ticks are counted, and not one more.
  const QByteArray pauses = hex("00904040") + pause.repeated(1024);  // 1024 ticks less
  EXPECT_EQ(lengthOf(midi(0, 1, 1, track(pauses + hex("88004040")))), (qint64{1} << 38) * 500);
  EXPECT_EQ(lengthOf(midi(0, 1, 1, track(pauses + hex("88014040")))), std::nullopt);
}

TEST(MidiLengthTest, HasNoneBeyondWhatIsRead) {
  const QByteArray notes = track(hex("64ff2f00"));
  const auto behind = [&notes](qint64 size) {
    return midi(1, 1, 100, "XFIH" + big32(static_cast<quint32>(size)) + zeros(size) + notes);
  };
  EXPECT_EQ(lengthOf(behind(3 * kMiB)), 500);
  EXPECT_EQ(lengthOf(behind(5 * kMiB)), std::nullopt);
}

}  // namespace
}  // namespace quillbox::test::sound
