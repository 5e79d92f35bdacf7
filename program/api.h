// Program files, as the rest of the program uses them.
#pragma once

#include <string>

#include "core/bytes.h"

namespace zentaline {

struct Application;

// Both read into ProgramFileBuffer. 0 good, 1 the file system's error was shown, 2 a wrong file (shown), 3 absent.
// The first takes a path with its extension, and either signature.
int ReadProgramFile(Application& app, const std::string& path);
// With or without extension; 4 is a good .pgg. Leaves "prg" or "pgg" in ProgramExtension.
int ReadProgramByName(Application& app, const std::string& path);

// Writes the bank of a window's image under the extension that its records call for, and removes the file of the other
// one. False when it failed, which was shown.
bool SavePrgFile(Application& app, Bytes& image);

// "Piano 1 (A11)" for the bank codes 0 to 2, "F/User", a drum kit's name or "Drum"; empty for any other code. UTF-8.
std::string PrgLabel(int number, int bank_code);

// The image of the open program window 1 to 8 that shows `path` (without extension), null when none does.
const Bytes* FindOpenProgram(const Application& app, const std::string& path);
// The file stands in the instrument now: program slot 9 takes its path.
void SlotTakePrg(Application& app, const std::string& path, bool pgg);

}  // namespace zentaline
