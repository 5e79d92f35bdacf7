// The controls of the arrangement editor, one line each: what of the record they show, in which range or list, how a
// row or a position becomes the stored value, and which arrangement parameter tells the instrument.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>

#include "arrangement/arr_format.h"
#include "data/choices.h"

namespace zentaline {

// The arrays of controls that edit the record.
enum class EditArray { kVScroll1, kHScroll1, kCombo1, kCombo2, kCheck1, kEffCombo };

// Bits of one byte. A store takes over the bits `keep` from the byte as it was.
struct EditField {
  std::size_t offset;  // from the record's start; of a part's control from the block's
  int shift = 0;
  int mask = 0xFF;  // behind the shift
  int keep = 0;
};

// What is shown: rows of a list, 0 or 1 of a check box, or the values of a scroll bar from its top or left to its other
// end.
struct EditRange {
  int first;
  int last;
  int page = 10;
};

// The stored value is base + step * shown; one below zero is stored as 256 more, and sent with the sign.
struct EditCode {
  int base = 0;
  int step = 1;
};

// A byte above `greatest`, and one whose value can't be shown, is shown as if the field held `instead`.
struct EditDoubt {
  int instead = 0;
  int greatest = 0xFF;
};

// What is written beside a control.
enum class EditLabel { kNone, kNumber, kNote, kPan, kEffect };

// Where the handler stores.
enum class EditStore {
  kField,
  kLastPosition,  // where the edit before it did
  kNowhere,       // it chooses what the bar of the drum maps shows
};

inline constexpr int kNotSent = -1;

struct EditRow {
  EditArray array;
  int index;  // of a part's control that of part 0
  std::string_view caption;
  EditField field;
  EditRange range;
  std::span<const std::string_view> list = {};  // of lists
  EditCode code = {};
  EditDoubt doubt = {};
  int id = kNotSent;  // of a part's control that of part 0
  EditLabel label = EditLabel::kNone;
  int label_index = 0;  // of Label1, EffLab1; of a part's control that of Label2 for part 0
  EditStore store = EditStore::kField;
  bool sends_shown = false;  // in place of the stored value, and before it is stored
  int sent_to = 0xFF;        // the greatest stored value that is sent
  unsigned silent_parts = 0;

  constexpr EditRow Labelled(EditLabel shown_as, int at) const {
    EditRow row = *this;
    row.label = shown_as;
    row.label_index = at;
    return row;
  }
  constexpr EditRow Stored(EditStore where) const {
    EditRow row = *this;
    row.store = where;
    return row;
  }
  constexpr EditRow SendsShown() const {
    EditRow row = *this;
    row.sends_shown = true;
    return row;
  }
  constexpr EditRow SentTo(int greatest) const {
    EditRow row = *this;
    row.sent_to = greatest;
    return row;
  }
  constexpr EditRow Silent(std::initializer_list<ArrPart> parts) const {
    EditRow row = *this;
    for (const ArrPart part : parts) row.silent_parts |= 1U << static_cast<unsigned>(part);
    return row;
  }
  constexpr bool SilentIn(int part) const { return (silent_parts >> static_cast<unsigned>(part) & 1U) != 0; }
};

inline constexpr EditRange kSwitch = {0, 1};

constexpr EditField Bit(std::size_t offset, int bit) {
  return {offset, bit, 1, 0xFF & ~(1 << bit)};
}

inline constexpr int kTempoLeftOut = 30;  // beats a minute that the stored tempo is short of

using enum EditArray;

// clang-format off
inline constexpr EditRow kEditRows[] = {
    EditRow{kVScroll1, 0, "Tempo", {arr_record::kTempo}, {40, 240}, {}, {-kTempoLeftOut}, {10}, 0x00}.Labelled(EditLabel::kNumber, 0).SendsShown(),
    EditRow{kHScroll1, 0, "Split Point", {arr_record::kSplitPoint}, {36, 96, 12}, {}, {}, {60}, 0x02}.Labelled(EditLabel::kNote, 3),
    {kCombo1, 0, "Keyboard Assign", {arr_record::kKeyboardAssign}, {0, 10}, kKeyboardAssigns},
    {kCombo1, 1, "Fill 1", {arr_record::kFill1}, {0, 12}, kFills, {}, {}, 0x04},
    {kCombo1, 2, "Fill 2", {arr_record::kFill2}, {0, 12}, kFills, {}, {}, 0x05},
    {kCombo1, 3, "Init. Var.", {arr_record::kInitialVariation}, {0, 3}, kVariations},
    {kCombo1, 4, "Transpose", {arr_record::kTranspose}, {0, 22}, kTransposes, {11, -1}, {11}, 0x03},
    EditRow{kCombo1, 5, "", {arr_record::kDrumMap}, {0, 3}, kMapVariations}.Stored(EditStore::kNowhere),
    // The field is the first variation's; the others follow it.
    EditRow{kHScroll1, 1, "DDrumMap", {arr_record::kDrumMap}, {1, 8, 1}, {}, {}, {1}}.Labelled(EditLabel::kNumber, 4),
    // Kick and snare are shown but never written: the list's row goes where the edit before it went. Their bytes change
    // only with a whole record that is pasted; that is wanted.
    EditRow{kCombo1, 6, "Kick Designation", {arr_record::kKick}, {0, 3}, kDesignations}.Stored(EditStore::kLastPosition),
    EditRow{kCombo1, 7, "Snare Designation", {arr_record::kSnare}, {0, 3}, kDesignations}.Stored(EditStore::kLastPosition),
    {kCombo1, 8, "Type", {arr_record::kEnsemble, 0, 0x7F, 0x80}, {0, 9}, kEnsembles},
    {kCheck1, 9, "Sw", Bit(arr_record::kEnsemble, 7), kSwitch},
    // The second eight kits can be chosen, but a record that holds one shows the first kit; that is wanted.
    {kCombo1, 9, "ManDrumKit", {arr_record::kManualDrumKit}, {0, 15}, kDrumKits, {}, {0, 7}},
    {kCheck1, 0, "Dynamic Velocity", Bit(arr_record::kSwitches1, 0), kSwitch},
    {kCheck1, 1, "Tempo Lock", Bit(arr_record::kSwitches1, 1), kSwitch},
    {kCheck1, 2, "KBD1 Damp En", Bit(arr_record::kSwitches1, 2), kSwitch, {}, {}, {}, 0x4F},
    {kCheck1, 3, "KBD2 Damp En", Bit(arr_record::kSwitches1, 3), kSwitch, {}, {}, {}, 0x59},
    {kCheck1, 4, "Chord Scan Low", Bit(arr_record::kSwitches2, 0), kSwitch},
    {kCheck1, 5, "Chord Scan High", Bit(arr_record::kSwitches2, 1), kSwitch},
    {kCheck1, 6, "Bass Inversion", Bit(arr_record::kSwitches2, 2), kSwitch},
    {kCheck1, 7, "Chord Hold", Bit(arr_record::kSwitches2, 3), kSwitch},
    {kCheck1, 8, "Chord Latch", Bit(arr_record::kSwitches2, 4), kSwitch, {}, {}, {}, 0x01},
    EditRow{kEffCombo, 0, "Effect 1", {arr_record::kEffect1}, {0, 47}, kEffects, {47, -1}, {}, 0x06}.Labelled(EditLabel::kEffect, 0),
    EditRow{kEffCombo, 1, "Effect 2", {arr_record::kEffect2}, {0, 47}, kEffects, {47, -1}, {}, 0x08}.Labelled(EditLabel::kEffect, 1),
};

// Of each of the nine parts. A status byte above 11 shows as BOTH and PLAY.
inline constexpr EditRow kPartRows[] = {
    EditRow{kVScroll1, 1, "VOL", {part_block::kVolume}, {127, 0}, {}, {}, {100}, 0x0B}.Labelled(EditLabel::kNumber, 1),
    EditRow{kVScroll1, 2, "PAN", {part_block::kPan}, {1, 33, 5}, {}, {-2}, {15}, 0x0C}.Labelled(EditLabel::kPan, 2),
    {kCombo2, 0, "C Send L", {part_block::kSends, 0, 0x0F, 0xF0}, {0, 10}, kSends, {10, -1}, {10}, 0x0D},
    {kCombo2, 1, "D Send L", {part_block::kSends, 4, 0x0F, 0x0F}, {0, 10}, kSends, {10, -1}, {10}, 0x0E},
    EditRow{kCombo2, 2, "Octave", {part_block::kOctave}, {0, 4}, kOctaves, {2, -1}, {}, 0x10}.Silent({kPartDrum, kPartPercussion}),
    EditRow{kCombo2, 3, "Out Status1", {part_block::kStatus, 0, 0x03, 0x0C}, {0, 3}, kOutStatus1, {}, {3, 11}, 0x11}.Silent({kPartUpper2, kPartLower}),
    // The instrument knows playing and muted; a solo stays in the record.
    EditRow{kCombo2, 4, "Out Status2", {part_block::kStatus, 2, 0x03, 0x03}, {0, 2}, kOutStatus2, {}, {0, 11}, 0x0F}.SentTo(1),
    EditRow{kCombo2, 5, "W-Around", {part_block::kWrapAround}, {0, 12}, kWrapArounds, {11, -1}, {11}, 0x12}.Silent({kPartDrum, kPartPercussion, kPartUpper2, kPartLower}),
};
// clang-format on

// From one part to the next.
inline constexpr int kPartIdStep = 0x0A;
inline constexpr int kPartBarStep = 2;
inline constexpr int kPartListStep = 6;

inline constexpr int kMuteId = 0x0F;  // of part 0; 1 muted, 0 playing
inline constexpr int kEffectSwitchIds[] = {0x07, 0x09};

constexpr int IndexStep(EditArray array) {
  return array == EditArray::kCombo2 ? kPartListStep : kPartBarStep;
}

struct EditValue {
  int stored;  // 0 to the field's mask
  bool negative;
};

// Of a row or a position of a bar.
constexpr EditValue StoredValue(const EditRow& row, int shown) {
  const int value = row.code.base + row.code.step * shown;
  return {value & row.field.mask, value < 0};
}

// What a byte shows, inside the range whatever it holds.
constexpr int ShownValue(const EditRow& row, int byte) {
  const int low = std::min(row.range.first, row.range.last);
  const int high = std::max(row.range.first, row.range.last);
  const int value = byte > row.doubt.greatest ? row.doubt.instead : byte >> row.field.shift & row.field.mask;
  const int shown = (value - row.code.base) * row.code.step & 0xFF;
  if (shown >= low && shown <= high) return shown;
  return (row.doubt.instead - row.code.base) * row.code.step & 0xFF;
}

// The byte after a store, its other bits as the field says.
constexpr int StoredByte(const EditRow& row, int old_byte, int stored) {
  return (old_byte & row.field.keep) | stored << row.field.shift;
}

namespace editor_check {

constexpr bool ListFits(const EditRow& row) {
  return row.list.empty() || (row.range.first == 0 && static_cast<std::size_t>(row.range.last) + 1 == row.list.size());
}

// Every value of the range comes back from the byte that it is stored as, and none spills into other bits.
constexpr bool RangeFits(const EditRow& row) {
  if ((row.field.keep & row.field.mask << row.field.shift) != 0) return false;
  const int low = std::min(row.range.first, row.range.last);
  const int high = std::max(row.range.first, row.range.last);
  for (int shown = low; shown <= high; ++shown) {
    const int byte = StoredByte(row, 0, StoredValue(row, shown).stored);
    if (byte > 0xFF) return false;
    if (byte <= row.doubt.greatest && ShownValue(row, byte) != shown) return false;
  }
  const int doubtful = ShownValue(row, StoredByte(row, 0, row.doubt.instead));
  return doubtful >= low && doubtful <= high;
}

template <std::size_t kCount>
constexpr bool Fit(const EditRow (&rows)[kCount], std::size_t length) {
  return std::all_of(std::begin(rows), std::end(rows), [length](const EditRow& row) {
    const bool is_list =
        row.array == EditArray::kCombo1 || row.array == EditArray::kCombo2 || row.array == EditArray::kEffCombo;
    return row.field.offset < length && ListFits(row) && RangeFits(row) && is_list == !row.list.empty();
  });
}

static_assert(Fit(kEditRows, kArrRecordLength));
static_assert(Fit(kPartRows, part_block::kLength));
static_assert(PartOffset(kArrPartCount) <= kArrRecordLength);
static_assert(arr_record::kDrumMap + kMapVariations.size() <= kArrRecordLength);

}  // namespace editor_check

}  // namespace zentaline
