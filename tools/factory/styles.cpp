#include "tools/factory/styles.h"

#include <cstdint>

namespace zentaline::factory {
namespace {

// What follows a style's name: a row of four-byte events (time, note, velocity, length), drawn by a generator that
// starts from the name, so that a style is the same in every build.
Bytes Events(std::string_view name, std::size_t length) {
  std::uint32_t state = 2166136261u;
  for (char c : name) state = (state ^ static_cast<unsigned char>(c)) * 16777619u;
  const auto draw = [&state](unsigned limit) {
    state = state * 1664525u + 1013904223u;
    return static_cast<int>((state >> 16) % limit);
  };
  Bytes events;
  events.reserve(length + 4);
  while (events.size() < length) {
    constexpr int steps[] = {0, 12, 24, 48};
    events.push_back(static_cast<char>(steps[draw(4)]));
    events.push_back(static_cast<char>(36 + draw(49)));
    events.push_back(static_cast<char>(64 + draw(64)));
    events.push_back(static_cast<char>(6 * (1 + draw(8))));
  }
  events.resize(length);
  return events;
}

}  // namespace

void StyleTables::Read(const std::string& path) {
  for (const SourceLine& line : ReadSource(path, problems_)) {
    std::string_view rest;
    if (line.indented) {
      ReadRow(line);
    } else if (FirstWord(line.text, rest) == "bank") {
      bank_ = std::string(rest);
      next_entry_ = 0;
      if (banks_.contains(bank_)) problems_.Add(line, "this bank is there already");
      Bytes& file = banks_[bank_];
      file = Bytes(kStyHeaderLength, '\0');
      PutBytes(file, 1, std::string_view("KORG\x4D\x00\x04\x01", 8));
      PutByte(file, 22, 0x1E);
    } else {
      problems_.Add(line, "a bank begins with its file");
    }
  }
}

void StyleTables::ReadRow(const SourceLine& line) {
  const std::vector<std::string_view> cells = SplitAt(line.text, '|');
  const std::optional<int> place = cells.size() == 3 ? PlaceOf(cells[0]) : std::nullopt;
  const std::optional<int> size = cells.size() == 3 ? NumberOf(cells[2]) : std::nullopt;
  if (bank_.empty() || !place || *place != next_entry_ || *place >= kStyEntryCount) {
    return problems_.Add(line, "a row has three cells, and the places follow one another from 11 to 28");
  }
  if (cells[1].empty() || cells[1].size() > kStyNameLength) problems_.Add(line, "a name has 1 to 16 characters");
  if (!size || *size < 20 || *size > 65532 || *size % 4 != 0) {
    return problems_.Add(line, "a style has 20 to 65532 bytes, in fours");
  }
  ++next_entry_;
  Bytes& file = banks_[bank_];
  PutWordLowFirst(file, kStySizeOffset + 4 * static_cast<std::size_t>(*place) + 1, *size);
  const std::size_t length = static_cast<std::size_t>(*size) - kStyNameLength;
  file += Padded(cells[1], kStyNameLength);
  file += cells[1] == kStyEmptyName ? Bytes(length, '\0') : Events(cells[1], length);
}

bool StyleTables::HasStyleBeside(std::string_view file, int entry) const {
  const auto bank = banks_.find(std::string(file.substr(0, file.rfind('.'))) + ".sty");
  if (bank == banks_.end() || StyEntryPos(entry, bank->second) == 0 || StyEntrySize(entry, bank->second) == 0) {
    return false;
  }
  return StyEntryName(entry, bank->second) != kStyEmptyName;
}

}  // namespace zentaline::factory
