// Arrangements, as the rest of the program uses them. Paths are the file system's bytes, without extension unless told.
#pragma once

#include <string>

#include "base/bytes.h"

namespace zentaline {

struct Application;
class ChildWindow;
class FileSet;
struct EditStep;

// Reads the .arr into ArrFileImage: 0 read, 1 the file system's error was shown, 2 a bad file (shown), 3 absent or
// empty. `path` has its extension.
int ReadArrFile(Application& app, const std::string& path);

// Shows the file in ArrFileImage in window 1 to 9, whose slot is marked open already.
ChildWindow& OpenArrWindow(Application& app, int number, const std::string& path, bool read_only);
// The same with a file that was converted from an earlier instrument's: it has no file of its own yet, and `path` is
// its source's.
ChildWindow& OpenImportedArr(Application& app, int number, const Bytes& file, const std::string& path, bool read_only);
// The file stands in the instrument now: slot 9 takes its path, and window 9, when it is open, shows it.
void SlotTakeFile(Application& app, const std::string& path);

// Shows the factory bank of kind 2 or 3, or brings its window to the front. Null when its file can't be read, which was
// shown.
ChildWindow* OpenArrBank(Application& app, int kind);
// Its window, null when it isn't open.
ChildWindow* ArrBankWindow(const Application& app, int kind);
// The whole of mnuNuovoArr: a new file of 64 empty arrangements, which has no name yet.
void NewArrWindow(Application& app);
// Records or styles in the image of an arrangement window have changed: its rows and buttons follow, its selection and
// focus stay.
void ArrRecordsChanged(ChildWindow& window);

// The .arr and its styles as the image says, for saving; and what becomes of the image when the .arr is written,
// `whole` when nothing of the rest failed.
void PutArrFiles(const Application& app, Bytes& image, FileSet& set);
void ArrFilesSaved(Bytes& image, bool whole);

// Puts ArrEditRecord back into the image it came from: 0 done, 1 the window is read-only (shown), 2 no such window.
int StoreEditRecord(Application& app);

// Which arrangements the instrument holds is no longer known.
void ForgetArrInInstrument(Application& app);

// --- The editor ---

// Shows ArrEditRecord in the editor, if it is open.
void FillArrEditor(Application& app);
// ArrEditRecord has gone into its file as it is: that is what the editor's bars go back to.
void ArrRecordKept(Application& app);
// Opens the editor on a record of a file window, 0 to 63.
void OpenArrEditor(Application& app, ChildWindow& source, int index);
// Closes the editor when its record came from this window; false when it refuses.
bool CloseArrEditorOf(Application& app, const ChildWindow& source);
// The record under edit has gone a step back or forth; the editor shows it, and the instrument follows.
void ShowArrEditorStep(Application& app, const EditStep& step);
// A row, 0 to 63, of a program window goes to the armed part; `image` is the window's. Nothing happens while no part is
// armed.
void PickProgram(Application& app, const Bytes& image, int row);
// The same with a row of a style window's list, for the armed style; `row_text` is the list's.
void PickStyle(Application& app, const Bytes& image, int row, const std::string& row_text);

// --- The database ---

// The id of the file at `path`, or 0; it is in ArrFileId too.
int DBLookupId(Application& app, const std::string& path);
// Enters the file that CurrentFileDir and CurrentFileName name; its id, or 0, is in ArrFileId. `kind` is 19 from a file
// window. What the user asked for can be taken back, not what the program enters by itself.
enum class DBEntryBy { kUser, kProgram };
void DBAddFile(Application& app, int kind, DBEntryBy by);
// Takes out the entries whose files are gone or not to be kept.
void DBPurge(Application& app);
// Shows the window of the database, or the field of the search, or brings it to the front.
void ShowDatabase(Application& app);
void ShowFindId(Application& app);
// Brings up the arrangement of an id: its bank or file, which is opened where needed, the row, and what the instrument
// lacks of it. Boxes have the title.
void FindArrangement(Application& app, const std::string& text, const std::string& title);
// 1 when there is no database, else 0; shows what it finds unless SilentStart.
int DBCheck(Application& app);
int DBCheckSilently(Application& app);

// A change of the database is taken back or brought forth: whether the file still is what the list knows; writes it as
// the step has left it, false when that failed, which was shown; and shows it.
bool DatabaseFits(Application& app);
bool WriteDatabaseStep(Application& app);
void ShowDatabaseStep(Application& app);

}  // namespace zentaline
