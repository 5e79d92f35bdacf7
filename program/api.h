// Program files, as the rest of the program uses them.
#pragma once

#include <span>
#include <string>

#include "base/bytes.h"
#include "core/menus.h"

namespace zentaline {

struct Application;
class ChildWindow;
class FileSet;
struct EditStep;

// Both read into ProgramFileBuffer. 0 good, 1 the file system's error was shown, 2 a wrong file (shown), 3 absent.
// The first takes a path with its extension, and either signature.
int ReadProgramFile(Application& app, const std::string& path);
// With or without extension; 4 is a good .pgg. Leaves "prg" or "pgg" in ProgramExtension.
int ReadProgramByName(Application& app, const std::string& path);

// The bank of a window's image for saving, under the extension that its records call for; the file of the other one
// goes. And what becomes of the image when it is written, `whole` when the other one has gone.
void PutPrgFiles(const Application& app, Bytes& image, FileSet& set);
void PrgFilesSaved(Bytes& image, bool whole);

// The name of a program or drum kit of the instrument as bytes, blanks at its end removed. Empty for user programs and
// for what doesn't exist.
Bytes InstrumentProgramName(int bank_code, int number);
// "Piano 1 (A11)" for the bank codes 0 to 2, "F/User", a drum kit's name or "Drum"; empty for any other code. UTF-8.
std::string PrgLabel(int number, int bank_code);

// The image of the open program window 1 to 8 that shows `path` (without extension), null when none does.
const Bytes* FindOpenProgram(const Application& app, const std::string& path);
// A bank has been sent: its file's base name is kept, and shown with its extension.
void TellPrgInInstrument(Application& app, const std::string& base_name, bool pgg);
// Which programs it holds is no longer known.
void ForgetPrgInInstrument(Application& app);
// The file stands in the instrument now: program slot 9 takes its path, and window 9, when it is open, shows it.
void SlotTakePrg(Application& app, const std::string& path, bool pgg);

// --- The windows ---

// Shows the bank in ProgramFileBuffer in window 1 to 9, whose slot is marked open already.
ChildWindow& OpenPrgWindow(Application& app, int number, const std::string& path, bool read_only);
// The same with a bank that was converted from an earlier instrument's: it has no file of its own yet, and `path` is
// its source's. `mark` is control byte 11: 3 from an i30, 6 from a .pcg.
ChildWindow& OpenImportedPrg(Application& app, int number, const Bytes& bank, const std::string& path, bool read_only,
                             int mark);
// The same as a new bank without a file; the buffer holds the template with its programs cleared.
ChildWindow& OpenNewPrgWindow(Application& app, int number);

// Brings window 9 to the front with the programs of the file of this path, opening it when it isn't open.
void ShowUserPrograms(Application& app, const std::string& path, bool pgg);

// --- The program under edit ---

// Copies record 0 to 63 of a window's image to EditRecord, whose values the performance editor then starts from.
void LoadEditRecord(Application& app, const Bytes& image, int index);
// Puts EditRecord back into the image it came from: 0 done, 1 the window is read-only (shown), 2 no such window.
int CommitProgram(Application& app);
// Tells the instrument which oscillator the next message is about, 1 or 2, and shows it in the editor.
void SelectOscillator(Application& app, int osc);
// Opens the performance editor on the program that is selected in the bank's list, or brings it to the front.
void OpenPerfEditor(Application& app, ChildWindow& bank);
// Brings the list of sounds to the front, on the sound of the box that waits for one; opens it when it isn't open.
void ShowMultisamples(Application& app);
// Shows EditRecord in the program editor, if it is open; nothing is sent or written.
void FillProgramEditor(Application& app);
// The program under edit has gone a step back or forth; the editors show it, and the instrument follows.
void ShowProgramStep(Application& app, const EditStep& step);
// EditRecord has gone into its file as it is: that is what the editor's bars go back to.
void ProgramRecordKept(Application& app);
// Opens the program editor on a record, 0 to 63, of a bank, or brings it to the front with it.
void OpenProgramEditor(Application& app, ChildWindow& bank, int index);
// Closes the editors whose record came from this window; false when one refuses.
bool CloseProgramEditorsOf(Application& app, const ChildWindow& bank);
// A child window has come to the front: away from the editor and its list of sounds no box waits for a sound visibly.
void ProgramEditorLeft(Application& app, const ChildWindow& front);

// The banks that the instrument holds for good, and the menu entries that show them: kinds 4 to 10.
struct ProgramBank {
  int kind;
  MenuId entry;
};
std::span<const ProgramBank> ProgramBanks();
MenuId ProgramBankEntry(int kind);
// Brings the bank's window to the front, opening it when it isn't open, and puts its list on a row, which nobody hears;
// -1 leaves the list alone.
void ShowProgramBank(Application& app, int kind, int row = -1);

}  // namespace zentaline
