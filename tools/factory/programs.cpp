#include "tools/factory/programs.h"

#include "record/program_fields.h"
#include "tools/factory/settings.h"

namespace zentaline::factory {
namespace {

std::size_t RecordPosition(int place) {
  return kPrgFileRecordsPosition + kPrgRecordLength * static_cast<std::size_t>(place);
}

}  // namespace

Bytes ProgramTables::EmptyRecord() const {
  return Bytes(kPrgRecordLength, '\0');
}

void ProgramTables::ReadBankHead(const SourceLine& line, std::string_view rest) {
  const std::size_t word = rest.find(" rest ");
  bank_ = std::string(rest.substr(0, word));
  if (banks_.contains(bank_)) problems_.Add(line, "this bank is there already");
  Bytes file(kPrgFileLength, '\0');
  if (word != std::string_view::npos) {
    const auto base = banks_.find(std::string(Trim(rest.substr(word + 6))));
    if (base == banks_.end()) {
      problems_.Add(line, "the bank to take the rest from isn't known");
    } else {
      file = base->second;
    }
  }
  NewProgramHeader(file);
  if (bank_.ends_with(".pgg")) PutBytes(file, 1, "KPGG");
  banks_[bank_] = file;
}

void ProgramTables::ReadRow(const SourceLine& line) {
  const std::vector<std::string_view> cells = SplitAt(line.text, '|');
  const std::optional<int> place = cells.empty() ? std::nullopt : PlaceOf(cells[0]);
  if (bank_.empty() || !place) return problems_.Add(line, "a row begins with its place, 11 to 88");
  Bytes& file = banks_[bank_];
  if (cells.size() == 2 && cells[1].starts_with("link ")) {
    Bytes record = Slice(file, RecordPosition(*place), kPrgRecordLength);
    if (!bank_.ends_with(".pgg")) problems_.Add(line, "only a .pgg holds links");
    if (MakeLink(line, Trim(cells[1].substr(5)), record)) PutBytes(file, RecordPosition(*place), record);
    return;
  }
  if (cells.size() != 4) return problems_.Add(line, "a row has 4 cells");
  const auto base = templates_.find(cells[2]);
  if (base == templates_.end()) return problems_.Add(line, "no such template");
  Bytes record = base->second;
  if (cells[1].empty() || cells[1].size() > program_record::kNameLength) {
    problems_.Add(line, "a name has 1 to 16 characters");
  }
  PutBytes(record, program_record::kName, Padded(cells[1], program_record::kNameLength));
  ApplySettings(line, cells[3], record);
  PutBytes(file, RecordPosition(*place), record);
}

bool ProgramTables::MakeLink(const SourceLine& line, std::string_view sound_name, Bytes& record) {
  Sound sound;
  std::string problem;
  if (!FindSound(sound_name, OwnPrograms(), sound, problem)) {
    problems_.Add(line, problem);
    return false;
  }
  PutByte(record, program_link::kMark, 1);
  PutByte(record, program_link::kBankCode, sound.bank_code);
  PutByte(record, program_link::kNumber, sound.number);
  PutBytes(record, program_link::kName, SoundName(sound));
  return true;
}

void ProgramTables::ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record) {
  for (std::string_view setting : SplitAt(settings, ';')) {
    std::string_view text;
    const std::string_view key = FirstWord(setting, text);
    if (!ApplySetting(kProgramFields, key, text, record)) {
      problems_.Add(line, "a setting that isn't known or out of its range: " + std::string(setting));
    }
  }
  // The performance editor keeps a second copy of each balance beside the first.
  PutByte(record, program_record::kFx1BalanceCopy, ByteAt(record, program_record::kFx1Balance));
  PutByte(record, program_record::kFx2BalanceCopy, ByteAt(record, program_record::kFx2Balance));
}

OwnPrograms ProgramTables::NamesBeside(std::string_view file) const {
  OwnPrograms names;
  const std::string base(file.substr(0, file.rfind('.')));
  for (std::string_view extension : {".prg", ".pgg"}) {
    const auto bank = banks_.find(base + std::string(extension));
    if (bank == banks_.end()) continue;
    for (int n = 0; n < kPrgRecordCount; ++n) {
      const bool link = ByteAt(bank->second, RecordPosition(n)) == 1;
      names[static_cast<std::size_t>(n)] =
          Slice(bank->second, RecordPosition(n) - 1 + (link ? program_link::kName : program_record::kName),
                program_record::kNameLength);
    }
  }
  return names;
}

}  // namespace zentaline::factory
