#include "record/field_text.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "record/arrangement_fields.h"
#include "record/global_fields.h"
#include "record/program_fields.h"

namespace zentaline {
namespace {

constexpr Field kBalance = FieldOf(program_fields::kCommon, "balance1");
constexpr Field kRatio = FieldOf(program_fields::kCommon, "cpan");
constexpr Field kPan = FieldOf(program_fields::kOscillator, "pan#");
constexpr Field kPartPan = FieldOf(kPartFields, "#.pan");
constexpr Field kTranspose = FieldOf(kArrCommonFields, "transpose");
constexpr Field kKey = FieldOf(program_fields::kOscillator, "vdf#.key");

TEST(FieldText, ShowsWhatAMusicianReads) {
  EXPECT_EQ(FieldText(kBalance, 0), "DRY");
  EXPECT_EQ(FieldText(kBalance, 1), "1");
  EXPECT_EQ(FieldText(kBalance, 100), "FX");
  EXPECT_EQ(FieldText(kRatio, 0), "OFF");
  EXPECT_EQ(FieldText(kRatio, 1), "R");
  EXPECT_EQ(FieldText(kRatio, 2), "1:99");
  EXPECT_EQ(FieldText(kRatio, 51), "50:50");
  EXPECT_EQ(FieldText(kRatio, 100), "99:1");
  EXPECT_EQ(FieldText(kRatio, 101), "L");
  EXPECT_EQ(FieldText(kPan, 0), "OFF");
  EXPECT_EQ(FieldText(kPan, 1), "L15");
  EXPECT_EQ(FieldText(kPan, 15), "L1");
  EXPECT_EQ(FieldText(kPan, 16), "CNT");
  EXPECT_EQ(FieldText(kPan, 17), "R1");
  EXPECT_EQ(FieldText(kPan, 31), "R15");
  EXPECT_EQ(FieldText(kPartPan, 1), "OFF");
  EXPECT_EQ(FieldText(kPartPan, 17), "CNT");
  EXPECT_EQ(FieldText(kPartPan, 33), "PRG");
  EXPECT_EQ(FieldText(kKey, 0), "C-1");
  EXPECT_EQ(FieldText(kKey, 60), "C4");
  EXPECT_EQ(FieldText(kKey, 61), "C#4");
  EXPECT_EQ(FieldText(kKey, 127), "G9");
  EXPECT_EQ(FieldText(FieldOf(global_fields::kCommon, "midi.velocity"), 0), "Normal");
  EXPECT_EQ(SplitNoteName(61), "C4#");
  EXPECT_EQ(SplitNoteName(0), "C2");
}

TEST(FieldText, ListsOfNumbersTakeThemWithAndWithoutTheSign) {
  EXPECT_EQ(ValueOfText(kTranspose, "+3"), 8);
  EXPECT_EQ(ValueOfText(kTranspose, "3"), 8);
  EXPECT_EQ(ValueOfText(kTranspose, "-11"), 22);
  EXPECT_EQ(ValueOfText(kTranspose, "12"), std::nullopt);
  EXPECT_EQ(ValueOfText(kTranspose, ""), std::nullopt);
  EXPECT_EQ(ValueOfText(kBalance, "101"), std::nullopt);
}

template <typename Test>
void ForEach(std::span<const FieldBlock> blocks, Test test) {
  for (const FieldBlock& block : blocks) {
    for (const Field& field : block.fields) test(field, block);
  }
}

TEST(FieldText, EveryTextComesBackToAValueThatIsShownSo) {
  const auto test = [](const Field& field, const FieldBlock&) {
    for (int shown = field.range.low; shown <= field.range.high; ++shown) {
      const std::string text = FieldText(field, shown);
      const std::optional<int> back = ValueOfText(field, text);
      ASSERT_TRUE(back.has_value()) << field.key << " " << text;
      EXPECT_EQ(FieldText(field, *back), text) << field.key;
    }
  };
  ForEach(kArrangementFields, test);
  ForEach(kProgramFields, test);
  ForEach(kGlobalFields, test);
}

TEST(FieldText, KeysCarryTheTagOfTheirBlock) {
  EXPECT_EQ(FieldKey(kKey, kOscBlock, 1), "vdf2.key");
  EXPECT_EQ(FieldKey(kPartPan, kPartBlock, 6), "upper1.pan");
  EXPECT_EQ(FieldKey(kBalance, kPrgCommonBlock, 0), "balance1");
  std::set<std::string> keys;
  const auto test = [&keys](const Field& field, const FieldBlock& block) {
    for (int n = 0; n < block.count(); ++n) EXPECT_TRUE(keys.insert(FieldKey(field, block, n)).second) << field.key;
  };
  ForEach(kProgramFields, test);
  keys.clear();
  ForEach(kArrangementFields, test);
  keys.clear();
  ForEach(kGlobalFields, test);
}

TEST(FieldText, TellsWhatAFieldBelongsTo) {
  EXPECT_EQ(FieldOwner(kKey, kOscBlock, 1), "VDF, OSC-2");
  EXPECT_EQ(FieldOwner(kPartPan, kPartBlock, 6), "UPPER1");
  EXPECT_EQ(FieldOwner(kBalance, kPrgCommonBlock, 0), "FX 1");
  EXPECT_EQ(FieldOwner(FieldOf(kArrCommonFields, "tempo"), kArrCommonBlock, 0), "");
}

}  // namespace
}  // namespace zentaline
