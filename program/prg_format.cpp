#include "program/prg_format.h"

#include "base/panel_numbers.h"
#include "core/window_image.h"

namespace zentaline {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPrgMagic = "KORG\x4D\x00\x00"sv;
constexpr std::string_view kPggMagic = "KPGG\x4D\x00\x00"sv;
constexpr std::string_view kI30Magic = "KORG\x49\x05\x00"sv;
constexpr std::size_t kI30SecondHalfPosition = 11057;
constexpr int kLinkMark = 1;

// Position of the field a record number names; 0, which is outside every image, when there is no such record.
std::size_t RecordPosition(int n) {
  return n >= 0 && n < kPrgRecordCount ? ProgramPosition(n) : 0;
}

PrgReadResult CheckLengthAnd(std::string_view file, bool signature_fits, PrgReadResult good) {
  if (file.empty()) return kPrgAbsent;
  return file.size() == kPrgFileLength && signature_fits ? good : kPrgWrong;
}

constexpr ProgramSource kSources[] = {
    {kKindPrgA, "A", 0, 0, 64, 0},
    {kKindPrgB, "B", 0, 64, 64, 64},
    {kKindPrgC, "C", 1, 0, 64, 128},
    {kKindPrgD, "D", 1, 64, 64, 192},
    {kKindPrgE, "E", 2, 0, 64, 256},
    {kKindPrg, "U", kUserBankCode, 0, 64, 320},
    {kKindNewPrg, "U", kUserBankCode, 0, 64, 0},
    {kKindDrum, "Dr", kDrumBankCode, 0, 16, 384},
    {kKindPercussion, "Dr", kDrumBankCode, 0, 16, 0},
};

}  // namespace

PrgReadResult CheckProgramFile(std::string_view file) {
  return CheckLengthAnd(file, file.starts_with(kPrgMagic) || file.starts_with(kPggMagic), kPrgGood);
}

PrgReadResult CheckProgramByExtension(std::string_view file, bool pgg) {
  return CheckLengthAnd(file, file.starts_with(pgg ? kPggMagic : kPrgMagic), pgg ? kPggGood : kPrgGood);
}

PrgReadResult CheckI30ProgramFile(std::string_view file) {
  return CheckLengthAnd(file, file.starts_with(kI30Magic), kPrgGood);
}

void NewProgramHeader(Bytes& file) {
  Bytes header(kPrgHeaderLength, '\0');
  PutBytes(header, 1, kPrgMagic);
  PutByte(header, 8, 0x01);
  constexpr std::string_view kFromPosition17 = "\x1E\0\0\0\0\x03\0\x50\0\x38\x01\x08\x3C\x05\x02\x08\x50\x1B"sv;
  PutBytes(header, 17, kFromPosition17);
  PutBytes(file, 1, header);
}

void ClearNewProgramBank(Bytes& file) {
  PutBytes(file, kPrgHeaderLength, Bytes(kPrgRecordsLength, '\0'));
}

Bytes I30ProgramBank(std::string_view file, int half) {
  Bytes bank = Slice(file, 1, kPrgFileLength);
  NewProgramHeader(bank);
  if (half == 1) PutBytes(bank, kPrgFileRecordsPosition, Slice(file, kI30SecondHalfPosition, kPrgRecordsLength));
  return bank;
}

Bytes BuildPrgWindowImage(std::string_view file) {
  Bytes image = WindowPrefix();
  image.reserve(kPrgImageLength);
  image.append(file.substr(0, kPrgFileLength));
  image.resize(kPrgImageLength, '\0');
  PutByte(image, kPrgAttachedPosition, kPrgImageMark);
  SetProgramFormat(image);
  return image;
}

Bytes PrgFileBytes(std::string_view image) {
  return Slice(image, kPrgImageFilePosition, kPrgFileLength);
}

bool IsProgramLink(std::string_view image, int n) {
  return ByteAt(image, RecordPosition(n)) == kLinkMark;
}

bool HasProgramLinks(std::string_view image) {
  for (int n = 0; n < kPrgRecordCount; ++n) {
    if (IsProgramLink(image, n)) return true;
  }
  return false;
}

void SetProgramFormat(Bytes& image) {
  PutByte(image, kPggPosition, HasProgramLinks(image) ? 1 : 0);
}

void DecideProgramFormat(Bytes& image) {
  SetProgramFormat(image);
  PutBytes(image, kPrgImageFilePosition, ByteAt(image, kPggPosition) != 0 ? "KPGG" : "KORG");
}

std::string_view ProgramExtension(std::string_view image) {
  return ByteAt(image, kPggPosition) != 0 ? "pgg" : "prg";
}

Bytes ProgramPlaceName(std::string_view image, int n) {
  const std::size_t name = IsProgramLink(image, n) ? program_link::kName : program_record::kName;
  const std::size_t record = RecordPosition(n);
  return record == 0 ? Bytes(program_record::kNameLength, '\0')
                     : Slice(image, record + name - 1, program_record::kNameLength);
}

Bytes MakeEditRecord(std::string_view image, int n) {
  Bytes record = Slice(image, RecordPosition(n), kPrgRecordLength);
  record.resize(edit_record::kLength, '\0');
  PutByte(record, edit_record::kKind, ByteAt(image, kKindPosition));
  PutByte(record, edit_record::kIndex, n);
  PutByte(record, edit_record::kWindowNumber, ByteAt(image, kWindowNumberPosition));
  PutByte(record, edit_record::kFormat, ByteAt(image, kPggPosition));
  PutBytes(record, edit_record::kFileName, Padded(WindowBaseName(image), edit_record::kFileNameLength));
  return record;
}

void PutEditRecord(Bytes& image, std::string_view record) {
  PutBytes(image, RecordPosition(ByteAt(record, edit_record::kIndex)), Slice(record, 1, kPrgRecordLength));
}

std::string ProgramNumberText(std::string_view bank_letter, int n) {
  std::string text(bank_letter);
  return text.append(1, ' ').append(PanelNumberText(n));
}

const ProgramSource* ProgramSourceOf(int kind) {
  for (const ProgramSource& source : kSources) {
    if (source.kind == kind) return &source;
  }
  return nullptr;
}

// Of the two banks that share a code the second begins in the middle.
ProgramPlace ProgramPlaceOf(int bank_code, int number) {
  ProgramPlace place;
  for (const ProgramSource& source : kSources) {
    if (source.bank_code != bank_code || number < source.first) continue;
    if (place.kind == 0 || source.first > 0) place = {source.letter, number - source.first, source.kind};
  }
  return place;
}

}  // namespace zentaline
