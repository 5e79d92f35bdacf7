#include "tools/factory/arrangements.h"

#include <array>

#include "data/choices.h"
#include "data/names.h"
#include "program/prg_format.h"
#include "record/arrangement_fields.h"
#include "record/field_text.h"
#include "tools/factory/settings.h"
#include "tools/factory/sounds.h"

namespace zentaline::factory {
namespace {

// The fields that the lines of switches name.
constexpr std::string_view kSwitchKeys = "switch.";

int ByteOf(const Bytes& record, std::size_t offset) {
  return ByteAt(record, offset + 1);
}
void PutField(Bytes& record, std::size_t offset, int value) {
  PutByte(record, offset + 1, value);
}

bool Put(std::string_view key, std::string_view text, Bytes& record) {
  return ApplySetting(kArrangementFields, key, text, record);
}

// The switches of this list are on, all others off.
bool PutSwitches(std::string_view list, Bytes& record) {
  const std::vector<std::string_view> names = SplitAt(list, ',');
  std::size_t found = 0;
  for (const Field& field : kArrCommonFields) {
    if (!field.key.starts_with(kSwitchKeys)) continue;
    const bool on = std::find(names.begin(), names.end(), field.name) != names.end();
    StoreAt(field, record, 1, on ? 1 : 0);
    if (on) ++found;
  }
  return found == names.size();
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
  if (ByteOf(record, arr_record::kTempo) < 10) missing += " tempo";
  if (ByteOf(record, arr_record::kSplitPoint) < 36) missing += " split";
  for (std::size_t variation = 0; variation < 4; ++variation) {
    if (ByteOf(record, arr_record::kDrumMap + variation) == 0) missing += " map";
  }
  for (int part = 0; part < kArrPartCount; ++part) {
    const bool kit = ByteOf(record, PartOffset(part) + part_block::kBankCode) == kDrumBankCode;
    if (kit != (part <= kPartPercussion)) missing += " (kit or program of the wrong kind)";
    if (ByteOf(record, PartOffset(part) + part_block::kVolume) == 0) missing += " volume";
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
  if (const std::optional<int> part = IndexIn(kPartTags, key)) return ApplyPart(*part, rest, record, problem);
  if (key == "style") return SetStyle(rest, record, problem);
  if (key == "switches") return PutSwitches(rest, record);
  if (key == "ensemble") {
    const std::size_t last = rest.rfind(' ');
    if (last == std::string_view::npos) return false;
    const std::string_view on = rest.substr(last + 1);
    if (on != "on" && on != "off") return false;
    return Put("ensemble.type", rest.substr(0, last), record) && Put("ensemble.on", on == "on" ? "ON" : "OFF", record);
  }
  if (key == "map") {
    const std::vector<std::string_view> maps = SplitAt(rest, ' ');
    if (maps.size() != kMapTags.size()) return false;
    for (std::size_t i = 0; i < maps.size(); ++i) {
      if (!Put("map" + std::string(kMapTags[i]), maps[i], record)) return false;
    }
    return true;
  }
  return Put(key, rest, record);
}

bool ArrangementTables::ApplyPart(int part, std::string_view rest, Bytes& record, std::string& problem) {
  const std::string block = std::string(kPartTags[static_cast<std::size_t>(part)]) + ".";
  std::string_view value;
  const std::string_view word = FirstWord(rest, value);
  if (word == "sound") return SetSound(part, value, record, problem);
  if (Put(block + std::string(word), value, record)) return true;

  // The mix: volume, pan and the two sends.
  std::vector<std::string_view> mix;
  for (std::string_view piece : SplitAt(rest, ' ')) {
    if (!piece.empty()) mix.push_back(piece);
  }
  return mix.size() == 4 && Put(block + "volume", mix[0], record) && Put(block + "pan", mix[1], record) &&
         Put(block + "csend", mix[2], record) && Put(block + "dsend", mix[3], record);
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
