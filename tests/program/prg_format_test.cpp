#include <gtest/gtest.h>

#include "program/prg_format.h"
#include "tests/program/prg_builder.h"

namespace zentaline {
namespace {

using namespace test;

TEST(PrgRead, EitherSignatureIsGoodWhenTheExtensionIsKnown) {
  std::string file = PrgFile();
  EXPECT_EQ(CheckProgramFile(file), kPrgGood);
  file.replace(0, 4, "KPGG");
  EXPECT_EQ(CheckProgramFile(file), kPrgGood);
  EXPECT_EQ(CheckProgramFile(""), kPrgAbsent);
}

TEST(PrgRead, ByNameOnlyTheSignatureOfTheExtensionIsGood) {
  std::string file = PrgFile();
  EXPECT_EQ(CheckProgramByExtension(file, false), kPrgGood);
  EXPECT_EQ(CheckProgramByExtension(file, true), kPrgWrong);
  file.replace(0, 4, "KPGG");
  EXPECT_EQ(CheckProgramByExtension(file, false), kPrgWrong);
  EXPECT_EQ(CheckProgramByExtension(file, true), kPggGood);
  EXPECT_EQ(CheckProgramByExtension("", false), kPrgAbsent);
  EXPECT_EQ(CheckProgramByExtension("", true), kPrgAbsent);
}

TEST(PrgRead, TheResultsHaveTheNumbersThatCallersBranchOn) {
  EXPECT_EQ(int{kPrgGood}, 0);
  EXPECT_EQ(int{kPrgWrong}, 2);
  EXPECT_EQ(int{kPrgAbsent}, 3);
  EXPECT_EQ(int{kPggGood}, 4);
}

TEST(PrgRead, AnyOtherLengthIsWrong) {
  const std::string file = PrgFile();
  EXPECT_EQ(CheckProgramFile(file + "x"), kPrgWrong);
  for (std::size_t length = 1; length < file.size(); ++length) {
    const std::string_view cut = std::string_view(file).substr(0, length);
    ASSERT_EQ(CheckProgramFile(cut), kPrgWrong) << length;
    ASSERT_EQ(CheckProgramByExtension(cut, false), kPrgWrong) << length;
    ASSERT_EQ(CheckI30ProgramFile(cut), kPrgWrong) << length;
  }
}

TEST(PrgRead, SevenBytesAreTestedAndTheEighthMayHaveAnyValue) {
  for (std::size_t position = 1; position <= 8; ++position) {
    std::string file = PrgFile();
    Set(file, position, At(file, position) ^ 0x20);
    EXPECT_EQ(CheckProgramFile(file), position == 8 ? kPrgGood : kPrgWrong) << position;
    EXPECT_EQ(CheckProgramByExtension(file, false), position == 8 ? kPrgGood : kPrgWrong) << position;
  }
}

TEST(PrgRead, TheI30FormatHasASignatureOfItsOwn) {
  std::string file = PrgFile();
  EXPECT_EQ(CheckI30ProgramFile(file), kPrgWrong);
  file.replace(4, 3, Hand({0x49, 5, 0}));
  EXPECT_EQ(CheckI30ProgramFile(file), kPrgGood);
  EXPECT_EQ(CheckProgramFile(file), kPrgWrong);
  EXPECT_EQ(CheckI30ProgramFile(file + "x"), kPrgWrong);
  EXPECT_EQ(CheckI30ProgramFile(""), kPrgAbsent);
}

std::string HandMadeHeader() {
  return "KORG" + Hand({0x4D, 0, 0, 1}) + Zeros(8) +
         Hand({0x1E, 0, 0, 0, 0, 0x03, 0, 0x50, 0, 0x38, 0x01, 0x08, 0x3C, 0x05, 0x02, 0x08, 0x50, 0x1B}) + Zeros(14);
}

TEST(PrgHeader, ANewHeaderHasExactlyTheBytesOfTheTable) {
  Bytes file(30480, 'f');
  NewProgramHeader(file);
  EXPECT_EQ(file, HandMadeHeader() + std::string(30432, 'f'));
  Bytes tiny = "abc";
  NewProgramHeader(tiny);
  EXPECT_EQ(tiny, "KOR");
}

TEST(PrgHeader, ANewBankIsClearedOneByteEarly) {
  Bytes file(30480, 'f');
  ClearNewProgramBank(file);
  EXPECT_EQ(file, std::string(47, 'f') + Zeros(11008) + std::string(30480 - 47 - 11008, 'f'));
  EXPECT_EQ(file[11055], 'f');  // the last record's last byte
}

TEST(PrgI30, TheTwoHalvesBecomeTwoBanksBehindANewHeader) {
  const std::string source = PrgFile(5);
  EXPECT_EQ(I30ProgramBank(source, 0), HandMadeHeader() + source.substr(48));
  EXPECT_EQ(I30ProgramBank(source, 1), HandMadeHeader() + source.substr(11056, 11008) + source.substr(48 + 11008));
  EXPECT_EQ(I30ProgramBank("short", 1).size(), 30480U);
}

TEST(PrgImage, TheWindowsImageHasItsPiecesInPlace) {
  const std::string file = PrgFile();
  const Bytes image = BuildPrgWindowImage(file);
  ASSERT_EQ(image.size(), 32094U);
  EXPECT_EQ(image.substr(0, 20), Zeros(5) + Hand({2}) + Zeros(14));
  EXPECT_EQ(image.substr(20, 250), Blanks(250));
  EXPECT_EQ(image.substr(270, 30480), file);
  EXPECT_EQ(image.substr(30750), Zeros(1344));
  EXPECT_EQ(PrgFileBytes(image), file);
  EXPECT_EQ(ProgramPosition(0), 319U);
  EXPECT_EQ(ProgramPosition(63), 319U + 172 * 63);
}

TEST(PrgImage, AFileOfAnotherLengthNeverMovesWhatFollows) {
  EXPECT_EQ(BuildPrgWindowImage("").size(), 32094U);
  EXPECT_EQ(BuildPrgWindowImage(PrgFile() + std::string(5000, 'x')).size(), 32094U);
  EXPECT_EQ(BuildPrgWindowImage(PrgFile() + "x"), BuildPrgWindowImage(PrgFile()));
}

TEST(PrgImage, OneLinkAnywhereMakesItAPgg) {
  for (std::size_t n = 0; n < 64; ++n) {
    std::string file = PrgFile();
    PutLink(file, n, 1, 70, "Linked");
    const Bytes image = BuildPrgWindowImage(file);
    EXPECT_EQ(At(image, 19), 1) << n;
    EXPECT_EQ(ProgramExtension(image), "pgg");
    EXPECT_TRUE(IsProgramLink(image, static_cast<int>(n)));
    EXPECT_EQ(ProgramPlaceName(image, static_cast<int>(n)), Field("Linked", 16));
  }
  EXPECT_EQ(ProgramExtension(BuildPrgWindowImage(PrgFile())), "prg");
}

TEST(PrgImage, AFirstByteOfZeroIsAProgramAndNoLink) {
  std::string file = PrgFile();
  Set(file, 49, 0);
  const Bytes image = BuildPrgWindowImage(file);
  EXPECT_FALSE(IsProgramLink(image, 0));
  EXPECT_EQ(At(image, 19), 0);
  EXPECT_EQ(ProgramPlaceName(image, 0), file.substr(48, 16));
}

TEST(PrgImage, AnIndexOutsideTheBankIsNoLinkAndHasNoName) {
  const Bytes image = BuildPrgWindowImage(PrgFile());
  for (const int n : {-1, 64, 255, 100000}) {
    EXPECT_FALSE(IsProgramLink(image, n));
    EXPECT_EQ(ProgramPlaceName(image, n), Zeros(16));
  }
}

TEST(PrgFormat, TheDecisionChangesFourLettersAndControlByte19Only) {
  std::string file = PrgFile();
  PutLink(file, 5, 4, 3, "Room Kit");
  Bytes image = BuildPrgWindowImage(file);
  Bytes expected = image;
  expected.replace(270, 4, "KPGG");
  DecideProgramFormat(image);
  EXPECT_EQ(image, expected);

  Set(image, 319 + 5 * 172, 0);
  Set(expected, 319 + 5 * 172, 0);
  Set(expected, 19, 0);
  expected.replace(270, 4, "KORG");
  DecideProgramFormat(image);
  EXPECT_EQ(image, expected);
}

TEST(PrgFormat, OpeningLeavesTheSignatureAsItWas) {
  std::string file = PrgFile();
  file.replace(0, 4, "KPGG");
  Bytes image = BuildPrgWindowImage(file);
  EXPECT_EQ(image.substr(270, 4), "KPGG");
  EXPECT_EQ(At(image, 19), 0);
}

TEST(PrgEditRecord, TheWorkingCopyHoldsTheRecordAndWhereItCameFrom) {
  const std::string file = PrgFile();
  Bytes image = BuildPrgWindowImage(file);
  image.replace(20, 238, Field("/music/My Bank", 238));
  Set(image, 1, 21);
  Set(image, 15, 4);
  Set(image, 19, 1);
  const Bytes record = MakeEditRecord(image, 63);
  ASSERT_EQ(record.size(), 201U);
  EXPECT_EQ(record.substr(0, 172), file.substr(48 + 63 * 172, 172));
  EXPECT_EQ(record.substr(172, 5), Hand({21, 63, 4, 0, 1}));
  EXPECT_EQ(record.substr(177), Field("My Bank", 24));
}

TEST(PrgEditRecord, ANameOf24AndMoreIsCut) {
  Bytes image = BuildPrgWindowImage(PrgFile());
  image.replace(20, 238, Field("/m/abcdefghijklmnopqrstuvwxyz", 238));
  EXPECT_EQ(MakeEditRecord(image, 0).substr(177), "abcdefghijklmnopqrstuvwx");
}

TEST(PrgEditRecord, GoingBackWritesTheRecordsBytesAndNoOther) {
  const std::string file = PrgFile();
  Bytes image = BuildPrgWindowImage(file);
  Bytes record = MakeEditRecord(image, 7);
  for (std::size_t position = 1; position <= 172; ++position) Set(record, position, 0xEE);
  Bytes expected = image;
  expected.replace(318 + 7 * 172, 172, std::string(172, '\xEE'));
  PutEditRecord(image, record);
  EXPECT_EQ(image, expected);

  Set(record, 174, 64);
  PutEditRecord(image, record);
  EXPECT_EQ(image, expected);
}

TEST(PrgNumbers, ATextIsLetterBlankAndPanelNumber) {
  EXPECT_EQ(ProgramNumberText("A", 0), "A 11");
  EXPECT_EQ(ProgramNumberText("B", 7), "B 18");
  EXPECT_EQ(ProgramNumberText("U", 8), "U 21");
  EXPECT_EQ(ProgramNumberText("E", 63), "E 88");
  EXPECT_EQ(ProgramNumberText("Dr", 15), "Dr 28");
}

TEST(PrgNumbers, EachBankCodeHasItsLetterAndIndex) {
  struct Row {
    int code;
    int number;
    std::string letter;
    int index;
  };
  const Row rows[] = {{0, 0, "A", 0},   {0, 63, "A", 63}, {0, 64, "B", 0},   {0, 127, "B", 63}, {1, 0, "C", 0},
                      {1, 63, "C", 63}, {1, 64, "D", 0},  {1, 127, "D", 63}, {2, 5, "E", 5},    {2, 63, "E", 63},
                      {3, 0, "U", 0},   {3, 63, "U", 63}, {4, 0, "Dr", 0},   {4, 15, "Dr", 15}, {5, 9, "", 0}};
  for (const Row& row : rows) {
    const ProgramPlace place = ProgramPlaceOf(row.code, row.number);
    EXPECT_EQ(place.letter, row.letter) << row.code << " " << row.number;
    EXPECT_EQ(place.index, row.index) << row.code << " " << row.number;
  }
}

// The blocks of the record follow one another without a gap.
TEST(PrgLayout, PositionsOfTheRecordAddUp) {
  EXPECT_EQ(program_record::kOsc1 + osc_block::kLength, program_record::kOsc2);
  EXPECT_EQ(program_record::kOsc2 + osc_block::kLength, 143U);
  EXPECT_EQ(osc_block::kPan + 1, osc_block::kLength);
  EXPECT_EQ(program_record::kFx2DModAmount, kPrgRecordLength);
  EXPECT_EQ(kPrgHeaderLength + kPrgRecordsLength + 12040 + kPrgSecondLength + 5280, kPrgFileLength);
  EXPECT_EQ(kPrgFileSecondPosition, kPrgHeaderLength + kPrgRecordsLength + 12040 + 1);
  EXPECT_EQ(kPrgImageSecondPosition, kPrgFileSecondPosition + 270);
  EXPECT_EQ(edit_record::kFileName + edit_record::kFileNameLength - 1, edit_record::kLength);
}

}  // namespace
}  // namespace zentaline
