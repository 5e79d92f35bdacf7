#include <gtest/gtest.h>

#include <vector>

#include "arrangement/arr_format.h"
#include "tests/format_bytes.h"

namespace zentaline {
namespace {

using namespace test;

std::string Magic() {
  return "KORG" + Hand({0x4D, 0, 3});
}

std::string HandMadeHeader() {
  return Magic() + Hand({1}) + Zeros(8) + Hand({0x14, 0, 0, 0, 0, 1, 0, 0x28, 0, 0x1D}) + Zeros(6);
}

// Sixty-four records of random bytes behind the seven tested ones.
std::string ArrFile(unsigned seed = 1) {
  std::mt19937 random(seed);
  std::string file = RandomBytes(random, 10528);
  return file.replace(0, 7, Magic());
}

std::string FactoryNames(int n) {
  return Field("Factory " + std::to_string(n), 16);
}

std::string_view FactoryName(int n) {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all;
    for (int i = 0; i < 128; ++i) all.push_back(FactoryNames(i));
    return all;
  }();
  return names.at(static_cast<std::size_t>(n));
}

TEST(ArrRead, TheLengthAndSevenBytesDecide) {
  const std::string file = ArrFile();
  EXPECT_EQ(CheckArrFile(file), kArrGood);
  EXPECT_EQ(CheckArrFile(file + "x"), kArrWrong);
  EXPECT_EQ(CheckArrFile(""), kArrAbsent);
  for (std::size_t length = 1; length < file.size(); ++length) {
    ASSERT_EQ(CheckArrFile(std::string_view(file).substr(0, length)), kArrWrong) << length;
  }
  for (std::size_t position = 1; position <= 40; ++position) {
    std::string other = file;
    Set(other, position, At(other, position) ^ 0x08);
    EXPECT_EQ(CheckArrFile(other), position <= 7 ? kArrWrong : kArrGood) << position;
  }
}

TEST(ArrRead, TheResultsHaveTheNumbersThatCallersBranchOn) {
  EXPECT_EQ(int{kArrGood}, 0);
  EXPECT_EQ(int{kArrWrong}, 2);
  EXPECT_EQ(int{kArrAbsent}, 3);
}

TEST(ArrNew, ANewFileIsTheHeaderOfTheTableAnd64ZeroRecords) {
  EXPECT_EQ(NewArrFile(), HandMadeHeader() + Zeros(10496));
  EXPECT_EQ(CheckArrFile(NewArrFile()), kArrGood);
}

TEST(ArrNew, ANewHeaderLeavesTheRecords) {
  Bytes file = ArrFile();
  NewArrHeader(file);
  EXPECT_EQ(file, HandMadeHeader() + ArrFile().substr(32));
  Bytes tiny = "abc";
  NewArrHeader(tiny);
  EXPECT_EQ(tiny, "KOR");
}

TEST(ArrImage, AFileWindowsImageHasItsPiecesInPlace) {
  const std::string file = ArrFile();
  const Bytes image = BuildArrImage(19, file, "/music/Live", {.read_only = true, .window_number = 7, .slot_state = 2});
  ASSERT_EQ(image.size(), 42622U);
  std::string control = Zeros(20);
  Set(control, 1, 19);
  Set(control, 2, 1);
  Set(control, 3, 2);
  Set(control, 15, 7);
  Set(control, 17, 2);
  EXPECT_EQ(image.substr(0, 20), control);
  EXPECT_EQ(image.substr(20, 250), Field("/music/Live", 250));
  EXPECT_EQ(image.substr(270, 10528), file);
  EXPECT_EQ(image.substr(10798, 1344), Blanks(1344));
  EXPECT_EQ(image.substr(12142), Blanks(30480));
  EXPECT_EQ(ArrFileBytes(image), file);
}

TEST(ArrImage, AFileMadeInMemoryIsChangedAndHasNoFile) {
  const Bytes image = BuildArrImage(19, ArrFile(), "/music/Live", {.in_memory = true, .window_number = 1});
  EXPECT_EQ(At(image, 4), 1);
  EXPECT_EQ(At(image, 11), 1);
  const Bytes other = BuildArrImage(19, ArrFile(), "/music/Live", {.window_number = 1});
  EXPECT_EQ(At(other, 4), 0);
  EXPECT_EQ(At(other, 11), 0);
}

TEST(ArrImage, TheBanksEndBehindTheRowTable) {
  for (const int kind : {2, 3}) {
    const Bytes image = BuildArrImage(kind, ArrFile(), "/data/i40ArrA", {});
    ASSERT_EQ(image.size(), 12142U);
    EXPECT_EQ(At(image, 1), kind);
    EXPECT_EQ(image.substr(270, 10528), ArrFile());
  }
}

TEST(ArrImage, AFileOfAnotherLengthNeverMovesWhatFollows) {
  EXPECT_EQ(BuildArrImage(19, "short", "p", {}).size(), 42622U);
  EXPECT_EQ(BuildArrImage(19, ArrFile() + "xyz", "p", {}), BuildArrImage(19, ArrFile(), "p", {}));
}

TEST(ArrImage, RecordsStandAt303InStepsOf164) {
  EXPECT_EQ(ArrRecordPosition(0), 303U);
  EXPECT_EQ(ArrRecordPosition(63), 303U + 164 * 63);
  EXPECT_EQ(PartOffset(0), 39U);
  EXPECT_EQ(PartOffset(8), 103U);
  EXPECT_EQ(ArrEditPosition(0), 1U);
}

TEST(ArrImage, ANewFilesWindowCarriesTheEmptyStylesAndTheRowLabels) {
  const std::string styles = "KORG" + std::string(100, 's');
  const Bytes image = BuildNewArrImage(NewArrFile(), styles, "/songs/Untitled3", 3);
  ASSERT_EQ(image.size(), 42622U + 104);
  std::string control = Zeros(20);
  Set(control, 1, 20);
  Set(control, 3, 2);
  Set(control, 9, 1);
  Set(control, 10, 1);
  Set(control, 15, 3);
  Set(control, 18, 1);
  EXPECT_EQ(image.substr(0, 20), control);
  EXPECT_EQ(image.substr(20, 250), Field("/songs/Untitled3", 250));
  EXPECT_EQ(image.substr(42622), styles);
  EXPECT_EQ(image.substr(10798, 21), "11" + Zeros(1) + Blanks(18));
  EXPECT_EQ(image.substr(10798 + 21 * 8, 3), "21" + Zeros(1));
  EXPECT_EQ(image.substr(10798 + 21 * 63, 21), "88" + Zeros(1) + Blanks(18));
  EXPECT_EQ(image.substr(12142, 30480), Blanks(30480));
}

TEST(ArrImage, ANewFilesWindowWithoutEmptyStylesSaysSo) {
  const Bytes image = BuildNewArrImage(NewArrFile(), "", "/songs/Untitled1", 1);
  EXPECT_EQ(At(image, 9), 0);
  EXPECT_EQ(At(image, 10), 0);
  EXPECT_EQ(At(image, 18), 0);
  EXPECT_EQ(image.size(), 42622U);
}

TEST(ArrImage, AttachingStylesReplacesThePartAndSetsTheState) {
  Bytes image = BuildArrImage(19, ArrFile(), "p", {});
  Bytes expected = image;
  Set(expected, 9, 2);
  AttachStyles(image, "first styles", 2);
  EXPECT_EQ(image, expected + "first styles");
  Set(expected, 9, 1);
  AttachStyles(image, "other", 1);
  EXPECT_EQ(image, expected + "other");
}

TEST(ArrImage, AttachingProgramsOverwritesTheBlanksAndNothingElse) {
  Bytes image = BuildArrImage(19, ArrFile(), "p", {});
  AttachStyles(image, "styles", 2);
  Bytes expected = image;
  std::mt19937 random(3);
  const std::string programs = RandomBytes(random, 30480);
  expected.replace(12142, 30480, programs);
  Set(expected, 6, 1);
  Set(expected, 19, 1);
  AttachPrograms(image, programs, true);
  EXPECT_EQ(image, expected);
  Set(expected, 19, 0);
  AttachPrograms(image, programs + "too long", false);
  EXPECT_EQ(image, expected);
}

TEST(ArrLabels, FactoryStylesReadLetterAndTwoDigits) {
  EXPECT_EQ(StyleLabel(0), "A11");
  EXPECT_EQ(StyleLabel(8), "A21");
  EXPECT_EQ(StyleLabel(63), "A88");
  EXPECT_EQ(StyleLabel(64), "B11");
  EXPECT_EQ(StyleLabel(127), "B88");
}

TEST(ArrLabels, UserStylesReadUAndGoOnInTheNextDecade) {
  EXPECT_EQ(UserStyleLabel(0), "U11");
  EXPECT_EQ(UserStyleLabel(7), "U18");
  EXPECT_EQ(UserStyleLabel(8), "U21");
  EXPECT_EQ(UserStyleLabel(15), "U28");
  EXPECT_EQ(UserStyleLabel(16), "U31");
}

// A window on a file whose record 5 has the given style and whose parts play other banks' programs.
class PrepareTest : public ::testing::Test {
 protected:
  PrepareTest() {
    image_ = BuildArrImage(19, ArrFile(), "/music/Live", {.window_number = 4});
    for (std::size_t part = 0; part < 9; ++part) SetPart(part, 10, 0);
  }

  void SetStyle(int number, int location) {
    Set(image_, kRecord + 17, number);
    Set(image_, kRecord + 18, location);
  }

  void SetPart(std::size_t part, int program, int bank_code) {
    Set(image_, kRecord + 39 + 8 * part, program);
    Set(image_, kRecord + 40 + 8 * part, bank_code);
  }

  void AttachStyleNamed(const std::string& name, int state) {
    std::string styles = "KORG" + Hand({0x4D, 0, 4, 1}) + Zeros(216);
    Set(styles, 25, 20);
    Set(styles, 29, 16);
    AttachStyles(image_, styles + Field("First", 20) + Field(name, 16), state);
  }

  Bytes Prepare() const { return PrepareEditRecord(image_, 5, FactoryName); }
  std::string StyleName() const { return Prepare().substr(164, 16); }
  std::string ProgramName(std::size_t part) const { return Prepare().substr(180 + 16 * part, 16); }

  static constexpr std::size_t kRecord = 303 + 164 * 5;
  Bytes image_;
};

TEST_F(PrepareTest, TheRecordAndItsOriginAreCopied) {
  const Bytes record = Prepare();
  ASSERT_EQ(record.size(), 567U);
  EXPECT_EQ(record.substr(0, 164), image_.substr(kRecord - 1, 164));
  EXPECT_EQ(record.substr(324, 5), Hand({19, 5, 4, 0, 0}));
  EXPECT_EQ(record.substr(329, 24), Field("Live", 24));
  EXPECT_EQ(record.substr(353), Zeros(567 - 353));
}

TEST_F(PrepareTest, ABaseNameOf24AndMoreIsCut) {
  image_.replace(20, 238, Field("/music/abcdefghijklmnopqrstuvwxyz", 238));
  EXPECT_EQ(Prepare().substr(329, 25), "abcdefghijklmnopqrstuvwx" + Zeros(1));
}

TEST_F(PrepareTest, AFactoryStyleShowsItsName) {
  for (const int location : {0, 2, 255}) {
    SetStyle(70, location);
    EXPECT_EQ(StyleName(), FactoryNames(70)) << location;
  }
  SetStyle(200, 0);
  EXPECT_EQ(StyleName(), Blanks(16));
}

TEST_F(PrepareTest, AUserStyleShowsTheNameOfTheSiblingFile) {
  AttachStyleNamed("My Style", 2);
  SetStyle(1, 1);
  EXPECT_EQ(StyleName(), Field("My Style", 16));
}

TEST_F(PrepareTest, AUserStyleWithoutASiblingShowsUserStyleAndItsNumber) {
  SetStyle(1, 1);
  EXPECT_EQ(StyleName(), Field("UserStyle1", 16));
  AttachStyleNamed("My Style", 1);
  EXPECT_EQ(StyleName(), Field("UserStyle1", 16));
  SetStyle(255, 1);
  EXPECT_EQ(StyleName(), Field("UserStyle255", 16));
}

TEST_F(PrepareTest, AUserStyleAboveFifteenIsNotClipped) {
  AttachStyleNamed("Sixteenth", 2);
  SetStyle(16, 1);
  // The sizes of the two entries are the only ones, so that entry 16 stands behind them.
  image_ += Field("Slot sixteen", 16);
  EXPECT_EQ(StyleName(), Field("Slot sixteen", 16));
}

TEST_F(PrepareTest, AUserProgramWithoutAFileShowsUserPrgAndItsNumber) {
  SetPart(0, 7, 3);
  SetPart(8, 63, 3);
  EXPECT_EQ(ProgramName(0), Field("UserPrg7", 16));
  EXPECT_EQ(ProgramName(8), Field("UserPrg63", 16));
  EXPECT_EQ(ProgramName(1), Blanks(16));
}

TEST_F(PrepareTest, AUserProgramShowsItsNameInTheAttachedFile) {
  std::string programs = Zeros(30480);
  programs.replace(48 + 7 * 172, 16, Field("Lead", 16));
  programs.replace(48 + 8 * 172, 16, Hand({1, 0, 5}) + Field("Linked", 13));
  programs.replace(48 + 9 * 172, 16, Blanks(16));
  AttachPrograms(image_, programs, false);
  SetPart(0, 7, 3);
  SetPart(1, 8, 3);
  SetPart(2, 9, 3);
  SetPart(3, 10, 3);
  EXPECT_EQ(ProgramName(0), Field("Lead", 16));
  EXPECT_EQ(ProgramName(1), Field("UserPrg8", 16)) << "a link";
  EXPECT_EQ(ProgramName(2), Field("UserPrg9", 16)) << "a blank name";
  EXPECT_EQ(ProgramName(3), Field("UserPrg10", 16)) << "a first byte of 0";
}

TEST_F(PrepareTest, NoImageAndNoIndexIsTooDamaged) {
  EXPECT_EQ(PrepareEditRecord("", 0, FactoryName).size(), 567U);
  std::mt19937 random(11);
  for (int round = 0; round < 300; ++round) {
    Bytes image = RandomBytes(random, static_cast<std::size_t>(RandomNumber(random, 0, 60000)));
    EXPECT_EQ(PrepareEditRecord(image, RandomNumber(random, -1, 300), FactoryName).size(), 567U);
  }
}

class StoreTest : public ::testing::Test {
 protected:
  StoreTest() : image_(BuildArrImage(19, ArrFile(), "/music/Live", {.window_number = 4})) {
    record_ = PrepareEditRecord(image_, 63, FactoryName);
    for (std::size_t position = 1; position <= 164; ++position) Set(record_, position, 0xC3);
  }
  Bytes image_;
  Bytes record_;
};

TEST_F(StoreTest, TheRecordGoesBackToItsPlaceAndMarksTheImageChanged) {
  Bytes expected = image_;
  expected.replace(302 + 164 * 63, 164, std::string(164, '\xC3'));
  Set(expected, 4, 1);
  EXPECT_EQ(StoreEditRecordBytes(image_, record_), kArrStored);
  EXPECT_EQ(image_, expected);
}

TEST_F(StoreTest, AReadOnlyFileStaysAsItIs) {
  Set(image_, 2, 1);
  const Bytes before = image_;
  EXPECT_EQ(StoreEditRecordBytes(image_, record_), kArrReadOnly);
  EXPECT_EQ(int{kArrReadOnly}, 1);
  EXPECT_EQ(image_, before);
}

TEST_F(StoreTest, ABankIsNotAskedWhetherItIsReadOnly) {
  for (const int kind : {2, 3}) {
    Bytes bank = BuildArrImage(kind, ArrFile(), "/data/i40ArrA", {.read_only = true});
    Set(record_, 325, kind);
    EXPECT_EQ(StoreEditRecordBytes(bank, record_), kArrStored);
    EXPECT_EQ(bank.substr(302 + 164 * 63, 164), std::string(164, '\xC3'));
  }
}

TEST_F(StoreTest, AnyOtherKindAndAnyOtherIndexStoreNothing) {
  const Bytes before = image_;
  for (int kind = 0; kind < 256; ++kind) {
    if (kind == 19 || kind == 2 || kind == 3) continue;
    Set(record_, 325, kind);
    EXPECT_EQ(StoreEditRecordBytes(image_, record_), kArrNoWindow) << kind;
  }
  Set(record_, 325, 19);
  Set(record_, 326, 64);
  EXPECT_EQ(StoreEditRecordBytes(image_, record_), kArrNoWindow);
  EXPECT_EQ(image_, before);
}

TEST(ArrCarried, BytesWithoutAMeaningSurviveAnEditAndASave) {
  const std::string file = ArrFile(9);
  Bytes image = BuildArrImage(19, file, "/music/Live", {});
  Bytes record = PrepareEditRecord(image, 20, FactoryName);
  PutByte(record, ArrEditPosition(arr_record::kTempo), 99);
  ASSERT_EQ(StoreEditRecordBytes(image, record), kArrStored);
  std::string expected = file;
  Set(expected, 33 + 164 * 20 + 21, 99);
  EXPECT_EQ(ArrFileBytes(image), expected);
}

}  // namespace
}  // namespace zentaline
