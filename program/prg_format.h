// The bank of 64 programs as it lies in .prg and .pgg files and in the image of a program window. Numbers are
// little-endian, text is padded with blanks. Positions count from 1, places in a bank from 0. What isn't named here is
// carried unchanged.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/bytes.h"
#include "record/program_places.h"

namespace zentaline {

// The file. Behind the 64 records lie 12040 carried bytes, the second block and 5280 carried bytes.
inline constexpr std::size_t kPrgFileLength = 30480;
inline constexpr std::size_t kPrgHeaderLength = 48;
inline constexpr int kPrgRecordCount = 64;
inline constexpr std::size_t kPrgRecordsLength = 64 * kPrgRecordLength;
inline constexpr std::size_t kPrgFileChannelPosition = 16;  // MIDI channel of the bank, 0 to 15
inline constexpr std::size_t kPrgFileRecordsPosition = 49;
inline constexpr std::size_t kPrgFileSecondPosition = 23097;  // second block, travels behind the records in a dump
inline constexpr std::size_t kPrgSecondLength = 2104;

// The window's image: prefix, file, an unused row table of 1344 zero bytes.
inline constexpr std::size_t kPrgImageLength = 32094;
inline constexpr std::size_t kPrgImageFilePosition = 271;
inline constexpr std::size_t kPrgImageChannelPosition = 286;
inline constexpr std::size_t kPrgImageRecordsPosition = 319;
inline constexpr std::size_t kPrgImageSecondPosition = 23367;
inline constexpr std::size_t kPrgImageRowTablePosition = 30751;
inline constexpr int kPrgImageMark = 2;  // control byte 6 of a program image

// ProgramLink: a record that refers to a program in the instrument. What follows position 19 stays as it was.
namespace program_link {
inline constexpr std::size_t kMark = 1;      // 1
inline constexpr std::size_t kBankCode = 2;  // 0 banks A and B, 1 C and D, 2 E, 4 drum kits
inline constexpr std::size_t kNumber = 3;    // 0 to 127, 64 and up the second letter; drum kits 0 to 15
inline constexpr std::size_t kName = 4;      // 16 bytes, copied at the time of the paste
inline constexpr std::size_t kNameLength = 16;
}  // namespace program_link

// The bank codes of a link, and of a part in an arrangement, that stand for more than letters: the user's bank, which
// only a part names, and the drum kits.
inline constexpr int kUserBankCode = 3;
inline constexpr int kDrumBankCode = 4;

// EditRecord: the record under edit at 1 to 172, and what belongs to it.
namespace edit_record {
inline constexpr std::size_t kLength = 201;
inline constexpr std::size_t kKind = 173;   // kind of the window it came from
inline constexpr std::size_t kIndex = 174;  // 0 to 63
inline constexpr std::size_t kWindowNumber = 175;
inline constexpr std::size_t kZero = 176;
inline constexpr std::size_t kFormat = 177;    // 0 .prg, else .pgg
inline constexpr std::size_t kFileName = 178;  // 24 bytes without directory, padded with blanks
inline constexpr std::size_t kFileNameLength = 24;
}  // namespace edit_record

// What reading a program file comes to, by the numbers of both readers.
enum PrgReadResult : int { kPrgGood = 0, kPrgWrong = 2, kPrgAbsent = 3, kPggGood = 4 };

// The bytes of a whole file, with either signature: kPrgGood, kPrgWrong, kPrgAbsent (no bytes).
PrgReadResult CheckProgramFile(std::string_view file);
// Only the signature that belongs to the extension: kPrgGood, kPggGood, kPrgWrong, kPrgAbsent.
PrgReadResult CheckProgramByExtension(std::string_view file, bool pgg);
// The i30 format, another signature and the same size: kPrgGood, kPrgWrong, kPrgAbsent.
PrgReadResult CheckI30ProgramFile(std::string_view file);

// Writes the 48 bytes of a header made from scratch into the file's bytes, as far as they reach.
void NewProgramHeader(Bytes& file);

// Clears the bank of a new file: 64 times 172 zero bytes, starting one byte in front of the first record, so that the
// header's last byte goes and the last record's last byte stays. That shift is wanted.
void ClearNewProgramBank(Bytes& file);

// Half 0 or 1 of an i30 file as a bank: its own 64 records, or those of its second half, behind a new header.
Bytes I30ProgramBank(std::string_view file, int half);

// Position of record 0 to 63 in the image of a window.
constexpr std::size_t ProgramPosition(int n) {
  return kPrgImageRecordsPosition + kPrgRecordLength * static_cast<std::size_t>(n);
}

// Prefix, file (cut or filled with zero bytes to its size), 1344 zero bytes; control byte 6 is 2, control byte 19
// follows from the records, the rest are 0.
Bytes BuildPrgWindowImage(std::string_view file);

// Bytes of the file as saving writes them.
Bytes PrgFileBytes(std::string_view image);

bool IsProgramLink(std::string_view image, int n);
bool HasProgramLinks(std::string_view image);
// Control byte 19 from the records: on opening.
void SetProgramFormat(Bytes& image);
// Control byte 19 and the four letters at the file's start from the records: after a paste or a cut.
void DecideProgramFormat(Bytes& image);
// "prg" or "pgg" by control byte 19.
std::string_view ProgramExtension(std::string_view image);

// The name shown for a place: a link's from its position 4, a program's from 1. 16 bytes.
Bytes ProgramPlaceName(std::string_view image, int n);

// The working copy of record 0 to 63: 201 bytes. And the way back: puts positions 1 to 172 at the record's place.
Bytes MakeEditRecord(std::string_view image, int n);
void PutEditRecord(Bytes& image, std::string_view record);

// "A 11": letter, blank, panel number.
std::string ProgramNumberText(std::string_view bank_letter, int n);

// What the rows of a program window stand for.
struct ProgramSource {
  int kind;                 // a WindowKind
  std::string_view letter;  // "A" to "E", "U", "Dr"
  int bank_code;
  int first;  // the number of the first row
  int rows;
  int run;  // what is added to a number in the run of all programs, as an arrangement's parameter counts them
};
// Null for a kind that isn't of programs.
const ProgramSource* ProgramSourceOf(int kind);

// Where the program of a bank code and number byte stands: the kind of its window, the bank's letter, and the row. Kind
// 0 and an empty letter for any other code.
struct ProgramPlace {
  std::string_view letter;
  int index = 0;
  int kind = 0;
};
ProgramPlace ProgramPlaceOf(int bank_code, int number);

}  // namespace zentaline
