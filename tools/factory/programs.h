// Banks of programs from their tables.
#pragma once

#include <map>
#include <string>

#include "program/prg_format.h"
#include "tools/factory/bank_tables.h"
#include "tools/factory/sounds.h"
#include "tools/factory/source.h"

namespace zentaline::factory {

class ProgramTables : public BankTables {
 public:
  using BankTables::BankTables;

  // The names in the bank of the same base name as `file`; a link's is the name of the program it leads to.
  OwnPrograms NamesBeside(std::string_view file) const;

 private:
  Bytes EmptyRecord() const override;
  void ReadBankHead(const SourceLine& line, std::string_view rest) override;
  void ReadRow(const SourceLine& line) override;
  bool MakeLink(const SourceLine& line, std::string_view sound_name, Bytes& record);
  void ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record) override;
};

}  // namespace zentaline::factory
