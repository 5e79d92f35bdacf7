// Records of any bytes in the program editor, and any hand: what the controls show of them, and that nothing changes
// but what the hand moves. What a control shows and stores is told here once more, by what each byte of a record means.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <tuple>

#include "tests/program/golden_table.h"
#include "tests/program/prg_editor_desk.h"
#include "ui/picture.h"

namespace zentaline::test {
namespace {

using ::testing::IsEmpty;

// The bytes of oscillator 2, and its lists and bars, come so much later.
constexpr int kOscBytes = 47;
constexpr int kOscLists = 21;
constexpr int kOscBars = 40;

constexpr std::size_t kFlags = 152;             // of the effects
constexpr std::size_t kOutputs[] = {150, 151};  // C and D: pans, or in PARALLEL 3 two levels of returns each
constexpr int kReturns = 3;

// A number between these bounds, two's complement; what lies outside of them stops at the upper one.
int Number(int byte, int low, int high) {
  if (byte <= high) return byte;
  return low < 0 && byte - 256 >= low ? byte - 256 : high;
}
std::optional<int> RowUpTo(int value, int last) {
  return value <= last ? std::optional<int>(value) : std::nullopt;
}
// Twelve steps down to twelve up.
std::optional<int> Steps(int byte) {
  const int step = byte > 127 ? byte - 256 : byte;
  return step >= -12 && step <= 12 ? std::optional<int>(step + 12) : std::nullopt;
}

struct Named {
  std::string array;
  int index;
};
Named NameOf(const ui::Control& control) {
  return {control.name(), std::stoi(control.FullName().substr(control.name().size() + 1))};
}

// What a list or a check box shows of a record; nothing where it stays as it was.
std::optional<int> Shown(const Named& control, const std::string& record) {
  const auto byte = [&record](int position) { return At(record, static_cast<std::size_t>(position)); };
  int index = control.index;
  if (control.array == "BasCheck") return byte(38) >> 7;
  if (control.array == "OscCheck") return byte(50 + kOscBytes * index) >> 7;
  if (control.array == "EffCheck") return byte(kFlags) >> (2 * index) & 1;
  if (control.array == "EffCombo") {
    if (index == 4) return RowUpTo(byte(kFlags) >> 4 & 7, 3);
    if (index == 0 || index == 2) {
      const int effect = byte(144 + index / 2);
      return effect <= 47 ? std::optional<int>(47 - effect) : std::nullopt;
    }
    // 4 means nothing; 5 and 6 are the last two.
    const int source = byte(index == 1 ? 161 : 171);
    if (source == 4) return std::nullopt;
    return RowUpTo(source > 4 ? source - 1 : source, 5);
  }
  if (control.array == "BasCombo") {
    switch (index) {
      case 0:
      case 1: {
        const int octave = byte(25 + index);
        const int row = 1 - (octave > 127 ? octave - 256 : octave);
        return row >= 0 && row <= 3 ? std::optional<int>(row) : std::nullopt;
      }
      case 2:
        return RowUpTo(byte(19) & 3, 1);
      case 3:
        return byte(20) & 1;
      case 4:
        return RowUpTo(byte(20) >> 1, 1);
      case 5:
        return Steps(byte(27));
      case 6:
        return Steps(byte(42));
      case 7:
        return Steps(byte(46));
      case 8:
        return RowUpTo(byte(38) & 7, 4);
      default:
        return 0;  // "OFF", whatever is stored
    }
  }
  const int start = index < kOscLists ? 0 : kOscBytes;
  index %= kOscLists;
  switch (index) {
    case 0:
      return byte(50 + start) & 3;
    case 1:
      return RowUpTo(byte(91 + start) >> 4, 9);
    case 2:
      return RowUpTo(byte(91 + start) & 15, 9);
    case 3:
      return RowUpTo(byte(94 + start) >> 4, 2);
    case 4:
      return RowUpTo(byte(94 + start) & 15, 2);
    default: {
      const int pair = byte(87 + (index - 5) / 4 + start) >> ((index - 5) % 4);
      switch (pair & 0x11) {
        case 0x11:
          return 0;
        case 0x00:
          return 1;
        case 0x01:
          return 2;
        default:
          return std::nullopt;  // the high bit alone has no row
      }
    }
  }
}

// The record after a list or a check box was put on a row.
void StoreRow(const Named& control, int row, std::string& record) {
  const auto put = [&record](int position, int mask, int value) {
    const auto at = static_cast<std::size_t>(position);
    Set(record, at, (At(record, at) & ~mask) | (value & mask));
  };
  int index = control.index;
  if (control.array == "BasCheck") return put(38, 0x80, row << 7);
  if (control.array == "OscCheck") return put(50 + kOscBytes * index, 0x80, row << 7);
  if (control.array == "EffCheck") return put(kFlags, 1 << (2 * index), row << (2 * index));
  if (control.array == "EffCombo") {
    if (index == 0 || index == 2) return put(144 + index / 2, 255, 47 - row);
    if (index != 4) return put(index == 1 ? 161 : 171, 255, row);  // the row itself, with the gap at 4
    put(kFlags, 0x70, row << 4);
    for (const std::size_t output : kOutputs) Set(record, output, row == kReturns ? 0x55 : 0);
    return;
  }
  if (control.array == "BasCombo") {
    switch (index) {
      case 0:
      case 1:
        return put(25 + index, 255, 1 - row);
      case 2:
        return put(19, 255, row);
      case 3:
        return put(20, 1, row);
      case 4:
        return put(20, 2, row << 1);
      case 5:
        return put(27, 255, row - 12);
      case 6:
        return put(42, 255, row - 12);
      case 7:
        return put(46, 255, row - 12);
      case 8:
        return put(38, 255, row);
      default:
        return put(38, 0x60, row << 5);
    }
  }
  const int start = index < kOscLists ? 0 : kOscBytes;
  index %= kOscLists;
  switch (index) {
    case 0:
      return put(50 + start, 7, row);
    case 1:
      return put(91 + start, 0xF0, row << 4);
    case 2:
      return put(91 + start, 0x0F, row);
    case 3:
    case 4:
      return;  // it goes out and isn't stored
    default: {
      const int pair = (index - 5) % 4;
      const int bits[] = {0x11, 0x00, 0x01};
      put(87 + (index - 5) / 4 + start, 0x11 << pair, bits[row] << pair);
    }
  }
}

// Of the bars that aren't in the table of plain ones.
std::optional<std::size_t> PositionOf(const Named& bar) {
  if (bar.array == "OscHScroll") return bar.index % kOscBars == 39 ? 95 + (bar.index > 39 ? kOscBytes : 0) : 0;
  if (bar.array != "EffHScroll") return std::nullopt;
  constexpr std::size_t kEffects[] = {146, 162, 148, 172, 150, 150, 151, 151};
  return kEffects[bar.index];
}

// The value of a bar by the record. In PARALLEL 3 four of them are the levels of the returns.
int ShownBar(const Named& bar, const std::string& record, bool returns) {
  for (const GoldenBar& golden : kGoldenBars) {
    if (golden.control != bar.array + "(" + std::to_string(bar.index) + ")") continue;
    return Number(At(record, static_cast<std::size_t>(golden.position)), golden.low, golden.high);
  }
  if (bar.array == "BasVScroll") {
    const std::size_t at = bar.index == 1 ? 21 : 23;
    return std::min(At(record, at) + 256 * At(record, at + 1), 518);
  }
  const int byte = At(record, *PositionOf(bar));
  if (bar.array == "OscHScroll") return byte == 255 ? 0 : std::min(byte, 31);
  if (bar.index == 1 || bar.index == 3) return Number(byte, -15, 15);
  if (bar.index < 4) return std::min(byte, 100);
  if (!returns) return std::min(byte, 101);
  return std::min(bar.index % 2 == 0 ? byte >> 4 : byte & 15, 9);
}

void StoreBar(const Named& bar, int value, std::string& record, bool returns) {
  for (const GoldenBar& golden : kGoldenBars) {
    if (golden.control != bar.array + "(" + std::to_string(bar.index) + ")") continue;
    return Set(record, static_cast<std::size_t>(golden.position), value & 255);
  }
  if (bar.array == "BasVScroll") {
    const std::size_t at = bar.index == 1 ? 21 : 23;
    Set(record, at, value % 256);
    return Set(record, at + 1, value / 256);
  }
  const std::size_t at = *PositionOf(bar);
  if (bar.array == "OscHScroll") return Set(record, at, (value - 1) & 255);
  if (bar.index < 4 || !returns) return Set(record, at, value & 255);
  const int byte = At(record, at);
  Set(record, at, bar.index % 2 == 0 ? (byte & 0x0F) | value << 4 : (byte & 0xF0) | value);
}

std::string AnyRecord(std::mt19937& random) {
  std::string record = RandomBytes(random, 172);
  // An empty place is no record.
  if (record[0] == 1) record[0] = 'x';
  return record;
}

class PrgEditorWalk : public ::testing::Test {
 protected:
  std::vector<ui::Control*> Controls(std::initializer_list<ui::ControlKind> kinds) {
    std::vector<ui::Control*> controls;
    for (ui::Control* control : desk_.program.toolkit.FindForm("frmEditPrg")->controls()) {
      if (std::find(kinds.begin(), kinds.end(), control->kind()) != kinds.end()) controls.push_back(control);
    }
    return controls;
  }
  // By the list of placements, which stays where it was for a byte that has no row.
  bool Returns() { return desk_.Shows("EffCombo(4)") == kReturns; }
  // One move by hand, as the record has to take it.
  void Move(const ui::Control& control, int value) {
    SCOPED_TRACE(control.FullName() + " to " + std::to_string(value));
    const std::string before = HexText(record_);
    ASSERT_TRUE(desk_.Move(control.FullName(), value));
    const Named name = NameOf(control);
    if (control.kind() == ui::ControlKind::kScrollBar) {
      StoreBar(name, value, record_, Returns());
    } else {
      StoreRow(name, value, record_);
    }
    ASSERT_EQ(HexText(desk_.Record()), HexText(record_)) << "it was " << before;
  }

  PrgEditorDesk desk_;
  std::string record_;  // as it has to be
};

TEST_F(PrgEditorWalk, TheControlsShowWhatAnyRecordSays) {
  std::mt19937 random(17);
  for (int round = 0; round < 40; ++round) {
    const std::string record = AnyRecord(random);
    std::map<std::string, int> before;
    for (ui::Control* list : Controls({ui::ControlKind::kComboBox}))
      before[list->FullName()] = desk_.Shows(list->FullName());
    desk_.TakeUp(record);
    for (ui::Control* bar : Controls({ui::ControlKind::kScrollBar})) {
      if (!bar->visible()) continue;
      EXPECT_EQ(desk_.Shows(bar->FullName()), ShownBar(NameOf(*bar), record, Returns()))
          << bar->FullName() << HexText(record);
    }
    for (ui::Control* each : Controls({ui::ControlKind::kComboBox, ui::ControlKind::kCheckBox})) {
      const int shown = Shown(NameOf(*each), record).value_or(before[each->FullName()]);
      EXPECT_EQ(desk_.Shows(each->FullName()), shown) << each->FullName() << HexText(record);
    }
    EXPECT_EQ(HexText(desk_.Record()), HexText(record)) << "looking changes nothing";
    EXPECT_FALSE(desk_.state().ProgramChanged);
  }
  EXPECT_THAT(desk_.Wire(), IsEmpty());
}

// Through every bar, every list and every box, in any order, and back to where each stood.
TEST_F(PrgEditorWalk, AWalkThroughEveryControlAndBackLeavesOnlyWhatWasMoved) {
  std::mt19937 random(11);
  for (int round = 0; round < 6; ++round) {
    record_ = AnyRecord(random);
    desk_.TakeUp(record_);
    std::vector<ui::Control*> controls =
        Controls({ui::ControlKind::kScrollBar, ui::ControlKind::kComboBox, ui::ControlKind::kCheckBox});
    std::shuffle(controls.begin(), controls.end(), random);
    int moved = 0;
    for (ui::Control* control : controls) {
      if (!control->Usable()) continue;
      const int before = desk_.Shows(control->FullName());
      int low = 0;
      int high = 1;
      if (auto* bar = dynamic_cast<ui::ScrollBar*>(control))
        std::tie(low, high) = std::minmax({bar->min(), bar->max()});
      if (auto* list = dynamic_cast<ui::ComboBox*>(control)) high = list->rows() - 1;
      for (const int value :
           {low, high, low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1)), before}) {
        // Where it stands already nothing is moved; a list without a row can't be put back.
        if (value < 0 && control->kind() == ui::ControlKind::kComboBox) continue;
        if (value == desk_.Shows(control->FullName())) continue;
        Move(*control, value);
        if (HasFatalFailure()) return;
        ++moved;
      }
    }
    EXPECT_GT(moved, 300);
    EXPECT_TRUE(desk_.state().ProgramChanged);
  }
}

// --- A hand on a picture ---

class PrgEditorDrag : public PrgEditorWalk {
 protected:
  ui::Picture& Envelope(int index) {
    return *desk_.Find<ui::Picture>("frmEditPrg.EGPicture(" + std::to_string(index) + ")");
  }
  int Actions() { return static_cast<int>(desk_.program.app.edits.actions().size()); }
};

// Outside of the picture the hand is at its edge: the values stop at the ends of their ranges.
TEST_F(PrgEditorDrag, EndsInsideThePicture) {
  ASSERT_TRUE(Envelope(1).UserDrag(0, 99999, -99999));
  EXPECT_EQ(desk_.Byte(66), 99) << "attack time of the filter";
  EXPECT_EQ(desk_.Byte(67), 99) << "and its level";
  ASSERT_TRUE(Envelope(1).UserDrag(0, -99999, 99999));
  EXPECT_EQ(desk_.Byte(66), 0);
  EXPECT_EQ(desk_.Byte(67), 256 - 99);
  ASSERT_TRUE(Envelope(4).UserDrag(3, 1001, -1));
  EXPECT_EQ(desk_.Byte(133), 99);
  ASSERT_TRUE(Envelope(4).UserDrag(3, -1, 1001));
  EXPECT_EQ(desk_.Byte(133), 0) << "release time of the second amplifier";
}

TEST_F(PrgEditorDrag, AnywhereMovesOnlyTheBarsOfItsPoint) {
  std::mt19937 random(23);
  for (int round = 0; round < 200; ++round) {
    record_ = PlainProgram();
    for (std::size_t position = 30; position <= 142; ++position)
      Set(record_, position, static_cast<int>(random() % 10));
    desk_.TakeUp(record_);
    const int picture = static_cast<int>(random() % 5);
    const int handle = static_cast<int>(random() % 4);
    const auto place = [&random] { return static_cast<int>(random() % 200000) - 100000; };
    const int before = Actions();
    Envelope(picture).UserDrag(handle, place(), place());
    EXPECT_LE(Actions(), before + 1) << "one drag is one action";
    constexpr std::size_t kFirst[] = {30, 66, 80, 113, 127};
    const std::string after = desk_.Record();
    int changed = 0;
    for (std::size_t position = 1; position <= 172; ++position) {
      if (At(after, position) == At(record_, position)) continue;
      ++changed;
      EXPECT_GE(position, kFirst[picture]);
      EXPECT_LT(position, kFirst[picture] + 8);
    }
    EXPECT_LE(changed, 2);
  }
}

// The port says so once, then nothing more goes out; the record keeps what was moved.
TEST_F(PrgEditorDrag, APortThatFailsInItsMiddleIsToldOnceAndTheRecordKeepsTheValues) {
  for (const int good : {0, 1, 2}) {
    PrgEditorDesk desk;
    auto& picture = *desk.Find<ui::Picture>("frmEditPrg.EGPicture(1)");
    ASSERT_TRUE(picture.UserTake(0));
    int drag = 0;
    for (const int y : {900, 500, 100}) {
      if (drag++ == good) desk.program.midi.Fail("midiOutLongMsg", 5, 1);
      ASSERT_TRUE(picture.UserDrag(0, 1000 - y, y));
    }
    picture.UserLetGo();
    EXPECT_EQ(desk.program.Boxes().size(), 1U) << good;
    desk.Wire();
    const int time = desk.Byte(66);
    const int level = desk.Byte(67);
    EXPECT_GT(time, 0);
    EXPECT_GT(level, 0);
    EXPECT_EQ(desk.Shows("OscHScroll(16)"), time);
    EXPECT_EQ(desk.Shows("OscHScroll(17)"), level);
    EXPECT_TRUE(desk.state().ProgramChanged);
    desk.Move("OscHScroll(9)", 40);
    EXPECT_THAT(desk.Wire(), IsEmpty()) << "silence";
    EXPECT_THAT(desk.program.Boxes(), IsEmpty());
    EXPECT_EQ(desk.Byte(59), 40);
  }
}

}  // namespace
}  // namespace zentaline::test
