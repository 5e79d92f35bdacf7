// The arrangement file: 64 records that tie a style to nine parts. Offsets count from 0, positions from 1, records and
// parts from 0. What isn't named here is carried unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "record/arrangement_places.h"

namespace zentaline {

inline constexpr std::size_t kArrFileLength = 10528;
inline constexpr std::size_t kArrHeaderLength = 32;
inline constexpr int kArrRecordCount = 64;
inline constexpr std::size_t kArrRecordsLength = 64 * kArrRecordLength;

inline constexpr int kUserStyleLocation = 1;

// The image of an arrangement window. The control bytes are those of core/window_image.h; position 3 is 2, and
// of the banks their kind. The banks' images end behind the row table.
inline constexpr std::size_t kArrImageMarkPosition = 3;
inline constexpr int kArrImageMark = 2;
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
