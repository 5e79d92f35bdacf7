// The module-wide state of the arrangement windows, the editor and the database.
#pragma once

#include <array>
#include <string>

#include "base/bytes.h"
#include "core/edited.h"

namespace zentaline {

// What is kept of the name of a file that was sent.
inline constexpr std::size_t kInstrumentNameLength = 24;

struct ArrangementState {
  Bytes ArrFileImage;           // the last file read, until its window is built
  EditedBytes ArrEditRecord;    // 567 bytes: the record under edit
  bool ArrNameChanged = false;  // the editor has changed the record's name

  std::string ArrInInstrument;  // base name of the .arr last sent, at most 24 bytes
  bool EditorOpen = false;
  EditedFlag EditorChanged;
  int BankWanted = 0;  // the factory bank that was opened last, 2 or 3
  bool FindActive = false;
  int FindRow = -1;  // 0 to 63, the row the search wants
  int FindFileId = 0;
  bool FindNeedsPrg = false;
  bool FindUserStyle = false;
  // A part of the arrangement under edit waits for a program; the first 1 among the slots tells which.
  bool ArrPartArmed = false;
  std::array<int, 19> ArrPartSlots{};
  bool ArrStyleArmed = false;  // the style waits for a style
  bool ArrNameArmed = false;
  // Of the editor.
  std::array<bool, 9> PartMuted{};  // by part, Drum first; they don't enter the record
  std::array<bool, 9> PartSoloed{};
  int ArrSignFlag = 0;              // 1: the value being sent is negative
  int ArrEditPos = 0;               // position in ArrEditRecord that the last list or horizontal bar wrote; 0 none yet
  bool EditorFilling = false;       // FillArrEditor runs
  bool EditorCloseRefused = false;  // the question at its closing was cancelled

  // The database.
  EditedBytes DBImage;
  bool DBWindowOpen = false;
  bool DatabaseKept = false;  // this run has set the file aside before its first removal of entries
  bool SilentStart = false;
  int ArrFileId = 0;                   // the result of the last look-up or addition
  std::array<int, 10> WindowFileId{};  // of the windows 1 to 9
};

}  // namespace zentaline
