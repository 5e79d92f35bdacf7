// The whole program: its state, what it asks of the platform, and its windows.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "aids/state.h"
#include "arrangement/state.h"
#include "base/disk.h"
#include "core/edits.h"
#include "core/state.h"
#include "core/undo.h"
#include "files/state.h"
#include "global/state.h"
#include "midi/service.h"
#include "midi/state.h"
#include "program/state.h"
#include "style/state.h"
#include "ui/toolkit.h"

namespace zentaline {

class ChildWindow;
class Journal;
class MainWindow;

struct Application {
  // All three are borrowed and outlive the application. `directory` is where the program's files are.
  Application(ui::Toolkit& the_toolkit, MidiService& the_service, Disk& the_disk, const std::string& directory);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  // Reads the configuration, opens the ports and shows the main window. False when the program ends here, because the
  // language window was cancelled or the configuration can't be read.
  bool Start();
  // Before the start: a journal is kept, and what earlier ones left is offered.
  void KeepJournal();
  // What the program does at its end, however that comes: the ports are closed and the configuration is written.
  void End();
  // The end of a session in which nobody can be asked; the program is to end at once then. What the notebook holds is
  // kept, since it never asks.
  void EndUnasked();
  // True from Start until the windows of the last run have come back.
  bool Starting() const { return core.StartingUp || core.ReopeningFiles || reopening_chain; }
  // Of this run: 1 Italian, 2 English.
  int Language() const { return core.LanguageOffset == 0 ? 1 : 2; }

  ui::Toolkit& toolkit;
  MidiService& service;
  Disk& disk;

  CoreState core;
  MidiState midi;
  ArrangementState arrangement;
  ProgramState program;
  StyleState style;
  GlobalState global;
  FilesState files;
  AidsState aids;

  Edits edits{*this};  // what can be saved changes through it
  Undo undo{*this};    // and is taken back by it

  std::unique_ptr<Journal> journal;  // of what isn't saved yet; null where none is kept

  bool reopening_chain = false;  // the timers that bring windows back are running

  // The open windows; null where there is none. The toolkit owns them. File windows count from 1.
  MainWindow* main = nullptr;
  std::array<ChildWindow*, 10> arr_windows{};
  std::array<ChildWindow*, 9> new_arr_windows{};
  std::array<ChildWindow*, 17> prg_windows{};
  std::array<ChildWindow*, 9> sty_windows{};
  std::array<ChildWindow*, 9> new_sty_windows{};
  ChildWindow* prg_editor = nullptr;
  ChildWindow* perf_editor = nullptr;
  ChildWindow* gbl_window = nullptr;
  ChildWindow* bsq_window = nullptr;
  ChildWindow* keyboard = nullptr;
};

}  // namespace zentaline
