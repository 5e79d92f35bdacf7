#include "style/sty_format.h"

#include <algorithm>

#include "base/panel_numbers.h"
#include "core/window_image.h"

namespace zentaline {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kMagic = "KORG\x4D\x00\x04\x01"sv;
constexpr std::string_view kTemplateMagic = "KORG\x4D\x00\x04"sv;
constexpr std::string_view kI30Magic = "KORG\x49\x05\x04\x00"sv;

// An entry number from outside, as a count of table cells.
std::size_t Cells(int entry) {
  return static_cast<std::size_t>(std::max(entry, 0));
}

std::size_t SizePosition(std::size_t entry) {
  return kStySizeOffset + 1 + 4 * entry;
}

std::size_t SizeAt(std::size_t entry, std::string_view image) {
  return static_cast<std::size_t>(WordLowFirst(image, SizePosition(entry)));
}

std::size_t EntryOffset(int entry, std::string_view image) {
  std::size_t offset = kStyHeaderLength;
  for (std::size_t e = 0; e < Cells(entry); ++e) offset += SizeAt(e, image);
  return offset;
}

StyReadResult ReadRecords(std::string_view file, std::string_view magic, std::size_t record_length, Bytes& image) {
  if (file.empty()) return kStyAbsent;
  if (!file.starts_with(magic)) return kStyWrong;
  image.assign(file.substr(0, kStyRecordCount * record_length));
  image.resize(file.size(), '\0');
  return kStyGood;
}

std::string_view NameAt(std::size_t offset, std::string_view image) {
  return TrimRight(image.substr(std::min(offset, image.size()), kStyNameLength));
}

// Where a style of this name stands, and the first free entry; the count for none. What has no size isn't there, nor
// what comes after it, whatever stands behind the last style of a damaged file.
struct Places {
  int named = kStyEntryCount;
  int free = kStyEntryCount;
};

Places FindPlaces(std::string_view wanted, std::string_view image) {
  Places places;
  std::size_t offset = kStyHeaderLength;
  for (int e = 0; e < kStyEntryCount; ++e) {
    const std::string_view name = NameAt(offset, image);
    if (name == wanted) {
      places.named = e;
      break;
    }
    const std::size_t size = SizeAt(Cells(e), image);
    const bool is_free = size == 0 || name == kStyEmptyName || name.empty();
    if (is_free) places.free = std::min(places.free, e);
    offset += size;
  }
  return places;
}

// Where the image ends before its table says so, or the source does, which lacks zero bytes then.
void ReplaceDamaged(Bytes& image, std::size_t offset, std::size_t old, const Bytes& style) {
  if (style.size() > old) {
    image.insert(std::min(offset + old, image.size()), style.size() - old, '\0');
  } else if (offset + style.size() < image.size()) {
    image.erase(offset + style.size(), old - style.size());
  }
  PutBytes(image, offset + 1, style);
}

}  // namespace

StyReadResult StyReadImage(std::string_view file, Bytes& image) {
  return ReadRecords(file, kMagic, kStyRecordLength, image);
}

StyReadResult StyReadTemplate(std::string_view file, Bytes& image) {
  const StyReadResult result = ReadRecords(file, kTemplateMagic, kStyTemplateLength, image);
  if (result != kStyGood) return result;
  for (std::size_t e = 0; e < kStyGroupEntries; ++e) {
    PutBytes(image, kStyHeaderLength + e * kStyTemplateEntryLength + 1, kStyEmptyName);
  }
  return kStyGood;
}

Bytes BuildStyWindowImage(std::string_view style_image) {
  Bytes image = WindowPrefix();
  image.append(kStyRowCount * kRowTableRowLength, '\0');
  image.append(style_image);
  return image;
}

std::string_view StyEntryName(int entry, std::string_view image) {
  return NameAt(EntryOffset(entry, image), image);
}

int StyEntrySize(int entry, std::string_view image) {
  return static_cast<int>(SizeAt(Cells(entry), image));
}

std::size_t StyEntryPos(int entry, std::string_view image) {
  for (std::size_t e = 0; e < Cells(entry); ++e) {
    if (SizeAt(e, image) == 0) return 0;
  }
  return EntryOffset(entry, image) + 1;
}

int StyGroupSize(int entry, std::string_view image) {
  const int first = std::max(entry, 0) / kStyGroupEntries * kStyGroupEntries;
  int sum = 0;
  for (int e = first; e < first + kStyGroupEntries; ++e) sum += StyEntrySize(e, image);
  return sum;
}

std::size_t StyGroupBase(std::string_view image) {
  const int kind = ByteAt(image, kKindPosition);
  return kind == kKindSty || kind == kKindNewSty ? kStyWindowBase : kArrStyleBase;
}

std::string_view StylePart(std::string_view image) {
  return image.substr(std::min(StyGroupBase(image) - 1, image.size()));
}

void PutStylePart(Bytes& image, std::string_view style_image) {
  const std::size_t offset = StyGroupBase(image) - 1;
  if (image.size() < offset) return;
  image.replace(offset, Bytes::npos, style_image);
}

std::string_view WindowStyName(int entry, std::string_view image) {
  if (ByteAt(image, kStyStatePosition) == 0) return kStyDetachedName;
  return StyEntryName(entry, StylePart(image));
}

int WindowStyEntrySize(int entry, std::string_view image) {
  return StyEntrySize(entry, StylePart(image));
}

int StyGroupSpan(int entry, std::string_view image) {
  return static_cast<int>(kStyHeaderLength) + StyGroupSize(entry, StylePart(image));
}

std::size_t StyTotalSize(std::string_view image) {
  const std::string_view part = StylePart(image);
  std::size_t total = kStyHeaderLength;
  for (int e = 0; e < kStyEntryCount && StyEntrySize(e, part) != 0; ++e) {
    total += static_cast<std::size_t>(StyEntrySize(e, part));
  }
  return total;
}

int StyUsedGroups(std::string_view image) {
  for (int e = kStyEntryCount - 1; e >= 0; --e) {
    if (WindowStyName(e, image) != kStyEmptyName) return e / kStyGroupEntries + 1;
  }
  return 0;
}

int StyGroupsToSend(std::string_view image) {
  for (int e = kStyEntryCount - 1; e >= 0; --e) {
    if (WindowStyEntrySize(e, image) != 0 && WindowStyName(e, image) != kStyEmptyName) return e / kStyGroupEntries + 1;
  }
  return 0;
}

int StyEntryRow(int entry) {
  return entry + entry / kStyGroupEntries;
}

int StyRowEntry(int row) {
  if (row < 0 || row >= kStyRowCount || row % (kStyGroupEntries + 1) == kStyGroupEntries) return -1;
  return row - row / (kStyGroupEntries + 1);
}

std::string UserStyleNumber(int entry) {
  return PanelNumberText(entry);
}

int StyTrimUnused(Bytes& image) {
  const int used = StyUsedGroups(image);
  if (used == 0) return 1;
  if (used == kStyGroupCount) return 0;

  // The header counts once, and once more for each unused group; that sum is wanted as it stands.
  std::size_t length = kStyHeaderLength;
  for (int group = used; group < kStyGroupCount; ++group) {
    length += static_cast<std::size_t>(StyGroupSpan(group * kStyGroupEntries, image));
  }
  const std::size_t base = StyGroupBase(image);
  if (image.size() > base + length - 1) image.resize(base + length - 1);

  // The words are cleared from the one behind the last size down, so that the first entry behind the used groups keeps
  // its size: a written file keeps one empty style there.
  const std::size_t cells = kStyGroupEntries * static_cast<std::size_t>(kStyGroupCount - used);
  for (std::size_t cell = 0; cell < cells; ++cell) {
    PutWordLowFirst(image, base - 1 + SizePosition(kStyEntryCount - cell), 0);
  }
  return 0;
}

Bytes StyFileBytes(Bytes& image) {
  StyTrimUnused(image);
  const std::size_t total = StyTotalSize(image);
  const std::size_t length = (total + kStyWriteLength - 1) / kStyWriteLength * kStyWriteLength;
  return Padded(StylePart(image), length);
}

StyPutResult StyPutEntry(int& mode, int source_entry, std::string_view source, int& destination_entry,
                         Bytes& destination, std::string_view empty_style) {
  return StyPutEntryAt(mode, source_entry, source, destination_entry, destination, 1, empty_style);
}

StyPutResult StyPutEntryAt(int& mode, int source_entry, std::string_view source, int& destination_entry, Bytes& image,
                           std::size_t base, std::string_view empty_style) {
  if (base < 1 || base > image.size() + 1) return kStyPutNoPlace;
  const bool paste = mode == 0;
  if (!paste) {
    source = empty_style;
    source_entry = 0;
  }
  const std::string_view destination = std::string_view(image).substr(base - 1);
  int place = destination_entry;
  if (paste && place >= 100) {
    const Places places = FindPlaces(StyEntryName(source_entry, source), destination);
    if (places.named < kStyEntryCount) {
      mode = places.named;
      return kStyPutKnown;
    }
    place = places.free;
  }
  if (place < 0 || place >= kStyEntryCount) return kStyPutNoPlace;

  const auto size = static_cast<std::size_t>(StyEntrySize(source_entry, source));
  const auto old = static_cast<std::size_t>(StyEntrySize(place, destination));
  if (size > old && StyGroupSize(place, destination) + static_cast<int>(size - old) > kStyGroupLimit) {
    return kStyPutTooLong;
  }
  const std::size_t from = EntryOffset(source_entry, source);
  const std::size_t offset = base - 1 + EntryOffset(place, destination);
  if (from + size <= source.size() && offset + old <= image.size()) {
    image.replace(offset, old, source.data() + from, size);
  } else {
    ReplaceDamaged(image, offset, old, Slice(source, from + 1, size));
  }
  PutWordLowFirst(image, base - 1 + SizePosition(Cells(place)), static_cast<int>(size));
  destination_entry = place;
  return kStyPutDone;
}

StyReadResult StySplitI30(std::string_view file, std::array<Bytes, 3>& outputs) {
  if (file.empty()) return kStyAbsent;
  if (!file.starts_with(kI30Magic)) return kStyWrong;

  constexpr std::size_t kTablePosition = 21;  // seventeen records of four bytes, 64 bytes further on for each output
  constexpr std::size_t kTableLength = 17 * kStyWriteLength;
  std::size_t data_position = kStyHeaderLength + 1;
  for (std::size_t n = 0; n < outputs.size(); ++n) {
    Bytes table = Slice(file, kTablePosition + 64 * n, kTableLength);
    PutBytes(table, 1, "\x00\x1E"sv);
    PutBytes(table, kTableLength - 1, "\x00\x00"sv);

    Bytes& output = outputs[n];
    output.assign(kMagic);
    output.append(12, '\0');
    output.append(table);
    output.resize(kStyHeaderLength, '\0');

    std::size_t sum = 0;
    for (std::size_t e = 0; e < kStyEntryCount; ++e) sum += SizeAt(e, output);
    const std::size_t length = sum / kStyWriteLength * kStyWriteLength;
    output.append(Slice(file, data_position, length));
    data_position += length;
  }
  return kStyGood;
}

}  // namespace zentaline
