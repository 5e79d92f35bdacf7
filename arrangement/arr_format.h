// The arrangement file: 64 records that tie a style to nine parts. Offsets count from 0, positions from 1, records and
// parts from 0. What isn't named here is carried unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/bytes.h"

namespace zentaline {

inline constexpr std::size_t kArrFileLength = 10528;
inline constexpr std::size_t kArrHeaderLength = 32;
inline constexpr std::size_t kArrRecordLength = 164;
inline constexpr int kArrRecordCount = 64;
inline constexpr std::size_t kArrRecordsLength = 64 * kArrRecordLength;
inline constexpr std::size_t kArrNameLength = 16;
inline constexpr int kArrPartCount = 9;

// Offsets within a record.
namespace arr_record {
inline constexpr std::size_t kName = 0;               // 16 bytes; a first byte of 0: never written
inline constexpr std::size_t kStyleNumber = 17;       // user style 0 to 15; factory style 0 to 127, from 64 on bank B
inline constexpr std::size_t kStyleLocation = 18;     // 1 user style, anything else factory style
inline constexpr std::size_t kInitialVariation = 19;  // 0 to 3
inline constexpr std::size_t kTempo = 21;             // beats a minute less 30, 10 to 210
inline constexpr std::size_t kKeyboardAssign = 22;    // 0 to 10
inline constexpr std::size_t kSplitPoint = 23;        // MIDI note 36 to 96
inline constexpr std::size_t kEnsemble = 24;          // bits 0 to 6 type 0 to 9, bit 7 on
inline constexpr std::size_t kTranspose = 25;         // 0 to 11; 255 down to 245 for -1 to -11
inline constexpr std::size_t kManualDrumKit = 26;     // 0 to 7
inline constexpr std::size_t kSwitches1 = 27;         // bits: 0 dynamic velocity, 1 tempo lock, 2, 3 KBD1, KBD2 damp en
inline constexpr std::size_t kSwitches2 = 28;  // bits: 0, 1 chord scan low, high, 2 bass inversion, 3 hold, 4 latch
inline constexpr std::size_t kDrumMap = 29;    // 4 bytes, VAR1 to VAR4, 1 to 8
inline constexpr std::size_t kKick = 33;       // 0 to 3, A to D
inline constexpr std::size_t kSnare = 34;      // 0 to 3, A to D
inline constexpr std::size_t kFill1 = 37;      // 0 to 12
inline constexpr std::size_t kFill2 = 38;      // 0 to 12
inline constexpr std::size_t kParts = 39;      // nine blocks of 8 bytes
inline constexpr std::size_t kEffect1 = 135;   // 0 to 47, 0 no effect
inline constexpr std::size_t kEffect2 = 136;   // the same
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
inline constexpr std::size_t kProgram = 0;     // 0 to 127 within the bank code; codes 3 and 4: a place in the list
inline constexpr std::size_t kBankCode = 1;    // 0 banks A, B; 1 C, D; 2 E; 3 F/User; 4 drum kits
inline constexpr std::size_t kVolume = 2;      // 0 to 127
inline constexpr std::size_t kPan = 3;         // 0 to 14 left 15 to 1; 15 centre; 16 to 30 right; 31 program's; 255 off
inline constexpr std::size_t kSends = 4;       // low nibble C, high nibble D; 0 to 9, 10 program's
inline constexpr std::size_t kOctave = 5;      // 0, 1, 2; 255, 254 for -1, -2
inline constexpr std::size_t kStatus = 6;      // bits 0, 1: off, int, ext, both; bits 2, 3: play, mute, solo
inline constexpr std::size_t kWrapAround = 7;  // 0 to 11 for 1 to 12; 255 original
}  // namespace part_block

inline constexpr int kUserStyleLocation = 1;

// Offset of part 0 to 8 in the record.
constexpr std::size_t PartOffset(int part) {
  return arr_record::kParts + part_block::kLength * static_cast<std::size_t>(part);
}

// The image of an arrangement window. The control bytes are those of core/window_image.h; position 3 is always 2. The
// banks' images end behind the row table.
inline constexpr std::size_t kArrImageMarkPosition = 3;
inline constexpr std::size_t kArrImageFilePosition = 271;
inline constexpr std::size_t kArrImageRecordsPosition = 303;
inline constexpr std::size_t kArrImageRowTablePosition = 10799;  // 64 rows of 21 bytes, blanks at first
inline constexpr std::size_t kArrImageProgramPosition = 12143;   // a program file of 30480 bytes, or blanks
inline constexpr std::size_t kArrImageUserNamePosition = 12191;  // + 172 n: name of user program n
inline constexpr std::size_t kArrImageLength = 42622;            // without the style part, which starts behind it
inline constexpr std::size_t kArrBankImageLength = 12142;

// Position of record 0 to 63 in a window's image.
constexpr std::size_t ArrRecordPosition(int index) {
  return kArrImageRecordsPosition + kArrRecordLength * static_cast<std::size_t>(index);
}

// ArrEditRecord: positions.
namespace arr_edit {
inline constexpr std::size_t kLength = 567;
inline constexpr std::size_t kRecord = 1;          // 164 bytes
inline constexpr std::size_t kStyleName = 165;     // 16 bytes
inline constexpr std::size_t kProgramNames = 181;  // + 16 t: 16 bytes for part t
inline constexpr std::size_t kKind = 325;          // kind of the window it came from
inline constexpr std::size_t kIndex = 326;         // 0 to 63
inline constexpr std::size_t kWindowNumber = 327;
inline constexpr std::size_t kBaseName = 330;  // 24 bytes
inline constexpr std::size_t kBaseNameLength = 24;
}  // namespace arr_edit

// The position in ArrEditRecord of a record's offset.
constexpr std::size_t ArrEditPosition(std::size_t record_offset) {
  return arr_edit::kRecord + record_offset;
}

enum ArrReadResult : int { kArrGood = 0, kArrWrong = 2, kArrAbsent = 3 };

// The bytes of a whole file: kArrAbsent without any, kArrWrong on another length or other first seven bytes.
ArrReadResult CheckArrFile(std::string_view file);

// Writes the 32 bytes of a header made from scratch, as far as the file's bytes reach.
void NewArrHeader(Bytes& file);
// That header and 64 zero records.
Bytes NewArrFile();

struct ArrImageOptions {
  bool read_only = false;
  bool in_memory = false;  // no file on disk: converted or imported
  int window_number = 0;   // 1 to 8, 9 for the arrangement in the instrument; 0 for the banks
  int slot_state = 0;      // saved state of the window
};

// The image of a window on a file; `path` is without extension. Kinds 2 and 3 end behind the row table, others carry
// 30480 blanks for the programs; the style part is put on by AttachStyles.
Bytes BuildArrImage(int kind, std::string_view file, std::string_view path, const ArrImageOptions& options);

// The image of a new file's window, with the empty styles attached when they begin with "KORG", and the row labels in
// the row table, each with a zero byte behind it.
Bytes BuildNewArrImage(std::string_view file, std::string_view empty_style, std::string_view path, int window_number);

// The style part, in place of any other, and control byte 9 (1 the empty template, 2 the sibling file).
void AttachStyles(Bytes& image, std::string_view style_image, int state);
// The program file, cut or filled with zero bytes to its size, and control bytes 6 and 19.
void AttachPrograms(Bytes& image, std::string_view program_file, bool pgg);

// Bytes of the file as saving writes them.
Bytes ArrFileBytes(std::string_view image);

// "A11" to "B88" for factory style 0 to 127.
std::string StyleLabel(int n);
// "U11" to "U18", "U21" to "U28"; above 15 it goes on in the next decade.
std::string UserStyleLabel(int n);

using StyleNameFunction = std::string_view (*)(int n);

// The 567 bytes of ArrEditRecord for record `index` (0 to 63, otherwise zero bytes stand for the record). `style_name`
// gives the 16 bytes of factory style 0 to 127. User programs without a name read "UserPrg" and the number, user styles
// without a file "UserStyle" and the number.
Bytes PrepareEditRecord(std::string_view image, int index, StyleNameFunction style_name);

enum ArrStoreResult : int { kArrStored = 0, kArrReadOnly = 1, kArrNoWindow = 2 };

// Puts the record back where its kind and index say and marks the image changed. A file window's image (kind 19) that
// is read-only is left as it is; the banks' images (2 and 3) aren't asked. Any other kind stores nothing.
ArrStoreResult StoreEditRecordBytes(Bytes& image, std::string_view record);

}  // namespace zentaline
