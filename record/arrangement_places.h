// Where the fields of an arrangement record stand; what they mean is told by arrangement_fields.h. Offsets count from
// 0, parts from 0.
#pragma once

#include <cstddef>

namespace zentaline {

inline constexpr std::size_t kArrRecordLength = 164;
inline constexpr std::size_t kArrNameLength = 16;
inline constexpr int kArrPartCount = 9;

// Offsets within a record.
namespace arr_record {
inline constexpr std::size_t kName = 0;            // 16 bytes; a first byte of 0: never written
inline constexpr std::size_t kStyleNumber = 17;    // user style 0 to 15; factory style 0 to 127, from 64 on bank B
inline constexpr std::size_t kStyleLocation = 18;  // 1 user style, anything else factory style
inline constexpr std::size_t kInitialVariation = 19;
inline constexpr std::size_t kTempo = 21;
inline constexpr std::size_t kKeyboardAssign = 22;
inline constexpr std::size_t kSplitPoint = 23;
inline constexpr std::size_t kEnsemble = 24;
inline constexpr std::size_t kTranspose = 25;
inline constexpr std::size_t kManualDrumKit = 26;
inline constexpr std::size_t kSwitches1 = 27;
inline constexpr std::size_t kSwitches2 = 28;
inline constexpr std::size_t kDrumMap = 29;  // 4 bytes, VAR1 to VAR4, 1 to 8
inline constexpr std::size_t kKick = 33;
inline constexpr std::size_t kSnare = 34;
inline constexpr std::size_t kFill1 = 37;
inline constexpr std::size_t kFill2 = 38;
inline constexpr std::size_t kParts = 39;  // nine blocks of 8 bytes
inline constexpr std::size_t kEffect1 = 135;
inline constexpr std::size_t kEffect2 = 136;
}  // namespace arr_record

enum ArrPart : int {
  kPartDrum = 0,
  kPartPercussion = 1,
  kPartBass = 2,
  kPartAcc1 = 3,
  kPartAcc2 = 4,
  kPartAcc3 = 5,
  kPartUpper1 = 6,
  kPartUpper2 = 7,
  kPartLower = 8,
};

// Offsets within a part block.
namespace part_block {
inline constexpr std::size_t kLength = 8;
inline constexpr std::size_t kProgram = 0;   // 0 to 127 within the bank code; codes 3 and 4: a place in the list
inline constexpr std::size_t kBankCode = 1;  // 0 banks A, B; 1 C, D; 2 E; 3 F/User; 4 drum kits
inline constexpr std::size_t kVolume = 2;
inline constexpr std::size_t kPan = 3;
inline constexpr std::size_t kSends = 4;
inline constexpr std::size_t kOctave = 5;
inline constexpr std::size_t kStatus = 6;
inline constexpr std::size_t kWrapAround = 7;
}  // namespace part_block

// Offset of part 0 to 8 in the record.
constexpr std::size_t PartOffset(int part) {
  return arr_record::kParts + part_block::kLength * static_cast<std::size_t>(part);
}

}  // namespace zentaline
