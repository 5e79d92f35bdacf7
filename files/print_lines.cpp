#include <algorithm>
#include <iterator>

#include "arrangement/arr_format.h"
#include "base/panel_numbers.h"
#include "base/utf8.h"
#include "core/window_image.h"
#include "data/names.h"
#include "files/printing.h"
#include "program/prg_format.h"
#include "style/sty_format.h"

namespace zentaline {

namespace {

// Columns of the list.
constexpr std::string_view kProgram = "Zentaline Console v 4.0";
constexpr int kFirstNameColumn = 26;
constexpr int kLastNameColumn = 62;
constexpr int kDateColumn = 64;
constexpr int kMarkColumn = 4;
constexpr int kArrColumn = 5;
constexpr int kArrLength = 15;  // of the name's sixteen
constexpr int kStyleColumn = 22;
constexpr int kUpper2Column = 43;
constexpr int kUpper1Column = 64;
constexpr int kNameLength = 16;
constexpr int kLetterLength = 4;

// Of the table: four items of a bank stand side by side, two lines make its group of eight.
constexpr int kTableRoom = 21;
constexpr int kItemsOfLine = 4;
constexpr int kItemsOfGroup = 8;
constexpr int kItemNameColumn = 3;  // behind the two digits and a blank
constexpr int kSizeLength = 6;

// The styles of the instrument's banks, and of its programs.
constexpr int kBankItems = 64;

struct Title {
  int kind;
  std::string_view text;
  bool of_file;  // the file's name stands before it
};
constexpr Title kTitles[] = {
    {kKindArrA, "i40 Arrangement A", false},
    {kKindArrB, "i40 Arrangement B", false},
    {kKindArr, ".ARR", true},
    {kKindNewArr, ".ARR", true},
    {kKindPrgA, "i40 Program A", false},
    {kKindPrgB, "i40 Program B", false},
    {kKindPrgC, "i40 Program C", false},
    {kKindPrgD, "i40 Program D", false},
    {kKindPrgE, "i40 Program E", false},
    {kKindPrg, ".PRG", true},  // a .pgg too
    {kKindNewPrg, ".PRG", true},
    {kKindStyA, "i40 Style A", false},
    {kKindStyB, "i40 Style B", false},
    {kKindSty, ".STY", true},
    {kKindNewSty, ".STY", true},
};

Bytes WithoutZeros(std::string_view name) {
  Bytes bytes(name);
  std::replace(bytes.begin(), bytes.end(), '\0', ' ');
  return bytes;
}

Bytes StyleOf(std::string_view image, std::string_view record) {
  const int number = ByteAt(record, arr_record::kStyleNumber + 1);
  if (ByteAt(record, arr_record::kStyleLocation + 1) != kUserStyleLocation) return Bytes(StyleName(number));
  Bytes name;
  if (ByteAt(image, kStyStatePosition) == 2) name = WindowStyName(number, image);
  if (TrimRight(WithoutZeros(name)).empty()) return "Sty User " + std::to_string(number);
  return name;
}

Bytes UserProgramName(std::string_view image, int number) {
  if (ByteAt(image, kPrgAttachedPosition) != 1 || number >= kPrgRecordCount) return "Prg User";
  const std::size_t record = kArrImageUserNamePosition + kPrgRecordLength * static_cast<std::size_t>(number);
  const bool link = ByteAt(image, record) == 1;
  return Slice(image, link ? record + program_link::kName - 1 : record, kNameLength);
}

// Letter and name; nothing for a bank code that there is none of, or for the drum kits.
Bytes SoundOf(std::string_view image, std::string_view record, int part) {
  const std::size_t block = PartOffset(part) + 1;
  const int number = ByteAt(record, block + part_block::kProgram);
  const int code = ByteAt(record, block + part_block::kBankCode);
  if (code == kUserBankCode) return Padded("F", kLetterLength) + UserProgramName(image, number);
  const ProgramPlace place = ProgramPlaceOf(code, number);
  if (place.letter.empty() || code == kDrumBankCode) return {};
  return Padded(place.letter, kLetterLength) + Bytes(ProgramName(place.letter[0] - 'A', place.index));
}

// One item of a bank's table.
Bytes ItemName(std::string_view image, int kind, int item) {
  switch (kind) {
    case kKindArrA:
    case kKindArrB:
    case kKindArr:
    case kKindNewArr:
      return Slice(image, ArrRecordPosition(item) + arr_record::kName, kNameLength);
    case kKindPrg:
    case kKindNewPrg:
      return ProgramPlaceName(image, item);
    case kKindStyA:
    case kKindStyB:
      return Bytes(StyleName(item + kBankItems * (kind - kKindStyA)));
    default:
      return Bytes(ProgramName(kind - kKindPrgA, item));
  }
}

std::vector<std::string> BankLines(std::string_view image, int kind) {
  std::vector<std::string> lines;
  for (int first = 0; first < kBankItems; first += kItemsOfLine) {
    PrintLine line;
    for (int i = 0; i < kItemsOfLine; ++i) {
      const int column = 1 + kTableRoom * i;
      line.Put(column, PanelNumberText(first + i));
      line.PutName(column + kItemNameColumn, ItemName(image, kind, first + i), kNameLength);
    }
    lines.push_back(line.Text());
    if ((first + kItemsOfLine) % kItemsOfGroup == 0) lines.emplace_back();
  }
  return lines;
}

// Sixteen styles with their sizes, as the window's list has them.
std::vector<std::string> StyleLines(std::string_view image) {
  std::vector<std::string> lines;
  const std::string_view styles = StylePart(image);
  for (int entry = 0; entry < kStyEntryCount; ++entry) {
    PrintLine line;
    line.Put(1, UserStyleNumber(entry));
    if (StyEntryPos(entry, styles) != 0 && StyEntrySize(entry, styles) != 0) {
      line.PutName(1 + kItemNameColumn, StyEntryName(entry, styles), kNameLength);
      const std::string size = std::to_string(StyEntrySize(entry, styles));
      line.Put(1 + kItemNameColumn + kNameLength + kSizeLength - static_cast<int>(size.size()), size);
    }
    lines.push_back(line.Text());
    if ((entry + 1) % kStyGroupEntries == 0) lines.emplace_back();
  }
  return lines;
}

}  // namespace

void PrintLine::Put(int column, std::string_view text, int room) {
  for (std::size_t at = 0; at < text.size() && room > 0; --room, ++column) {
    const std::size_t length = std::max<std::size_t>(Utf8CharacterAt(text, at).length, 1);
    if (column >= 1 && column <= static_cast<int>(cells_.size())) {
      cells_[static_cast<std::size_t>(column - 1)] = text.substr(at, length);
    }
    at += length;
  }
}

void PrintLine::PutName(int column, std::string_view name, int room) {
  Put(column, Utf8FromBytes(WithoutZeros(name)), room);
}

std::string PrintLine::Text() const {
  std::string text;
  for (const std::string& cell : cells_) text += cell;
  return text;
}

std::string ListTitle(std::string_view file_name, std::string_view date) {
  PrintLine line;
  line.Put(1, kProgram);
  const int program = static_cast<int>(kProgram.size());
  const int middle = (kDateColumn - program) / 2 + program;
  const int column = std::max(middle - static_cast<int>(CountCharacters(file_name)) / 2, kFirstNameColumn);
  line.Put(column, file_name, kLastNameColumn - column + 1);
  line.Put(kDateColumn, date);
  return line.Text();
}

std::string ListRow(std::string_view image, int index) {
  PrintLine line;
  line.Put(1, "U" + PanelNumberText(index));
  const Bytes record = Slice(image, ArrRecordPosition(index), kArrRecordLength);
  if (ByteAt(record, arr_record::kName + 1) == 0) return line.Text();
  if (ByteAt(record, arr_record::kStyleLocation + 1) == kUserStyleLocation) line.Put(kMarkColumn, "+");
  line.PutName(kArrColumn, std::string_view(record).substr(arr_record::kName, kArrNameLength), kArrLength);
  line.PutName(kStyleColumn, StyleOf(image, record), kNameLength);
  line.PutName(kUpper2Column, SoundOf(image, record, kPartUpper2), kLetterLength + kNameLength);
  line.PutName(kUpper1Column, SoundOf(image, record, kPartUpper1), kLetterLength + kNameLength);
  return line.Text();
}

std::string TableTitle(int kind, std::string_view base_name) {
  const auto title =
      std::find_if(std::begin(kTitles), std::end(kTitles), [kind](const Title& row) { return row.kind == kind; });
  if (title == std::end(kTitles)) return {};
  return title->of_file ? std::string(base_name).append(title->text) : std::string(title->text);
}

std::vector<std::string> TableLines(std::string_view image) {
  const int kind = ByteAt(image, kKindPosition);
  return kind == kKindSty || kind == kKindNewSty ? StyleLines(image) : BankLines(image, kind);
}

}  // namespace zentaline
