// The module-wide state of the program files.
#pragma once

#include <array>
#include <string>

#include "base/bytes.h"
#include "core/edited.h"
#include "core/state.h"

namespace zentaline {

// What the configuration has room for of the name of a program file that was sent.
inline constexpr std::size_t kProgramNameKept = 50;

inline constexpr int kPerfRows = 8;
// What a performance changes: the 11 bytes of oscillator 1 and the effects, then those of oscillator 2 and the copies
// of the effects' balances.
inline constexpr int kPerfEntries = 22;

struct ProgramState {
  Bytes ProgramFileBuffer;       // the last file read
  std::string ProgramExtension;  // of the file that ReadProgramByName found: "prg" or "pgg"
  std::string PrgInInstrument;   // base name of the program file last sent, at most 50 bytes
  EditedBytes EditRecord;        // 201 bytes: the program under edit, or the one heard last
  int UserProgram = -1;          // the row that window 9 remembers as the bank's current program, -1 for none

  // The program editor.
  int EditOsc = 1;  // 1 or 2, the oscillator last selected
  bool PrgEditorOpen = false;
  EditedFlag ProgramChanged;    // an edit since the last CommitProgram
  bool ProgramFilling = false;  // the editor fills its controls: their events do nothing
  int MultisoundTarget = 0;     // the BasText, 1 or 2, that frmMultisample feeds; 0 for none

  // The performance editor.
  bool PerfOpen = false;
  bool PerfResetting = false;                  // a row goes back to where it began
  bool PerfSilent = false;                     // its buttons are adjusted: nothing is stored or sent
  std::array<int, kPerfEntries> PerfBase{};    // the bytes, 0 to 255, as the program was taken up
  std::array<int, kPerfRows> PerfStepValue{};  // the count of each row

  // Where the editors stood, for this run.
  FormState EditPrgPlace;
  FormState EditPerfPlace;
  FormState MultisamplePlace;
};

}  // namespace zentaline
