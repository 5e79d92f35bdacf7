// The module-wide state of the program files.
#pragma once

#include <string>

#include "base/bytes.h"

namespace zentaline {

// What the configuration has room for of the name of a program file that was sent.
inline constexpr std::size_t kProgramNameKept = 50;

struct ProgramState {
  Bytes ProgramFileBuffer;       // the last file read
  std::string ProgramExtension;  // of the file that ReadProgramByName found: "prg" or "pgg"
  std::string PrgInInstrument;   // base name of the program file last sent, at most 50 bytes
  Bytes EditRecord;              // 201 bytes: the program under edit, or the one heard last
  int UserProgram = -1;          // the row that window 9 remembers as the bank's current program, -1 for none
};

}  // namespace zentaline
