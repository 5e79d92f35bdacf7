#include "midi/messages.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/bytes.h"
#include "tests/format_bytes.h"
#include "tests/midi/unpack7.h"

namespace zentaline {
namespace {

using namespace test;

std::string Hex(std::string_view bytes) {
  return HexText(bytes);
}

TEST(SysEx, TheHeaderCarriesTheChannel) {
  EXPECT_EQ(Hex(SysExHeader(0)), "F0 42 30 4D");
  EXPECT_EQ(Hex(SysExHeader(9)), "F0 42 39 4D");
  EXPECT_EQ(Hex(SysExHeader(15)), "F0 42 3F 4D");
}

TEST(SysEx, EachModeHasItsMessage) {
  EXPECT_EQ(Hex(BuildModeChange(0, kModeArrPlay)), "F0 42 30 4D 4E 0A F7");
  EXPECT_EQ(Hex(BuildModeChange(0, kModeSongPlay)), "F0 42 30 4D 4E 06 F7");
  EXPECT_EQ(Hex(BuildModeChange(0, kModeGlobal)), "F0 42 30 4D 4E 04 F7");
  EXPECT_EQ(Hex(BuildModeChange(3, kModeBackSeq)), "F0 42 33 4D 4E 0B F7");
  EXPECT_EQ(Hex(BuildModeChange(15, kModeProgram)), "F0 42 3F 4D 4E 02 F7");
  EXPECT_EQ(BuildModeChange(0, 5), "");
  EXPECT_EQ(BuildModeChange(0, -1), "");
}

TEST(ArrParam, LowSevenBitsThenTheRest) {
  EXPECT_EQ(Hex(BuildArrParam(0, 0, 0x00, 120, 0)), "F0 42 30 4D 41 00 78 00 F7");
  EXPECT_EQ(Hex(BuildArrParam(2, 0, 0x00, 240, 0)), "F0 42 32 4D 41 00 70 01 F7");
  EXPECT_EQ(Hex(BuildArrParam(0, 0, 0x02, 96, 0)), "F0 42 30 4D 41 02 60 00 F7");
}

TEST(ArrParam, SignOneSends7FWhateverTheValue) {
  EXPECT_EQ(Hex(BuildArrParam(0, 0, 0x03, 255, 1)), "F0 42 30 4D 41 03 7F 7F F7");
  EXPECT_EQ(Hex(BuildArrParam(0, 0, 0x03, 245, 1)), "F0 42 30 4D 41 03 75 7F F7");
  EXPECT_EQ(Hex(BuildArrParam(0, 0, 0x03, 255, 0)), "F0 42 30 4D 41 03 7F 01 F7");
}

TEST(ArrParam, OnlyId46AddsTheBanksOffset) {
  EXPECT_EQ(Hex(BuildArrParam(0, 21, 0x46, 5, 0)), "F0 42 30 4D 41 46 45 02 F7");
  EXPECT_EQ(Hex(BuildArrParam(0, 21, 0x47, 5, 0)), "F0 42 30 4D 41 47 05 00 F7");
  const std::vector<std::pair<int, int>> offsets = {{4, 0},    {5, 64},  {6, 128}, {7, 192}, {8, 256},
                                                    {21, 320}, {9, 384}, {10, 0},  {22, 0},  {0, 0}};
  for (const auto& [bank, offset] : offsets) {
    const Bytes message = BuildArrParam(0, bank, 0x46, 9, 0);
    EXPECT_EQ(At(message, 7) + 128 * At(message, 8), 9 + offset) << "bank " << bank;
  }
}

TEST(PrgParam, NegativeValuesCarry7F) {
  EXPECT_EQ(Hex(BuildPrgParam(0, 13, 4, -1)), "F0 42 30 4D 60 0D 04 7F 7F F7");
  EXPECT_EQ(Hex(BuildPrgParam(0, 1, 2, -200)), "F0 42 30 4D 60 01 02 38 7F F7");
  EXPECT_EQ(Hex(BuildPrgParam(0, 1, 2, -99)), "F0 42 30 4D 60 01 02 1D 7F F7");
  EXPECT_EQ(Hex(BuildPrgParam(5, 1, 2, 99)), "F0 42 35 4D 60 01 02 63 00 F7");
  EXPECT_EQ(Hex(BuildPrgParam(0, 1, 2, 518)), "F0 42 30 4D 60 01 02 06 04 F7");
}

TEST(PrgParam, TwentyZeroBytesFollow) {
  EXPECT_EQ(PrgParamPause(), Zeros(20));
}

void ExpectFrame(const Bytes& message, int channel, int function) {
  ASSERT_GE(message.size(), 6U);
  EXPECT_EQ(Hex(message.substr(0, 5)), Hex(Hand({0xF0, 0x42, 0x30 + channel, 0x4D, function})));
  EXPECT_EQ(At(message, message.size()), 0xF7);
  EXPECT_TRUE(IsSevenBit(std::string_view(message).substr(1, message.size() - 2)));
}

TEST(Dumps, TheArrangementDumpCarries10496BytesFrom303) {
  std::mt19937 random(1);
  const Bytes image = RandomBytes(random, 42622);
  const Bytes message = BuildArrDump(6, image);
  ExpectFrame(message, 6, 0x64);
  EXPECT_EQ(DumpPayload(message), image.substr(302, 10496));
  EXPECT_EQ(message.size(), 6U + 10496 + 1500);
}

TEST(Dumps, TheGlobalDumpCarries415BytesFrom303) {
  std::mt19937 random(2);
  const Bytes image = RandomBytes(random, 718);
  const Bytes message = BuildGlobalDump(0, image);
  ExpectFrame(message, 0, 0x51);
  EXPECT_EQ(DumpPayload(message), image.substr(302, 415));
}

TEST(Dumps, TheProgramBankDumpCarriesTheRecordsAndTheSecondBlock) {
  std::mt19937 random(3);
  Bytes image = RandomBytes(random, 32094);
  Set(image, 19, 0);
  Set(image, 319, 1);  // a first byte of 1 goes out as it is while the file is a .prg
  const Bytes message = BuildPrgBankDump(1, image);
  ExpectFrame(message, 1, 0x4C);
  EXPECT_EQ(DumpPayload(message), image.substr(318, 11008) + image.substr(23366, 2104));
}

TEST(Dumps, TheLinksOfAPggGoOutWipedAndStayInTheImage) {
  std::mt19937 random(4);
  Bytes image = RandomBytes(random, 32094);
  Set(image, 19, 1);
  for (std::size_t n = 0; n < 64; ++n) Set(image, 319 + 172 * n, n % 3 == 0 ? 1 : 2);
  const Bytes before = image;
  Bytes expected = image.substr(318, 11008) + image.substr(23366, 2104);
  for (std::size_t n = 0; n < 64; n += 3) expected.replace(172 * n, 20, Zeros(20));
  EXPECT_EQ(DumpPayload(BuildPrgBankDump(0, image)), expected);
  EXPECT_EQ(image, before);
}

TEST(Dumps, ABytePosition19OfTwoWipesNothing) {
  std::mt19937 random(4);
  Bytes image = RandomBytes(random, 32094);
  Set(image, 19, 2);
  Set(image, 319, 1);
  EXPECT_EQ(DumpPayload(BuildPrgBankDump(0, image)), image.substr(318, 11008) + image.substr(23366, 2104));
}

TEST(Dumps, AnImageThatIsTooShortIsFilledWithZeros) {
  EXPECT_EQ(DumpPayload(BuildArrDump(0, std::string(302, 'x') + "abc")), "abc" + Zeros(10493));
  EXPECT_EQ(DumpPayload(BuildGlobalDump(0, "")), Zeros(415));
  EXPECT_EQ(DumpPayload(BuildPrgBankDump(0, "")), Zeros(13112));
}

// The count bytes of a back sequence whose payload holds `blocks` blocks of events and some bytes more.
std::string Count(std::size_t blocks, std::size_t more = 0) {
  const Bytes image(286 + 2322 + 16 * blocks + more, 'e');
  const Bytes message = BuildBackSeqDump(0, image);
  return Hex(message.substr(5, 2));
}

TEST(BackSeq, TheDumpCarriesEverythingBehind286BytesBehindItsCount) {
  std::mt19937 random(5);
  const Bytes image = RandomBytes(random, 286 + 2322 + 160);
  const Bytes message = BuildBackSeqDump(4, image);
  ExpectFrame(message, 4, 0x66);
  EXPECT_EQ(Hex(message.substr(5, 2)), "0A 00");
  EXPECT_EQ(DumpPayload(message, 7), image.substr(286));
}

TEST(BackSeq, TheHighCountByteFollowsItsOwnRule) {
  EXPECT_EQ(Count(0), "00 00");
  EXPECT_EQ(Count(127), "7F 00");
  EXPECT_EQ(Count(128), "00 01");
  EXPECT_EQ(Count(255), "7F 01");
  EXPECT_EQ(Count(256), "00 02");
  EXPECT_EQ(Count(384), "00 03");
  EXPECT_EQ(Count(5478), "66 2A");
  EXPECT_EQ(Count(5248), "00 29");
}

TEST(BackSeq, WholeBlocksCountAndAPayloadWithoutEventsCountsNone) {
  EXPECT_EQ(Count(3, 15), "03 00");
  EXPECT_EQ(Hex(BuildBackSeqDump(0, Zeros(286))), "F0 42 30 4D 66 00 00 F7");
  EXPECT_EQ(Hex(BuildBackSeqDump(0, "")), "F0 42 30 4D 66 00 00 F7");
  EXPECT_EQ(Hex(BuildBackSeqDump(0, Zeros(287))), "F0 42 30 4D 66 00 00 00 00 F7");
}

// A window's image with the style part at its base and these sixteen sizes; the styles' bytes tell their entry.
Bytes StyleWindow(int kind, const std::vector<int>& sizes) {
  Bytes image(kind == 23 || kind == 24 ? 669 : 42622, '\0');
  Set(image, 1, kind);
  Bytes part = "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(216);
  for (std::size_t e = 0; e < sizes.size(); ++e) {
    Set(part, 25 + 4 * e, sizes[e] % 256);
    Set(part, 26 + 4 * e, sizes[e] / 256);
  }
  for (std::size_t e = 0; e < sizes.size(); ++e)
    part += std::string(static_cast<std::size_t>(sizes[e]), static_cast<char>(0x80 + e));
  return image + part;
}

const std::vector<int> kSizes = {300, 301, 302, 303, 1000, 20, 30, 40, 17, 18, 19, 20, 700, 800, 900, 1000};

TEST(StyleDump, AGroupIsFourDescriptorsAndTheDataOfItsStyles) {
  for (const int kind : {19, 20, 23, 24}) {
    const Bytes image = StyleWindow(kind, kSizes);
    Bytes message;
    ASSERT_EQ(BuildStyleDump(7, image, 1, message), 0);
    ExpectFrame(message, 7, 0x65);
    // Offsets 24, 1024, 1044 and 1074: low byte, zero, high byte.
    const std::string descriptors = Hand({0x18, 0, 0x00, 0x81, 0xE8, 0x03, 0x00, 0, 0x04, 0x81, 0x14, 0x00,
                                          0x14, 0, 0x04, 0x81, 0x1E, 0x00, 0x32, 0, 0x04, 0x81, 0x28, 0x00});
    EXPECT_EQ(DumpPayload(message), descriptors + std::string(1000, '\x84') + std::string(20, '\x85') +
                                        std::string(30, '\x86') + std::string(40, '\x87'))
        << "kind " << kind;
  }
}

TEST(StyleDump, EveryGroupStartsBehindTheOnesBeforeIt) {
  const Bytes image = StyleWindow(23, kSizes);
  for (int group = 0; group < 4; ++group) {
    Bytes message;
    ASSERT_EQ(BuildStyleDump(0, image, group, message), 0);
    const std::string payload = DumpPayload(message);
    std::string data;
    for (std::size_t e = 4 * static_cast<std::size_t>(group); e < 4 * static_cast<std::size_t>(group) + 4; ++e) {
      data += std::string(static_cast<std::size_t>(kSizes[e]), static_cast<char>(0x80 + e));
    }
    EXPECT_EQ(payload.substr(24), data) << "group " << group;
    for (std::size_t e = 0; e < 4; ++e) EXPECT_EQ(At(payload, 6 * e + 4), 0x80 + group);
  }
}

TEST(StyleDump, AGroupWithOneMissingStyleBuildsNothing) {
  for (std::size_t missing = 0; missing < 4; ++missing) {
    std::vector<int> sizes = kSizes;
    sizes[8 + missing] = 0;
    Bytes message = "before";
    EXPECT_EQ(BuildStyleDump(0, StyleWindow(23, sizes), 2, message), 1) << missing;
    EXPECT_EQ(message, "before");
    EXPECT_EQ(BuildStyleDump(0, StyleWindow(23, sizes), 3, message), 0) << missing;
  }
}

TEST(StyleDump, AGroupThatIsNoneBuildsNothing) {
  Bytes message = "before";
  EXPECT_EQ(BuildStyleDump(0, StyleWindow(23, kSizes), -1, message), 1);
  EXPECT_EQ(BuildStyleDump(0, StyleWindow(23, kSizes), 4, message), 1);
  EXPECT_EQ(BuildStyleDump(0, "", 0, message), 1);
  EXPECT_EQ(message, "before");
}

TEST(StyleDump, DataThatTheTableClaimsAndTheImageLacksGoOutAsZeros) {
  Bytes image = StyleWindow(23, {1000, 1000, 1000, 1000});
  image.resize(669 + 224 + 500);
  Bytes message;
  ASSERT_EQ(BuildStyleDump(0, image, 0, message), 0);
  EXPECT_EQ(DumpPayload(message).substr(24), std::string(500, '\x80') + Zeros(3500));
}

TEST(StyleDump, AnOffsetAbove65535KeepsItsLowSixteenBits) {
  const Bytes image = StyleWindow(23, {60000, 10000, 100, 100});
  Bytes message;
  ASSERT_EQ(BuildStyleDump(0, image, 0, message), 0);
  // 24 + 70000 = 70024 = 11188 hexadecimal.
  EXPECT_EQ(Hex(DumpPayload(message).substr(12, 3)), "88 00 11");
}

TEST(ShortMessages, TheStatusStandsInTheLowByte) {
  EXPECT_EQ(NoteOnWord(3, 60, 100), 0x643C93U);
  EXPECT_EQ(NoteOffWord(15, 36, 64), 0x40248FU);
  EXPECT_EQ(AllNotesOffWord(2), 0x007BB2U);
  EXPECT_EQ(ControllerWord(0, 7, 127), 0x7F07B0U);
  EXPECT_EQ(ProgramChangeWord(1, 69), 0x0045C1U);
  EXPECT_EQ(PitchBendWord(0, 64), 0x407FE0U);
}

TEST(ShortMessages, TheirBytesHaveTheLengthOfTheirKind) {
  EXPECT_EQ(Hex(ShortMessageBytes(NoteOnWord(3, 60, 100))), "93 3C 64");
  EXPECT_EQ(Hex(ShortMessageBytes(AllNotesOffWord(2))), "B2 7B 00");
  EXPECT_EQ(Hex(ShortMessageBytes(ProgramChangeWord(1, 69))), "C1 45");
}

TEST(ArrSelection, EachBankHasItsControllerAndNumber) {
  int number = 34;
  EXPECT_EQ(Hex(BuildArrSelection(0, number, 2).bytes), "B0 00 00 B0 20 00 C0 22");
  EXPECT_EQ(Hex(BuildArrSelection(9, number, 19).bytes), "B9 00 00 B9 20 01 C9 22");
  EXPECT_EQ(Hex(BuildArrSelection(9, number, 20).bytes), "B9 00 00 B9 20 01 C9 22");
  EXPECT_EQ(number, 34);
}

TEST(ArrSelection, BankBLeavesTheRaisedNumberWithTheCaller) {
  int number = 5;
  const Selection selection = BuildArrSelection(0, number, 3);
  EXPECT_EQ(Hex(selection.bytes), "B0 00 00 B0 20 00 C0 45");
  EXPECT_EQ(number, 69);
  EXPECT_EQ(selection.words[0], 0x0000B0U);
  EXPECT_EQ(selection.words[1], 0x0020B0U);
  EXPECT_EQ(selection.words[2], 0x0045C0U);
}

Bytes BankImage(int kind) {
  Bytes image(32094, '\0');
  Set(image, 1, kind);
  return image;
}

TEST(ProgramSelection, EachBankCodeHasItsControllerAndNumber) {
  struct Row {
    int kind;
    int index;
    int controller32;
    int number;
  };
  const Row rows[] = {{4, 5, 0, 5},  {5, 5, 0, 69}, {6, 5, 1, 5},  {7, 63, 1, 127}, {8, 5, 2, 5},
                      {21, 5, 3, 5}, {31, 5, 3, 5}, {22, 5, 3, 5}, {9, 2, 4, 8},    {10, 13, 4, 56}};
  for (const Row& row : rows) {
    ProgramSelectionState state;
    const Selection selection = BuildProgramSelection(2, BankImage(row.kind), row.index, state);
    EXPECT_EQ(Hex(selection.bytes), Hex(Hand({0xB2, 0, 0, 0xB2, 0x20, row.controller32, 0xC2, row.number})))
        << "kind " << row.kind;
  }
}

TEST(ProgramSelection, ALinkSelectsWhatItRefersTo) {
  for (const int kind : {21, 22, 31}) {
    Bytes image = BankImage(kind);
    image.replace(318 + 172 * 63, 3, Hand({1, 4, 9}));
    ProgramSelectionState state;
    EXPECT_EQ(Hex(BuildProgramSelection(0, image, 63, state).bytes), "B0 00 00 B0 20 04 C0 09") << kind;
    EXPECT_EQ(state.controller32, 4);
    EXPECT_EQ(state.number, 9);
  }
}

TEST(ProgramSelection, EachDrumKitHasItsProgram) {
  const std::vector<int> programs = {0, 1, 8, 16, 24, 25, 26, 32, 40, 48, 64, 65, 66, 56, 72, 73};
  for (int kit = 0; kit < 16; ++kit) EXPECT_EQ(DrumKitProgram(kit), programs[static_cast<std::size_t>(kit)]);
  EXPECT_EQ(DrumKitProgram(-1), -1);
  EXPECT_EQ(DrumKitProgram(16), -1);
}

TEST(ProgramSelection, AnyOtherBankCodeSelectsWhatWasSelectedBefore) {
  ProgramSelectionState state;
  BuildProgramSelection(0, BankImage(7), 5, state);
  for (const int kind : {0, 2, 3, 19, 20, 23, 255}) {
    EXPECT_EQ(Hex(BuildProgramSelection(0, BankImage(kind), 40, state).bytes), "B0 00 00 B0 20 01 C0 45") << kind;
  }
}

TEST(ProgramSelection, ADrumKitThatIsNoneSelectsWhatWasSelectedBefore) {
  ProgramSelectionState state;
  BuildProgramSelection(0, BankImage(8), 5, state);
  EXPECT_EQ(Hex(BuildProgramSelection(0, BankImage(9), 16, state).bytes), "B0 00 00 B0 20 02 C0 05");
}

TEST(ProgramSelection, TheChannelStandsAt286InFilesAndAt16Elsewhere) {
  for (int kind = 0; kind < 40; ++kind) {
    Bytes image = BankImage(kind);
    Set(image, 16, 3);
    Set(image, 286, 12);
    EXPECT_EQ(BankChannel(image), kind == 21 || kind == 31 ? 12 : 3) << kind;
  }
}

TEST(ProgramSelection, TheFirstArmedSlotNamesThePartWhenItIsEven) {
  std::array<int, 19> slots{};
  EXPECT_EQ(ArmedPart(slots), -1);
  for (std::size_t i = 0; i < slots.size(); ++i) {
    slots = {};
    slots[i] = 1;
    EXPECT_EQ(ArmedPart(slots), i >= 2 && i % 2 == 0 ? static_cast<int>(i) / 2 - 1 : -1) << i;
  }
  slots = {};
  slots[3] = 1;
  slots[4] = 1;
  EXPECT_EQ(ArmedPart(slots), -1);
  slots[3] = 2;
  EXPECT_EQ(ArmedPart(slots), 1);
}

TEST(Messages, RandomImagesAndNumbersGiveFramesOfSevenBits) {
  std::mt19937 random(99);
  for (int round = 0; round < 60; ++round) {
    const Bytes image = RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 45000)));
    const int channel = RandomNumber(random, 0, 15);
    ExpectFrame(BuildArrDump(channel, image), channel, 0x64);
    ExpectFrame(BuildPrgBankDump(channel, image), channel, 0x4C);
    ExpectFrame(BuildGlobalDump(channel, image), channel, 0x51);
    ExpectFrame(BuildBackSeqDump(channel, image), channel, 0x66);
    Bytes message;
    if (BuildStyleDump(channel, image, round % 4, message) == 0) ExpectFrame(message, channel, 0x65);
    ExpectFrame(BuildArrParam(channel, RandomNumber(random, 0, 30), RandomNumber(random, 0, 255),
                              RandomNumber(random, -32768, 32767), RandomNumber(random, 0, 1)),
                channel, 0x41);
    ExpectFrame(BuildPrgParam(channel, RandomNumber(random, 0, 255), RandomNumber(random, 0, 255),
                              RandomNumber(random, -32768, 32767)),
                channel, 0x60);
    ProgramSelectionState state;
    const Selection selection = BuildProgramSelection(channel, image, RandomNumber(random, -1, 300), state);
    for (const std::uint32_t word : selection.words) EXPECT_EQ(word & 0xFF808000U, 0U);
  }
}

}  // namespace
}  // namespace zentaline
