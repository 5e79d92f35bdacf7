#include "arrangement/arr_format.h"

#include <algorithm>

#include "base/panel_numbers.h"
#include "core/window_image.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMagic = "KORG\x4D\x00\x03"sv;

bool IsBank(int kind) {
  return kind == kKindArrA || kind == kKindArrB;
}

bool IsRecord(int index) {
  return index >= 0 && index < kArrRecordCount;
}

Bytes StyleNameOf(std::string_view image, std::string_view record, StyleNameFunction style_name) {
  const int n = ByteAt(record, ArrEditPosition(arr_record::kStyleNumber));
  if (ByteAt(record, ArrEditPosition(arr_record::kStyleLocation)) != kUserStyleLocation) {
    return n < 128 ? Bytes(style_name(n)) : Bytes();
  }
  if (ByteAt(image, kStyStatePosition) == 2) return Bytes(WindowStyName(n, image));
  return "UserStyle" + std::to_string(n);
}

// The name of a part's program when it is the user's; other banks' names the editor looks up itself.
Bytes UserProgramNameOf(std::string_view image, int number) {
  Bytes name;
  if (ByteAt(image, kPrgAttachedPosition) == 1) {
    const std::size_t position = kArrImageUserNamePosition + kPrgRecordLength * static_cast<std::size_t>(number);
    if (ByteAt(image, position) > 1) name = TrimRight(Slice(image, position, program_record::kNameLength));
  }
  return name.empty() ? "UserPrg" + std::to_string(number) : name;
}

}  // namespace

ArrReadResult CheckArrFile(std::string_view file) {
  if (file.empty()) return kArrAbsent;
  return file.size() == kArrFileLength && file.starts_with(kMagic) ? kArrGood : kArrWrong;
}

void NewArrHeader(Bytes& file) {
  Bytes header(kArrHeaderLength, '\0');
  PutBytes(header, 1, kMagic);
  // Offsets 7, 16, 21, 23 and 25.
  PutByte(header, 8, 0x01);
  PutByte(header, 17, 0x14);
  PutByte(header, 22, 0x01);
  PutByte(header, 24, 0x28);
  PutByte(header, 26, 0x1D);
  PutBytes(file, 1, header);
}

Bytes NewArrFile() {
  Bytes file(kArrFileLength, '\0');
  NewArrHeader(file);
  return file;
}

Bytes BuildArrImage(int kind, std::string_view file, std::string_view path, const ArrImageOptions& options) {
  Bytes image = WindowPrefix();
  image.reserve(IsBank(kind) ? kArrBankImageLength : kArrImageLength);
  image += Slice(file, 1, kArrFileLength);
  image.append(kRowTable64Length, ' ');
  if (!IsBank(kind)) image.append(kPrgFileLength, ' ');

  PutWindowPath(image, path);
  PutByte(image, kKindPosition, kind);
  PutByte(image, kReadOnlyPosition, options.read_only ? 1 : 0);
  PutByte(image, kArrImageMarkPosition, IsBank(kind) ? kind : kArrImageMark);
  PutByte(image, kChangedPosition, options.in_memory ? 1 : 0);
  PutByte(image, kNoFilePosition, options.in_memory ? 1 : 0);
  PutByte(image, kWindowNumberPosition, options.window_number);
  PutByte(image, kSlotStatePosition, options.slot_state);
  return image;
}

Bytes BuildNewArrImage(std::string_view file, std::string_view empty_style, std::string_view path, int window_number) {
  Bytes image = BuildArrImage(kKindNewArr, file, path, {.window_number = window_number});
  const int attached = empty_style.starts_with("KORG") ? 1 : 0;
  AttachStyles(image, empty_style, attached);
  PutByte(image, kStyChangedPosition, attached);
  PutByte(image, kNeverSavedPosition, attached);
  for (int row = 0; row < kArrRecordCount; ++row) {
    const std::size_t position = kArrImageRowTablePosition + kRowTableRowLength * static_cast<std::size_t>(row);
    PutBytes(image, position, PanelNumberText(row) + '\0');
  }
  return image;
}

void AttachStyles(Bytes& image, std::string_view style_image, int state) {
  PutStylePart(image, style_image);
  PutByte(image, kStyStatePosition, state);
}

void AttachPrograms(Bytes& image, std::string_view program_file, bool pgg) {
  PutBytes(image, kArrImageProgramPosition, Slice(program_file, 1, kPrgFileLength));
  PutByte(image, kPrgAttachedPosition, 1);
  PutByte(image, kPggPosition, pgg ? 1 : 0);
}

Bytes ArrFileBytes(std::string_view image) {
  return Slice(image, kArrImageFilePosition, kArrFileLength);
}

std::string StyleLabel(int n) {
  return n < 64 ? "A" + PanelNumberText(n) : "B" + PanelNumberText(n - 64);
}

std::string UserStyleLabel(int n) {
  return "U" + UserStyleNumber(n);
}

Bytes PrepareEditRecord(std::string_view image, int index, StyleNameFunction style_name) {
  Bytes record(arr_edit::kLength, '\0');
  if (IsRecord(index)) PutBytes(record, arr_edit::kRecord, Slice(image, ArrRecordPosition(index), kArrRecordLength));
  PutByte(record, arr_edit::kKind, ByteAt(image, kKindPosition));
  PutByte(record, arr_edit::kIndex, index);
  PutByte(record, arr_edit::kWindowNumber, ByteAt(image, kWindowNumberPosition));
  PutBytes(record, arr_edit::kBaseName, Padded(WindowBaseName(image), arr_edit::kBaseNameLength));
  PutBytes(record, arr_edit::kStyleName, Padded(StyleNameOf(image, record, style_name), kArrNameLength));
  for (int part = 0; part < kArrPartCount; ++part) {
    const std::size_t block = ArrEditPosition(PartOffset(part));
    Bytes name;
    if (ByteAt(record, block + part_block::kBankCode) == kUserBankCode) {
      name = UserProgramNameOf(image, ByteAt(record, block + part_block::kProgram));
    }
    PutBytes(record, arr_edit::kProgramNames + kArrNameLength * static_cast<std::size_t>(part),
             Padded(name, kArrNameLength));
  }
  return record;
}

ArrStoreResult StoreEditRecordBytes(Bytes& image, std::string_view record) {
  const int kind = ByteAt(record, arr_edit::kKind);
  const int index = ByteAt(record, arr_edit::kIndex);
  if ((kind != kKindArr && !IsBank(kind)) || !IsRecord(index)) return kArrNoWindow;
  if (kind == kKindArr && ByteAt(image, kReadOnlyPosition) == 1) return kArrReadOnly;
  PutBytes(image, ArrRecordPosition(index), Slice(record, arr_edit::kRecord, kArrRecordLength));
  PutByte(image, kChangedPosition, 1);
  return kArrStored;
}

}  // namespace zentaline
