// The module-wide state of the program's core: settings, paths, and the tables of windows.
#pragma once

#include <array>
#include <map>
#include <string>

#include "base/bytes.h"
#include "base/disk.h"
#include "ui/types.h"

namespace zentaline {

// An open-file entry: what the configuration keeps of a window that shows a file. Places are the toolkit's pixels.
struct WindowRecord {
  std::string path;  // without extension, at most 238 bytes; the file system's bytes
  int state = 0;     // 0 closed, 1 and 2 open
  int second = 0;    // of arrangements and styles 1 when the file was opened read-only, of programs the kind of window
  int left = 0;
  int top = 0;
  int width = 0;  // 0: never placed
  int height = 0;
  int window_state = 0;  // ui::WindowState
  int pgg = 0;           // in program windows 1 when the file is a .pgg

  bool operator==(const WindowRecord&) const = default;
};

// The place of a form that there is once.
struct FormState {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int state = 0;   // 0 closed, else it comes back at the next start; of the main window a ui::WindowState
  int second = 0;  // of the forms 4 to 10 the MIDI channel, 0 to 15
  // The size that mnuIngrandisci gives the windows of this kind; 0 is none yet.
  int large_width = 0;
  int large_height = 0;

  bool operator==(const FormState&) const = default;
};

// A record of the list of recent files.
struct RecentFile {
  std::string path;  // without extension
  int type = 0;      // 1 arr, 2 sty, 3 prg, 4 pgg, 5 gbl, 6 bsq; 0 is a free record
  bool read_only = false;

  bool operator==(const RecentFile&) const = default;
};

inline constexpr int kFileWindows = 8;  // of each kind of file
inline constexpr int kRecentFiles = 8;
inline constexpr int kInstrumentWindow = 9;  // the window of what the instrument holds

// Indices of FormStates, which are kinds of windows too.
inline constexpr int kFormStates = 38;
inline constexpr int kMainFormState = 1;

// What the program remembers between two runs.
struct Settings {
  bool RdOnly = false;
  bool CaricaStyNuovoArr = false;
  bool CaricaSty = false;
  bool OpenPrgWithArr = false;  // no menu entry changes it
  bool CaricaPrg = false;
  bool Add40DBArr = false;
  bool VisBarraStato = true;
  bool CaricaArr = false;
  bool AutoPrgSel = false;
  std::array<int, 16> Keyboard = {0, 1, 0, 2, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 60};
  int GlobalSetInInstrument = 0;
  int LastListIndex = 0;
};

struct CoreState {
  bool StartingUp = false;
  bool StopRun = false;
  bool Closing = false;         // the main window is on its way out
  bool ReopeningFiles = false;  // windows of the last run are coming back
  bool FormLoading = false;     // a form fills its controls: handlers must not send
  bool ListBusy = false;        // a list is only put on a row: its handler does nothing
  int LanguageCode = 1;         // 1 Italian, 2 English; of the next start once it is changed
  int LanguageOffset = 0;       // of this run: 0 or 200
  std::string OperationTitle;   // title of error boxes
  int WarningAnswer = 1;        // of frmAvviso1: 0 yes, 1 no, 2 cancel
  int OpenChildCount = 0;

  Settings settings;

  std::map<std::string, FileMark> KnownFiles;  // by path: what this run has last read or written there

  std::string Directory;  // the current directory at start, without a separator at its end
  std::string ConfigFile;
  std::string InternalArrA;  // without ".arr"
  std::string InternalArrB;
  std::string InternalPrg;
  std::string InternalSty;
  std::string GuideFile;
  std::string NotebookFile;
  std::string MultisampleFile;
  std::string DatabaseDir;

  Bytes MultisampleImage;  // as read at start; empty when there is none

  // Entries count from 1, as the windows' numbers do; entry 0 is not used.
  std::array<WindowRecord, 10> ArrWindows;
  std::array<WindowRecord, 17> PrgWindows;
  std::array<WindowRecord, 9> StyWindows;
  // Of these there is one window at a time, and the configuration doesn't keep it.
  std::array<WindowRecord, 2> GblWindows;
  std::array<WindowRecord, 2> BsqWindows;
  std::array<FormState, kFormStates + 1> FormStates;
  std::array<RecentFile, kRecentFiles> RecentFiles;
};

}  // namespace zentaline
