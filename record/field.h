// What the bytes of a record mean, said once: each field with its place, its range, its coding, and how it is shown.
// Editors, the factory tool and whatever else looks into a record read the tables made of these. Offsets count from 0,
// from the start of the field's block.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

// How a value stands in its bytes.
enum class FieldCoding : std::uint8_t {
  kBits,      // in bits of one byte, as many as the mask has
  kWord,      // in two bytes, the low one first
  kPolarity,  // in the bits `shift` and `shift` + 4: 0 sets both, 1 clears both, 2 sets the low one
  kCodes,     // in one byte, by a table of codes
  kText,      // a name, padded with blanks; the greatest value is its length
};

// What a musician sees of a value.
enum class FieldView : std::uint8_t {
  kNumber,
  kList,       // a row of the list
  kSwitch,     // off and on
  kNote,       // 60 is "C4", 61 "C#4"
  kSplitNote,  // 60 is "C4", 61 "C4#"
  kPan,        // 0 "OFF", 1 to 15 "L15" to "L1", 16 "CNT", 17 to 31 "R1" to "R15"
  kPartPan,    // the same from 1 on, with 33 "PRG"
  kBalance,    // 0 "DRY", 100 "FX", numbers between
  kRatio,      // 0 "OFF", 1 "R", 101 "L", between them 1:99 for 2 to 99:1 for 100
  kNormal,     // 0 "Normal", else the number
};

// The bits of a field. A store takes over the bits `keep` from the byte as it was.
struct FieldPlace {
  std::size_t offset;
  int shift = 0;
  int mask = 0xFF;  // behind the shift
  int keep = 0;
};

constexpr FieldPlace Bits(std::size_t offset, int shift, int mask) {
  return {offset, shift, mask, 0xFF & ~(mask << shift)};
}
constexpr FieldPlace Bit(std::size_t offset, int bit) {
  return Bits(offset, bit, 1);
}

// As a musician counts; of a list its rows.
struct FieldRange {
  int low;
  int high;
};
inline constexpr FieldRange kSwitchRange = {0, 1};

// The coded value is base + step * shown; one below zero is stored as its two's complement.
struct FieldCode {
  int base = 0;
  int step = 1;
};

// What bytes mean that stand for no value of the range.
struct FieldDoubt {
  enum Is : std::uint8_t {
    kStops,   // a bar stops at its nearer end
    kStays,   // a list is left as it was
    kInstead  // shown as if the field held `instead`; bytes above `greatest` are doubtful too
  };
  Is is = kStops;
  int instead = 0;
  int greatest = 0xFF;
};
inline constexpr FieldDoubt kStopsAtEnd = {FieldDoubt::kStops};
inline constexpr FieldDoubt kListStays = {FieldDoubt::kStays};
constexpr FieldDoubt ShownAs(int instead, int greatest = 0xFF) {
  return {FieldDoubt::kInstead, instead, greatest};
}

struct Field {
  std::string_view key;    // in scripts and tables; "#" stands for the tag of its block, as in "vdf#.cutoff"
  std::string_view group;  // what it belongs to within its block, in a musician's words
  std::string_view name;
  FieldPlace place;
  FieldRange range;
  FieldView view = FieldView::kNumber;
  std::span<const std::string_view> list = {};
  FieldCode code = {};
  FieldDoubt doubt = {};
  FieldCoding coding = FieldCoding::kBits;
  std::span<const std::uint8_t> codes = {};
  bool shares_bits = false;  // its bits are another field's as well; which of them counts, a third one tells

  constexpr std::size_t Width() const {
    if (coding == FieldCoding::kText) return static_cast<std::size_t>(range.high);
    return coding == FieldCoding::kWord ? 2 : 1;
  }
  constexpr bool IsList() const { return view == FieldView::kList; }
};

// Fields that a record has once or several times over, as the nine parts.
struct FieldBlock {
  std::span<const Field> fields;
  std::size_t start = 0;  // of the first one in the record
  std::size_t length = 0;
  std::span<const std::string_view> tags;   // what "#" stands for in keys; as many as there are blocks
  std::span<const std::string_view> names;  // in a musician's words

  constexpr int count() const { return static_cast<int>(tags.size()); }
  constexpr std::size_t StartOf(int n) const { return start + length * static_cast<std::size_t>(n); }
};
inline constexpr std::array<std::string_view, 1> kNoTag = {""};

// --- Values ---

// No value of any field. An editor asks for hundreds at once, which takes half as long as with std::optional.
inline constexpr int kNotShown = std::numeric_limits<int>::min();

// What a value is coded as, negative where the coding has a sign; a polarity as its shown value.
constexpr int CodedValue(const Field& field, int shown) {
  if (field.coding == FieldCoding::kCodes) {
    return shown >= 0 && static_cast<std::size_t>(shown) < field.codes.size()
               ? field.codes[static_cast<std::size_t>(shown)]
               : 0;
  }
  return field.code.base + field.code.step * shown;
}

namespace field_coding {

constexpr int kPairDistance = 4;
constexpr int kPairMask = 0x11;
constexpr int kPolarityMinus = 0;
constexpr int kPolarityNone = 1;
constexpr int kPolarityPlus = 2;

// Both bits set is "-", both clear "0", the low one "+"; the high one alone is none of these.
constexpr int PolarityOf(int bits) {
  switch (bits & kPairMask) {
    case kPairMask:
      return kPolarityMinus;
    case 1:
      return kPolarityPlus;
    case 0:
      return kPolarityNone;
    default:
      return kNotShown;
  }
}
constexpr int PolarityBits(int shown) {
  if (shown == kPolarityNone) return 0;
  return shown == kPolarityMinus ? kPairMask : 1;
}

constexpr bool Inside(FieldRange range, int value) {
  return value >= range.low && value <= range.high;
}

// The value of the range that the raw bytes stand for; kNotShown when there is none.
constexpr int Decoded(const Field& field, int raw) {
  const auto in_range = [&field](int shown) { return Inside(field.range, shown); };
  switch (field.coding) {
    case FieldCoding::kPolarity:
      return PolarityOf(raw >> field.place.shift);
    case FieldCoding::kCodes: {
      const auto code = std::find(field.codes.begin(), field.codes.end(), raw);
      if (code == field.codes.end()) return kNotShown;
      return static_cast<int>(code - field.codes.begin());
    }
    case FieldCoding::kText:
      return kNotShown;
    case FieldCoding::kWord:
      return in_range(raw) ? raw : kNotShown;
    case FieldCoding::kBits:
      break;
  }
  if (field.doubt.is == FieldDoubt::kInstead && raw > field.doubt.greatest) return kNotShown;
  const int values = field.place.mask + 1;
  const int shown = ((raw >> field.place.shift & field.place.mask) - field.code.base) * field.code.step;
  if (in_range(shown)) return shown;
  if (in_range(shown - values)) return shown - values;
  return in_range(shown + values) ? shown + values : kNotShown;
}

}  // namespace field_coding

// What is shown of the raw bytes (one, or a word); kNotShown where a list is left as it was.
constexpr int ShownOrNot(const Field& field, int raw) {
  const int shown = field_coding::Decoded(field, raw);
  if (shown != kNotShown) return shown;
  switch (field.doubt.is) {
    case FieldDoubt::kStays:
      return kNotShown;
    case FieldDoubt::kInstead:
      return field_coding::Decoded(field, field.doubt.instead << field.place.shift);
    case FieldDoubt::kStops:
      break;
  }
  const int masked = field.coding == FieldCoding::kWord ? raw : raw >> field.place.shift & field.place.mask;
  return std::clamp((masked - field.code.base) * field.code.step, field.range.low, field.range.high);
}

constexpr std::optional<int> ShownOf(const Field& field, int raw) {
  const int shown = ShownOrNot(field, raw);
  return shown == kNotShown ? std::nullopt : std::optional<int>(shown);
}

// The raw bytes after a store of a coded value, the bits beside it as the field keeps them.
constexpr int RawAfterCoded(const Field& field, int raw, int coded) {
  const int kept = raw & field.place.keep;
  switch (field.coding) {
    case FieldCoding::kPolarity:
      return kept | field_coding::PolarityBits(coded) << field.place.shift;
    case FieldCoding::kWord:
      return coded & 0xFFFF;
    default:
      return kept | (coded & field.place.mask) << field.place.shift;
  }
}
constexpr int RawAfter(const Field& field, int raw, int shown) {
  return RawAfterCoded(field, raw, CodedValue(field, shown));
}

// The bytes of a field in a record or an image; `start` is the position of its block.
inline int RawAt(const Field& field, std::string_view bytes, std::size_t start) {
  const std::size_t position = start + field.place.offset;
  return field.coding == FieldCoding::kWord ? WordLowFirst(bytes, position) : ByteAt(bytes, position);
}
inline std::optional<int> ShownAt(const Field& field, std::string_view bytes, std::size_t start) {
  return ShownOf(field, RawAt(field, bytes, start));
}
// As they are written: one byte, or two.
class RawBytes {
 public:
  RawBytes(const Field& field, int raw)
      : bytes_{static_cast<char>(raw), static_cast<char>(raw >> 8)}, width_(field.Width()) {}
  operator std::string_view() const { return {bytes_, width_}; }

 private:
  char bytes_[2];
  std::size_t width_;
};
inline void StoreAt(const Field& field, Bytes& bytes, std::size_t start, int shown) {
  PutBytes(bytes, start + field.place.offset, RawBytes(field, RawAfter(field, RawAt(field, bytes, start), shown)));
}

// --- Finding ---

// Asked for at compile time, so that a key that isn't there is a mistake that the compiler tells.
consteval const Field& FieldOf(std::span<const Field> fields, std::string_view key) {
  const auto field = std::find_if(fields.begin(), fields.end(), [key](const Field& each) { return each.key == key; });
  if (field == fields.end()) throw "no field of this key";
  return *field;
}

// --- Proofs ---

namespace field_check {

constexpr bool ListFits(const Field& field) {
  if (field.IsList() != !field.list.empty()) return false;
  return !field.IsList() ||
         (field.range.low == 0 && static_cast<std::size_t>(field.range.high) + 1 == field.list.size());
}

// Every value comes back from the bytes that it is stored as, and touches none of the bits that are kept.
constexpr bool RangeFits(const Field& field) {
  if (field.coding == FieldCoding::kText) return field.range.low == 0 && field.range.high > 0;
  if (field.coding == FieldCoding::kCodes && field.codes.size() != static_cast<std::size_t>(field.range.high) + 1) {
    return false;
  }
  if (field.range.low >= field.range.high) return false;
  const int greatest = field.coding == FieldCoding::kWord ? 0xFFFF : 0xFF;
  for (int shown = field.range.low; shown <= field.range.high; ++shown) {
    const int raw = RawAfter(field, 0, shown);
    if (raw < 0 || raw > greatest || (raw & field.place.keep) != 0) return false;
    if (field.doubt.is == FieldDoubt::kInstead && raw > field.doubt.greatest) continue;
    const int decoded = field_coding::Decoded(field, raw);
    // A code that stands twice decodes to the first of them.
    const bool same_code =
        field.coding == FieldCoding::kCodes && decoded != kNotShown && CodedValue(field, decoded) == raw;
    if (decoded != shown && !same_code) return false;
  }
  return field.doubt.is != FieldDoubt::kInstead ||
         field_coding::Decoded(field, field.doubt.instead << field.place.shift) != kNotShown;
}

constexpr int BitsOf(const Field& field, std::size_t byte) {
  (void)byte;
  if (field.coding == FieldCoding::kPolarity) return field_coding::kPairMask << field.place.shift;
  if (field.coding == FieldCoding::kBits) return field.place.mask << field.place.shift & 0xFF;
  return 0xFF;
}

// No two fields on the same bits, unless both say so; all of them inside the record. `kLength` is the record's.
template <std::size_t kLength>
constexpr bool Apart(std::span<const FieldBlock> blocks) {
  std::array<std::uint8_t, kLength> taken{};
  std::array<std::uint8_t, kLength> shared{};
  for (const FieldBlock& block : blocks) {
    for (int n = 0; n < block.count(); ++n) {
      for (const Field& field : block.fields) {
        for (std::size_t i = 0; i < field.Width(); ++i) {
          const std::size_t at = block.StartOf(n) + field.place.offset + i;
          if (at >= kLength || (block.length != 0 && field.place.offset + i >= block.length)) return false;
          const int bits = BitsOf(field, i);
          if ((taken[at] & bits) != 0 || (!field.shares_bits && (shared[at] & bits) != 0)) return false;
          std::uint8_t& mine = field.shares_bits ? shared[at] : taken[at];
          mine = static_cast<std::uint8_t>(mine | bits);
        }
      }
    }
  }
  return true;
}

constexpr bool KeysDiffer(std::span<const FieldBlock> blocks) {
  for (const FieldBlock& block : blocks) {
    for (const Field& field : block.fields) {
      int found = 0;
      for (const FieldBlock& other : blocks) {
        found += static_cast<int>(std::count_if(other.fields.begin(), other.fields.end(),
                                                [&field](const Field& each) { return each.key == field.key; }));
      }
      const bool tagged = field.key.find('#') != std::string_view::npos;
      if (found != 1 || field.key.empty() || tagged != (block.count() > 1)) return false;
    }
  }
  return true;
}

constexpr bool ValuesFit(std::span<const Field> fields) {
  return std::all_of(fields.begin(), fields.end(),
                     [](const Field& field) { return ListFits(field) && RangeFits(field); });
}

constexpr bool BlocksFit(std::span<const FieldBlock> blocks) {
  return std::all_of(blocks.begin(), blocks.end(), [](const FieldBlock& block) {
    return ValuesFit(block.fields) && block.tags.size() == block.names.size();
  });
}

}  // namespace field_check

}  // namespace zentaline
