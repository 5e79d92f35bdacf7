// What the windows of programs tell each other; for this folder alone. While an editor is closed nothing is done
// to its controls.
#pragma once

#include <string>

#include "base/bytes.h"
#include "program/prg_editor_tables.h"

namespace zentaline {

struct Application;
struct EditStep;
class ChildWindow;

// --- A bank's window ---

// Rewrites the name in the window's list row from its record, silently.
void ShowProgramName(ChildWindow& bank, int row);

// The row of the program that is selected in the window's list; -1 when none is, or a link, or an empty place.
int SelectedProgram(const ChildWindow& bank);

// --- The program under edit ---

// Another program is about to be taken up: asks in this editor's name whether to keep what was changed of the one
// before. What isn't kept goes.
void AskToKeepProgram(Application& app, const ChildWindow& editor);
// The last of the editors is about to close: asks in its name whether to save what was changed. False when it stays.
bool AskToSaveProgram(Application& app, const ChildWindow& editor);
// "Bank.prg / Name", for the captions of the editors.
std::string EditedProgramTitle(const Application& app);

// A bank's records have gone a step back or forth: the editors show their own one as it is now. A step forth leads to
// what they held behind it, which a cut or a paste had left alone.
void TakeOverProgram(Application& app, const ChildWindow& bank, const EditStep& step);
// What goes out before the message of a row: the mode, and the oscillator.
void AnnounceProgramParam(Application& app, const EditorRow& row, int block);

// --- The program editor ---

// Whether the record under edit is row 0 to 63 of this bank.
bool IsUnderEdit(const Application& app, const ChildWindow& bank, int index);
// The editor has closed: the banks' buttons open it again.
void ProgramEditorClosed(Application& app);
// The option buttons of oscillator 1 or 2, silently.
void ShowOscillator(Application& app, int osc);
// Moves a bar of one of the arrays by its change handler, which stores and sends. False when the editor is closed.
bool SetProgramBar(Application& app, PrgArray array, int index, int value);
// Puts the text into BasText 1 or 2, whose change handler stores and sends.
void SetMultisoundText(Application& app, int box, const std::string& text);
// Row 0 to 518 of the list of sounds, UTF-8.
std::string MultisoundText(const Application& app, int n);
// The number that a text of BasText 1 or 2 begins with: its leading digits among the first three characters.
int MultisoundNumber(const std::string& text);
// The number in the box that waits for a sound; -1 when none waits.
int WantedMultisound(Application& app);

// BasText 1 or 2 waits for a sound from frmMultisample: both boxes show it. 0: none does, and they look as ever.
void SetMultisoundTarget(Application& app, int box);
// Both boxes look as ever; the target stays.
void RestoreMultisoundBoxes(Application& app);

// --- The list of sounds ---

// It goes to the sound of the box that waits for one, and stays where it stands among the windows.
void FollowMultisound(Application& app);
void CloseMultisamples(Application& app);

// --- The performance editor ---

// It shows the program that was taken up, unchanged so far.
void RefreshPerf(Application& app);
void ClosePerfEditor(Application& app);

// What a performance starts from: PerfBase from EditRecord as it stands, all counts at 0.
void TakePerfBase(Application& app);

}  // namespace zentaline
