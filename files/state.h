// The module-wide state of opening and saving. Directories and names are the file system's bytes; a directory has no
// separator at its end.
#pragma once

#include <string>
#include <vector>

#include "base/bytes.h"

namespace zentaline {

// The old instruments whose files the open dialog is asked for, by the flag of an import that runs.
enum class OldFormat { kNone, kArr, kPrg };

struct FilesState {
  std::string LastArrDirectory;
  std::string LastPrgDirectory;
  std::string LastGblDirectory;
  std::string LastArrName;
  std::string LastPrgName;
  std::string LastGblName;
  bool ReadOnlyAnswer = false;  // of the last open dialog
  std::string ChosenPath;       // its path, with extension
  bool ChosenIsRead = true;  // it was read into the buffer of the kind that asked; else that holds what it held before
  // The file of the open flow that runs.
  std::string CurrentFileDir;
  std::string CurrentFileName;  // without extension
  OldFormat OldFormatWanted = OldFormat::kNone;
  // What the import readers have read, as files of this instrument; empty when none has.
  std::vector<Bytes> ImportedArr;
  std::vector<Bytes> ImportedPrg;
  Bytes ItemClipboard;  // the image of the window that items were copied from; empty before the first copy
};

}  // namespace zentaline
