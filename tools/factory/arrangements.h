// Arrangement banks from their tables.
#pragma once

#include <map>
#include <string>

#include "arrangement/arr_format.h"
#include "tools/factory/programs.h"
#include "tools/factory/source.h"
#include "tools/factory/styles.h"

namespace zentaline::factory {

// File name, such as "i40ArrA.arr", to the bytes of the file.
using Files = std::map<std::string, Bytes>;

class ArrangementTables {
 public:
  ArrangementTables(const ProgramTables& programs, const StyleTables& styles, Problems& problems)
      : programs_(programs), styles_(styles), problems_(problems) {}

  // Templates and banks; a later table may stand on what an earlier one told.
  void Read(const std::string& path);

  const Files& Banks() const { return banks_; }

 private:
  void ReadBankHead(const SourceLine& line, std::string_view rest);
  void ReadTemplateHead(const SourceLine& line, std::string_view rest);
  void ReadRow(const SourceLine& line);
  bool ReadFullRow(const SourceLine& line, int place, const std::vector<std::string_view>& cells, Bytes& record);
  bool ReadLikeRow(const SourceLine& line, const std::vector<std::string_view>& cells, Bytes& record);
  void ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record);
  bool ApplySetting(std::string_view setting, Bytes& record, std::string& problem);
  bool ApplyPart(int part, std::string_view rest, Bytes& record, std::string& problem);
  bool SetSound(int part, std::string_view name, Bytes& record, std::string& problem);
  bool SetStyle(std::string_view label, Bytes& record, std::string& problem);

  const ProgramTables& programs_;
  const StyleTables& styles_;
  Problems& problems_;
  std::map<Bytes, Bytes, std::less<>> templates_;
  Files banks_;

  // Where the reader is: the bank or template that the next lines belong to.
  std::string bank_;
  int bank_styles_ = -1;  // first factory style of a bank that goes by styles, 0 or 64; -1 for others
  OwnPrograms own_programs_;
  Bytes template_;
};

}  // namespace zentaline::factory
