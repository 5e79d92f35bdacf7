// What bytes mean and what stores leave, worked out by hand for each way of coding.
#include "record/field.h"

#include <gtest/gtest.h>

#include "record/arrangement_fields.h"
#include "record/global_fields.h"
#include "record/program_fields.h"

namespace zentaline {
namespace {

constexpr Field kCutoffTouch = FieldOf(program_fields::kCommon, "touch.cutoff");
constexpr Field kTempo = FieldOf(kArrCommonFields, "tempo");
constexpr Field kStatus = FieldOf(kPartFields, "#.out");
constexpr Field kSend = FieldOf(kPartFields, "#.csend");
constexpr Field kOctave = FieldOf(program_fields::kCommon, "octave1");
constexpr Field kSound = FieldOf(program_fields::kCommon, "sound2");
constexpr Field kSource = FieldOf(program_fields::kCommon, "fx1.source");
constexpr Field kPan = FieldOf(program_fields::kOscillator, "pan#");

TEST(Field, ASignedByteCountsDownFrom256) {
  EXPECT_EQ(ShownOf(kCutoffTouch, 0), 0);
  EXPECT_EQ(ShownOf(kCutoffTouch, 99), 99);
  EXPECT_EQ(ShownOf(kCutoffTouch, 255), -1);
  EXPECT_EQ(ShownOf(kCutoffTouch, 157), -99);
  EXPECT_EQ(RawAfter(kCutoffTouch, 7, -99), 157);
  EXPECT_EQ(RawAfter(kCutoffTouch, 7, -1), 255);
  EXPECT_EQ(RawAfter(kCutoffTouch, 200, 5), 5);
}

TEST(Field, ABarStopsAtTheEndThatTheByteIsBehind) {
  EXPECT_EQ(ShownOf(kCutoffTouch, 100), 99);
  EXPECT_EQ(ShownOf(kCutoffTouch, 156), 99);
  constexpr Field range_high = FieldOf(global_fields::kCommon, "harmony.high");
  EXPECT_EQ(ShownOf(range_high, 5), 11);
  EXPECT_EQ(ShownOf(range_high, 200), 127);
}

TEST(Field, ADoubtfulByteOfAnArrangementShowsWhatItsFieldTells) {
  EXPECT_EQ(ShownOf(kTempo, 10), 40);
  EXPECT_EQ(ShownOf(kTempo, 210), 240);
  EXPECT_EQ(ShownOf(kTempo, 9), 40);
  EXPECT_EQ(ShownOf(kTempo, 255), 40);
  EXPECT_EQ(ShownOf(kStatus, 11), 3);
  EXPECT_EQ(ShownOf(kStatus, 12), 3);
  EXPECT_EQ(ShownOf(kSend, 0xAB), 0);
  EXPECT_EQ(ShownOf(kSend, 0xA3), 7);
}

TEST(Field, AListWithoutARowForTheByteIsLeftAsItWas) {
  EXPECT_EQ(ShownOf(kOctave, 1), 0);
  EXPECT_EQ(ShownOf(kOctave, 254), 3);
  EXPECT_EQ(ShownOf(kOctave, 2), std::nullopt);
  EXPECT_EQ(ShownOf(kOctave, 253), std::nullopt);
}

TEST(Field, AStoreKeepsTheBitsBesideIt) {
  constexpr Field waveform = FieldOf(program_fields::kCommon, "sweep.wave");
  EXPECT_EQ(RawAfter(waveform, 0xFF, 2), 0xFA);
  EXPECT_EQ(RawAfter(kSend, 0xA0, 0), 0xAA);
  // The bits above the two statuses are lost with each store of one.
  EXPECT_EQ(RawAfter(kStatus, 0xFC, 1), 0x0D);
}

TEST(Field, AWordHasItsLowByteFirst) {
  Bytes record(kPrgRecordLength, '\x7F');
  StoreAt(kSound, record, 1, 518);
  EXPECT_EQ(ByteAt(record, 23), 0x06);
  EXPECT_EQ(ByteAt(record, 24), 0x02);
  EXPECT_EQ(ByteAt(record, 22), 0x7F);
  EXPECT_EQ(ByteAt(record, 25), 0x7F);
  EXPECT_EQ(ShownAt(kSound, record, 1), 518);
  EXPECT_EQ(ShownOf(kSound, 519), 518);
}

TEST(Field, CodesAreLookedUp) {
  EXPECT_EQ(ShownOf(kSource, 5), 4);
  EXPECT_EQ(ShownOf(kSource, 4), std::nullopt);
  EXPECT_EQ(RawAfter(kSource, 0, 5), 6);
}

// Code 22 stands twice in the list of what pedals do.
TEST(Field, ACodeThatStandsTwiceShowsAsTheFirst) {
  constexpr Field pedal = FieldOf(global_fields::kCommon, "pedal");
  EXPECT_EQ(RawAfter(pedal, 0, 22), 22);
  EXPECT_EQ(RawAfter(pedal, 0, 25), 22);
  EXPECT_EQ(ShownOf(pedal, 22), 22);
  EXPECT_EQ(ShownOf(pedal, 19), std::nullopt);
  EXPECT_EQ(pedal.list[22], "VARIATION UP");
}

TEST(Field, ACodedValueKeepsItsSign) {
  EXPECT_EQ(CodedValue(kPan, 0), -1);
  EXPECT_EQ(CodedValue(kOctave, 3), -2);
  EXPECT_EQ(RawAfter(kPan, 0, 0), 255);
  EXPECT_EQ(ShownOf(kPan, 30), 31);
}

const Field& Polarity(int pair) {
  const auto first = std::find_if(std::begin(program_fields::kOscillator), std::end(program_fields::kOscillator),
                                  [](const Field& field) { return field.coding == FieldCoding::kPolarity; });
  return *(first + pair);
}

TEST(Field, APolarityReadsMinusZeroAndPlus) {
  EXPECT_EQ(ShownOf(Polarity(0), 0x00), 1);
  EXPECT_EQ(ShownOf(Polarity(0), 0x11), 0);
  EXPECT_EQ(ShownOf(Polarity(0), 0x01), 2);
  EXPECT_EQ(ShownOf(Polarity(0), 0xEE), 1);
  EXPECT_EQ(ShownOf(Polarity(3), 0x88), 0);
  EXPECT_EQ(ShownOf(Polarity(3), 0x08), 2);
  EXPECT_EQ(ShownOf(Polarity(2), 0x44), 0);
  EXPECT_EQ(ShownOf(Polarity(1), 0x02), 2);
}

TEST(Field, ThePairOfAPolarityWithItsHighBitAloneHasNoRow) {
  EXPECT_EQ(ShownOf(Polarity(0), 0x10), std::nullopt);
  EXPECT_EQ(ShownOf(Polarity(0), 0xFE), std::nullopt);
  EXPECT_EQ(ShownOf(Polarity(2), 0x40), std::nullopt);
  EXPECT_EQ(ShownOf(Polarity(3), 0x80), std::nullopt);
}

TEST(Field, APolarityIsWrittenWithoutTouchingTheOthers) {
  for (int byte = 0; byte < 256; ++byte) {
    for (int pair = 0; pair < 4; ++pair) {
      const int own = 0x11 << pair;
      EXPECT_EQ(RawAfter(Polarity(pair), byte, 0), byte | own);
      EXPECT_EQ(RawAfter(Polarity(pair), byte, 1), byte & ~own);
      EXPECT_EQ(RawAfter(Polarity(pair), byte, 2), (byte & ~own) | (1 << pair));
    }
  }
}

TEST(Field, NothingIsWrittenOutsideTheBytes) {
  Bytes image(10, 'x');
  StoreAt(kSound, image, 1, 3);
  EXPECT_EQ(image, Bytes(10, 'x'));
  EXPECT_EQ(RawAt(kSound, image, 1), 0);
}

}  // namespace
}  // namespace zentaline
