// Arrangement banks from their tables.
#pragma once

#include <map>
#include <string>

#include "arrangement/arr_format.h"
#include "tools/factory/bank_tables.h"
#include "tools/factory/programs.h"
#include "tools/factory/source.h"
#include "tools/factory/styles.h"

namespace zentaline::factory {

// File name, such as "i40ArrA.arr", to the bytes of the file.
using Files = std::map<std::string, Bytes>;

class ArrangementTables : public BankTables {
 public:
  ArrangementTables(const ProgramTables& programs, const StyleTables& styles, Problems& problems)
      : BankTables(problems), programs_(programs), styles_(styles) {}

 private:
  Bytes EmptyRecord() const override;
  void ReadBankHead(const SourceLine& line, std::string_view rest) override;
  void ReadRow(const SourceLine& line) override;
  bool ReadFullRow(const SourceLine& line, int place, const std::vector<std::string_view>& cells, Bytes& record);
  bool ReadLikeRow(const SourceLine& line, const std::vector<std::string_view>& cells, Bytes& record);
  void ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record) override;
  bool ApplySetting(std::string_view setting, Bytes& record, std::string& problem);
  bool ApplyPart(int part, std::string_view rest, Bytes& record, std::string& problem);
  bool SetSound(int part, std::string_view name, Bytes& record, std::string& problem);
  bool SetStyle(std::string_view label, Bytes& record, std::string& problem);

  const ProgramTables& programs_;
  const StyleTables& styles_;

  int bank_styles_ = -1;  // first factory style of a bank that goes by styles, 0 or 64; -1 for others
  OwnPrograms own_programs_;
};

}  // namespace zentaline::factory
