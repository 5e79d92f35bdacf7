#include "files/import_format.h"

#include <algorithm>
#include <array>

#include "arrangement/arr_format.h"
#include "files/import_tables.h"
#include "program/prg_format.h"

namespace zentaline {

namespace {

using namespace std::string_view_literals;
using import_tables::kArrangements;
using import_tables::kProgramMoves;
using import_tables::kPrograms;
using import_tables::ProgramMove;

constexpr std::string_view kI30ArrMagic = "KORG\x49\x05\x03"sv;
constexpr std::string_view kOldPrgMagic = "KORG"sv;
constexpr std::array kOldArrMagics = {
    "KORG\x39\x00\x03\x01"sv, "KORG\x3C\x00\x03\x01"sv, "KORG\x3C\x00\x03\x00"sv,
    "KORG\x39\x00\x03\x00"sv, "KORG\x39\x01\x03\x00"sv, "KORG\x39\x02\x03\x00"sv,
};

// Old style bytes of user styles; all others are the instrument's own.
constexpr int kFirstUserStyle = 48;
constexpr int kLastUserStyle = 51;

constexpr int kMask = 3;

bool IsUserStyle(int style) {
  return style >= kFirstUserStyle && style <= kLastUserStyle;
}

Bytes Converted(const ImportRow& row, std::string_view old) {
  const int byte = ByteAt(old, row.value + 1);
  switch (row.rule) {
    case ImportRule::kCopy:
      return Slice(old, row.value + 1, row.length);
    case ImportRule::kFill:
      return Bytes(row.length, static_cast<char>(row.value));
    case ImportRule::kMasked:
      return Bytes(1, static_cast<char>(byte & kMask));
    case ImportRule::kStyleNumber:
      return Bytes(1, static_cast<char>(IsUserStyle(byte) ? byte - kFirstUserStyle : byte));
    case ImportRule::kStyleLocation:
      return Bytes(1, static_cast<char>(IsUserStyle(byte) ? kUserStyleLocation : 0));
  }
  return {};
}

Bytes ByTable(std::span<const ImportRow> rows, std::string_view old) {
  Bytes record;
  for (const ImportRow& row : rows) record += Converted(row, old);
  return record;
}

void MoveProgram(Bytes& record, std::size_t position) {
  const int program = ByteAt(record, position);
  const int bank = ByteAt(record, position + 1);
  const auto move = std::find_if(kProgramMoves.begin(), kProgramMoves.end(), [=](const ProgramMove& row) {
    return row.bank == bank && program >= row.from && program <= row.to;
  });
  if (move == kProgramMoves.end()) return;
  PutByte(record, position, program + move->add);
  PutByte(record, position + 1, move->new_bank);
}

}  // namespace

bool IsI30ArrFile(std::string_view file) {
  return file.size() == kI30ArrFileLength && file.starts_with(kI30ArrMagic);
}

bool IsOldArrFile(std::string_view file) {
  return file.size() == kOldArrFileLength &&
         std::any_of(kOldArrMagics.begin(), kOldArrMagics.end(), [&](auto magic) { return file.starts_with(magic); });
}

bool IsOldPrgFile(std::string_view file) {
  return file.size() >= kOldPrgLeastLength && file.starts_with(kOldPrgMagic);
}

std::vector<Bytes> ArrFilesOfI30(std::string_view file) {
  std::vector<Bytes> files = {Slice(file, 1, kArrFileLength),
                              Slice(file, 1, kArrHeaderLength) + Slice(file, kArrFileLength + 1, kArrRecordsLength)};
  for (Bytes& each : files) NewArrHeader(each);
  return files;
}

std::vector<Bytes> PrgFilesOfI30(std::string_view file) {
  return {I30ProgramBank(file, 0), I30ProgramBank(file, 1)};
}

Bytes ArrRecordOfOld(std::string_view record) {
  Bytes converted = ByTable(kArrangements, record);
  for (int track = 0; track < import_tables::kMovedTracks; ++track) MoveProgram(converted, PartOffset(track) + 1);
  return converted;
}

Bytes PrgRecordOfOld(std::string_view record) {
  return ByTable(kPrograms, record);
}

Bytes ArrFileOfOld(std::string_view file) {
  Bytes converted = NewArrFile();
  for (std::size_t i = 0; i < kArrRecordCount; ++i) {
    const Bytes old = Slice(file, kOldArrRecordsOffset + kOldArrRecordLength * i + 1, kOldArrRecordLength);
    PutBytes(converted, kArrHeaderLength + kArrRecordLength * i + 1, ArrRecordOfOld(old));
  }
  return converted;
}

Bytes PrgFileOfOld(std::string_view file, std::string_view bank) {
  Bytes converted = Slice(bank, 1, kPrgFileLength);
  NewProgramHeader(converted);
  for (std::size_t i = 0; i < kPrgRecordCount; ++i) {
    const Bytes old = Slice(file, kOldPrgRecordsOffset + kOldPrgRecordLength * i + 1, kOldPrgRecordLength);
    PutBytes(converted, kPrgHeaderLength + kPrgRecordLength * i + 1, PrgRecordOfOld(old));
  }
  return converted;
}

}  // namespace zentaline
