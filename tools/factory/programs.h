// Banks of programs from their tables.
#pragma once

#include <map>
#include <string>

#include "program/prg_format.h"
#include "tools/factory/sounds.h"
#include "tools/factory/source.h"

namespace zentaline::factory {

class ProgramTables {
 public:
  explicit ProgramTables(Problems& problems) : problems_(problems) {}

  // Templates and banks; a later table may stand on what an earlier one told.
  void Read(const std::string& path);

  // File name to the bytes of the file.
  const std::map<std::string, Bytes>& Banks() const { return banks_; }

  // The names in the bank of the same base name as `file`; a link's is the name of the program it leads to.
  OwnPrograms NamesBeside(std::string_view file) const;

 private:
  void ReadBankHead(const SourceLine& line, std::string_view rest);
  void ReadTemplateHead(const SourceLine& line, std::string_view rest);
  void ReadRow(const SourceLine& line);
  bool MakeLink(const SourceLine& line, std::string_view sound_name, Bytes& record);
  void ApplySettings(const SourceLine& line, std::string_view settings, Bytes& record);

  Problems& problems_;
  std::map<Bytes, Bytes, std::less<>> templates_;
  std::map<std::string, Bytes> banks_;
  std::string bank_;
  Bytes template_;
};

}  // namespace zentaline::factory
