#include "tools/factory/arrangements.h"

#include <array>

#include "data/choices.h"
#include "data/names.h"
#include "program/prg_format.h"
#include "tools/factory/sounds.h"

namespace zentaline::factory {
namespace {

constexpr std::array<std::string_view, kArrPartCount> kPartNames = {"drum", "percussion", "bass",   "acc1", "acc2",
                                                                    "acc3", "upper1",     "upper2", "lower"};

struct Switch {
  std::string_view name;
  std::size_t offset;
  int bit;
};
constexpr Switch kSwitches[] = {
    {"Dynamic Velocity", arr_record::kSwitches1, 0}, {"Tempo Lock", arr_record::kSwitches1, 1},
    {"KBD1 Damp En", arr_record::kSwitches1, 2},     {"KBD2 Damp En", arr_record::kSwitches1, 3},
    {"Chord Scan Low", arr_record::kSwitches2, 0},   {"Chord Scan High", arr_record::kSwitches2, 1},
    {"Bass Inversion", arr_record::kSwitches2, 2},   {"Chord Hold", arr_record::kSwitches2, 3},
    {"Chord Latch", arr_record::kSwitches2, 4},
};

int Field(const Bytes& record, std::size_t offset) {
  return ByteAt(record, offset + 1);
}
void PutField(Bytes& record, std::size_t offset, int value) {
  PutByte(record, offset + 1, value);
}

// "C4" is 60; letter, optional "#", octave.
std::optional<int> NoteOf(std::string_view text) {
  constexpr std::string_view names = "C D EF G A B";
  if (text.size() < 2) return std::nullopt;
  const std::size_t note = text[0] == ' ' ? std::string_view::npos : names.find(text[0]);
  const bool sharp = text[1] == '#';
  const std::optional<int> octave = NumberOf(text.substr(sharp ? 2 : 1));
  if (note == std::string_view::npos || !octave) return std::nullopt;
  return (*octave + 1) * 12 + static_cast<int>(note) + (sharp ? 1 : 0);
}

std::optional<int> InRange(std::optional<int> value, int low, int high) {
  return value && *value >= low && *value <= high ? value : std::nullopt;
}

// A send level: 0 to 9, or the program's own.
std::optional<int> SendOf(std::string_view text) {
  return text == "PRG" ? 10 : InRange(NumberOf(text), 0, 9);
}

// What a field holds before any setting speaks of it.
Bytes NewRecord() {
  Bytes record(kArrRecordLength, '\0');
  for (int part = 0; part < kArrPartCount; ++part) {
    PutField(record, PartOffset(part) + part_block::kPan, 15);
    PutField(record, PartOffset(part) + part_block::kStatus, 1);
    PutField(record, PartOffset(part) + part_block::kWrapAround, 255);
  }
  return record;
}

// The fields that no setting forces to be told.
std::string Missing(const Bytes& record) {
  std::string missing;
  if (Field(record, arr_record::kTempo) < 10) missing += " tempo";
  if (Field(record, arr_record::kSplitPoint) < 36) missing += " split";
  for (std::size_t variation = 0; variation < 4; ++variation) {
    if (Field(record, arr_record::kDrumMap + variation) == 0) missing += " map";
  }
  for (int part = 0; part < kArrPartCount; ++part) {
    const bool kit = Field(record, PartOffset(part) + part_block::kBankCode) == kDrumBankCode;
    if (kit != (part <= kPartPercussion)) missing += " (kit or program of the wrong kind)";
    if (Field(record, PartOffset(part) + part_block::kVolume) == 0) missing += " volume";
  }
  return missing;
}

}  // namespace

Bytes ArrangementTables::EmptyRecord() const {
  return NewRecord();
}

void ArrangementTables::ReadBankHead(const SourceLine& line, std::string_view rest) {
  bank_styles_ = -1;
  if (const std::size_t word = rest.find(" styles "); word != std::string_view::npos) {
    const std::string_view letter = Trim(rest.substr(word + 8));
    if (letter != "A" && letter != "B") problems_.Add(line, "a bank of styles is A or B");
    bank_styles_ = letter == "B" ? 64 : 0;
    rest = Trim(rest.substr(0, word));
  }
  bank_ = std::string(rest);
  if (!bank_.ends_with(".arr")) problems_.Add(line, "the file of a bank ends in .arr");
  if (banks_.contains(bank_)) problems_.Add(line, "this bank is there already");
  Bytes& file = banks_[bank_];
  file = Bytes(kArrFileLength, '\0');
  NewArrHeader(file);
  own_programs_ = programs_.NamesBeside(bank_);
}

void ArrangementTables::ReadRow(const SourceLine& line) {
  const std::vector<std::string_view> cells = SplitAt(line.text, '|');
  const std::optional<int> place = cells.empty() ? std::nullopt : PlaceOf(cells[0]);
  if (bank_.empty() || !place) return problems_.Add(line, "a row begins with its place, 11 to 88");
  Bytes record;
  const bool like = cells.size() > 2 && cells[2].starts_with("like ");
  if (!(like ? ReadLikeRow(line, cells, record) : ReadFullRow(line, *place, cells, record))) return;
  if (cells[1].empty() || cells[1].size() > kArrNameLength) problems_.Add(line, "a name has 1 to 16 characters");
  PutBytes(record, arr_record::kName + 1, Padded(cells[1], kArrNameLength));
  ApplySettings(line, cells.back(), record);
  if (const std::string missing = Missing(record); !missing.empty()) problems_.Add(line, "not told:" + missing);
  const std::size_t position = kArrHeaderLength + kArrRecordLength * static_cast<std::size_t>(*place) + 1;
  if (ByteAt(banks_[bank_], position) != 0) problems_.Add(line, "this place is taken already");
  PutBytes(banks_[bank_], position, record);
}

bool ArrangementTables::ReadFullRow(const SourceLine& line, int place, const std::vector<std::string_view>& cells,
                                    Bytes& record) {
  if (cells.size() != 14) {
    problems_.Add(line, "a full row has 14 cells");
    return false;
  }
  const auto base = templates_.find(cells[2]);
  if (base == templates_.end()) {
    problems_.Add(line, "no such template");
    return false;
  }
  record = base->second;
  if (bank_styles_ >= 0) {
    PutField(record, arr_record::kStyleNumber, bank_styles_ + place);
    PutField(record, arr_record::kStyleLocation, 0);
    if (TrimRight(StyleName(bank_styles_ + place)) != cells[1]) problems_.Add(line, "the style has another name");
  }
  std::string problem;
  ApplySettings(line, "tempo " + std::string(cells[3]), record);
  for (int part = 0; part < kArrPartCount; ++part) {
    if (!SetSound(part, cells[4 + static_cast<std::size_t>(part)], record, problem)) problems_.Add(line, problem);
  }
  return true;
}

bool ArrangementTables::ReadLikeRow(const SourceLine& line, const std::vector<std::string_view>& cells, Bytes& record) {
  const std::string_view model = Trim(cells[2].substr(5));
  const std::optional<int> place = model.size() == 3 ? PlaceOf(model.substr(1)) : std::nullopt;
  const auto bank = banks_.find("i40Arr" + std::string(model.substr(0, 1)) + ".arr");
  if (cells.size() != 4 || !place || bank == banks_.end()) {
    problems_.Add(line, "a row by a model has 4 cells and names a factory arrangement");
    return false;
  }
  record =
      Slice(bank->second, kArrHeaderLength + kArrRecordLength * static_cast<std::size_t>(*place) + 1, kArrRecordLength);
  return true;
}

void ArrangementTables::ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record) {
  for (std::string_view setting : SplitAt(settings, ';')) {
    std::string problem = "a setting that isn't known or out of its range: " + std::string(setting);
    if (!ApplySetting(setting, record, problem)) problems_.Add(line, problem);
  }
}

bool ArrangementTables::ApplySetting(std::string_view setting, Bytes& record, std::string& problem) {
  std::string_view rest;
  const std::string_view key = FirstWord(setting, rest);
  if (const std::optional<int> part = IndexIn(kPartNames, key)) return ApplyPart(*part, rest, record, problem);
  if (key == "style") return SetStyle(rest, record, problem);

  const auto put = [&record](std::size_t offset, std::optional<int> value) {
    if (value) PutField(record, offset, *value);
    return value.has_value();
  };
  const auto less = [](std::optional<int> value, int by) { return value ? std::optional<int>(*value - by) : value; };
  if (key == "keyboard") return put(arr_record::kKeyboardAssign, IndexIn(kKeyboardAssigns, rest));
  if (key == "split") return put(arr_record::kSplitPoint, InRange(NoteOf(rest), 36, 96));
  if (key == "variation") return put(arr_record::kInitialVariation, less(InRange(NumberOf(rest), 1, 4), 1));
  if (key == "tempo") return put(arr_record::kTempo, less(InRange(NumberOf(rest), 40, 240), 30));
  if (key == "transpose") return put(arr_record::kTranspose, InRange(NumberOf(rest), -11, 11));
  if (key == "kick") return put(arr_record::kKick, IndexIn(kDesignations, rest));
  if (key == "snare") return put(arr_record::kSnare, IndexIn(kDesignations, rest));
  if (key == "fill1") return put(arr_record::kFill1, IndexIn(kFills, rest));
  if (key == "fill2") return put(arr_record::kFill2, IndexIn(kFills, rest));
  if (key == "effect1") return put(arr_record::kEffect1, EffectOf(rest));
  if (key == "effect2") return put(arr_record::kEffect2, EffectOf(rest));
  if (key == "manual" && rest.starts_with("Dr")) {
    return put(arr_record::kManualDrumKit, InRange(PlaceOf(rest.substr(2)), 0, 7));
  }
  if (key == "ensemble") {
    const bool on = rest.ends_with(" on");
    if (!on && !rest.ends_with(" off")) return false;
    const std::optional<int> type = IndexIn(kEnsembles, Trim(rest.substr(0, rest.size() - (on ? 3 : 4))));
    return put(arr_record::kEnsemble, type ? std::optional<int>(*type | (on ? 0x80 : 0)) : type);
  }
  if (key == "map") {
    const std::vector<std::string_view> maps = SplitAt(rest, ' ');
    if (maps.size() != 4) return false;
    for (std::size_t i = 0; i < 4; ++i) {
      if (!put(arr_record::kDrumMap + i, InRange(NumberOf(maps[i]), 1, 8))) return false;
    }
    return true;
  }
  if (key == "switches") {
    PutField(record, arr_record::kSwitches1, 0);
    PutField(record, arr_record::kSwitches2, 0);
    for (std::string_view name : SplitAt(rest, ',')) {
      bool known = false;
      for (const Switch& entry : kSwitches) {
        if (entry.name != name) continue;
        PutField(record, entry.offset, Field(record, entry.offset) | 1 << entry.bit);
        known = true;
      }
      if (!known) return false;
    }
    return true;
  }
  return false;
}

bool ArrangementTables::ApplyPart(int part, std::string_view rest, Bytes& record, std::string& problem) {
  const std::size_t block = PartOffset(part);
  std::string_view value;
  const std::string_view word = FirstWord(rest, value);
  const auto put = [&record, block](std::size_t offset, std::optional<int> number) {
    if (number) PutField(record, block + offset, *number);
    return number.has_value();
  };
  if (word == "sound") return SetSound(part, value, record, problem);
  if (word == "octave") return put(part_block::kOctave, InRange(NumberOf(value), -2, 2));
  if (word == "wrap") {
    const std::optional<int> note = InRange(NumberOf(value), 1, 12);
    return put(part_block::kWrapAround, value == "ORG" ? 255 : note ? std::optional<int>(*note - 1) : note);
  }
  if (word == "out" || word == "play") {
    const std::optional<int> index = word == "out" ? IndexIn(kOutStatus1, value) : IndexIn(kOutStatus2, value);
    if (!index) return false;
    const int old = Field(record, block + part_block::kStatus);
    return put(part_block::kStatus, word == "out" ? (old & 0xC) | *index : (old & 3) | *index << 2);
  }

  std::vector<std::string_view> mix;
  for (std::string_view piece : SplitAt(rest, ' ')) {
    if (!piece.empty()) mix.push_back(piece);
  }
  if (mix.size() != 4) return false;
  const std::optional<int> c_send = SendOf(mix[2]);
  const std::optional<int> d_send = SendOf(mix[3]);
  if (!c_send || !d_send) return false;
  return put(part_block::kVolume, InRange(NumberOf(mix[0]), 0, 127)) &&
         put(part_block::kPan, mix[1] == "PRG" ? 31 : PanOf(mix[1])) && put(part_block::kSends, *c_send | *d_send << 4);
}

bool ArrangementTables::SetSound(int part, std::string_view name, Bytes& record, std::string& problem) {
  Sound sound;
  if (!FindSound(name, own_programs_, sound, problem)) return false;
  PutField(record, PartOffset(part) + part_block::kProgram, sound.number);
  PutField(record, PartOffset(part) + part_block::kBankCode, sound.bank_code);
  return true;
}

bool ArrangementTables::SetStyle(std::string_view label, Bytes& record, std::string& problem) {
  const std::optional<int> place = label.size() == 3 ? PlaceOf(label.substr(1)) : std::nullopt;
  if (!place) return false;
  if (label[0] == 'U') {
    if (!styles_.HasStyleBeside(bank_, *place)) {
      problem = "the file's own styles have none at " + std::string(label);
      return false;
    }
    PutField(record, arr_record::kStyleNumber, *place);
    PutField(record, arr_record::kStyleLocation, kUserStyleLocation);
    return true;
  }
  if (label[0] != 'A' && label[0] != 'B') return false;
  PutField(record, arr_record::kStyleNumber, label[0] == 'A' ? *place : 64 + *place);
  PutField(record, arr_record::kStyleLocation, 0);
  return true;
}

}  // namespace zentaline::factory
